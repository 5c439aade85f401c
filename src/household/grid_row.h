#pragma once

#include "data/text.h"

#include <QString>
#include <QStringView>

#include <array>

namespace tarnwick {

/// The columns of a list grid, in the main window and in the item editor alike.
enum class GridColumn { light, check, item, desc, qty, coupon, date, aisle };

inline constexpr int grid_column_count = 8;

/// Where a column stands in the grid, from 0.
constexpr int column_number(GridColumn column)
{
    return static_cast<int>(column);
}

/// The columns that a box of the header shows and hides: the coupon with its expiry, and the aisle.
enum class ColumnGroup { coupon, aisle };

inline constexpr std::array column_groups{ColumnGroup::coupon, ColumnGroup::aisle};

/// Dates as the screen shows them.
inline constexpr QStringView screen_date_format = u"M/d/yyyy";

/// One row of a grid with its keys: the grid's own record, so that rows and mirror cannot part.
struct GridRow {
    Key groc_key = 0; ///< `groc_1.key_id`; the grid's RowData
    Key list_key = 0; ///< the list that the row stands on
    Key item_key = 0; ///< the stock item behind it
    bool to_get = false; ///< the row's buy-it mark
    int light = 0; ///< picture base numbers of cells 0, 1 and 5; 0 for no picture
    int check = 0;
    int coupon = 0;
    QString item;
    QString desc;
    QString qty;
    QString date; ///< coupon expiry as on the screen, M/d/yyyy; one blank without a coupon
    QString aisle;
    bool bold = false; ///< cell 2 is bold: the row is being edited
    bool located = false; ///< the row was looked up from the tree: its name is red
};

} // namespace tarnwick
