#pragma once

namespace tarnwick::bench {

// Each opens the real main window on databases of its own and prints its ratios.
void measure_recipe_tree();
void measure_recipe_page();
void measure_item_keystroke();

} // namespace tarnwick::bench
