#pragma once

#include "dialogs/find_item.h"

namespace tarnwick {

class frmmain;

/// Opens the find dialog beside the main window, or comes back to it, ready to search one kind.
void show_find(frmmain& main, FindKind kind);

} // namespace tarnwick
