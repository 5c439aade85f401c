#pragma once

#include <QColor>
#include <QRect>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionFrame;

namespace tarnwick {

/// Draws a ground with slightly rounded corners and, inside its edge, a line of so many logical pixels around it,
/// on whole device pixels.
void draw_rounded(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& line,
                  int thickness = 1);

/// Draw a flat push button, a combo box without its text, and the ground of a text box. The line around what has
/// the keyboard is thicker, and has the colour of focus marks; so has that of the button which Enter presses.
void draw_button(const QStyleOption& option, QPainter& painter);
void draw_combo_box(const QStyleOptionComboBox& option, const QRect& arrow, QPainter& painter);
void draw_line_edit(const QStyleOptionFrame& option, QPainter& painter);

} // namespace tarnwick
