#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QString>

#include <optional>

namespace tarnwick {

/// Whether a category has this very name, in any case.
bool category_name_taken(Connection& connection, const QString& name);

/// Makes a closed category. Returns its key. Throws error 6 when the keys are used up.
Key insert_category(Connection& connection, const QString& name);

/// The category whose row stands before this one's in name order, OTHER left out. None before the first, or
/// when there is no such category.
std::optional<Key> category_before(Connection& connection, Key category);

} // namespace tarnwick
