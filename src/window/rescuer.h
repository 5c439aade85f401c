#pragma once

#include <QString>

namespace tarnwick {

class Connection;
class ListPane;
class RecipePage;

/// At an end that no user has chosen: writes what is typed on page and list and in the item editor and not stored
/// into a rescue file for the database.
void rescue_typed(const RecipePage& page, ListPane& list, const QString& database) noexcept;

/// At a start, before anything of the database is shown: says what earlier runs have rescued, puts it back when the
/// user wants it, and sets it aside otherwise. Throws SQLite::Exception.
void offer_rescued(Connection& connection, const QString& database);

} // namespace tarnwick
