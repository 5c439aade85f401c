#pragma once

#include "household/status.h"

#include <QString>

namespace tarnwick {

/// How a stock item stands with the lists, in a few words for the ear: other words for every code.
QString status_name(StatusCode code);

} // namespace tarnwick
