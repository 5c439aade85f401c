#pragma once

#include "household_reader.h"

#include <QDate>

namespace SQLite {
class Database;
}

namespace tarnwick::sample {

/// Writes `household` into `db`, whose seven tables exist and hold no more than the category OTHER, in one
/// transaction. Keys run from 1 in the order of the household; the first list becomes the active one; coupons
/// expire relative to `today`. Throws std::runtime_error when the database is in use already, SQLite::Exception on
/// a fault.
void load_household(SQLite::Database& db, const Household& household, const QDate& today);

/// Fills an empty database with `items` stock items spread evenly over `categories` user categories (0: all in
/// OTHER) and `lists` lists of `rows_per_list` rows each; the same arguments always give the same content. Throws
/// std::invalid_argument for a negative count, for rows without items and for more than 32767 records of one table
/// (the greatest key); otherwise as load_household.
void make_large_catalogue(SQLite::Database& db, int items, int categories, int lists, int rows_per_list,
                          const QDate& today);

} // namespace tarnwick::sample
