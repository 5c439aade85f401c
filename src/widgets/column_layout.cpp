#include "widgets/column_layout.h"

#include "widgets/header_bar.h"
#include "widgets/list_grid.h"

#include <algorithm>

namespace tarnwick::column_layout {
namespace {

int shared_part(int own, int both, int available)
{
    const int part = static_cast<int>(static_cast<long long>(available) * own / both);
    return part < 2 ? narrowest_text : part;
}

} // namespace

bool share_text_columns(ListGrid& grid, const HeaderBar& header)
{
    int available = grid.width() - other_columns;
    if (!header.group_shown(ColumnGroup::coupon))
        available += coupon_group;
    if (!header.group_shown(ColumnGroup::aisle))
        available += aisle_width;
    if (grid.scroll_bar_shown())
        available -= scroll_bar;
    if (available < 0)
        return false;

    const TextRatio ratio = grid.text_ratio();
    const int item = shared_part(ratio.item, ratio.item + ratio.desc, available);
    int desc = shared_part(ratio.desc, ratio.item + ratio.desc, available);
    if (item + desc != available)
        desc = std::max(available - item, 0);
    grid.set_text_widths(item + 1, desc + 1, ratio);
    return true;
}

void set_group_widths(ListGrid& grid, const HeaderBar& header, ColumnGroup group)
{
    const bool shown = header.group_shown(group);
    if (group == ColumnGroup::coupon) {
        grid.set_col_width(GridColumn::coupon, shown ? coupon_width : 0);
        grid.set_col_width(GridColumn::date, shown ? date_width : 0);
    } else {
        grid.set_col_width(GridColumn::aisle, shown ? aisle_width : 0);
    }
}

void apply_column_group(ListGrid& grid, const HeaderBar& header, ColumnGroup group)
{
    const bool shown = header.group_shown(group);
    const bool was_shown = grid.col_width(group == ColumnGroup::coupon ? GridColumn::date : GridColumn::aisle) > 0;
    if (shown == was_shown)
        return;
    const int half = (group == ColumnGroup::coupon ? coupon_group : aisle_width) / 2;
    for (const GridColumn column : {GridColumn::item, GridColumn::desc})
        grid.set_col_width(column, std::max(grid.col_width(column) + (shown ? -half : half), narrowest_text));
    set_group_widths(grid, header, group);
}

void level_text_columns(ListGrid& grid)
{
    const int both = grid.col_width(GridColumn::item) + grid.col_width(GridColumn::desc);
    grid.set_col_width(GridColumn::item, both / 2);
    grid.set_col_width(GridColumn::desc, both - both / 2);
}

bool columns_overflow(const ListGrid& grid)
{
    return grid.all_cols_width() > grid.width() - (grid.scroll_bar_shown() ? scroll_bar : 0) + 2;
}

void move_text_border(ListGrid& grid, int item_width)
{
    const int both = grid.col_width(GridColumn::item) + grid.col_width(GridColumn::desc);
    if (both < 2 * narrowest_text)
        return;
    const int item = std::clamp(item_width, narrowest_text, both - narrowest_text);
    grid.set_col_width(GridColumn::item, item);
    grid.set_col_width(GridColumn::desc, both - item);
}

} // namespace tarnwick::column_layout
