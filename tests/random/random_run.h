#pragma once

#include "random/random_user.h"

#include <span>

namespace tarnwick::random_use {

/// Lets a random user act on a loaded window and holds it after each step against what it has to be. Fails the test
/// at the first step that does not hold, with the seed, the step and the last actions. RANDOM_SEED and RANDOM_STEPS
/// in the environment take the place of the seed and the count of steps.
void run(TestWindow& window, std::span<const Act> acts, quint32 seed, int steps);

} // namespace tarnwick::random_use
