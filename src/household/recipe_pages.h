#pragma once

#include "household/page.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tarnwick {

/// The recipe page as it stands on the screen.
struct PrintedRecipe {
    QString title;
    QStringList lines; ///< the ingredient lines
    QString body; ///< line ends are line feeds
};

/// So many ingredient lines are printed at the most.
inline constexpr int most_printed_lines = 26;

/// The printed pages of a recipe, one at least. The first has title, ingredient lines and as much of the
/// instructions as it holds; the second the whole rest. What no legible type fits there goes on further pages.
std::vector<Page> recipe_pages(const PrintedRecipe& recipe);

} // namespace tarnwick
