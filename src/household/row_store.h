#pragma once

#include "data/text.h"
#include "household/grid_row.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <optional>

namespace tarnwick {

class Connection;

/// The text fields of a list row that are edited in place.
enum class RowField { desc, qty, aisle };

/// The field that a column of the grid shows; the description for every other column.
RowField row_field_of(GridColumn column);

/// Writes one field of a `groc_1` row at once; an empty text becomes one blank. False, and no error,
/// when the row has gone. Throws SQLite::Exception.
bool write_row_field(Connection& connection, Key groc_key, RowField field, const QString& trimmed);

/// Switches a row's coupon. Turning on keeps an expiry date later than `today` and moves any other to
/// today; turning off keeps the date. Returns the date that the row shows now, invalid with the coupon
/// off; nothing when the row has gone. Throws SQLite::Exception.
std::optional<QDate> write_row_coupon(Connection& connection, Key groc_key, bool on, QDate today);

/// Writes a row's coupon expiry date, past ones included. False when the row has gone.
bool write_row_expiry(Connection& connection, Key groc_key, QDate date);

/// Steps the number at the start of a text up by 1 and keeps the rest; no number counts as 0. The
/// number may have any count of digits. Blanks before a number, and a rest of blanks alone, are dropped.
QString stepped_up(const QString& text);

/// The same down by 1; below 2 the number vanishes and the rest alone is left.
QString stepped_down(const QString& text);

} // namespace tarnwick
