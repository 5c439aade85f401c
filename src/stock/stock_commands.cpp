#include "stock/stock_commands.h"

#include "window/frmmain.h"
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
    new_item_rcp(main_, &main_, {naming::category}).exec();
}

void StockCommands::tv_del_cat(Key) { }
void StockCommands::tv_del_item(Key) { }
void StockCommands::mv_item(Key, Key) { }
void StockCommands::rename_category() { }
void StockCommands::rename_item() { }

void StockCommands::new_stock_item()
{
    main_.shared.editor_mode = edit_mode::new_item;
    main_.shared.item_in_work = -1;
    main_.shared.last_groc_key = -1;
    show_item_editor(main_);
}

void StockCommands::edit_stock_item()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    SharedValues& shared = main_.shared;
    shared.item_in_work = record_key(TreeView::key(node));
    shared.last_groc_key = ItemStore(main_.connection()).row_on_list(shared.item_in_work, shared.current_list);
    shared.editor_mode = edit_mode::edit_item;
    show_item_editor(main_);
}

void StockCommands::item_to_recipe()
{
    const QTreeWidgetItem* node = main_.stock_tree().view().selected();
    if (!node || !TreeView::key(node).startsWith(QLatin1String("item")))
        return;
    main_.shared.placing_source = placing_source::tree_to_recipe;
    main_.shared.item_in_work = record_key(TreeView::key(node));
    main_.recipe_page().drag_ingred(main_.shared.item_in_work, node->text(0));
}

bool StockCommands::after_label_edit(QTreeWidgetItem&, const QString&)
{
    return false;
}

} // namespace tarnwick
