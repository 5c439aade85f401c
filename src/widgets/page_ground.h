#pragma once

#include "widgets/shared_values.h"

#include <algorithm>

namespace tarnwick {

/// The ground that list and recipe page are drawn on: the page colour, light grey where none is set.
inline QColor page_ground(const SharedValues& shared)
{
    return shared.page_color().value_or(QColor(240, 240, 240));
}

/// The page colour index 0 to 3 whose pictures lie on that ground.
inline int page_picture_index(const SharedValues& shared)
{
    return std::clamp(shared.color_index, 0, 3);
}

} // namespace tarnwick
