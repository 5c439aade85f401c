#pragma once

#include "household/line_draft.h"

#include <QColor>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

namespace tarnwick {

struct Program;
class FocusQuestion;
class Ingredients;
class LineBoxes;
class LineButtons;
class LineClicks;
class LineKeys;
class LineName;
class LinePicks;
class PickList;
class RecipePage;
struct IngredientLine;

/// The edit of one ingredient line, from its opening to its end: what is typed goes into a draft, the draft into
/// the file when a box is left, and the questions come when the focus has left the editor.
class LineEditor : public QObject {
    Q_OBJECT
public:
    static constexpr QColor grey{164, 164, 164}; ///< the lines while one is edited

    LineEditor(Program& program, RecipePage& page);
    ~LineEditor() override;

    bool is_open() const { return open_; }
    int index() const; ///< the line under the editor; -1 when closed
    const LineDraft& draft() const { return draft_; } ///< the line under the editor, or the last one
    bool lines_greyed() const; ///< a press on a greyed line is under way

    /// Opens on a line of the page; on a new one below the last without an index.
    void show_r_line(const LineDraft& draft, std::optional<int> index = std::nullopt);

    /// Closes all floating editors of list and page; what is not written is not saved.
    void hide_line();

    bool is_part(const QWidget* widget) const; ///< one of the boxes, their buttons or the list under them
    QWidget* open_box() const; ///< the box that had the focus last, while the editor is open; else null

    void blacken_lines(); ///< the lines look as without an editor, with fresh tool tips

    /// Closes the editor and takes back what the edit wrote: a new line goes, another has all its fields as they
    /// were. The keyboard stays on the line.
    void give_up();

    void end_edit(); ///< finishes the edit and gives the focus to the instructions; may ask first

    /// What happens when the focus goes elsewhere: the box under work is written, and the editor closes. Without a
    /// usable name it stays, and asks soon.
    void leave();

    /// Saves what can be saved without a message and closes; stays open when a new line has no name.
    void store_quietly();

    void close_quietly(); ///< the same, and drops the line without a name: the page is about to change

    Ingredients& ingredients() { return *ingredients_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Opening
    void fill_boxes();
    void show_controls();
    void grey_lines();
    void place();

    // Typing
    void typed(IngredientField field);
    bool refuse_apostrophe();
    void picked(int row);
    void ListIngred_select(int row);

    // Focus
    void go_to(IngredientField field);
    void box_entered(IngredientField field);
    void enter_for_drop(IngredientField field);
    void focus_left(std::optional<IngredientField> field, Qt::FocusReason reason);
    void list_left(Qt::FocusReason reason);
    void left_box(IngredientField field);
    void write();

    // Closing
    bool may_close() const;
    void lf_validate(Qt::FocusReason reason);
    void finish_or_ask();
    bool has_room() const;
    void refuse_length();
    void ask_for_name();
    void lf_finish();
    void hide_controls();

    IngredientLine& line();

    Program& program_;
    RecipePage& page_;
    bool open_ = false; ///< known before the boxes, whose first events come while they are made
    std::unique_ptr<Ingredients> ingredients_;
    std::unique_ptr<LineBoxes> boxes_;
    FocusQuestion* question_;
    std::unique_ptr<LinePicks> picks_;
    PickList& list_;
    std::unique_ptr<LineKeys> keys_;
    std::unique_ptr<LineClicks> clicks_;
    LineDraft draft_;
    IngredientRow before_; ///< the line when the edit began
    std::unique_ptr<LineName> name_;
    std::unique_ptr<LineButtons> buttons_;
    int index_ = -1;
    IngredientField last_box_ = IngredientField::qty; ///< the box that has or had the focus last
    bool busy_ = false; ///< the editor moves the focus itself, or asks a question
};

} // namespace tarnwick
