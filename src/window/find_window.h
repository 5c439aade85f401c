#pragma once

#include "dialogs/find_item.h"

namespace tarnwick {

struct Panes;
struct Program;

/// Opens the find dialog beside the main window, or comes back to it, ready to search one kind.
void show_find(Program& program, const Panes& panes, FindKind kind);

} // namespace tarnwick
