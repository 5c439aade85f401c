#pragma once

#include "widgets/type_size.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace tarnwick {

/// Gives a dialog the type size of the main window; any other than 10 and 12 counts as 9. The desktop's own size is
/// the least.
inline void set_dialog_font(QWidget& dialog, int type_size)
{
    QFont font = dialog.font();
    const int points = type_size == 10 || type_size == 12 ? type_size : first_type_size;
    font.setPointSize(std::max(points, QApplication::font().pointSize()));
    dialog.setFont(font);
}

} // namespace tarnwick
