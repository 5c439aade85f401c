#pragma once

#include "data/connection.h"

namespace tarnwick {

/// Deletes the rows of `tie` whose stock item or whose list row is gone, in one transaction. Throws
/// SQLite::Exception.
void data_integrity_check(Connection& connection);

} // namespace tarnwick
