#include "stock/stock_commands.h"

#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "dialogs/new_item_rcp.h"
#include "widgets/tree_view.h"
#include "household/item_store.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree.h"

#include <utility>

namespace tarnwick {

StockCommands::StockCommands(Program& program, StockTree& tree, std::function<bool()> finish_recipe_line)
    : program_(program)
    , tree_(tree)
    , finish_recipe_line_(std::move(finish_recipe_line))
    , tidying_(program.connection, program.household, program.window)
    , question_(nullptr)
{
    connect(&tree_.clicks(), &StockClicks::item_deletion_wanted, this, &StockCommands::tv_del_item);
    connect(&tree_.clicks(), &StockClicks::category_deletion_wanted, this, &StockCommands::tv_del_cat);
    connect(&tree_.view(), &TreeView::after_label_edit, this,
            [this](const QTreeWidgetItem* node, const QString& text, Qt::FocusReason left_by) {
                if (!program_.shared.ending)
                    after_label_edit(*node, text, left_by);
            });
}

void StockCommands::new_cat()
{
    new_item_rcp(program_, &program_.window, {NamingKind::category}).exec();
}

/// Finishes the edit of an ingredient line; a keyboard that this leaves to nobody goes to the tree.
bool StockCommands::leave_page()
{
    if (!finish_recipe_line_())
        return false;
    if (!program_.window.focusWidget())
        tree_.view().setFocus(Qt::OtherFocusReason);
    return true;
}

void StockCommands::tv_del_cat(Key category)
{
    if (!program_.shared.stock_alpha && leave_page())
        tidying_.delete_category(category);
}

void StockCommands::tv_del_item(Key item)
{
    if (leave_page())
        tidying_.delete_item(item);
}

void StockCommands::mv_item(Key category, Key item)
{
    emit item_moving();
    if (leave_page())
        tidying_.move_item(item, category);
}

void StockCommands::rename_category()
{
    TreeView& tree = tree_.view();
    const QTreeWidgetItem* node = tree.selected();
    if (node && !node->parent() && !NodeKey::of(node).is_other() && leave_page())
        tree.start_label_edit();
}

void StockCommands::rename_item()
{
    if (leave_page())
        tree_.view().start_label_edit();
}

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

void StockCommands::after_label_edit(const QTreeWidgetItem& node, const QString& text, Qt::FocusReason left_by)
{
    const QString old_name = trim(node.text(0));
    const QString name = trim(text);
    if (name.isEmpty() || name == old_name)
        return;
    const Key record = NodeKey::of(&node).record;
    const bool item = NodeKey::of(&node).is_item();
    const auto rename = [this, item, record, old_name, name] {
        if (item)
            tidying_.rename_item(record, old_name, name);
        else
            tidying_.rename_category(record, name);
    };
    const bool asks = item ? tidying_.asks_for_item(record, name) : tidying_.asks_for_category(name);
    if (asks && left_by != Qt::NoFocusReason)
        question_.ask_later(left_by, rename);
    else
        rename();
}

} // namespace tarnwick
