#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

/// The lists on which a stock item stands, a name for each of its rows in the order of their placing; rows on a
/// list without a record are left out. Everything here throws SQLite::Exception.
std::vector<QString> lists_with_item(Connection& connection, Key item);

/// The category of a stock item; nothing for no such item.
std::optional<Key> category_of(Connection& connection, Key item);

/// What a category holds, for the question before it is deleted.
struct CategoryContents {
    QString name;
    int items = 0;
    int listed = 0; ///< of these, how many stand on a list
};

/// Nothing when there is no such category.
std::optional<CategoryContents> contents_of(Connection& connection, Key category);

/// Stock items that are gone with all that stood on them, and the category when that is gone too.
struct ItemsGone {
    std::vector<Key> items;
    std::vector<Key> rows; ///< `groc_1` keys of their list rows
    std::optional<Key> category;
};

// Each of these is one transaction.

/// Deletes a stock item with its list rows and links; its recipe lines keep their text. Nothing for no such item.
std::optional<ItemsGone> delete_item_record(Connection& connection, Key item);

/// Deletes a category with its items as above. Nothing for OTHER and for no such category.
std::optional<ItemsGone> delete_category_record(Connection& connection, Key category);

/// Gives an item and its list rows another name. Its recipe lines lose their link, non-stock lines of the new name,
/// in any case, are linked to it. False when there is no such item.
bool rename_item_record(Connection& connection, Key item, const QString& name);

enum class Moved { yes, was_there, no_item, no_category };

/// Moves an item to a category; to the one where it is, nothing happens.
Moved move_item_record(Connection& connection, Key item, Key category);

/// Gives a category another name. False for OTHER and for no such category.
bool rename_category_record(Connection& connection, Key category, const QString& name);

} // namespace tarnwick
