#pragma once

#include "data/text.h"
#include "household/recipe_store.h"
#include "household/recipe_sheet.h"
#include "recipes/recipe_lines.h"

#include <QEvent>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QFrame;
class QLabel;
class QLineEdit;
class QScrollBar;
class QWidget;

namespace tarnwick {

struct Program;
class Ingredients;
class LineEditor;
class LineListener;
class LineStock;
class PageText;
class PageTexts;
enum class StatusCode;
struct Rescue;
struct ListsChange;

/// What the page's own procedures hand to each other.
struct PageState {
    int cur_line = 0; ///< the line most recently acted on
    int sel_line = 0; ///< the line that the line editor belongs to
};

/// The right pane's recipe page: title, ingredient lines with their lights, instructions.
class RecipePage : public QObject {
    Q_OBJECT
public:
    RecipePage(Program& program, QWidget* parent);
    ~RecipePage() override;

    QFrame& frame4() { return *frame4_; } ///< the viewport
    QFrame& frame3() { return *frame3_; } ///< the page that moves in it; all lines and boxes lie on it
    QScrollBar& scroll_bar() { return *scroll_bar_; }
    QLineEdit& title() { return *title_; }
    PageText& Text1() { return *text1_; }

    /// Rebuilds the page, however long, with a recipe, which is the current one from now on. Below 1, or without
    /// such a recipe, it is empty and closed to typing.
    void set_recipe(Key recipe);

    PageTexts& texts() { return *texts_; } ///< name and instructions: what is typed, and its storing

    /// What a rescue of the page would hold: texts of the boxes that are not stored.
    void add_unstored(Rescue& rescue) const;

    Key page_key() const; ///< the recipe on the page; -1 none
    bool has_recipe() const { return page_key() > 0; } ///< a recipe is on the page

    int get_scroll_scale() const; ///< height of the page's content, pixels

    // The ingredient lines, for the line editor and the drag of a line.
    PageState state;
    RecipeLines& recipe_lines() { return *recipe_lines_; } ///< emits the mouse and key events of the lines
    std::vector<IngredientLine>& lines() { return recipe_lines_->lines(); }

    /// Index that a new line will have: 0 on an empty page.
    int next_index() const { return recipe_lines_->count(); }

    /// Whether a new line of this text has a place on the page.
    bool has_room(const QString& text) const;

    /// Appends a line that was just inserted, without its light, and moves the instructions down.
    /// Returns its index.
    int new_line(Key key, Key item_ref, const QString& text, const QString& item);

    /// Takes the last line off the page and moves the instructions up.
    void drop_last_line();

    /// Shows text, tool tip and Tags of a line as its members have them.
    void refresh_line(int index) { recipe_lines_->refresh(index); }

    void set_lites(int index, StatusCode code); ///< light and check box of a line

    /// Scrolls as little as needed to bring a stretch of the page into the viewport, pixels from its top.
    void show_stretch(int top, int bottom);
    void show_control(const QWidget& control); ///< one that lies on the page

    /// The line's item name.
    QString rcp_item(int index) const;

    /// The item name that the item editor is opened with, in the hidden `Label1`.
    QString rcp_item_in_work() const;
    void set_rcp_item_in_work(const QString& name);

    /// Where the page takes the keyboard from outside: the line most recently acted on, without lines the
    /// instructions; null while it shows nothing.
    QWidget* keyboard_place() const;

    /// Gives the keyboard to a line and brings it into view; before the first to the name, behind the last to the
    /// instructions.
    void go_to_line(int index);

    bool editor_open() const; ///< the line editor stands open

    /// The boxes of an open line editor lose the focus to the tree: finishes the edit.
    bool finish_line_editor(); ///< false when it stays open
    bool leave_line_editor(); ///< the same; false when none was open

    bool shows_item(Key item) const; ///< a line has this stock item

    /// Loads the page again when a list has gone, whose rows its lights depend on.
    void lists_changed(const ListsChange& change);

    /// Saves what can be saved of an open line editor and closes it without a question.
    void close_line_editor();

    /// Finishes line editor, name and instructions as leaving them does. False when a name was refused: the focus
    /// is back in its box.
    bool leave_editors();

    /// The page as it stands; nothing without a recipe.
    std::optional<RecipeSheet> sheet() const;

    LineEditor& line_editor() { return *line_editor_; }
    LineStock& line_stock() { return *line_stock_; }
    LineListener& line_listener() { return *line_listener_; }
    Ingredients& ingredients();

    // As of `Ingredients`, where the page takes lines: it has a recipe, and a title that may be left.
    void add_ns_ingred();
    void drag_ingred(Key item, const QString& name);

    void show_pane(bool shown); ///< shows the page, or closes its line editor and hides it
    void set_page_color(); ///< takes the page colour over from `SharedValues`
    void set_type_size(); ///< takes the type size over from `SharedValues`, other than 9, 10 and 12 as 9
    void layout_page(); ///< places title, lines and instructions in the width of the viewport

signals:
    void laid_out(); ///< lines and boxes have taken new places
    void ingredient_wanted(); ///< Ctrl+I
    void adding_line(); ///< a line without a stock item is about to be added
    void editors_closing(); ///< all floating editors are to go, those of the list as well
    void recipe_shown(); ///< name and instructions of another recipe, or of none, are on the page
    void line_menu_wanted(const QString& item, QPoint place); ///< right click on a line; place on the screen

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void make_page();
    void set_title_font();
    void make_line_editor();
    void fill_lines(Key recipe);
    bool takes_lines();
    void show_caret();
    void place_text();
    void scroll();
    int scrolled_by_bar(int excess) const;
    void scroll_bar_refresh();
    int text_top() const;
    int text_width() const;
    void place_hint();
    int content_height() const;
    int color_index() const;

    Program& program_;
    QFrame* frame4_;
    QFrame* frame3_;
    QScrollBar* scroll_bar_;
    QLineEdit* title_;
    PageText* text1_;
    QLabel* label1_;
    QLabel* hint_; ///< on a recipe without ingredients
    RecipeLines* recipe_lines_;
    PageTexts* texts_;
    LineEditor* line_editor_ = nullptr;
    LineStock* line_stock_ = nullptr;
    std::unique_ptr<LineListener> line_listener_;
    bool page_busy_ = false; ///< the page is being rebuilt
    int off_bar_ = 0; ///< pixels that the page was scrolled to beside a whole step of the scroll bar
    int scrolled_ = 0; ///< pixels of the page above the viewport
};

} // namespace tarnwick
