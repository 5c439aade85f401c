#pragma once

#include "data/collation.h"
#include "data/connection.h"
#include "data/text.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

enum class StatusCode;

/// A category with the count of its items.
struct CatalogueFolder {
    Key key = 0;
    QString name;
    bool expand = false;
    int items = 0;
};

/// A stock item as the tree shows it: its stored status, nothing computed.
struct CatalogueItem {
    Key key = 0;
    QString name;
    Key category = 0;
    int status = 0;
};

/// A list row of a stock item.
struct TiedRow {
    Key groc_key = 0;
    Key list_key = 0;
};

/// Readies the folders for a load: makes the category OTHER (key 0) where it is missing, and marks every
/// other category without items as closed. Everything here throws SQLite::Exception on a database error, and
/// what reads keys error 6 for one beyond 16 bits.
void prepare_folders(Connection& connection);

/// The user's categories in name order, OTHER last.
std::vector<CatalogueFolder> read_categories(Connection& connection);

/// A stock item as it is read, before it is sorted.
struct NamedItem {
    NameKey name;
    Key key = 0;
    Key category = 0;
    int status = 0;
};

/// All stock items, and the same in name order.
std::vector<NamedItem> read_named_items(Connection& connection);
std::vector<CatalogueItem> in_name_order(const std::vector<NamedItem>& items);

/// Stores that a category is open or closed in the tree. No such category: nothing.
void store_expand(Connection& connection, Key category, bool open);

/// Stores that all categories are closed.
void store_all_closed(Connection& connection);

/// The list rows of a stock item, first placed first, whether their lists have a record or not: those that a click
/// on its box may change.
std::vector<TiedRow> clickable_rows(Connection& connection, Key item);

/// The box of an item in the tree: sets the buy-it mark of one of its rows, and the item's status to plain
/// 7 or 6, in one transaction. Returns the item's true code.
StatusCode store_box_click(Connection& connection, Key item, Key groc_key, bool to_get);

/// The first list row tied to a stock item; none for an unlisted one.
std::optional<TiedRow> first_tied_row(Connection& connection, Key item);

} // namespace tarnwick
