#include "stock/stock_clicks.h"

#include "dialogs/l_item_edit.h"
#include "household/household.h"
#include "household/status.h"
#include "household/stock_store.h"
#include "stock/stock_tree.h"
#include "widgets/drag.h"
#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/tree_view.h"

#include <cstdlib>
#include <utility>

namespace tarnwick {

StockClicks::StockClicks(Program& program, StockTree& tree, std::function<bool()> leave_line_editor)
    : QObject(&tree)
    , program_(program)
    , stock_(tree)
    , tree_(tree.view())
    , leave_line_editor_(std::move(leave_line_editor))
{
    connect(&tree_, &TreeView::mouse_down, this, &StockClicks::mouse_down);
    connect(&tree_, &TreeView::mouse_up, this, &StockClicks::mouse_up);
    connect(&tree_, &TreeView::release_spent, this, [this] { tree_mouse_down_ = false; });
    connect(&tree_, &TreeView::drag_wanted, this,
            [this](QTreeWidgetItem* node, QPoint global) { start_drag(*node, global); });
    connect(&tree_, &TreeView::key_down, this, &StockClicks::key_down);
    connect(&tree_, &TreeView::key_up, this, &StockClicks::key_up);
}

void StockClicks::key_down(int key)
{
    QTreeWidgetItem* selected = tree_.selected();
    if (!selected)
        return;
    const NodeKey node = NodeKey::of(selected);
    if (key == Qt::Key_Space && node.is_item())
        click_box(*selected);
    else if (key == Qt::Key_Menu)
        emit menu_wanted(tree_.menu_place());
    if (key != Qt::Key_Delete)
        return;
    if (node.is_item())
        emit item_deletion_wanted(node.record);
    else
        emit category_deletion_wanted(node.record);
}

void StockClicks::key_up(int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return;
    stock_.show_status_of_selection();
    emit item_left();
}

void StockClicks::mouse_down(Qt::MouseButton, QPoint position)
{
    if (QTreeWidgetItem* node = tree_.hit_test(position)) {
        emit node_pressed();
        if (leave_line_editor_())
            return;
        tree_.select(node);
    }
    tree_down_ = position;
    tree_mouse_down_ = true;
}

void StockClicks::start_drag(const QTreeWidgetItem& node, QPoint global)
{
    if (!tree_mouse_down_ || !NodeKey::of(&node).is_item())
        return;
    tree_mouse_down_ = false;
    emit drag_wanted({DragKind::stock_item, NodeKey::of(&node).record, trim(node.text(0))}, global);
}

void StockClicks::mouse_up(Qt::MouseButton button, QPoint position)
{
    const bool pressed = tree_mouse_down_;
    tree_mouse_down_ = false;
    // A press that only finished the recipe's line editor left no place to act on.
    if (!pressed)
        return;
    QTreeWidgetItem* node = tree_.hit_test(tree_down_);
    if (!node) {
        emit item_left();
        return;
    }
    tree_.select(node);
    if (button != Qt::LeftButton) {
        emit menu_wanted(tree_.viewport()->mapToGlobal(position));
        return;
    }
    if (!NodeKey::of(node).is_item()) {
        emit item_left();
        return;
    }
    const QString key = TreeView::key(node);
    if (hits_box(tree_down_.x()) && !click_box(*node))
        return;
    // Placing may have run a dialog; the node is looked up again.
    if (QTreeWidgetItem* left = tree_.node(key))
        emit item_clicked(left);
}

/// The box stands at a fixed distance from the text, whose place the indent tells.
bool StockClicks::hits_box(int x) const
{
    constexpr int standard_indent = 109;
    constexpr int folder_first = 73;
    constexpr int folder_last = 85;
    constexpr int flat_first = 68;
    constexpr int flat_last = 81;
    const int shift = std::abs(stock_.get_indent() - standard_indent);
    const bool flat = program_.shared.stock_alpha;
    return x >= (flat ? flat_first : folder_first) - shift && x <= (flat ? flat_last : folder_last) - shift;
}

bool StockClicks::click_box(QTreeWidgetItem& node)
{
    const Key item = NodeKey::of(&node).record;
    switch (code_of_number(TreeView::tag(&node).toInt()).value_or(StatusCode::non_stock)) {
    case StatusCode::unlisted:
        emit placing_wanted(item);
        return true;
    case StatusCode::inactive:
        activate(item);
        return false;
    case StatusCode::buy_it:
        inactivate(item);
        return true;
    default:
        return false;
    }
}

void StockClicks::activate(Key item)
{
    const std::vector<TiedRow> rows = clickable_rows(program_.connection, item);
    if (rows.empty())
        return;
    if (rows.size() > 1) {
        show_item_editor(program_, {EditMode::edit_item, item});
        return;
    }
    program_.household.tick_in_tree(item, rows.front(), true);
}

void StockClicks::inactivate(Key item)
{
    const std::vector<TiedRow> rows = clickable_rows(program_.connection, item);
    if (!rows.empty())
        program_.household.tick_in_tree(item, rows.front(), false);
}

} // namespace tarnwick
