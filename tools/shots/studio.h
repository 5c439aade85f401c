#pragma once

#include "widgets/environment.h"

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPoint>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

class QAction;
class QDialog;
class QMenu;
class QTreeWidgetItem;
class QWidget;

namespace tarnwick {
class frmmain;
}

namespace tarnwick::shots {

/// The main window on a program folder, its user's hands, and the camera. What cannot be done is a fault that
/// is printed and counted; the scenes go on.
class Studio : public QObject {
    Q_OBJECT
public:
    Studio(const QString& program_folder, const QString& pictures);
    ~Studio() override;

    /// Closes the window there is and starts anew with these settings in `prefs`, the household being as it was at
    /// first; size in pixels.
    frmmain& start(const QHash<QString, QString>& prefs, QSize size = {1120, 720});
    frmmain& main() { return *main_; }

    /// Works on a fresh database beside the program folder, without any list, recipe or item.
    void use_empty_folder();
    void use_household();

    /// Writes all visible windows, as they lie on the screen, into the next picture.
    void shot(const QString& name);

    /// All visible windows as they lie on the screen, the main window at the bottom; null where there is none.
    QImage scene();

    /// Writes a picture under its name alone, in as few bytes as its colours need.
    void keep(const QString& name, const QImage& image);

    /// Prints by a command of the window into a PDF file beside the pictures.
    void print(const QString& name, const QString& command);

    /// Triggers a command of the window as a menu click does. A fault when it is missing or disabled.
    void command(const QString& name);

    /// Does something that opens a dialog and waits; `drive` gets the dialog when it is up. The dialog is closed
    /// in the end in any case.
    void with_dialog(const std::function<void()>& open, const std::function<void(QDialog&)>& drive);

    /// Within the drive of a dialog: has the one driven that is shown when this is over.
    void drive_next(const std::function<void(QDialog&)>& drive) { driver_ = drive; }

    /// Pops up a menu of the window at a point of the window, takes its picture and closes it.
    void menu_shot(const QString& menu, const QString& name);

    /// A child of the window, or of `parent`, by object name. A fault, and null, when there is none on show.
    QWidget* visible_child(const QString& name, QWidget* parent = nullptr);
    void click(QWidget* widget, QPoint position = {}, Qt::MouseButton button = Qt::LeftButton);
    void click_node(QTreeWidgetItem* node, Qt::MouseButton button = Qt::LeftButton);

    /// The node of the visible tree with this text; a fault, and null, when there is none.
    QTreeWidgetItem* node(const QString& text);

    void settle(); ///< lets pending events run until nothing is left to paint

    void fault(const QString& text);
    int taken() const { return taken_; }
    int faults() const { return faults_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void close();
    void restore_household();
    void close_dialog(QDialog* dialog);

    Environment environment_;
    QString household_folder_;
    QByteArray household_;
    QString pictures_;
    QString paper_; ///< the file that stands for the printer's paper
    std::unique_ptr<frmmain> main_;
    std::function<void(QDialog&)> driver_;
    int taken_ = 0;
    int faults_ = 0;
};

} // namespace tarnwick::shots
