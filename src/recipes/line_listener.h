#pragma once

#include "data/text.h"

namespace tarnwick {

class RecipePage;
struct IngredientRow;
struct LineMove;
struct Program;

/// Shows on the recipe page what operations did to its ingredient lines. What reads throws SQLite::Exception.
class LineListener {
public:
    LineListener(Program& program, RecipePage& page);

    void line_added(Key recipe, const IngredientRow& row);
    void line_changed(const IngredientRow& row);
    void line_moved(const LineMove& move);

    /// Closes the line editor and loads the page again. Had a line or the editor the keyboard, the line in the
    /// place of the one that has gone gets it.
    void line_gone(Key line);

    /// Loads the page again and gives the line the keyboard.
    void line_returned(Key recipe, int place);

    /// Takes back what a line shows of an edit that has ended: it looks as it is stored, or as `gone` when it is
    /// not stored any more.
    void show_stored(int index, const IngredientRow& gone);

private:
    void show(int index, const IngredientRow& row);
    void show_light(int index);

    Program& program_;
    RecipePage& page_;
};

} // namespace tarnwick
