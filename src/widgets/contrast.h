#pragma once

#include <QColor>

namespace tarnwick {

/// Relative luminance of an opaque colour, 0 to 1, as the accessibility guidelines define it.
double luminance(const QColor& color);

/// Contrast of two opaque colours, 1 to 21. Text needs 4.5, a shape 3.
double contrast(const QColor& a, const QColor& b);

/// `base` with a share of `tint`, 0 to 1, mixed in.
QColor blend(const QColor& base, const QColor& tint, double share);

} // namespace tarnwick
