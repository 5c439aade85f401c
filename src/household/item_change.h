#pragma once

#include "data/text.h"
#include "household/grid_row.h"
#include "household/treatment.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

/// The status codes of a stock item after an operation, as the table of treatments has them; none where what is
/// shown stays.
struct ItemCodes {
    Key item = 0;
    StatusCode status = StatusCode::non_stock; ///< the true code
    std::optional<StatusCode> node; ///< for picture and Tag of its node
    std::optional<StatusCode> page; ///< for its lines on the recipe page
};

/// A list row as an operation left it. A row that was only marked has its keys and its mark alone.
struct WrittenRow {
    enum class Kind { placed, rewritten, marked };
    Kind kind = Kind::marked;
    GridRow row;
};

/// What was written of a stock item itself.
struct ItemRecord {
    QString name;
    Key category = 0;
    bool is_new = false;
    bool renamed = false;
    bool moved = false; ///< to another category
    bool linked_by_name = false; ///< every recipe line of its name was linked to it
};

/// What an operation did to stock items and their list rows.
struct ItemChange {
    Cause cause = Cause::placing;
    std::vector<ItemCodes> items;
    std::vector<WrittenRow> written;
    std::vector<Key> gone; ///< `groc_1` keys of rows that were deleted
    std::optional<ItemRecord> record; ///< of the one item
    bool quiet = false; ///< no new row is brought to the user's eye
    bool opened = true; ///< a new row is opened for editing where its list is on show
};

} // namespace tarnwick
