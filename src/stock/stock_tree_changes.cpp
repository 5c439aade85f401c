#include "stock/stock_tree.h"

#include "widgets/program.h"
#include "household/household.h"
#include "household/status.h"
#include "widgets/tree_view.h"

// What the tree shows of operations that rename and take away.
namespace tarnwick {

void StockTree::category_changed(const CategoryChange& change)
{
    if (change.kind == CategoryChange::Kind::made)
        add_category_node(change.category, change.name);
    else if (QTreeWidgetItem* folder = category_node(change.category))
        folder->setText(0, change.name); // it keeps its place until the next load
}

void StockTree::items_gone(const ItemsGone& gone)
{
    QTreeWidgetItem* folder = gone.category ? category_node(*gone.category) : nullptr;
    for (const Key item : gone.items)
        if (QTreeWidgetItem* node = item_node(item); node && (!folder || node->parent() != folder))
            remove_item_node(*node);
    if (!folder)
        return;
    const QTreeWidgetItem* chosen = tree_.selected();
    if (chosen && (chosen == folder || chosen->parent() == folder))
        select_neighbour(*folder);
    tree_.remove_node(folder);
}

/// The selection moves on before the node goes: to the folder, in the flat view to the node before it.
void StockTree::remove_item_node(QTreeWidgetItem& node)
{
    const bool was_selected = tree_.selected() == &node;
    QTreeWidgetItem* folder = node.parent();
    if (was_selected && folder)
        tree_.select(folder);
    else if (was_selected)
        select_neighbour(node);
    if (folder && folder->childCount() < 2)
        show_closed(*folder);
    tree_.remove_node(&node);
    if (was_selected)
        tell_after_deletion();
}

/// The root node before this one, or without one the next; none is selected when there is no other.
void StockTree::select_neighbour(QTreeWidgetItem& node)
{
    const int place = tree_.indexOfTopLevelItem(&node);
    tree_.select(tree_.topLevelItem(place > 0 ? place - 1 : place + 1));
}

void StockTree::tell_after_deletion()
{
    if (!tells_status())
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status(QStringLiteral(" "));
    else if (tree_.is_flat())
        program_.set_status(get_status(program_.connection, record_key(TreeView::key(node))));
    else
        program_.set_status(node->text(0) + QStringLiteral(" category"));
}

} // namespace tarnwick
