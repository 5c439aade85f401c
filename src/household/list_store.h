#pragma once

#include "data/connection.h"
#include "data/text.h"
#include "household/grid_row.h"

#include <optional>
#include <vector>

namespace tarnwick::list_store {

/// Sets the buy-it mark of a row with its two pictures.
void set_to_get(GridRow& row, bool to_get);

/// Sets the coupon picture and the date of a row. `date` is as the screen shows it, one blank without a coupon.
void set_coupon_cells(GridRow& row, bool coupon, const QString& date);

/// The same from `created`, the text of the table, which does not count without a coupon.
void set_coupon(GridRow& row, bool coupon, const QString& created);

/// A date of the tables as the screen shows it: M/d/yyyy. A text that is no ISO date stays as it is.
QString screen_date(const QString& stored);

/// The rows of a list, or of all lists when the key is below 1, by name and then by key. Throws error 6
/// for a key beyond 16 bits.
std::vector<GridRow> read_rows(Connection& connection, Key list_key);

/// Marks a list as active. Returns its name; nothing when there is no such list.
std::optional<QString> mark_active(Connection& connection, Key list_key);

} // namespace tarnwick::list_store
