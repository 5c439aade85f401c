#include "window/panes.h"

#include "lists/list_pane.h"
#include "lists/placing.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "widgets/list_grid.h"
#include "widgets/row_editor.h"

namespace tarnwick {

TreeView& Panes::tree(bool stock) const
{
    return stock ? stock_tree.view() : recipe_tree.view();
}

void Panes::tell_selection() const
{
    stock_tree.show_status_of_selection();
    recipe_tree.show_status_of_selection();
}

void Panes::tell_current() const
{
    const ListGrid& grid = list_pane.grid();
    if (grid.isVisible() && grid.current_row() >= 0)
        placing.show_row_status(grid.current_row());
    else
        tell_selection();
}

bool Panes::leave_editors() const
{
    list_pane.row_editor().lv_edit_off();
    return recipe_page.leave_editors();
}

} // namespace tarnwick
