#pragma once

#include "household/placing_store.h"

namespace tarnwick {

class ListPane;
struct Program;

/// Whether a placing goes on after the question about a second row.
enum class PlacingAnswer { go_on, cancelled };

/// Puts stock items on lists and ticks their rows: asks, and has the household do it.
class Placing {
public:
    Placing(Program& program, ListPane& pane);

    /// Asks before a second placing of an item on a list; goes on without a word otherwise.
    PlacingAnswer chck_item(Key item_key, Key list_key);

    /// Puts a stock item on the current list; in the all-lists view through the item editor.
    void stock_to_list(Key item_key);

    /// Places an item. Error 9 ends it silently; any other ends the program after a message.
    void add_item(const Placement& placement);

    /// Flips the buy-it mark of a grid row.
    void toggle_buy_it(int row);

    /// Writes the status of a grid row's item into the first status panel.
    void show_row_status(int row);

    /// Says that the current list has no record.
    void say_list_gone();

private:
    void place(const Placement& placement);

    Program& program_;
    ListPane& pane_;
};

} // namespace tarnwick
