#pragma once

#include "data/text.h"
#include "household/report_options.h"

#include <QColor>
#include <QString>

#include <optional>

namespace tarnwick {

/// What the item editor is opened for.
namespace edit_mode {
inline constexpr int new_item = 0;
inline constexpr int place_item = 1;
inline constexpr int edit_item = 2;
inline constexpr int recipe_item = 3;
inline constexpr int add_to_recipe = 4;
inline constexpr int non_stock_to_stock = 5;
} // namespace edit_mode

/// Where the item that is placed comes from.
namespace placing_source {
inline constexpr int tree_to_recipe = 1;
inline constexpr int manager_all_lists = 2; ///< the list manager, with all lists chosen
inline constexpr int manager_one_list = 3; ///< the list manager, with one list chosen
} // namespace placing_source

/// What the naming dialog makes.
namespace naming {
inline constexpr int list = 1;
inline constexpr int recipe = 2;
inline constexpr int category = 3;
} // namespace naming

/// The state that the panes and dialogs of the main window share.
struct SharedValues {
    bool form_loading = true; ///< the main form's Load runs: views and folders are not stored
    bool started = false; ///< Load has restored size and separator
    bool ending = false; ///< the message of an error that ends the program is up: nothing is saved any more
    bool stock_view = true; ///< left pane: stock tree, else recipe tree
    bool list_pane_shown = true; ///< right pane: shopping list, else recipe page
    bool stock_alpha = false; ///< stock tree by name instead of by category
    bool recipe_alpha = false; ///< recipe tree by name instead of by category
    int type_size = 9; ///< points: 9, 10 or 12; any number a damaged setting held
    int color_index = 3; ///< page colour 0 to 3 as set; above 3 leaves `page_color` unset
    std::optional<QColor> page_color;
    Key current_list = 0; ///< above 0 a list, 0 all lists, -1 no list exists
    bool all_lists_view = false; ///< the grid shows all lists together
    Key cur_recipe = 0; ///< recipe on the page; 0 none chosen yet, -1 none
    QString cur_recipe_name;
    Key item_in_work = 0; ///< stock item of the running operation
    Key last_groc_key = -1; ///< list row placed or chosen last; -1 none
    Key ingredient_in_work = -1; ///< recipe line that the item editor was opened for
    int editor_mode = edit_mode::new_item;
    int dialog_kind = naming::list;
    int placing_source = 0; ///< of the namespace `placing_source`; 0 nothing placed yet
    bool move_stock = true; ///< the move dialog moves a stock item, else a recipe
    bool page_busy = false; ///< the recipe page is being rebuilt
    bool lites_busy = false; ///< lights of the recipe page are being set
    ReportOptions reports;
};

/// The colour of a page colour index 0 to 3; nothing above.
std::optional<QColor> page_color_of(int index);

} // namespace tarnwick
