#include "recipes/recipe_tree.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "dialogs/new_item_rcp.h"
#include "recipes/page_text.h"
#include "household/recipe_categories.h"
#include "recipes/recipe_page.h"
#include "household/recipe_store.h"
#include "widgets/tree_view.h"

#include <QList>

#include <vector>

namespace tarnwick {
namespace {

constexpr int recipe_picture = 1;
constexpr int folder_closed = 3;
constexpr int folder_open = 4;

QString recipe_key(Key recipe)
{
    return QStringLiteral("rcp") + key_str(recipe);
}

QString category_key(const QString& category)
{
    return QStringLiteral("rcat") + category;
}

/// Place of a stored category in the fixed order; an unknown one counts with the last, the others.
size_t category_index(const QString& category)
{
    const int count = static_cast<int>(recipe_categories().size());
    const int number = category.toInt();
    const bool known = number >= 1 && number <= count && recipe_category(number - 1) == category;
    return static_cast<size_t>(known ? number - 1 : count - 1);
}

bool is_recipe(const QTreeWidgetItem& node)
{
    return TreeView::key(&node).startsWith(QLatin1String("rcp"));
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
    if (node && !TreeView::key(node).startsWith(QLatin1String("rcat")))
        node = node->parent();
    return node ? TreeView::key(node).mid(4).toInt() - 1 : 0;
}

void RecipeTree::recipe_made(Key recipe, const QString& name, const QString& category)
{
    page_.edit_updt();
    program_.shared.cur_recipe = recipe;
    program_.shared.cur_recipe_name = name;
    program_.shared.stock_view = false;
    QTreeWidgetItem* folder = tree_.is_flat() ? nullptr : &category_node(category);
    QTreeWidgetItem* node = tree_.add_node(folder, recipe_key(recipe), name, recipe_picture, {});
    if (folder)
        folder->setExpanded(true);
    tree_.sort_children(folder);
    tree_.select(node);
    tree_.ensure_visible(node);
    program_.shared.list_pane_shown = false;
    program_.l_r_refresh();
    page_.set_recipe(recipe);
    page_.Text1().set_border_style(1);
    page_.Text1().setFocus(Qt::OtherFocusReason);
}

void RecipeTree::recip_del(Key recipe)
{
    page_.edit_updt();
    const auto name = recipe_name(program_.connection, recipe);
    const QString question = QStringLiteral("Are you sure you want to \ndelete the ") + name.value_or(QString())
        + QStringLiteral(" recipe?");
    if (msg_box(&program_.window, question, box::yes_no | box::exclamation, QStringLiteral("Warning"))
        != Answer::yes)
        return;
    delete_recipe(program_.connection, recipe);
    if (QTreeWidgetItem* node = recipe_node(recipe))
        take_off(node);
    const QTreeWidgetItem* next = tree_.selected();
    const bool left = next && is_recipe(*next);
    program_.shared.cur_recipe = left ? record_key(TreeView::key(next)) : Key{-1};
    program_.shared.cur_recipe_name = left ? trim(next->text(0)) : QString();
    show_page(program_.shared.cur_recipe);
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
    program_.shared.cur_recipe = recipe;
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
        program_.shared.cur_recipe_name = row->name;
    }
    tree_.take_release_back();
    show_page(recipe);
}

} // namespace tarnwick
