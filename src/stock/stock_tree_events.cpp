#include "stock/stock_tree.h"

#include "window/frmmain.h"
#include "lists/list_pane.h"
#include "household/household.h"
#include "lists/placing.h"
#include "recipes/recipe_page.h"
#include "window/commands.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"
#include "stock/floating_buttons.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"
#include "stock/stock_commands.h"
#include "household/stock_store.h"

#include <QMenu>

#include <cstdlib>

namespace tarnwick {
namespace {

bool is_item(const QTreeWidgetItem& node)
{
    return TreeView::key(&node).startsWith(QLatin1String("item"));
}

/// A name for a menu caption, followed by a blank; long ones are cut.
QString short_name(const QString& text)
{
    constexpr int longest = 30;
    return trim(QStringView(text).left(longest)) + QLatin1String(text.size() > longest ? "... " : " ");
}

} // namespace

void StockTree::node_click(QTreeWidgetItem* node)
{
    if (main_.shared.node_dragged) {
        main_.shared.node_dragged = false;
        return;
    }
    if (is_item(*node)) {
        main_.shared.item_in_work = record_key(TreeView::key(node));
        show_status_of(*node);
        show_item_menus(*node);
    } else {
        show_category_menus(*node);
        show_status_of(*node);
    }
    main_.view_state().set_mnu_stock();
}

void StockTree::show_status_of(const QTreeWidgetItem& node)
{
    if (is_item(node)) {
        main_.set_status(get_status(main_.connection(), record_key(TreeView::key(&node))));
    } else {
        main_.set_status(node.text(0) + QStringLiteral(" category: ") + QString::number(node.childCount())
                         + QStringLiteral(" stock items"));
    }
}

void StockTree::show_item_menus(const QTreeWidgetItem& node)
{
    Commands& commands = main_.commands();
    const QString text = node.text(0);
    const bool recipe_shown = !main_.shared.list_pane_shown;
    const bool by_category = !main_.shared.stock_alpha;

    commands.set_visible(QStringLiteral("mnu_tv_rename"), true);
    commands.set_enabled(QStringLiteral("mnu_tv_rename"), true);
    for (const auto& name : {QStringLiteral("mnu_tv_dc"), QStringLiteral("mnu_tv_rn")}) {
        commands.set_visible(name, false);
        commands.set_enabled(name, true);
    }
    commands.set(QStringLiteral("mnu_tv_di"), QStringLiteral("Delete stock item ") + text, true);
    commands.set(QStringLiteral("mnu_tv_edit"), QStringLiteral("Edit stock item ") + text, true);
    commands.set_enabled(QStringLiteral("mnu_tv_ni"), true);
    show_list_captions(text);
    if (text.isEmpty()) {
        commands.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add  to recipe"), false);
    } else {
        commands.set(QStringLiteral("mnu_tv_air"),
                     QStringLiteral("Add item to ") + main_.shared.cur_recipe_name + QStringLiteral(" recipe"),
                     recipe_shown);
    }
    commands.set_visible(QStringLiteral("mnu_edit_stock_to_list"), true);
    commands.set_enabled(QStringLiteral("mnu_tv_ai"),
                         TreeView::picture(&node) >= status_code::unlisted && main_.shared.current_list >= 0);
    for (const auto& name :
         {QStringLiteral("mnu_tv_nc"), QStringLiteral("mnu_tv_sep_1"), QStringLiteral("mnu_tv_move")})
        commands.set_visible(name, by_category);
    if (by_category)
        commands.set_enabled(QStringLiteral("mnu_tv_move"), true);
}

void StockTree::show_list_captions(const QString& text)
{
    Commands& commands = main_.commands();
    const Key list = main_.shared.current_list;
    QString caption = QStringLiteral("Add to shopping list");
    if (list == 0) {
        caption = QStringLiteral("Add ") + short_name(text) + QStringLiteral("to a shopping list");
    } else if (list > 0) {
        caption = QStringLiteral("Add ") + short_name(text) + QStringLiteral("to ")
            + trim(get_list_name(main_.connection(), list)) + QStringLiteral(" list");
    } else {
        commands.set(QStringLiteral("mnu_list_del"), QStringLiteral("Delete shopping list"), false);
    }
    commands.set(QStringLiteral("mnu_tv_ai"), caption, list >= 0);
    commands.set(QStringLiteral("mnu_edit_stock_to_list"), caption, list >= 0);
}

void StockTree::show_category_menus(const QTreeWidgetItem& node)
{
    Commands& commands = main_.commands();
    const bool other = TreeView::key(&node).endsWith(QLatin1String("0000"));
    const QString name = other ? QString() : node.text(0) + u' ';

    commands.set_visible(QStringLiteral("mnu_tv_rename"), false);
    commands.set_enabled(QStringLiteral("mnu_tv_rename"), false);
    commands.set(QStringLiteral("mnu_tv_di"), QStringLiteral("Delete stock item"), false);
    commands.set(QStringLiteral("mnu_tv_edit"), QStringLiteral("Edit stock item"), false);
    commands.set_enabled(QStringLiteral("mnu_tv_ni"), true);
    commands.set(QStringLiteral("mnu_tv_dc"), QStringLiteral("Delete ") + name + QStringLiteral(" category"),
                 !other);
    commands.set(QStringLiteral("mnu_tv_rn"), QStringLiteral("Rename ") + name + QStringLiteral(" category"),
                 !other);
    for (const auto& shown : {QStringLiteral("mnu_tv_dc"), QStringLiteral("mnu_tv_rn"), QStringLiteral("mnu_tv_nc"),
                              QStringLiteral("mnu_tv_sep_1")})
        commands.set_visible(shown, true);
    commands.set(QStringLiteral("mnu_tv_ai"), QStringLiteral("Add to shopping list"), false);
    commands.set(QStringLiteral("mnu_tv_air"), QStringLiteral("Add to recipe"), false);
    commands.set_enabled(QStringLiteral("mnu_tv_move"), false);
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
    if (const QTreeWidgetItem* node = tree_.selected())
        show_status_of(*node);
    buttons_.hide(0);
    buttons_.hide(1);
    main_.view_state().set_mnu_recipe();
}

void StockTree::mouse_down(Qt::MouseButton, QPoint position)
{
    if (QTreeWidgetItem* node = tree_.hit_test(position)) {
        main_.list_pane().leave_for_tree();
        const Key record = record_key(TreeView::key(node));
        if (main_.recipe_page().editor_open()) {
            main_.recipe_page().finish_line_editor();
            main_.shared.item_in_work = record;
            return;
        }
        tree_.select(node);
        if (is_item(*node))
            main_.shared.item_in_work = record;
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
    if (is_item(*node))
        main_.shared.item_in_work = record_key(TreeView::key(node));
    if (button != Qt::LeftButton) {
        main_.commands().menu(QStringLiteral("mnu_tv")).popup(tree_.viewport()->mapToGlobal(position));
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
        main_.shared.item_in_work = item;
        main_.shared.last_groc_key = 0;
        main_.shared.editor_mode = edit_mode::edit_item;
        show_item_editor(main_);
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
