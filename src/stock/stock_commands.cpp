#include "stock/stock_commands.h"

#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "dialogs/new_item_rcp.h"
#include "widgets/tree_view.h"
#include "household/item_store.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_tree.h"

namespace tarnwick {

StockCommands::StockCommands(Program& program, StockTree& tree)
    : program_(program)
    , tree_(tree)
{
    connect(&tree_, &StockTree::item_deletion_wanted, this, &StockCommands::tv_del_item);
    connect(&tree_, &StockTree::category_deletion_wanted, this, &StockCommands::tv_del_cat);
    connect(&tree_.view(), &TreeView::after_label_edit, this,
            [this](QTreeWidgetItem* node, const QString& text, bool& cancel) {
                cancel = !after_label_edit(*node, text);
            });
}

void StockCommands::new_cat()
{
    new_item_rcp(program_, &program_.window, {NamingKind::category}).exec();
}

void StockCommands::tv_del_cat(Key) { }
void StockCommands::tv_del_item(Key) { }
void StockCommands::mv_item(Key, Key) { }
void StockCommands::rename_category() { }
void StockCommands::rename_item() { }

void StockCommands::new_stock_item()
{
    EditRequest request;
    request.category = tree_.selected_category();
    show_item_editor(program_, request);
}

void StockCommands::edit_stock_item()
{
    const NodeKey key = NodeKey::of(tree_.view().selected());
    if (!key.is_item())
        return;
    EditRequest request{EditMode::edit_item, key.record};
    request.row = ItemStore(program_.connection).row_on_list(request.item, program_.shared.current_list);
    show_item_editor(program_, request);
}

void StockCommands::item_to_recipe()
{
    const QTreeWidgetItem* node = tree_.view().selected();
    const NodeKey key = NodeKey::of(node);
    if (key.is_item())
        emit adding_wanted(key.record, node->text(0));
}

bool StockCommands::after_label_edit(QTreeWidgetItem&, const QString&)
{
    return false;
}

} // namespace tarnwick
