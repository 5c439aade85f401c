#pragma once

class QLineEdit;

namespace tarnwick {

/// Keeps the text of a box in the form of `one_line`, however it gets in: typed, pasted, dropped or set.
void keep_one_line(QLineEdit& box);

} // namespace tarnwick
