#include "window/move_window.h"

#include "dialogs/move_item.h"
#include "household/recipe_categories.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_commands.h"
#include "stock/stock_tree.h"
#include "widgets/node_key.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

namespace tarnwick {

void show_move_item(frmmain& main, bool move_stock)
{
    const TreeView& tree = move_stock ? main.stock_tree().view() : main.recipe_tree().view();
    const QTreeWidgetItem* node = tree.selected();
    const NodeKey key = NodeKey::of(node);
    if (!(move_stock ? key.is_item() : key.is_recipe()) || !node->parent())
        return;
    if (move_stock && !main.recipe_page().finish_line_editor())
        return;
    const QTreeWidgetItem* folder = node->parent();
    move_item dialog(main.program(), {move_stock, node->text(0), folder->text(0), NodeKey::of(folder).record});
    dialog.exec();
    if (!dialog.chosen())
        return;
    if (move_stock)
        main.stock_commands().mv_item(*dialog.chosen(), key.record);
    else
        main.recipe_tree().mv_rcp(recipe_category(*dialog.chosen() - 1), key.record);
}

} // namespace tarnwick
