#include "stock/stock_tree.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "household/household.h"
#include "widgets/tree_view.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"
#include "household/stock_store.h"

#include <cstdlib>

namespace tarnwick {
namespace {

bool is_item(const QTreeWidgetItem& node)
{
    return TreeView::key(&node).startsWith(QLatin1String("item"));
}

} // namespace

bool StockTree::tells_status() const
{
    return program_.shared.stock_view && !program_.shared.form_loading;
}

/// First status panel, while the tree is the one on show.
void StockTree::show_status_of_selection()
{
    if (!tells_status())
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status({});
    else if (is_item(*node))
        program_.set_status(get_status(program_.connection, record_key(TreeView::key(node))));
    else
        program_.set_status(node->text(0) + QStringLiteral(" category: ") + QString::number(node->childCount())
                            + QStringLiteral(" stock items"));
}

void StockTree::key_down(int key)
{
    QTreeWidgetItem* node = tree_.selected();
    if (!node)
        return;
    if (key == Qt::Key_Space && is_item(*node))
        click_box(*node);
    else if (key == Qt::Key_Menu)
        emit menu_wanted(tree_.menu_place());
    if (key != Qt::Key_Delete)
        return;
    const Key record = record_key(TreeView::key(node));
    if (is_item(*node))
        emit item_deletion_wanted(record);
    else
        emit category_deletion_wanted(record);
}

void StockTree::key_up(int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return;
    show_status_of_selection();
    emit item_left();
}

void StockTree::mouse_down(Qt::MouseButton, QPoint position)
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

void StockTree::start_drag(const QTreeWidgetItem& node, QPoint global)
{
    if (!tree_mouse_down_ || !is_item(node))
        return;
    tree_mouse_down_ = false;
    emit drag_wanted({DragKind::stock_item, record_key(TreeView::key(&node)), trim(node.text(0))}, global);
}

void StockTree::mouse_up(Qt::MouseButton button, QPoint position)
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
    if (!is_item(*node)) {
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
bool StockTree::hits_box(int x) const
{
    constexpr int standard_indent = 109;
    constexpr int folder_first = 73;
    constexpr int folder_last = 85;
    constexpr int flat_first = 68;
    constexpr int flat_last = 81;
    const int shift = std::abs(get_indent() - standard_indent);
    const bool flat = program_.shared.stock_alpha;
    return x >= (flat ? flat_first : folder_first) - shift && x <= (flat ? flat_last : folder_last) - shift;
}

bool StockTree::click_box(QTreeWidgetItem& node)
{
    const Key item = record_key(TreeView::key(&node));
    switch (TreeView::tag(&node).toInt()) {
    case status_code::unlisted:
        emit placing_wanted(item);
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
    const std::vector<TiedRow> rows = clickable_rows(program_.connection, item);
    if (rows.empty())
        return;
    if (rows.size() > 1) {
        show_item_editor(program_, {EditMode::edit_item, item});
        return;
    }
    program_.household.tick_in_tree(item, rows.front(), true);
}

void StockTree::inactivate(Key item)
{
    const std::vector<TiedRow> rows = clickable_rows(program_.connection, item);
    if (!rows.empty())
        program_.household.tick_in_tree(item, rows.front(), false);
}

} // namespace tarnwick
