#pragma once

#include "household/clearing_store.h"

namespace tarnwick {

class frmmain;

/// Clears lists and removes rows: asks, and has the household do it.
class Clearing {
public:
    explicit Clearing(frmmain& main);

    /// Opens the clearing dialog on the current list and does what is chosen there.
    void show_dialog();

    /// Clears the current list: 1 unticks its buy-it rows, 2 deletes the unticked, 3 deletes all.
    void clear_list(int mode);

    /// Removes one list row.
    void groc_del(Key groc_key);

    /// Says that the current list has no rows for a clearing in mode 1 to 3.
    void say_no_rows(int mode);

private:
    frmmain& main_;
};

} // namespace tarnwick
