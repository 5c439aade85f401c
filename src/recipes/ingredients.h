#pragma once

#include "data/text.h"
#include "household/line_draft.h"

#include <QString>

namespace tarnwick {

struct Program;
class LineEditor;
class RecipePage;
class runtime_error;

/// The operations that add, change and delete ingredient lines.
class Ingredients {
public:
    Ingredients(Program& program, RecipePage& page, LineEditor& editor);

    void add_ns_ingred(); ///< opens the line editor on a new empty line

    /// Starts a line of a stock item with its display name, after a question when the recipe has it already.
    void drag_ingred(Key item, const QString& name);

    /// Inserts the line at the recipe's end. False when the name is missing, after the message.
    bool add_ingred(const LineDraft& draft);

    void ingred_del(int index); ///< at once, without a question; no line has the focus afterwards

    /// The cross: drops a new line, deletes an existing one.
    void cancel();

    /// Whether a stock item is on the page's recipe.
    bool check_exist(Key item) const;

    /// What an error while a line is added leads to: error 13 drops the line silently, any other ends the
    /// program after a message.
    void end_after_error(const runtime_error& error);

private:
    bool begin_line();
    bool open(const LineDraft& draft);
    int new_place() const;
    void drop_new_line();

    Program& program_;
    RecipePage& page_;
    LineEditor& editor_;
};

} // namespace tarnwick
