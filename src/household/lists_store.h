#pragma once

#include "household/clearing_store.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

struct ShoppingList {
    Key key;
    QString name; ///< trimmed
};

/// All shopping lists in the order of their names.
std::vector<ShoppingList> shopping_lists(Connection& connection);

/// Whether a list has a name that matches this one, case-blind and with `%` and `_` as patterns.
bool list_name_taken(Connection& connection, const QString& name);

/// Makes a list and moves the active mark to it, in one transaction. Returns its key. Throws error 6
/// when the keys are used up.
Key insert_list(Connection& connection, const QString& name, QDate today);

/// Takes the active mark from the list that has it, in one transaction.
void clear_active_marks(Connection& connection);

void rename_list_record(Connection& connection, Key list, const QString& name);

/// How many links a list has.
int count_list_rows(Connection& connection, Key list);

/// What is left when a list is gone.
struct ListDeletion {
    ClearedRows cleared; ///< its rows and their stock items
    std::optional<Key> first_list; ///< the first list that remains
};

/// Deletes a list with all its rows, in one transaction. Throws SQLite::Exception.
ListDeletion delete_list(Connection& connection, Key list);

} // namespace tarnwick
