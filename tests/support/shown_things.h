#pragma once

#include <QLabel>

namespace tarnwick {

/// The words in the first status panel of the main window.
inline QString status_text(const QWidget& main)
{
    return main.findChild<QLabel*>(QStringLiteral("StatusBar1(1)"))->text();
}

/// The resource number of the picture that a control shows.
inline int picture_of(const QObject& control)
{
    return control.property("picture").toInt();
}

} // namespace tarnwick
