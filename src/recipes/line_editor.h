#pragma once

#include "household/ingredient_store.h"
#include "household/rescue.h"

#include <QObject>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QFont;
class QWidget;

namespace tarnwick {

class CellBox;
class EndFrame;
class Ingredients;
class LostClick;
class PickList;
class PictureButton;
class RecipePage;
class frmmain;

/// The editor of an ingredient line: four text boxes over the line, the pick list under the box that has
/// the focus, pencil and cross beside the line.
class LineEditor : public QObject {
    Q_OBJECT
public:
    LineEditor(frmmain& main, RecipePage& page);
    ~LineEditor() override;

    bool is_open() const { return open_; }
    int index() const; ///< the line under the editor; -1 when closed

    /// Opens on a line, on a new one below the last for -1. A line that has gone is not opened.
    /// Throws error 6 when a new line has no place on the page.
    void show_r_line(int index);

    /// Closes all floating editors of list and page; what is not written is not saved.
    void hide_line();

    void end_edit(); ///< sends the focus to the instructions, so that the edit finishes

    /// What happens when the focus goes elsewhere: the box under work is written, the name is checked, and
    /// the editor closes when there is one.
    void leave();

    /// Saves what can be saved and closes without a message: the page is about to change.
    void close_quietly();

    /// The trimmed text of a box; empty for a placeholder.
    QString field(IngredientField field) const;

    /// The line under edit when a box holds a text that is not stored.
    std::optional<RescuedLine> unstored() const;

    /// Shows a text in a box as if it had been there when the editor opened.
    void set_field(IngredientField field, const QString& text);

    /// Takes a row of the stock list as the line's item; the name that is in the box already changes
    /// nothing. Goes on to the comment.
    void ListIngred_select(int row);

    Ingredients& ingredients() { return *ingredients_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Box {
        CellBox* edit;
        QString placeholder;
    };

    // Opening
    void make_boxes();
    void make_end_frame();
    void mouse_down(int index, Qt::MouseButton button);
    void mouse_up(int index, Qt::MouseButton button, QPoint position);
    void open_line(int index);
    void show_menu(int index, QPoint position);
    void fill_boxes(const IngredientRow& row);
    void set_placeholder(const Box& box);
    void set_value(const Box& box, const QString& text);
    void show_controls();
    void grey_lines();
    void blacken_lines();

    // Geometry
    void place();
    void set_ingred_font();
    std::array<int, 4> box_widths(int room) const;
    void place_list();
    QFont box_font(int box) const;

    // Focus
    int box_of(const QWidget* widget) const;
    bool is_placeholder(int box) const;
    bool is_part(const QWidget* widget) const;
    void box_entered(int box);
    bool focus_left(int box, Qt::FocusReason reason);
    bool ing_flt_updt(int box);
    void name_left(const QString& name);
    void new_name_left(Key item);
    QString tag_of(int box) const;
    void list_left(Qt::FocusReason reason);
    void lf_validate(const QWidget* active);
    void lf_finish();
    void ask_for_name();
    void restore_name();
    void hide_controls();
    bool refuse_apostrophe();

    // Typing
    void box_changed(int box);
    void mark_changed(int box);
    bool key_in_box(int box, int key, Qt::KeyboardModifiers held);
    bool pick_key_handler(int box, int key);
    int row_meant(const QString& name) const;
    void go_to(int box);
    void fill_list(int box);
    void ListIngred_fill();
    std::vector<StockName> stock_names(const QString& text) const;
    void show_names(std::vector<StockName> names);
    void picked(int row);

    // Buttons
    void edit_clicked();
    void scratch_clicked();
    bool scratch_key(int key);

    frmmain& main_;
    RecipePage& page_;
    std::unique_ptr<Ingredients> ingredients_;
    std::array<Box, 4> boxes_{};
    LostClick* lost_click_;
    PickList* list_ = nullptr;
    EndFrame* end_frame_ = nullptr;
    PictureButton* imgedit_ = nullptr;
    PictureButton* imgScratch_ = nullptr;
    int index_ = -1;
    int last_box_ = 0; ///< the box that has or had the focus last
    IngredientRow opened_; ///< the line as it was when the editor opened
    Key opened_link_ = -1; ///< stock item that belongs to the name in the item box's Tag
    bool open_ = false;
    bool filling_ = false; ///< texts are being shown, not typed
    bool busy_ = false; ///< the editor moves the focus itself, or asks a question
};

} // namespace tarnwick
