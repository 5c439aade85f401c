#pragma once

#include "household/page.h"
#include "household/recipe_sheet.h"

#include <vector>

namespace tarnwick {

/// So many ingredient lines are printed at the most.
inline constexpr int most_printed_lines = 26;

/// The printed pages of a recipe, one at least. The first has title, ingredient lines and as much of the
/// instructions as it holds; the second the whole rest. What no legible type fits there goes on further pages.
std::vector<Page> recipe_pages(const RecipeSheet& sheet);

} // namespace tarnwick
