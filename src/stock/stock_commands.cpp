#include "stock/stock_commands.h"

#include "window/frmmain.h"
#include "widgets/program.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/recipe_page.h"
#include "widgets/tree_view.h"
#include "household/item_store.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_tree.h"

namespace tarnwick {

StockCommands::StockCommands(frmmain& main)
    : main_(main)
{
}

void StockCommands::new_cat()
{
    new_item_rcp(main_.program(), &main_, {NamingKind::category}).exec();
}

void StockCommands::tv_del_cat(Key) { }
void StockCommands::tv_del_item(Key) { }
void StockCommands::mv_item(Key, Key) { }
void StockCommands::rename_category() { }
void StockCommands::rename_item() { }

void StockCommands::new_stock_item()
{
    EditRequest request;
    request.category = main_.stock_tree().selected_category();
    show_item_editor(main_.program(), request);
}

void StockCommands::edit_stock_item()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    EditRequest request{EditMode::edit_item, record_key(TreeView::key(node))};
    request.row = ItemStore(main_.connection()).row_on_list(request.item, main_.shared.current_list);
    show_item_editor(main_.program(), request);
}

void StockCommands::item_to_recipe()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    main_.recipe_page().drag_ingred(record_key(TreeView::key(node)), node->text(0));
}

bool StockCommands::after_label_edit(QTreeWidgetItem&, const QString&)
{
    return false;
}

} // namespace tarnwick
