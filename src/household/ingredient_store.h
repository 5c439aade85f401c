#pragma once

#include "data/connection.h"
#include "data/text.h"
#include "household/recipe_store.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace tarnwick {

/// The texts of an ingredient line, in the order in which they are edited.
enum class IngredientField { qty, measure, item, comment };
inline constexpr std::array ingredient_fields{IngredientField::qty, IngredientField::measure, IngredientField::item,
                                              IngredientField::comment};

/// A stock item as the pick list offers it.
struct StockName {
    Key key = 0;
    QString name;
};

/// One ingredient line, its texts trimmed; nothing when there is no such line. Everything here throws
/// SQLite::Exception on a database error.
std::optional<IngredientRow> read_line(Connection& connection, Key line);

/// The longest start of a text that the measure of a new line holds: 20 characters, none cut in half.
QString measure_of_new_line(const QString& measure);

/// Writes a new line at a place of a recipe, empty texts as one blank. A link to a stock item that has gone
/// becomes -1. Returns the line as it is stored, with its key; nothing when the recipe has gone.
/// Throws error 6 past key 32767.
std::optional<IngredientRow> insert_line(Connection& connection, Key recipe, IngredientRow line, int order);

/// Puts a line of a recipe behind another one, or first with `after` below 1, and numbers all of them from 0.
/// Returns its new place; nothing, and no change, when either line has gone or the line stands there.
std::optional<int> move_line(Connection& connection, Key recipe, Key line, Key after);

void delete_line(Connection& connection, Key line);

/// Whether a stock item stands on a recipe.
bool item_on_recipe(Connection& connection, Key recipe, Key item);

/// The stock item that a typed name means, singular or plural, in any case; the very name goes first.
/// The name is a pattern. 0 when there is none.
Key stock_item_named(Connection& connection, const QString& name);

/// Stock items whose names begin with a text, its final S left out, by name. The text is a pattern.
std::vector<StockName> stock_names_like(Connection& connection, const QString& text);

/// The stock item of `stock_item_named`, found among the `stock_names_like` of the same text.
Key stock_item_among(Connection& connection, const std::vector<StockName>& names, const QString& name);

} // namespace tarnwick
