#pragma once

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace tarnwick {

/// Relative luminance of an opaque colour, 0 to 1, as the accessibility guidelines define it.
inline double luminance(QRgb color)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// Contrast of two opaque colours, 1 to 21.
inline double contrast(QRgb a, QRgb b)
{
    const double light = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

inline double contrast(const QColor& a, const QColor& b)
{
    return contrast(a.rgb(), b.rgb());
}

/// The pixel of a picture that stands out most from a ground.
inline double best_contrast(const QImage& image, const QRect& within, const QColor& ground)
{
    double best = 1;
    const QRect part = within & image.rect();
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            best = std::max(best, contrast(image.pixel(x, y), ground.rgb()));
    return best;
}

} // namespace tarnwick
