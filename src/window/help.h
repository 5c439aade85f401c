#pragma once

namespace tarnwick {

class frmmain;

/// `mnu_help_launch`: opens the help beside the executable with the desktop's browser; a message when it is not
/// there or cannot be opened.
void launch_help(frmmain& main);

/// `mnu_help_about`: the about box.
void show_about(frmmain& main);

} // namespace tarnwick
