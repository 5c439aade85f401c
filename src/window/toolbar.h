#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <functional>
#include <vector>

class QAction;
class QToolButton;
class QWidget;

namespace tarnwick {

class Commands;
struct SharedValues;

/// The buttons and separators of the toolbar by their numbers.
enum class ToolButton : int {
    new_list = 1,
    clear,
    lists,
    after_lists,
    new_recipe,
    ingredient,
    after_recipe,
    stock,
    after_stock,
    print,
    preview,
    word_processor,
    email,
    size_direction, ///< a separator, whose Tag holds the direction of the size cycle
    find,
    sort,
    folders,
    size,
};

/// The toolbar `Toolbar1` of eighteen buttons.
class Toolbar : public QObject {
    Q_OBJECT
public:
    /// What the buttons that stand for no command do, and what follows a new fit.
    struct Acts {
        std::function<void()> preview;
        std::function<void(bool by_name)> sort;
        std::function<void(int points)> set_size;
        std::function<void()> next_size;
        std::function<void()> fitted; ///< the bar may have another height
    };

    Toolbar(const SharedValues& shared, Commands& commands, Acts acts, QWidget* parent);

    QWidget& widget() { return *bar_; }

    QWidget& button(ToolButton which) const { return part(static_cast<int>(which)); }

    /// The buttons that can be pressed now, from the left.
    std::vector<QToolButton*> usable_buttons() const;

    void set(ToolButton which, const QString& tool_tip, bool enabled);
    void set_tool_tip(ToolButton which, const QString& text);
    void set_enabled(ToolButton which, bool enabled);
    QString tag(ToolButton which) const;
    void set_tag(ToolButton which, const QString& tag);

    /// Points of the captions; a window that is too narrow for them gets smaller ones.
    void set_type_size(int points) { type_size_ = points; }

    /// Applies pictures, captions and tool tips, then decides which buttons fit the window.
    void toolbar_fit();

    /// Sort and Snap for the tree on show and its order.
    void show_sort(bool stock, bool by_name);

    /// Load's own setting of the size buttons, the reverse of what the cycle sets.
    void set_size_button_at_start(int type_size);

    /// Button 18 and button 14's Tag, "UP" or "DN", for a size that the cycle has reached.
    void set_size_button(const QString& tag, const QString& tool_tip);

    /// Height of the bar and the width that its fixed buttons and "More..." need, pixels.
    int height() const;
    int least_width() const;

private:
    QWidget& part(int number) const { return *buttons_.at(static_cast<size_t>(number)); }
    QToolButton& tool_button(ToolButton which) const;
    QString command_of(ToolButton which) const;
    void make_button(int number);
    void make_separator(int number);
    void add_drop_down(ToolButton owner, const char* key, const QString& caption);
    void clicked(ToolButton which);
    void drop_down_clicked(const QString& key);
    void pop_up_more(ToolButton which);
    void restore_standing_state();
    void set_caption_points(int points);
    void measure_widest();
    int width_of(int number) const;
    void place_buttons();
    int window_width() const;
    bool fit_type();
    void give_room();
    bool fits(ToolButton which) const;
    void show_button(ToolButton which, bool shown);
    void set_picture(ToolButton which, int picture);
    void set_folder_button();

    const SharedValues& shared_;
    Commands& commands_;
    Acts acts_;
    QWidget* bar_;
    int type_size_ = 0;
    std::array<QWidget*, 19> buttons_{};
    std::array<bool, 19> shown_{};
    std::array<int, 19> widest_{}; ///< widths with the largest captions, pixels
    std::array<int, 19> room_{}; ///< least widths that the buttons are given: the widest, or 0
    bool stock_ = true; ///< the tree on show
    bool by_name_ = false; ///< its order
};

} // namespace tarnwick
