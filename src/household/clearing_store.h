#pragma once

#include "data/connection.h"
#include "data/text.h"
#include "household/treatment.h"

#include <optional>
#include <vector>

namespace tarnwick {

/// The ways to clear a list; the numbers are those of `clear_list`.
enum class ClearMode { uncheck = 1, delete_unchecked = 2, delete_all = 3 };

/// A list row and the stock item behind it.
struct LinkedRow {
    Key groc_key;
    Key item;
};

/// Whether a clearing in this mode finds rows on the list.
bool has_rows_to_clear(Connection& connection, Key list, ClearMode mode);

/// What a clearing has changed.
struct ClearedRows {
    std::vector<ItemStatus> items; ///< each stock item behind the rows once, if it still exists
    std::vector<LinkedRow> rows;
};

/// Clears a list in mode 1 to 3 and repairs `tie`, in one transaction; without rows nothing is written.
/// Throws SQLite::Exception.
ClearedRows clear_rows(Connection& connection, Key list, ClearMode mode);

/// Deletes one list row with its link, in one transaction. Returns the stock item behind it; nothing when
/// the row had no link. Throws SQLite::Exception.
std::optional<ItemStatus> delete_list_row(Connection& connection, Key groc_key);

/// The same, and repairs `tie` when the row had a link.
std::optional<ItemStatus> remove_list_row(Connection& connection, Key groc_key);

} // namespace tarnwick
