#include "window/move_window.h"

#include "dialogs/move_item.h"
#include "household/recipe_categories.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_commands.h"
#include "widgets/node_key.h"
#include "widgets/tree_view.h"
#include "window/panes.h"

namespace tarnwick {

void show_move_item(Program& program, const Panes& panes, bool move_stock)
{
    const TreeView& tree = panes.tree(move_stock);
    const QTreeWidgetItem* node = tree.selected();
    const NodeKey key = NodeKey::of(node);
    if (!(move_stock ? key.is_item() : key.is_recipe()) || !node->parent())
        return;
    if (move_stock && !panes.recipe_page.finish_line_editor())
        return;
    const QTreeWidgetItem* folder = node->parent();
    move_item dialog(program, {move_stock, node->text(0), folder->text(0), NodeKey::of(folder).record});
    dialog.exec();
    if (!dialog.chosen())
        return;
    if (move_stock)
        panes.stock_commands.mv_item(*dialog.chosen(), key.record);
    else
        panes.recipe_tree.mv_rcp(recipe_category(*dialog.chosen() - 1), key.record);
}

} // namespace tarnwick
