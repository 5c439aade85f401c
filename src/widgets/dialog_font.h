#pragma once

#include "widgets/type_size.h"

#include <QWidget>

namespace tarnwick {

/// Gives a dialog the type size of the main window; any other than 10 and 12 counts as 9.
inline void set_dialog_font(QWidget& dialog, int type_size)
{
    QFont font = dialog.font();
    font.setPointSize(type_size == 10 || type_size == 12 ? type_size : first_type_size);
    dialog.setFont(font);
}

} // namespace tarnwick
