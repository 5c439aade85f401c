#pragma once

namespace tarnwick {

class HeaderBar;
class ListGrid;
enum class ColumnGroup;

// The widths of a list grid's columns, in the main window and in the item editor alike. All in pixels.
namespace column_layout {

inline constexpr int narrowest_text = 3; ///< a text column is never narrower
inline constexpr int coupon_width = 18;
inline constexpr int date_width = 80;
inline constexpr int aisle_width = 36;
inline constexpr int coupon_group = coupon_width + date_width;
inline constexpr int other_columns = 206; ///< every column but name and description, at full width
inline constexpr int scroll_bar = 17;

/// Shares what the other columns leave between name and description by their present ratio. False, and
/// nothing changed, when the grid is narrower than the other columns.
bool share_text_columns(ListGrid& grid, const HeaderBar& header);

/// Gives the columns of a group the widths of its box's state, and half of
/// the group's width to or from each text column. Nothing when they have them already.
void apply_column_group(ListGrid& grid, const HeaderBar& header, ColumnGroup group);

/// Only the widths of the group's columns, by the state of its box.
void set_group_widths(ListGrid& grid, const HeaderBar& header, ColumnGroup group);

/// Splits name and description evenly.
void level_text_columns(ListGrid& grid);

/// Whether the columns together are wider than the grid's visible part and the two spare pixels that
/// sharing gives.
bool columns_overflow(const ListGrid& grid);

/// Moves the border of name and description to a width of the name; both keep the narrowest width.
void move_text_border(ListGrid& grid, int item_width);

} // namespace column_layout
} // namespace tarnwick
