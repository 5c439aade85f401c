#pragma once

#include "data/text.h"

#include <QColor>
#include <QString>

#include <optional>

namespace tarnwick {

/// The colour of a page colour index 0 to 3; nothing above.
std::optional<QColor> page_color_of(int index);

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
    int color_index = 3; ///< page colour 0 to 3 as set; above 3 there is none
    Key current_list = 0; ///< above 0 a list, 0 all lists, -1 no list exists
    bool all_lists_view = false; ///< the grid shows all lists together
    Key cur_recipe = 0; ///< recipe on the page; 0 none chosen yet, -1 none
    QString cur_recipe_name;

    std::optional<QColor> page_color() const { return page_color_of(color_index); }
};

} // namespace tarnwick
