#pragma once

#include <QObject>
#include <QPoint>
#include <QRandomGenerator>
#include <QStringList>

#include <span>

class QDialog;
class QMenu;
class QWidget;

namespace tarnwick {
class TestWindow;
class frmmain;
} // namespace tarnwick

namespace tarnwick::random_use {

/// A user who works a main window by mouse and keyboard at random, and answers whatever dialog or menu comes up.
class User : public QObject {
    Q_OBJECT
public:
    User(TestWindow& window, quint32 seed);
    ~User() override;

    TestWindow& window() { return window_; }
    frmmain& main();

    int below(int bound) { return static_cast<int>(random_.bounded(quint32(bound))); } ///< 0 to bound - 1
    bool chance(int percent) { return below(100) < percent; }
    template <typename List> auto any_of(const List& list) { return list[below(static_cast<int>(list.size()))]; }

    /// A name or text as users type and paste them: signs of SQL and patterns, accents, line ends, nothing.
    QString text();

    /// A press and release where the point of the widget is on the screen, on whatever lies on top there.
    void click(QWidget& widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
    void double_click(QWidget& widget, QPoint point);
    void press_key(int key, Qt::KeyboardModifiers modifiers = {}); ///< on the control that has the keyboard
    void type(const QString& text); ///< there too, or pastes it from the clipboard

    /// Lets everything happen that waits for the event loop, and closes what pops up without being asked.
    void settle();

    void note(const QString& what); ///< for the account of the last actions
    void fault(const QString& text) { faults_ += text; } ///< what an action found that does not hold
    const QStringList& trail() const { return trail_; }

    QStringList take_faults(); ///< messages of errors, dialogs that cannot be closed, faults that were told

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QDialog& dialog);
    void choose(QMenu& menu);
    void use_a_control(QDialog& dialog);
    static QWidget* on_top(QWidget& widget, QPoint& point);
    QWidget* keyboard();

    TestWindow& window_;
    QRandomGenerator random_;
    QStringList trail_;
    QStringList faults_;
    int depth_ = 0; ///< dialogs being answered, one from the other
};

/// One kind of action; false when the window offers no occasion for it.
struct Act {
    const char* name;
    int weight;
    bool (*act)(User& user);
};

} // namespace tarnwick::random_use
