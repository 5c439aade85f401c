#pragma once

#include <QWidget>

namespace tarnwick {

/// Gives a window a title that is shown letter by letter: Qt would take a name's "[*]" for the mark of a
/// changed document and drop it.
inline void set_window_title(QWidget& window, QString text)
{
    window.setWindowTitle(text.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

} // namespace tarnwick
