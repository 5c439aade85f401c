#pragma once

#include "data/text.h"
#include "household/recipe_store.h"

#include <QObject>
#include <QString>

class QLineEdit;

namespace tarnwick {

struct Program;
struct Rescue;
class FocusQuestion;
class PageText;

/// Name and instructions of the recipe page: what is typed into them, when it is stored, and the name that may not
/// be left empty. The Tags of both boxes mirror what it knows.
class PageTexts : public QObject {
    Q_OBJECT
public:
    PageTexts(Program& program, QLineEdit& title, PageText& text);

    static const QString no_recipe_hint;

    Key recipe() const { return recipe_; } ///< whose they are; -1 none
    bool is_edited() const { return name_edited_ || text_edited_; } ///< since they were read or stored

    /// Reads the texts of a recipe, unmarked, and makes it the current one. Without such a recipe they are empty
    /// and closed to typing.
    void read(Key recipe);

    void edit_updt(); ///< stores both when either was edited; throws SQLite::Exception

    void add_unstored(Rescue& rescue) const; ///< what of them is not stored

    /// Stores both when the name may be left. Else the name is another one, its box has the focus back, and a
    /// message has told why.
    bool name_stands();

    void tell_name_left(bool by_mouse); ///< when it was typed in since

signals:
    void name_marked(const QString& mark); ///< another dirty mark of the name: "edited" or "clean"
    void name_typed(tarnwick::Key recipe, const QString& name); ///< trimmed, at each change by the user

    /// The name was left after a change, `by_mouse` with the press that took the focus still to come.
    void name_left(tarnwick::Key recipe, bool by_mouse);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void set_recipe(Key recipe);
    void mark_name(bool edited);
    void mark_text(bool edited);
    void name_changed();
    void write();
    bool name_validated();
    void tell_name_missing();

    Program& program_;
    QLineEdit& title_;
    PageText& text_;
    FocusQuestion* question_; ///< for the name that was left empty
    Key recipe_ = -1;
    RecipeText stored_; ///< as they were read or written last
    bool name_edited_ = false;
    bool text_edited_ = false;
    bool renamed_ = false; ///< the name was typed in since it was left
    bool reading_ = false;
};

} // namespace tarnwick
