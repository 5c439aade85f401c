#include "household/recipe_sheet.h"

#include "household/recipe_store.h"

namespace tarnwick {

std::optional<RecipeSheet> read_recipe_sheet(Connection& connection, Key recipe)
{
    const auto text = read_recipe(connection, recipe);
    if (!text)
        return std::nullopt;
    RecipeSheet sheet{text->name, {}, with_crlf(text->body)};
    for (const IngredientRow& row : load_lines(connection, recipe))
        sheet.lines.append(row.display_text());
    return sheet;
}

} // namespace tarnwick
