#pragma once

#include <QString>
#include <QtGlobal>

namespace SQLite {
class Database;
} // namespace SQLite

namespace tarnwick {

class Connection;

/// The mark of our files in SQLite's header: "Tarn" in ASCII.
constexpr quint32 schema_application_id = 0x5461726e;

/// The newest layout of tables that this program knows, in SQLite's user_version.
constexpr quint32 schema_version = 2;

/// Makes a new database file with the seven tables and the category OTHER; missing folders are made.
/// Returns false, and changes nothing, when the file exists. Throws SQLite::Exception.
bool make_database(const QString& path);

/// Throws a run-time error (11) when a table or column is missing from a file of any version, or is of another
/// kind. `name` is the path told to the user.
void refuse_incomplete(const SQLite::Database& database, const QString& name);

/// Takes an open file of an older version to the newest one, in one transaction. Throws SQLite::Exception.
void upgrade(Connection& connection);

} // namespace tarnwick
