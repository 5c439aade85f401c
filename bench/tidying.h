#pragma once

namespace tarnwick::bench {

// Each opens the real main window on databases of its own and prints its ratios.
void measure_clearing();
void measure_category_deletion();

} // namespace tarnwick::bench
