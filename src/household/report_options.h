#pragma once

#include "data/text.h"

#include <optional>

namespace tarnwick {

/// Orders of a printed list.
enum class ReportSort { by_item, by_category, by_aisle };

/// The order that a setting names; nothing for a number that names none.
constexpr std::optional<ReportSort> report_sort_of(Key number)
{
    if (number < 0 || number > static_cast<Key>(ReportSort::by_aisle))
        return std::nullopt;
    return static_cast<ReportSort>(number);
}

/// The choices of the print setup that the page engines read.
struct ReportOptions {
    std::optional<ReportSort> sort = ReportSort::by_category; ///< none, from a damaged setting, prints by item
    Key col_ct = 2; ///< columns: 2, or any other number for one
    Key active = 1; ///< 1: rows to buy alone; 0: all rows
    Key size = 0; ///< type: 0 small, 1 medium, 2 large
};

} // namespace tarnwick
