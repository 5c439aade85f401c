#include "widgets/fitted_text.h"

#include <QFontMetrics>
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

/// The font in the widest type, not under `least` percent, in which the text fits.
std::optional<QFont> fitting_font(const QString& text, QFont font, int width, int least)
{
    const auto fits = [&] { return QFontMetrics(font).horizontalAdvance(text) <= width; };
    if (fits())
        return font;
    for (const int percent : narrow_types) {
        if (percent <= least)
            break;
        font.setStretch(percent);
        if (fits())
            return font;
    }
    font.setStretch(least);
    return fits() ? std::optional(font) : std::nullopt;
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

} // namespace tarnwick
