#pragma once

namespace tarnwick {

struct Panes;
struct Program;

/// Asks for another category of the selected stock item, or recipe, and moves it there. Nothing happens when the
/// selected node is neither, or stands in no folder.
void show_move_item(Program& program, const Panes& panes, bool move_stock);

} // namespace tarnwick
