#include "widgets/fitted_text.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace tarnwick {
namespace {

/// Percent of the full width. Few: each is a font of its own, which takes its time to open, and a column in many
/// different widths is restless.
constexpr std::array narrow_types = {90, 75, 60};
constexpr int narrowest_number = 50;

/// The font in the widest type, not under `least` percent, in which the text fits. One in which it surely does not,
/// with a pixel a letter for rounding, is not opened.
std::optional<QFont> fitting_font(const QString& text, QFont font, int width, int least)
{
    const int whole = QFontMetrics(font).horizontalAdvance(text);
    if (whole <= width)
        return font;
    const auto fits = [&](int percent) {
        if (whole * percent / 100 - text.size() > width)
            return false;
        font.setStretch(percent);
        return QFontMetrics(font).horizontalAdvance(text) <= width;
    };
    for (const int percent : narrow_types) {
        if (percent <= least)
            break;
        if (fits(percent))
            return font;
    }
    return fits(least) ? std::optional(font) : std::nullopt;
}

/// "2", "1.5", "1/2", "1 1/2", "2½" or "11/28/2026" at the beginning of a text; empty without digits there.
QString leading_number(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*(\\d+([.,/:-]\\d+)*(\\s\\d+/\\d+)?\\s?[¼-¾⅐-⅞]?|[¼-¾⅐-⅞])"));
    return number.match(text).captured();
}

} // namespace

FittedText fit_text(const QString& text, const QFont& font, int width, int narrowest)
{
    if (const auto fitting = fitting_font(text, font, width, narrowest))
        return {text, *fitting, false};
    QFont narrow = font;
    narrow.setStretch(narrowest);
    const QFontMetrics metrics(narrow);
    QString shown = metrics.elidedText(text, Qt::ElideRight, width);
    if (!shown.startsWith(text.front())) { // no room for more than the sign of the cut: rather a letter or two
        shown = text;
        while (!shown.isEmpty() && metrics.horizontalAdvance(shown) > width)
            shown.chop(1);
    }
    return {shown, narrow, true};
}

FittedText fit_number(const QString& text, const QFont& font, int width)
{
    const QString whole = text.trimmed();
    const QString number = leading_number(whole).trimmed();
    if (number.isEmpty())
        return fit_text(text, font, width);
    if (const auto fitting = fitting_font(text, font, width, narrowest_type))
        return {text, *fitting, false};
    for (qsizetype end = whole.size(); end > number.size();) {
        end = std::max(whole.lastIndexOf(u' ', end - 1), number.size());
        const QString shown = whole.first(end) + ellipsis;
        if (const auto fitting = fitting_font(shown, font, width, narrowest_type))
            return {shown, *fitting, true};
    }
    if (const auto fitting = fitting_font(number, font, width, narrowest_number))
        return {number, *fitting, number != whole};
    QFont narrow = font;
    narrow.setStretch(narrowest_type);
    return {QString(ellipsis), narrow, true};
}

LaidOutText::LaidOutText(const QString& text, const QFont& font)
    : layout_(text, font)
{
    QTextOption whole_line;
    whole_line.setWrapMode(QTextOption::NoWrap);
    whole_line.setFlags(QTextOption::IncludeTrailingSpaces);
    layout_.setTextOption(whole_line);
    layout_.setCacheEnabled(true);
    layout_.beginLayout();
    const QTextLine line = layout_.createLine();
    layout_.endLayout();
    if (line.isValid()) {
        width_ = line.naturalTextWidth();
        height_ = line.ascent() + line.descent();
    }
}

void LaidOutText::draw(QPainter& painter, const QRect& room) const
{
    const QRectF place(room.x(), room.y() + (room.height() - height_) / 2, width_, height_);
    const bool is_cut = !QRectF(room).contains(place);
    if (is_cut) {
        painter.save();
        painter.setClipRect(room, Qt::IntersectClip);
    }
    layout_.draw(&painter, place.topLeft());
    if (is_cut)
        painter.restore();
}

} // namespace tarnwick
