#include "stock/stock_tree.h"

#include "window/frmmain.h"
#include "widgets/program.h"
#include "lists/list_pane.h"
#include "household/household.h"
#include "lists/placing.h"
#include "recipes/recipe_page.h"
#include "widgets/tree_view.h"
#include "stock/floating_buttons.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"
#include "stock/stock_commands.h"
#include "household/stock_store.h"

#include <cstdlib>

namespace tarnwick {
namespace {

bool is_item(const QTreeWidgetItem& node)
{
    return TreeView::key(&node).startsWith(QLatin1String("item"));
}

} // namespace

void StockTree::node_click(QTreeWidgetItem*)
{
    main_.shared.node_dragged = false;
}

/// First status panel, while the tree is the one on show.
void StockTree::show_status_of_selection()
{
    if (main_.shared.form_loading || !main_.shared.stock_view)
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        main_.set_status({});
    else if (is_item(*node))
        main_.set_status(get_status(main_.connection(), record_key(TreeView::key(node))));
    else
        main_.set_status(node->text(0) + QStringLiteral(" category: ") + QString::number(node->childCount())
                         + QStringLiteral(" stock items"));
}

void StockTree::key_down(int key)
{
    const QTreeWidgetItem* node = tree_.selected();
    if (key != Qt::Key_Delete || !node)
        return;
    const Key record = record_key(TreeView::key(node));
    if (is_item(*node))
        main_.stock_commands().tv_del_item(record);
    else
        main_.stock_commands().tv_del_cat(record);
}

void StockTree::key_up(int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return;
    show_status_of_selection();
    buttons_.hide(0);
    buttons_.hide(1);
}

void StockTree::mouse_down(Qt::MouseButton, QPoint position)
{
    if (QTreeWidgetItem* node = tree_.hit_test(position)) {
        main_.list_pane().leave_for_tree();
        if (main_.recipe_page().editor_open()) {
            main_.recipe_page().finish_line_editor();
            return;
        }
        tree_.select(node);
    }
    tree_down_ = position;
    tree_mouse_down_ = true;
}

void StockTree::mouse_up(Qt::MouseButton button, QPoint position)
{
    const bool pressed = tree_mouse_down_;
    tree_mouse_down_ = false;
    if (main_.shared.tree_drag) {
        main_.shared.tree_drag = false;
        return;
    }
    // A press that only finished the recipe's line editor left no place to act on.
    if (!pressed)
        return;
    QTreeWidgetItem* node = tree_.hit_test(tree_down_);
    if (!node) {
        buttons_.hide(0);
        buttons_.hide(1);
        return;
    }
    tree_.select(node);
    if (button != Qt::LeftButton) {
        emit menu_wanted(tree_.viewport()->mapToGlobal(position));
        return;
    }
    if (!is_item(*node)) {
        buttons_.hide(0);
        buttons_.hide(1);
        return;
    }
    const QString key = TreeView::key(node);
    if (hits_box(tree_down_.x()) && !click_box(*node))
        return;
    // Placing may have run a dialog; the node is looked up again.
    if (QTreeWidgetItem* left = tree_.node(key))
        buttons_.show_for(*left);
}

/// The box stands at a fixed distance from the text, whose place the indent tells.
bool StockTree::hits_box(int x) const
{
    constexpr int standard_indent = 109;
    constexpr int folder_first = 73;
    constexpr int folder_last = 85;
    constexpr int flat_first = 68;
    constexpr int flat_last = 81;
    const int shift = std::abs(get_indent() - standard_indent);
    const bool flat = main_.shared.stock_alpha;
    return x >= (flat ? flat_first : folder_first) - shift && x <= (flat ? flat_last : folder_last) - shift;
}

bool StockTree::click_box(QTreeWidgetItem& node)
{
    const Key item = record_key(TreeView::key(&node));
    switch (TreeView::tag(&node).toInt()) {
    case status_code::unlisted:
        main_.placing().stock_to_list(item);
        return true;
    case status_code::inactive:
        activate(item);
        return false;
    case status_code::buy_it:
        inactivate(item);
        return true;
    default:
        return false;
    }
}

void StockTree::activate(Key item)
{
    const std::vector<TiedRow> rows = clickable_rows(main_.connection(), item);
    if (rows.empty())
        return;
    if (rows.size() > 1) {
        show_item_editor(main_.program(), {EditMode::edit_item, item});
        return;
    }
    main_.household().tick_in_tree(item, rows.front(), true);
}

void StockTree::inactivate(Key item)
{
    const std::vector<TiedRow> rows = clickable_rows(main_.connection(), item);
    if (!rows.empty())
        main_.household().tick_in_tree(item, rows.front(), false);
}

} // namespace tarnwick
