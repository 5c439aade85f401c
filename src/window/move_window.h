#pragma once

namespace tarnwick {

class frmmain;

/// Asks for another category of the selected stock item, or recipe, and moves it there. Nothing happens when the
/// selected node is neither, or stands in no folder.
void show_move_item(frmmain& main, bool move_stock);

} // namespace tarnwick
