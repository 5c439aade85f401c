#pragma once

namespace tarnwick::bench {

// Each opens the real main window on databases of its own and prints its ratios.
void measure_tree_load();
void measure_list_load();
void measure_placing();
void measure_keystroke();
void measure_item_editor();

} // namespace tarnwick::bench
