#pragma once

#include "window/toolbar.h"

#include <QString>

namespace tarnwick {

/// The object name of a toolbar button.
inline QString tool_button(ToolButton which)
{
    return QStringLiteral("Toolbar1(%1)").arg(static_cast<int>(which));
}

} // namespace tarnwick
