#pragma once

#include "data/connection.h"
#include "data/text.h"

namespace tarnwick {

/// The tables that take new records.
enum class Table { cat, items_1, groc_1, tie, list_name, recipe_1, recipe_2 };

/// The next free key of a table, 1 and above: the first gap in the keys, except one that shows only at
/// the last record, or else the last key plus one. Throws error 6 past 32767.
Key get_node(Connection& connection, Table table);

} // namespace tarnwick
