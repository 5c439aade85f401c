#include "recipes/recipe_tree.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "recipes/recipe_page.h"
#include "widgets/tree_view.h"

#include <QCursor>
#include <QScrollBar>

namespace tarnwick {
namespace {

constexpr int folder_closed = 3;
constexpr int folder_open = 4;

bool is_recipe(const QTreeWidgetItem& node)
{
    return TreeView::key(&node).startsWith(QLatin1String("rcp"));
}

} // namespace

void RecipeTree::connect_events()
{
    connect(&tree_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* node) { expanded(node, true); });
    connect(&tree_, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* node) { expanded(node, false); });
    connect(&tree_, &TreeView::node_click, this, &RecipeTree::node_click);
    connect(&tree_, &TreeView::selection_changed, this, &RecipeTree::show_status_of_selection);
    connect(&tree_, &TreeView::mouse_down, this,
            [this](Qt::MouseButton, QPoint position) { mouse_down(position); });
    connect(&tree_, &TreeView::mouse_up, this, [this](Qt::MouseButton button) { mouse_released(button); });
    connect(&tree_, &TreeView::release_spent, this, [this] {
        tree_mouse_down_ = false;
        sort_after_press();
    });
    connect(&tree_, &TreeView::drag_wanted, this,
            [this](QTreeWidgetItem* node, QPoint global) { start_drag(*node, global); });
    connect(&tree_, &TreeView::key_down, this, &RecipeTree::key_down);
    // A recipe is renamed on its page, a category never.
    connect(&tree_, &TreeView::before_label_edit, this, [](QTreeWidgetItem*, bool& cancel) { cancel = true; });
}

void RecipeTree::expanded(QTreeWidgetItem* node, bool open)
{
    if (!program_.shared.form_loading && !is_recipe(*node))
        tree_.set_picture(node, open ? folder_open : folder_closed);
}

void RecipeTree::node_click(QTreeWidgetItem* node)
{
    if (is_recipe(*node))
        open(*node);
}

bool RecipeTree::choose(Key recipe)
{
    QTreeWidgetItem* node = recipe_node(recipe);
    if (!node)
        return false;
    tree_.select(node);
    tree_.ensure_visible(node);
    open(*node);
    return true;
}

void RecipeTree::open(const QTreeWidgetItem& node)
{
    program_.shared.cur_recipe = record_key(TreeView::key(&node));
    program_.shared.cur_recipe_name = trim(node.text(0));
    page_.scroll_bar().setValue(0);
    page_.set_recipe(program_.shared.cur_recipe);
    program_.shared.list_pane_shown = false;
    program_.l_r_refresh();
}

/// First status panel, while the tree is the one on show.
void RecipeTree::show_status_of_selection()
{
    if (program_.shared.form_loading || program_.shared.stock_view)
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status({});
    else if (is_recipe(*node))
        program_.set_status(trim(node->text(0)) + QStringLiteral(" recipe"));
    else
        program_.set_status(node->text(0) + QStringLiteral(": ") + QString::number(node->childCount())
                            + QStringLiteral(" recipes"));
}

void RecipeTree::mouse_down(QPoint position)
{
    if (QTreeWidgetItem* node = tree_.hit_test(position)) {
        emit node_pressed();
        if (page_.leave_line_editor())
            return;
        tree_.select(node);
    }
    tree_down_ = position;
    tree_mouse_down_ = true;
}

void RecipeTree::mouse_released(Qt::MouseButton button)
{
    take_release(button);
    sort_after_press();
}

void RecipeTree::sort_after_press()
{
    if (unsorted_ > 0)
        sort_renamed(unsorted_, false);
}

void RecipeTree::start_drag(const QTreeWidgetItem& node, QPoint global)
{
    if (!tree_mouse_down_ || !is_recipe(node) || program_.shared.recipe_alpha)
        return;
    tree_mouse_down_ = false;
    const DragPayload payload{DragKind::recipe, record_key(TreeView::key(&node)), trim(node.text(0))};
    sort_after_press();
    emit drag_wanted(payload, global);
}

void RecipeTree::take_release(Qt::MouseButton button)
{
    const bool pressed = tree_mouse_down_;
    tree_mouse_down_ = false;
    QTreeWidgetItem* node = pressed ? tree_.hit_test(tree_down_) : nullptr;
    if (!node)
        return;
    tree_.select(node);
    mouse_up(button, node);
}

void RecipeTree::mouse_up(Qt::MouseButton button, QTreeWidgetItem*)
{
    if (button != Qt::LeftButton)
        emit menu_wanted(QCursor::pos());
}

void RecipeTree::key_down(int key)
{
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        return;
    // The arrow keys pass recipes by; Space does what a click on one does.
    if (key == Qt::Key_Space && is_recipe(*node))
        open(*node);
    else if (key == Qt::Key_Menu)
        emit menu_wanted(tree_.menu_place());
    if (key != Qt::Key_Delete)
        return;
    if (is_recipe(*node))
        recip_del(record_key(TreeView::key(node)));
    else
        msg_box(&program_.window, QStringLiteral("Cannot delete recipe categories"), box::information,
                QStringLiteral("Info"));
}

} // namespace tarnwick
