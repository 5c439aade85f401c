#pragma once

namespace tarnwick::bench {

void measure_find(); ///< a search and its steps in a large catalogue
void measure_looks(); ///< another page colour, type size and place of the separator

} // namespace tarnwick::bench
