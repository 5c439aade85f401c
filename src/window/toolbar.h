#pragma once

#include <QObject>
#include <QString>

#include <array>

class QAction;
class QToolButton;
class QWidget;

namespace tarnwick {

class frmmain;

/// The toolbar `Toolbar1` of eighteen buttons.
class Toolbar : public QObject {
    Q_OBJECT
public:
    Toolbar(frmmain& main, QWidget* parent);

    QWidget& widget() { return *bar_; }

    /// Button or separator 1 to 18.
    QWidget& button(int index) const;

    void set_tool_tip(int index, const QString& text);
    void set_enabled(int index, bool enabled);
    QString tag(int index) const;
    void set_tag(int index, const QString& tag);

    /// The command of the menus that a button stands for in the present state; empty for one without.
    QString command_of(int index) const;

    /// Applies pictures, captions and tool tips, then decides which buttons fit the window.
    void toolbar_fit();

    /// Buttons 16 and 17 from the sort flags.
    void sort_btn_refresh();

    /// Load's own setting of the size buttons, the reverse of what the cycle sets.
    void set_size_button_at_start(int type_size);

    /// Button 18 and button 14's Tag for a size that the cycle has reached.
    void set_size_button(int image, const QString& tag, const QString& tool_tip);

    /// Height of the bar and the width that its fixed buttons and "More..." need, pixels.
    int height() const;
    int least_width() const;

private:
    void make_button(int index);
    void make_separator(int index);
    void add_drop_down(int index, const char* key, const QString& caption);
    void clicked(int index);
    void drop_down_clicked(const QString& key);
    void pop_up_more(int index);
    void restore_standing_state();
    void place_buttons();
    bool fits(int index) const;
    void show_button(int index, bool shown);
    void set_picture(int index, int picture);
    void set_folder_button();

    frmmain& main_;
    QWidget* bar_;
    std::array<QWidget*, 19> buttons_{};
    std::array<bool, 19> shown_{};
};

} // namespace tarnwick
