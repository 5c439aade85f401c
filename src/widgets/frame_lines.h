#pragma once

#include <QColor>
#include <QPalette>
#include <QRect>

class QPainter;

namespace tarnwick {

/// The rectangle in device pixels of what the painter draws on, each edge rounded by itself, as that of a filled
/// ground is; and how many device pixels a line of so many logical pixels is thick.
QRect in_device_pixels(const QPainter& painter, const QRect& rect);
int line_width(const QPainter& painter, int thickness = 1);

/// The colour of lines around and between things: calm, but to be seen on light and dark windows alike.
QColor line_color(const QPalette& colors);

/// The colour of what shows where the keyboard is: the highlight, made to stand out from the window.
QColor focus_color(const QPalette& colors);

/// Draws lines inside the edges of a rectangle, or one of one logical pixel along its right or lower edge alone, on
/// whole device pixels: at a broken scale factor no line gets lost or blurred, and all are equally thick.
void draw_frame(QPainter& painter, const QRect& rect, const QColor& color, int thickness = 1);
void draw_right_line(QPainter& painter, const QRect& rect, const QColor& color);
void draw_lower_line(QPainter& painter, const QRect& rect, const QColor& color);

} // namespace tarnwick
