#pragma once

#include "data/connection.h"
#include "data/text.h"
#include "household/treatment.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tarnwick {

/// What a stock item is placed on a list with.
struct Placement {
    Key list_key = 0;
    QString desc = QStringLiteral(" ");
    Key qty = 0;
    bool to_get = true;
    QDate created;
    QDate modified;
    QString aisle = QStringLiteral(" ");
    Key item_key = 0;
    bool quiet = false; ///< neither the row nor the tree's status is brought to the user's eye
    bool opened = true; ///< the row is opened for editing where its list is on show
};

/// A list row just made.
struct PlacedRow {
    Key groc_key;
    QString item; ///< the stock item's name, trimmed
    StatusCode status; ///< the item's status code with the new row
};

/// Writes a new list row, its link and the item's flag and status, in one transaction. Nothing when
/// there is no such stock item or no such list. Throws SQLite::Exception, and error 6 when the keys are used up.
std::optional<PlacedRow> insert_list_row(Connection& connection, const Placement& placement);

/// A row that an item already has on a list.
struct ListedRow {
    QString item;
    bool to_get;
};

/// The first row of an item on a list; nothing when it is not on it.
std::optional<ListedRow> item_on_list(Connection& connection, Key item, Key list);

/// Writes the buy-it mark of a list row and the plain code 7 or 6 of its item, in one transaction.
/// Returns the item with its true code; nothing, and no change, when the row is not on the list. Throws
/// SQLite::Exception.
std::optional<ItemStatus> write_buy_it(Connection& connection, Key groc_key, Key list, bool to_get);

/// The stock item behind a list row.
std::optional<Key> item_of_row(Connection& connection, Key groc_key);

} // namespace tarnwick
