#pragma once

#include "household/placing_store.h"

namespace tarnwick {

class frmmain;
class runtime_error;

/// Puts stock items on lists and ticks their rows.
class Placing {
public:
    explicit Placing(frmmain& main);

    /// Asks before a second placing of an item on a list. True when the user does not want it.
    bool chck_item(Key item_key, Key list_key);

    /// Puts a stock item on the current list; in the all-lists view through the item editor.
    void stock_to_list(Key item_key);

    /// Places an item. Error 9 ends it silently; any other ends the program after a message.
    void add_item(const Placement& placement);

    /// The second half of a placing whose row is written: shows it in grid, tree and status bar.
    void show_placed(const Placement& placement, const PlacedRow& placed);

    /// What an error in a placing leads to, once nothing is held open: as `add_item`. True when the
    /// program goes on.
    bool end_after_error(const runtime_error& error);

    /// Flips the buy-it mark of a grid row.
    void toggle_buy_it(int row);

    /// Writes the status of a grid row's item into the first status panel.
    void show_row_status(int row);

private:
    void place(const Placement& placement);
    void show_row(const Placement& placement, const PlacedRow& placed);
    void show_item(const Placement& placement, int status);
    void show_buy_it(int row, Key item, bool to_get);

    frmmain& main_;
};

} // namespace tarnwick
