#pragma once

namespace tarnwick {

class frmmain;

/// Opens the list manager beside the main window, or closes it when it is open. Until the end of the run it comes
/// back where it was closed, in the same size.
void toggle_list_manager(frmmain& main);

} // namespace tarnwick
