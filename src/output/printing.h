#pragma once

#include "data/connection.h"
#include "household/recipe_sheet.h"
#include "household/report_options.h"
#include "output/paper.h"

#include <QDate>

class QWidget;

namespace tarnwick {

/// Where what is printed comes from, and where it goes.
struct PrintSource {
    Connection& connection;
    Key list; ///< below 1 all lists
    ReportOptions options;
    int type_size; ///< of the preview's buttons, points
    QDate today;
    Paper paper;
};

/// Where `page` of `print_list_pages` stands when nothing is left to do.
inline constexpr Key no_more_pages = 10000;

/// Prints the list, or all lists, from a page to the last, and leaves `page` past it; or shows that page in
/// the preview and waits, and leaves `page` at `no_more_pages`. Tells the user when there is nothing to print, over
/// `owner`. Throws SQLite::Exception.
void print_list_pages(const PrintSource& source, QWidget& owner, Key& page, bool preview);

/// Prints a recipe, or shows it in the preview and waits.
void print_recipe(const Paper& paper, QWidget& owner, int type_size, const RecipeSheet& recipe, bool preview);

} // namespace tarnwick
