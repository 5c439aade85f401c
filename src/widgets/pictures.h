#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

namespace tarnwick {

/// The picture lists of the main window's controls; the numbers are the lists' identities. The signs are those of
/// message boxes (information, question, warning, stop) and the calendar's arrows.
enum class ImageList { recipe_tree = 1, tabs = 2, stock_tree = 3, list_manager = 4, toolbar = 5, signs = 6 };

/// The picture with this resource number, drawn for `scale` device pixels to a logical pixel
/// (devicePixelRatio is set to it). What lies on the desktop's own colours, not on the page, has light outlines
/// while the application's window colour is dark. Null for an unknown number or a scale that is not above 0.
QPixmap picture(int resource_number, qreal scale = 1.0);

/// The picture's size in logical pixels; an invalid size for an unknown number.
QSize picture_size(int resource_number);

/// Image `index`, counted from 1, of a list; otherwise as picture().
QPixmap list_image(ImageList list, int index, qreal scale = 1.0);

/// The size in logical pixels of image `index`, counted from 1; invalid for an unknown index.
QSize list_image_size(ImageList list, int index);

/// An icon that draws image `index` afresh for every size and scale it is asked for, and greys it
/// when disabled. Null for an unknown index.
QIcon list_icon(ImageList list, int index);

/// The same kind of icon for a resource picture. Null for an unknown number.
QIcon picture_icon(int resource_number);

} // namespace tarnwick
