#pragma once

#include <QString>
#include <QStringView>

struct sqlite3;

namespace tarnwick {

/// Case-blind order of two texts, the same on the screen and in every query: below 0, 0, above 0.
int compare_names(QStringView left, QStringView right);

/// The pattern match of the LIKE operator, case-blind in all alphabets: '%' any text, '_' any one character.
bool like(QStringView text, QStringView pattern);

/// Gives a connection this order as NOCASE and this match as LIKE. Throws SQLite::Exception.
void install_collation(sqlite3* handle);

} // namespace tarnwick
