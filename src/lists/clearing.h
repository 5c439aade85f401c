#pragma once

#include "household/clearing_store.h"

namespace tarnwick {

class frmmain;

/// Clears lists and removes rows, with all that follows for stock items, tree and recipe page.
class Clearing {
public:
    explicit Clearing(frmmain& main);

    /// Clears the current list: 1 unticks its buy-it rows, 2 deletes the unticked, 3 deletes all.
    void clear_list(int mode);

    /// Removes one list row, from the grid and with its effect on the tree as asked.
    void groc_del(Key groc_key, bool remove_from_grid, bool update_tree);

    /// The second half of `groc_del`: shows that a list row is gone. `item` is the stock item that was
    /// behind it, none without a link.
    void show_removed(Key groc_key, const std::optional<ItemStatus>& item, bool remove_from_grid, bool update_tree);

    /// Shows what a clearing of the current list in mode 1 to 3 has changed.
    void show_cleared(int mode, const std::vector<ItemStatus>& items);

    /// Says that the current list has no rows for a clearing in mode 1 to 3.
    void say_no_rows(int mode);

private:
    void clear_grid(int mode);
    void show_in_tree(const ItemStatus& item, bool tag_too);
    void show_on_page(const ItemStatus& item);

    frmmain& main_;
};

} // namespace tarnwick
