#include "widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

double luminance(const QColor& color)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double contrast(const QColor& a, const QColor& b)
{
    const double light = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

QColor clear_of(const QColor& other, QColor color, double wanted)
{
    constexpr int step = 104; // percent
    constexpr int most_steps = 60;
    const bool other_is_light = luminance(other) > 0.5;
    for (int i = 0; i < most_steps && contrast(other, color) < wanted; ++i)
        color = other_is_light ? color.darker(step) : color.lighter(step);
    return color;
}

QColor blend(const QColor& base, const QColor& tint, double share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(base.red(), tint.red()), mix(base.green(), tint.green()), mix(base.blue(), tint.blue())};
}

} // namespace tarnwick
