#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

namespace tarnwick {

/// Every picture in its own size on a light window, one behind the other, as premultiplied ARGB: drawn now.
std::vector<quint32> draw_pictures();

/// The same as drawn when the program was built, so that a start need not draw it; empty in the program that does
/// so.
std::span<const quint32> drawn_pictures();

} // namespace tarnwick
