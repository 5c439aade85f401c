#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

enum class StatusCode;

/// One recipe as the tree needs it.
struct RecipeRow {
    Key key = 0;
    QString name; ///< trimmed
    QString cat; ///< trimmed; two digits where this program wrote it
};

/// One ingredient line as it is stored, its texts trimmed.
struct IngredientRow {
    Key key = -1;
    Key item_ref = -1; ///< stock item; -1 none
    QString qty;
    QString measure;
    QString item;
    QString comment;

    /// The four texts that are not empty, joined by blanks.
    QString display_text() const;
};

/// Name and instructions of a recipe, trimmed; line ends as they are stored.
struct RecipeText {
    QString name;
    QString body;
};

/// What an ingredient line points to.
struct LineLink {
    Key item_ref = -1;
    QString item;
};

/// The body of a recipe whose user has written nothing.
const QString& help_text();

/// A text with every line end as CR LF.
QString with_crlf(const QString& text);

/// All recipes, ordered by name. Everything here that takes a connection throws SQLite::Exception on a database
/// error, and what reads keys error 6 for one beyond 16 bits.
std::vector<RecipeRow> read_recipes(Connection& connection);

/// The lines of a recipe in their order. Renumbers `order` from 0 without gaps, in one transaction.
std::vector<IngredientRow> load_lines(Connection& connection, Key recipe);

/// Nothing when there is no such recipe.
std::optional<RecipeText> read_recipe(Connection& connection, Key recipe);

/// The name of a recipe, trimmed; nothing when there is no such recipe.
std::optional<QString> recipe_name(Connection& connection, Key recipe);

/// Writes name and instructions; an empty body becomes the help text. False when there is no such recipe.
bool save_recipe(Connection& connection, Key recipe, const QString& name, const QString& body);

/// A new recipe with the help text for its body. `cat` has two digits. Returns its key. Throws error 6
/// past key 32767.
Key insert_recipe(Connection& connection, const QString& name, const QString& cat);

/// Deletes a recipe with its lines.
void delete_recipe(Connection& connection, Key recipe);

/// Name and category of a recipe; a category of one digit gets its leading zero. Nothing without a row.
std::optional<RecipeRow> recipe_for_move(Connection& connection, Key recipe);

/// Writes the category of a recipe, a two-digit text. A recipe that has gone is passed over.
void set_recipe_category(Connection& connection, Key recipe, const QString& cat);

/// Nothing when there is no such line.
std::optional<LineLink> line_link(Connection& connection, Key line);

/// Sets the buy-it mark on all list rows of a stock item and stores its status. Returns the status.
StatusCode mark_item(Connection& connection, Key item, bool to_get);

} // namespace tarnwick
