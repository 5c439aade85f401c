#pragma once

#include "data/connection.h"

#include <QStringList>

namespace tarnwick {

/// Every record of the seven tables as a line of text, for comparing a database before and after.
QStringList table_dump(Connection& connection);

} // namespace tarnwick
