#pragma once

#include "household/page.h"

#include <QVariantList>

class QPainter;

namespace tarnwick {

/// Paints a page with its form's pixel as the painter's unit: on paper, on a PDF file and on the screen alike. A
/// text too long for its box is cut there with an ellipsis, after its type has given way as far as the thing says.
void paint_page(QPainter& painter, const Page& page);

/// The things of a page as maps with the keys name; x, y, w, h for boxes; text, size, bold, italic, strike, align
/// for texts; checked for check boxes; x1, y1, x2, y2 for lines.
QVariantList page_as_maps(const Page& page);

} // namespace tarnwick
