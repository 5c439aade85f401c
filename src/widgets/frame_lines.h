#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace tarnwick {

/// Draws lines of one logical pixel inside the edges of a rectangle, or along its lower edge alone, on whole device
/// pixels: at a broken scale factor no line gets lost or blurred, and all are equally thick.
void draw_frame(QPainter& painter, const QRect& rect, const QColor& color);
void draw_lower_line(QPainter& painter, const QRect& rect, const QColor& color);

} // namespace tarnwick
