#include "recipes/recipe_tree.h"

#include "widgets/node_key.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/drag.h"
#include "widgets/message_box.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/page_text.h"
#include "household/recipe_categories.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "household/recipe_store.h"
#include "widgets/tree_view.h"

#include <QCursor>
#include <QList>
#include <QScrollBar>

#include <vector>

namespace tarnwick {
namespace {

constexpr int recipe_picture = 1;
constexpr int folder_closed = 3;
constexpr int folder_open = 4;

QString recipe_key(Key recipe)
{
    return NodeKey{NodeKind::recipe, recipe}.text();
}

QString category_key(const QString& category)
{
    return QStringLiteral("rcat") + category;
}

/// Place of a stored category in the fixed order; an unknown one counts with the last, the others.
size_t category_index(const QString& category)
{
    static const QStringList stored = [] {
        QStringList all;
        for (int i = 0; i < recipe_categories().size(); ++i)
            all.append(recipe_category(i));
        return all;
    }();
    const auto known = stored.indexOf(category);
    return static_cast<size_t>(known >= 0 ? known : stored.size() - 1);
}

} // namespace

RecipeTree::RecipeTree(Program& program, TreeView& tree, RecipePage& page)
    : program_(program)
    , tree_(tree)
    , page_(page)
{
    connect_events();
}

QTreeWidgetItem* RecipeTree::recipe_node(Key recipe) const
{
    return tree_.node(recipe_key(recipe));
}

QTreeWidgetItem& RecipeTree::category_node(const QString& category) const
{
    return tree_.require_node(category_key(category));
}

void RecipeTree::recip_load(bool alpha)
{
    tree_.clear_nodes();
    tree_.set_flat(alpha);
    if (alpha)
        load_flat();
    else
        load_folders();
    select_current();
}

void RecipeTree::load_flat()
{
    QList<QTreeWidgetItem*> nodes;
    const auto rows = read_recipes(program_.connection);
    tree_.reserve_nodes(static_cast<int>(rows.size()));
    try {
        for (const RecipeRow& row : rows)
            nodes.append(make_recipe_node(row));
    } catch (...) {
        tree_.drop_unplaced(nodes);
        throw;
    }
    tree_.addTopLevelItems(nodes);
}

// A recipe whose stored category is none of the fifteen has no folder of its own; it stands with the
// others, where it can be seen and moved.
void RecipeTree::load_folders()
{
    const auto& captions = recipe_categories();
    const auto rows = read_recipes(program_.connection);
    tree_.reserve_nodes(static_cast<int>(rows.size() + captions.size()));
    QList<QTreeWidgetItem*> folders;
    for (int i = 0; i < captions.size(); ++i)
        folders.append(tree_.make_node(category_key(recipe_category(i)), captions[i], folder_closed, {}));
    std::vector<QList<QTreeWidgetItem*>> recipes(static_cast<size_t>(captions.size()));
    try {
        for (const RecipeRow& row : rows)
            recipes[category_index(row.cat)].append(make_recipe_node(row));
    } catch (...) {
        for (const auto& nodes : recipes)
            folders.append(nodes);
        tree_.drop_unplaced(folders);
        throw;
    }
    for (size_t i = 0; i < recipes.size(); ++i)
        folders[static_cast<int>(i)]->addChildren(recipes[i]);
    tree_.addTopLevelItems(folders);
}

QTreeWidgetItem* RecipeTree::make_recipe_node(const RecipeRow& row)
{
    return tree_.make_node(recipe_key(row.key), row.name, recipe_picture, {});
}

void RecipeTree::select_current()
{
    QTreeWidgetItem* node = program_.shared.cur_recipe > 0 ? recipe_node(program_.shared.cur_recipe) : nullptr;
    if (!node)
        return;
    if (QTreeWidgetItem* folder = node->parent()) {
        tree_.set_picture(folder, folder_open);
        folder->setExpanded(true);
    }
    tree_.select(node);
    tree_.ensure_visible(node);
}

void RecipeTree::rename(Key recipe, const QString& name)
{
    QTreeWidgetItem* node = recipe_node(recipe);
    if (!node)
        return;
    node->setText(0, name);
}

void RecipeTree::sort_renamed(Key recipe, bool by_mouse)
{
    // Nodes that move under the pointer would give the click to another one.
    if (by_mouse && tree_.hasFocus()) {
        unsorted_ = recipe;
        return;
    }
    unsorted_ = -1;
    QTreeWidgetItem* node = recipe_node(recipe);
    if (!node)
        return;
    tree_.sort_children(node->parent());
    if (node == tree_.selected())
        tree_.ensure_visible(node);
}

void RecipeTree::close_folders()
{
    tree_.collapseAll();
}

void RecipeTree::new_rcp()
{
    new_item_rcp(program_, &program_.window, {NamingKind::recipe, proposed_category()}).exec();
}

int RecipeTree::proposed_category() const
{
    const QTreeWidgetItem* node = program_.shared.stock_view ? nullptr : tree_.selected();
    if (node && !NodeKey::of(node).is_recipe_category())
        node = node->parent();
    return node ? NodeKey::of(node).record - 1 : 0;
}

void RecipeTree::recipe_made(Key recipe, const QString& name, const QString& category)
{
    page_.texts().edit_updt();
    program_.show_stock(false);
    QTreeWidgetItem* folder = tree_.is_flat() ? nullptr : &category_node(category);
    QTreeWidgetItem* node = tree_.add_node(folder, recipe_key(recipe), name, recipe_picture, {});
    if (folder)
        folder->setExpanded(true);
    tree_.sort_children(folder);
    tree_.select(node);
    tree_.ensure_visible(node);
    page_.set_recipe(recipe);
    program_.show_list_pane(false);
    page_.Text1().set_border_style(1);
    page_.Text1().setFocus(Qt::OtherFocusReason);
}

void RecipeTree::recip_del(Key recipe)
{
    page_.texts().edit_updt();
    const auto name = recipe_name(program_.connection, recipe);
    const QString question = QStringLiteral("Are you sure you want to \ndelete the ") + name.value_or(QString())
        + QStringLiteral(" recipe?");
    if (msg_box(&program_.window, question, box::yes_no | box::exclamation, QStringLiteral("Warning"))
        != Answer::yes)
        return;
    delete_recipe(program_.connection, recipe);
    if (QTreeWidgetItem* node = recipe_node(recipe))
        take_off(node);
    const NodeKey next = NodeKey::of(tree_.selected());
    show_page(next.is_recipe() ? next.record : Key{-1});
}

// The page comes first: the commands that act on it depend on whether it has a recipe.
void RecipeTree::show_page(Key recipe)
{
    page_.set_recipe(recipe);
    program_.l_r_refresh();
}

// The neighbour above takes the selection, then the one below, then the folder.
void RecipeTree::take_off(QTreeWidgetItem* node)
{
    QTreeWidgetItem* folder = node->parent();
    const QTreeWidgetItem* siblings = folder ? folder : tree_.invisibleRootItem();
    const int place = siblings->indexOfChild(node);
    QTreeWidgetItem* next = siblings->child(place > 0 ? place - 1 : place + 1);
    if (!next && folder)
        tree_.set_picture(folder, folder_closed);
    tree_.remove_node(node);
    tree_.select(next ? next : folder);
    if (next)
        tree_.ensure_visible(next);
}

void RecipeTree::mv_rcp(const QString& category, Key recipe)
{
    const auto row = recipe_for_move(program_.connection, recipe);
    if (row && row->cat == category)
        return;
    if (row) {
        QTreeWidgetItem& target = category_node(category);
        set_recipe_category(program_.connection, recipe, category);
        if (QTreeWidgetItem* node = recipe_node(recipe)) {
            QTreeWidgetItem* folder = node->parent();
            tree_.remove_node(node);
            if (folder && folder->childCount() == 0)
                tree_.set_picture(folder, folder_closed);
        }
        QTreeWidgetItem* node = tree_.add_node(&target, recipe_key(recipe), row->name, recipe_picture, {});
        tree_.sort_children(&target);
        tree_.select(node);
        tree_.ensure_visible(node);
    }
    tree_.take_release_back();
    show_page(recipe);
}

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
    if (!program_.shared.form_loading && !NodeKey::of(node).is_recipe())
        tree_.set_picture(node, open ? folder_open : folder_closed);
}

void RecipeTree::node_click(QTreeWidgetItem* node)
{
    if (NodeKey::of(node).is_recipe())
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
    page_.scroll_bar().setValue(0);
    page_.set_recipe(NodeKey::of(&node).record);
    program_.show_list_pane(false);
}

void RecipeTree::show_status_of_selection()
{
    if (program_.shared.form_loading || program_.shared.stock_view)
        return;
    const QTreeWidgetItem* node = tree_.selected();
    if (!node)
        program_.set_status({});
    else if (NodeKey::of(node).is_recipe())
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
    if (!tree_mouse_down_ || !NodeKey::of(&node).is_recipe() || program_.shared.recipe_alpha)
        return;
    tree_mouse_down_ = false;
    const DragPayload payload{DragKind::recipe, NodeKey::of(&node).record, trim(node.text(0))};
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
    const QTreeWidgetItem* selected = tree_.selected();
    if (!selected)
        return;
    const NodeKey node = NodeKey::of(selected);
    // The arrow keys pass recipes by; Space does what a click on one does.
    if (key == Qt::Key_Space && node.is_recipe())
        open(*selected);
    else if (key == Qt::Key_Menu)
        emit menu_wanted(tree_.menu_place());
    if (key != Qt::Key_Delete)
        return;
    if (node.is_recipe())
        recip_del(node.record);
    else
        msg_box(&program_.window, QStringLiteral("Cannot delete recipe categories"), box::information,
                QStringLiteral("Info"));
}

} // namespace tarnwick
