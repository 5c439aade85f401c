#pragma once

#include <QString>
#include <QTextDocument>

namespace tarnwick {

/// A tool tip that shows this text letter by letter, also where it looks like markup.
inline QString plain_tool_tip(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<qt>") + text.toHtmlEscaped() + QStringLiteral("</qt>")
                                     : text;
}

} // namespace tarnwick
