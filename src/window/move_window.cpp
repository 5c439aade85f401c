#include "window/move_window.h"

#include "dialogs/move_item.h"
#include "household/recipe_categories.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_commands.h"
#include "stock/stock_tree.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

namespace tarnwick {

void show_move_item(frmmain& main, bool move_stock)
{
    const TreeView& tree = move_stock ? main.stock_tree().view() : main.recipe_tree().view();
    const QTreeWidgetItem* node = tree.selected();
    const QString kind = move_stock ? QStringLiteral("item") : QStringLiteral("rcp");
    if (!node || !node->parent() || !TreeView::key(node).startsWith(kind))
        return;
    if (move_stock && !main.recipe_page().finish_line_editor())
        return;
    const Key record = record_key(TreeView::key(node));
    const QTreeWidgetItem& folder = *node->parent();
    const QString folder_key = TreeView::key(&folder);
    const Key category = move_stock ? record_key(folder_key) : static_cast<Key>(folder_key.mid(4).toInt());
    move_item dialog(main.program(), {move_stock, node->text(0), folder.text(0), category});
    dialog.exec();
    if (!dialog.chosen())
        return;
    if (move_stock)
        main.stock_commands().mv_item(*dialog.chosen(), record);
    else
        main.recipe_tree().mv_rcp(recipe_category(*dialog.chosen() - 1), record);
}

} // namespace tarnwick
