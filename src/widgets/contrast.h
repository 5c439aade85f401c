#pragma once

#include <QColor>

namespace tarnwick {

/// Relative luminance of an opaque colour, 0 to 1, as the accessibility guidelines define it.
double luminance(const QColor& color);

/// Contrast of two opaque colours, 1 to 21, and how much of it text and shapes need.
double contrast(const QColor& a, const QColor& b);

inline constexpr double readable_text = 4.5; ///< contrast
inline constexpr double visible_shape = 3; ///< contrast

/// The colour, darkened or lightened until it has this contrast to another.
QColor clear_of(const QColor& other, QColor color, double wanted);

/// `base` with a share of `tint`, 0 to 1, mixed in.
QColor blend(const QColor& base, const QColor& tint, double share);

} // namespace tarnwick
