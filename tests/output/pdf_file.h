#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QString>

namespace tarnwick {

/// A word of a PDF file with its place, in points from the top left of its page.
struct PdfWord {
    QString text;
    QRectF box;
};

/// A page of a PDF file as a reader of its own sees it.
struct PdfPage {
    QSizeF size; ///< points
    QList<PdfWord> words;

    QString text() const
    {
        QStringList all;
        for (const PdfWord& word : words)
            all.append(word.text);
        return all.join(QLatin1Char(' '));
    }

    /// The first word that is this text; an empty box when there is none.
    QRectF box_of(const QString& text) const
    {
        for (const PdfWord& word : words)
            if (word.text == text)
                return word.box;
        return {};
    }
};

/// The output of a tool of poppler-utils; empty when it fails.
inline QString pdf_tool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The pages of a file; none when it is no PDF file.
inline QList<PdfPage> read_pdf(const QString& path)
{
    static const QRegularExpression line(QStringLiteral(
        R"re(<page width="([\d.]+)" height="([\d.]+)">|<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">(.*?)</word>)re"));
    QList<PdfPage> pages;
    auto matches = line.globalMatch(
        pdf_tool(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path, QStringLiteral("-")}));
    while (matches.hasNext()) {
        const auto match = matches.next();
        const auto number = [&](int group) { return match.captured(group).toDouble(); };
        if (match.hasCaptured(1)) {
            pages.append(PdfPage{{number(1), number(2)}, {}});
            continue;
        }
        QString text = match.captured(7);
        text.replace(QLatin1String("&lt;"), QLatin1String("<")).replace(QLatin1String("&gt;"), QLatin1String(">"));
        text.replace(QLatin1String("&apos;"), QLatin1String("'"))
            .replace(QLatin1String("&amp;"), QLatin1String("&"));
        pages.last().words.append({text, QRectF(QPointF(number(3), number(4)), QPointF(number(5), number(6)))});
    }
    return pages;
}

} // namespace tarnwick
