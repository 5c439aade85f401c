#pragma once

namespace tarnwick {

class frmmain;

/// Connects what one pane of the window asks of another. What operations announce is no part of it.
void connect_panes(frmmain& main);

} // namespace tarnwick
