#pragma once

#include "dialogs/find_item.h"

namespace tarnwick {

struct Panes;
struct Program;
class ViewState;

/// Opens the find dialog beside the main window, or comes back to it, ready to search one kind.
void show_find(Program& program, const Panes& panes, const ViewState& view_state, FindKind kind);

} // namespace tarnwick
