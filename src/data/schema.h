#pragma once

#include <QString>
#include <QtGlobal>

namespace tarnwick {

/// The mark of our files in SQLite's header: "Tarn" in ASCII.
constexpr quint32 schema_application_id = 0x5461726e;

/// The newest layout of tables that this program knows, in SQLite's user_version.
constexpr quint32 schema_version = 1;

/// Makes a new database file with the seven tables and the category OTHER; missing folders are made.
/// Returns false, and changes nothing, when the file exists. Throws SQLite::Exception.
bool make_database(const QString& path);

} // namespace tarnwick
