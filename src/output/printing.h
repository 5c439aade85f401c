#pragma once

#include "app/environment.h"
#include "app/shared_values.h"
#include "data/connection.h"
#include "household/recipe_sheet.h"

class QWidget;

namespace tarnwick {

/// Where what is printed comes from.
struct PrintSource {
    Connection& connection;
    const SharedValues& shared; ///< current list, print options, type size
    const Environment& environment;
};

/// Where `page` of `print_list_pages` stands when nothing is left to do.
inline constexpr Key no_more_pages = 10000;

/// Prints the current list, or all lists, from a page to the last, and leaves `page` past it; or shows that page in
/// the preview and waits, and leaves `page` at `no_more_pages`. Tells the user when there is nothing to print, over
/// `owner`. Throws SQLite::Exception.
void print_list_pages(const PrintSource& source, QWidget& owner, Key& page, bool preview);

/// Prints what stands on the recipe page, or shows it in the preview and waits.
void print_recipe(const PrintSource& source, QWidget& owner, const RecipeSheet& recipe, bool preview);

} // namespace tarnwick
