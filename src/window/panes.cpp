#include "window/panes.h"

#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "widgets/row_editor.h"

namespace tarnwick {

TreeView& Panes::tree(bool stock) const
{
    return stock ? stock_tree.view() : recipe_tree.view();
}

bool Panes::leave_editors() const
{
    list_pane.row_editor().lv_edit_off();
    return recipe_page.leave_editors();
}

} // namespace tarnwick
