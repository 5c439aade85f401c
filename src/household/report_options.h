#pragma once

#include "data/text.h"

namespace tarnwick {

/// Orders of a printed list, `ReportOptions::sort`. Any other number counts as `by_item`.
namespace report_sort {
inline constexpr Key by_item = 0;
inline constexpr Key by_category = 1;
inline constexpr Key by_aisle = 2;
} // namespace report_sort

/// The choices of the print setup that the page engines read.
struct ReportOptions {
    Key sort = report_sort::by_category;
    Key col_ct = 2; ///< columns: 2, or any other number for one
    Key active = 1; ///< 1: rows to buy alone; 0: all rows
    Key size = 0; ///< type: 0 small, 1 medium, 2 large
};

} // namespace tarnwick
