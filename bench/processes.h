#pragma once

#include <QString>

namespace tarnwick::bench {

/// The child's part: shows a bare window, one with Qt's own controls of the kinds and numbers of the program's and
/// nothing behind them, or the program's on a folder, prints its peak memory in kilobytes when
/// the window has been painted, and ends.
int show_bare_window(int argc, char** argv);
int show_plain_controls(int argc, char** argv);
int show_program(int argc, char** argv, const QString& folder);

/// Start to first paint and peak memory against a bare window, each in processes of their own.
void measure_processes();

} // namespace tarnwick::bench
