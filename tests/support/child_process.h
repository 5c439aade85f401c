#pragma once

#include <QString>

#include <functional>

namespace tarnwick {

/// Runs a function that gives a text in a child process, and returns the text. The child ends at once, without
/// any destructor. No widget and no event loop may be used in the function.
QString in_child_process(const std::function<QString()>& function);

/// The same without root's rights: a root process reads and writes whatever the file permissions say.
QString as_nobody(const std::function<QString()>& function);

} // namespace tarnwick
