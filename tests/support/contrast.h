#pragma once

#include "widgets/contrast.h"

#include <QImage>
#include <QRect>

#include <algorithm>

namespace tarnwick {

/// The contrast of the pixel within a part of a picture that stands out most from a ground.
inline double best_contrast(const QImage& image, const QRect& within, const QColor& ground)
{
    double best = 1;
    const QRect part = within & image.rect();
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            best = std::max(best, contrast(image.pixelColor(x, y), ground));
    return best;
}

} // namespace tarnwick
