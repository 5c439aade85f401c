#pragma once

namespace tarnwick {

struct Program;

/// `mnu_help_launch`: opens the help beside the executable with the desktop's browser; a message when it is not
/// there or cannot be opened.
void launch_help(const Program& program);

/// `mnu_help_about`: the about box.
void show_about(const Program& program);

} // namespace tarnwick
