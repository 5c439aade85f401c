#pragma once

#include "data/connection.h"
#include "data/text.h"
#include "household/item_saving.h"
#include "household/row_store.h"
#include "household/recipe_store.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// An ingredient line under edit: how it was stored, and what stood in its boxes. Key -1 is a new line.
struct RescuedLine {
    IngredientRow before;
    IngredientRow typed;
};

/// A text of a list row that could not be stored.
struct RescuedField {
    Key groc_key = -1;
    QString item;
    RowField field = RowField::desc;
    QString typed;
};

/// What stood in the item editor, and the name of the item there before; empty for a new one.
struct RescuedItem {
    QString old_name;
    ItemEdit edit;
};

/// What was typed and not stored when an error or the system ended the program.
struct Rescue {
    Key recipe = -1;
    RecipeText before; ///< name and instructions of the recipe as they were stored
    std::optional<RecipeText> typed;
    std::optional<RescuedLine> line;
    std::optional<RescuedField> field;
    std::optional<RescuedItem> item;

    bool is_empty() const { return !typed && !line && !field && !item; }
};

/// What a rescue holds, in the user's words: one line for each thing.
QString rescue_contents(const Rescue& rescue);

/// Writes a file of its own beside the database or, when that fails, into the user's state folder. Touches no
/// database. Returns its path; empty when neither takes it.
QString write_rescue(const Rescue& rescue, const QString& database);

/// The rescue files of a database, oldest first.
QStringList rescue_files(const QString& database);

/// The content of a rescue file; nothing when it cannot be read.
std::optional<Rescue> read_rescue(const QString& file);

/// Stores what was typed, in one transaction: over what it was typed over, behind what was changed since, or in a
/// recipe of its own when that is gone. False when a list row or a stock item is gone, or a new item has no name
/// of its own: what was typed for it then stays in the file alone.
/// Throws SQLite::Exception.
bool put_back(Connection& connection, const Rescue& rescue);

/// Gives a rescue file that stays a name under which it is not offered again. Returns it; the old one when that
/// fails.
QString set_rescue_aside(const QString& file);

} // namespace tarnwick
