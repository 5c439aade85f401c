#pragma once

#include "household/clearing_store.h"

namespace tarnwick {

class Placing;
struct Program;

/// Clears lists and removes rows: asks, and has the household do it.
class Clearing {
public:
    Clearing(Program& program, Placing& placing);

    /// Clears the current list: 1 unticks its buy-it rows, 2 deletes the unticked, 3 deletes all.
    void clear_list(ClearMode mode);

    /// Removes one list row.
    void groc_del(Key groc_key);

    /// Says that the current list has no rows for a clearing.
    void say_no_rows(ClearMode mode);

private:
    Program& program_;
    Placing& placing_;
};

} // namespace tarnwick
