#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <vector>

namespace tarnwick {

/// Stock items with the text anywhere in their names, by category key and name. `%` and `_` in the text are
/// pattern signs. Both throw SQLite::Exception.
std::vector<Key> find_items(Connection& connection, const QString& text);

/// Recipes with the text anywhere in their titles, by title.
std::vector<Key> find_recipes(Connection& connection, const QString& text);

} // namespace tarnwick
