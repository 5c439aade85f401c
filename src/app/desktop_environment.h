#pragma once

#include "widgets/environment.h"

namespace tarnwick {

/// The real environment of the running process.
Environment desktop_environment();

} // namespace tarnwick
