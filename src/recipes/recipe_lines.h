#pragma once

#include "data/text.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPoint>
#include <QString>

#include <vector>

class QWidget;

namespace tarnwick {

class IngredientText;
class PagePicture;
enum class StatusCode;

/// One ingredient line on the recipe page: its record, its measure and its three controls.
struct IngredientLine {
    Key key = -1; ///< `recipe_2.key_id`, the Tag of `lite`; -1 none
    Key item_ref = -1; ///< stock item, the Tag of `Check1`; -1 none
    int other = 0; ///< characters of the text that are no capitals
    int upper = 0; ///< capitals A to Z of the text
    QString item; ///< the line's item name; with the two counts the Tag of `ingred`
    QString text;
    QString tool_tip;
    bool simple_height = false; ///< added since the last load: estimated without the type size
    int rows = 1; ///< rows it takes on the page
    IngredientText* ingred = nullptr;
    PagePicture* lite = nullptr;
    PagePicture* Check1 = nullptr;

    bool is_new() const { return key < 0; } ///< not in the database yet
    void count_capitals(); ///< fills the two counts from the text
};

/// The ingredient lines of the recipe page. Their controls are kept from one recipe to the next;
/// element 0 stands at all times and is hidden while the recipe has no line.
class RecipeLines : public QObject {
    Q_OBJECT
public:
    explicit RecipeLines(QWidget& page);

    /// The lines of the recipe, none for an empty one.
    std::vector<IngredientLine>& lines() { return lines_; }
    const std::vector<IngredientLine>& lines() const { return lines_; }
    int count() const { return static_cast<int>(lines_.size()); }

    /// The last line is under the editor and not in the database yet.
    bool has_new_line() const { return count() > 0 && lines_.back().is_new(); }

    /// The highest index of the control arrays: 0 for an empty page as well.
    int upper_bound() const { return count() > 0 ? count() - 1 : 0; }

    void clear();

    /// Puts a line at another index; those between move up or down.
    void move(int from, int to);

    /// Index of a record's line; -1 when it is not on the page.
    int index_of(Key line) const;

    /// Appends a hidden line with its record, text and item name; `show` and `place` are the caller's.
    IngredientLine& append(Key key, Key item_ref, const QString& text, const QString& item);
    void remove_last();

    /// Shows text, tool tip and Tags of a line as its members have them.
    void refresh(int index);

    /// Light and check box of a line for a status code.
    void set_lites(int index, StatusCode code, int color_index);

    /// Places all lines, however many, for a width of the page in pixels.
    void place(int page_width, int type_size);

    /// Whether a new line of this text has a place below the lines that are stored.
    bool has_room(const QString& text, int page_width, int type_size) const;

    /// Shows the controls of the lines there are and hides the rest. Until then a page that is being
    /// rebuilt keeps what was shown; its updates are off.
    void show_lines();
    void set_fonts(const QFont& font);
    void set_text_color(const QColor& color);

    int wrap_extra() const { return wrap_extra_; } ///< estimated rows beyond one, of all lines
    int surplus() const { return surplus_; } ///< pixels that the estimate was short of, of all lines
    int bottom() const; ///< lower edge of the last line, pixels

signals:
    // Positions are pixels inside the line's text.
    void mouse_down(int index, Qt::MouseButton button, QPoint position);
    void drag_wanted(int index, QPoint global); ///< a line is dragged; place on the screen
    void mouse_up(int index, Qt::MouseButton button, QPoint position);
    void keyboard_came(int index); ///< to a line; not by a press, nor with the window
    void key_down(int index, int key); ///< Qt::Key on the line that has the focus
    void check_clicked(int index);

private:
    struct Controls {
        IngredientText* ingred;
        PagePicture* lite;
        PagePicture* Check1;
    };
    Controls& controls(int index);
    void show_first_empty();
    void place_line(int index, int width, int type_size);

    QWidget& page_;
    std::vector<Controls> pool_;
    std::vector<IngredientLine> lines_;
    int wrap_extra_ = 0;
    int surplus_ = 0;
};

} // namespace tarnwick
