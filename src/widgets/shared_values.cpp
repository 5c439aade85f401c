#include "widgets/shared_values.h"

#include <array>

namespace tarnwick {

std::optional<QColor> page_color_of(int index)
{
    static const std::array colors
        = {QColor(255, 255, 255), QColor(255, 204, 204), QColor(204, 255, 204), QColor(204, 204, 255)};
    if (index < 0 || index >= static_cast<int>(colors.size()))
        return std::nullopt;
    return colors[static_cast<size_t>(index)];
}

} // namespace tarnwick
