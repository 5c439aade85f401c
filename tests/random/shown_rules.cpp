#include "random/oracle.h"

#include "data/query.h"
#include "household/status.h"
#include "household/ingredient_store.h"
#include "household/recipe_store.h"
#include "recipes/line_widgets.h"
#include "recipes/page_text.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree.h"
#include "support/shown_things.h"
#include "support/test_window.h"
#include "widgets/tree_view.h"

#include <QFrame>
#include <QLineEdit>

// What the trees and the recipe page show.
namespace tarnwick::random_use {
namespace {

QString parent_key(const QTreeWidgetItem& node)
{
    return node.parent() ? TreeView::key(node.parent()) : QString();
}

int count_nodes(const TreeView& tree)
{
    int count = tree.topLevelItemCount();
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        count += tree.topLevelItem(i)->childCount();
    return count;
}

/// Pictures of a folder: closed, and open with something in it.
bool folder_picture_holds(const QTreeWidgetItem& folder, int closed, int open)
{
    const bool is_open = folder.isExpanded() && folder.childCount() > 0;
    return TreeView::picture(&folder) == (is_open ? open : closed);
}

/// A text as it comes back from the file, which drops a byte order mark at its start.
QString as_read(const QString& text)
{
    return QString::fromUtf8(trim(text).toUtf8());
}

/// The same of OTHER: it has none until a load finds items in it. One that was stored open is loaded closed with
/// the open picture, and keeps it when all folders are closed.
bool other_picture_holds(const QTreeWidgetItem& other)
{
    const int picture = TreeView::picture(&other);
    return folder_picture_holds(other, 3, 4) || (!other.isExpanded() && (picture == 0 || picture == 4));
}

/// Light, box and whether the box takes clicks, of a status code.
struct LinePictures {
    int light, check;
    bool enabled;
};

LinePictures pictures_of(int code)
{
    switch (code) {
    case 5:
        return {175, 113, true};
    case 6:
        return {183, 113, true};
    case 7:
        return {179, 122, true};
    case 8:
        return {179, 130, false};
    default:
        return {171, 113, true};
    }
}

} // namespace

void Oracle::check_stock_tree()
{
    const StockTree& stock = main_.stock_tree();
    TreeView& tree = main_.stock_tree().view();
    int expected = 0;
    Query items(db_, "SELECT key_id, item, cat FROM items_1");
    for (; items.next(); ++expected) {
        const Key key = items.key(0);
        const QTreeWidgetItem* const node = stock.item_node(key);
        const QString about = QStringLiteral("item %1 '%2'").arg(key).arg(items.text(1));
        if (!node) {
            fault(about + QStringLiteral(" has no node"));
            continue;
        }
        if (node->text(0) != trim(items.text(1)))
            fault(about + QStringLiteral(" reads '%1' in the tree").arg(node->text(0)));
        const QString folder = tree.is_flat() ? QString() : QStringLiteral("cat") + key_str(items.key(2));
        if (parent_key(*node) != folder)
            fault(about + QStringLiteral(" lies in '%1'").arg(parent_key(*node)));
        const int picture = TreeView::picture(node);
        if (TreeView::tag(node) != QString::number(picture))
            fault(about + QStringLiteral(" has picture %1 and Tag %2").arg(picture).arg(TreeView::tag(node)));
        if (items_.contains(key) && picture != items_[key].node)
            fault(about + QStringLiteral(" has picture %1, not %2").arg(picture).arg(items_[key].node));
    }
    if (!tree.is_flat()) {
        Query folders(db_, "SELECT key_id, cat_desc FROM cat");
        for (; folders.next(); ++expected) {
            const Key key = folders.key(0);
            const QTreeWidgetItem* const node = stock.category_node(key);
            const QString about = QStringLiteral("category %1 '%2'").arg(key).arg(folders.text(1));
            if (!node)
                fault(about + QStringLiteral(" has no folder"));
            else if (key > 0 && node->text(0) != trim(folders.text(1)))
                fault(about + QStringLiteral(" reads '%1'").arg(node->text(0)));
            else if (key > 0 ? !folder_picture_holds(*node, 1, 2) : !other_picture_holds(*node))
                fault(about + QStringLiteral(" has picture %1").arg(TreeView::picture(node)));
        }
    }
    if (count_nodes(tree) != expected)
        fault(QStringLiteral("the stock tree has %1 nodes, not %2").arg(count_nodes(tree)).arg(expected));
}

void Oracle::check_recipe_tree()
{
    TreeView& tree = main_.recipe_tree().view();
    RecipePage& page = main_.recipe_page();
    int expected = tree.is_flat() ? 0 : 15;
    Query recipes(db_, "SELECT key_id, r_name, cat FROM recipe_1");
    for (; recipes.next(); ++expected) {
        const Key key = recipes.key(0);
        const QTreeWidgetItem* const node = main_.recipe_tree().recipe_node(key);
        const QString about = QStringLiteral("recipe %1 '%2'").arg(key).arg(recipes.text(1));
        if (!node) {
            fault(about + QStringLiteral(" has no node"));
            continue;
        }
        const bool typed = page.texts().is_edited() && page.page_key() == key;
        if (!typed && node->text(0) != trim(recipes.text(1)))
            fault(about + QStringLiteral(" reads '%1' in the tree").arg(node->text(0)));
        const QString folder = tree.is_flat() ? QString() : QStringLiteral("rcat") + recipes.text(2);
        if (parent_key(*node) != folder)
            fault(about + QStringLiteral(" lies in '%1'").arg(parent_key(*node)));
    }
    for (int i = 0; !tree.is_flat() && i < tree.topLevelItemCount(); ++i)
        if (!folder_picture_holds(*tree.topLevelItem(i), 3, 4))
            fault(QStringLiteral("recipe folder '%1' has picture %2")
                      .arg(tree.topLevelItem(i)->text(0))
                      .arg(TreeView::picture(tree.topLevelItem(i))));
    if (count_nodes(tree) != expected)
        fault(QStringLiteral("the recipe tree has %1 nodes, not %2").arg(count_nodes(tree)).arg(expected));
}

void Oracle::check_page()
{
    RecipePage& page = main_.recipe_page();
    if (!page.has_recipe())
        return;
    const auto stored = read_recipe(db_, page.page_key());
    if (!stored) {
        fault(QStringLiteral("the page shows recipe %1, which is gone").arg(page.page_key()));
        return;
    }
    if (!page.texts().is_edited() && trim(page.title().text()) != stored->name)
        fault(QStringLiteral("the title reads '%1' instead of '%2'").arg(page.title().text(), stored->name));
    const bool emptied = page.Text1().is_blank() && stored->body == help_text(); // by the click into it
    if (!page.texts().is_edited() && !emptied && as_read(page.Text1().text()) != with_crlf(stored->body))
        fault(QStringLiteral("the instructions read '%1' instead of '%2'").arg(page.Text1().text(), stored->body));
    QList<Key> keys;
    Query lines(db_, "SELECT key_id FROM recipe_2 WHERE r_ref = ? ORDER BY \"order\", key_id", page.page_key());
    while (lines.next())
        keys += lines.key(0);
    // A new line is on the page before it is in the file.
    if (page.next_index() != static_cast<int>(keys.size()) && !page.editor_open()) {
        fault(QStringLiteral("the page has %1 lines, not %2").arg(page.next_index()).arg(keys.size()));
        return;
    }
    for (int i = 0; i < page.next_index() && i < keys.size(); ++i)
        if (!page.editor_open() || i != page.state.sel_line)
            check_line(page.lines()[static_cast<size_t>(i)], keys[i]);
}

void Oracle::check_line(const IngredientLine& line, Key key)
{
    const auto record = read_line(db_, key);
    const QString about = QStringLiteral("line %1 '%2'").arg(key).arg(line.text);
    if (!record || line.key != key || line.ingred->text() != record->display_text()
        || line.item_ref != record->item_ref) {
        fault(about
              + QStringLiteral(" is of item %1 in the file: '%2'")
                    .arg(record ? record->item_ref : 0)
                    .arg(record ? record->display_text() : QString()));
        return;
    }
    const int real = true_code(db_, line.item_ref);
    const int plain = items_.value(line.item_ref).page;
    const int light = picture_of(*line.lite) - main_.shared.color_index;
    const int box = picture_of(*line.Check1) - main_.shared.color_index;
    const auto shows = [&](int code) {
        const LinePictures pictures = pictures_of(code);
        return light == pictures.light && box == pictures.check && line.Check1->isEnabled() == pictures.enabled;
    };
    if (!shows(real) && !(plain > 0 && shows(plain)))
        fault(about + QStringLiteral(" shows light %1 and box %2, its code is %3").arg(light).arg(box).arg(real));
    const QString words = get_status(db_, line.item_ref);
    if (renamed_)
        old_tips_[key] = line.tool_tip;
    const bool lost
        = line.item_ref < 1 && line.tool_tip == line.text + QStringLiteral(" :: Not listed"); // by a rename
    if (!line.tool_tip.endsWith(words) && !lost && line.tool_tip != old_tips_.value(key))
        fault(about + QStringLiteral(" says '%1' instead of '%2'").arg(line.tool_tip, words));
}

} // namespace tarnwick::random_use
