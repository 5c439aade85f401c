#pragma once

namespace tarnwick::bench {

/// A move of the mouse while a stock item is dragged over its tree, and while the separator is dragged beside a
/// long list.
void measure_drags();

} // namespace tarnwick::bench
