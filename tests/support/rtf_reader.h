#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// What a word processor makes of an RTF file: its texts without what only describes the document.
struct RtfDocument {
    bool whole = false; ///< one group from the first byte to the last
    QStringList paragraphs; ///< tabs as tabs, line breaks as line feeds
    QStringList struck; ///< each stretch of text that is struck through

    /// The text of all paragraphs, a line feed after each.
    QString text() const { return paragraphs.join(u'\n'); }
};

/// Reads an RTF file by the rules of the format, knowing nothing of who wrote it.
RtfDocument read_rtf(const QByteArray& rtf);

} // namespace tarnwick
