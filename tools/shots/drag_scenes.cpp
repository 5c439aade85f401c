#include "shots/drag_scenes.h"

#include "shots/studio.h"

#include "lists/list_pane.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "widgets/drag.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"

#include <QFrame>
#include <QTest>
#include <QWindow>

namespace tarnwick::shots {
namespace {

/// A mouse that presses, moves to a place and is caught there with the button down; Escape ends the drag.
void drag_shot(Studio& studio, const QWidget& from, QPoint press, const QWidget& over, QPoint place,
               const QString& name)
{
    QWindow* window = studio.main().windowHandle();
    const auto in_window = [window](const QWidget& widget, QPoint point) {
        return window->mapFromGlobal(widget.mapToGlobal(point));
    };
    const QPoint start = in_window(from, press);
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, start + QPoint(5, 0));
    QTest::mouseMove(window, in_window(over, place));
    studio.settle();
    if (!studio.main().drag().running())
        studio.fault(name + QStringLiteral(": nothing is dragged"));
    studio.shot(name);
    QTest::keyClick(window, Qt::Key_Escape);
    QTest::mouseRelease(window, Qt::LeftButton, {}, in_window(over, place));
    studio.settle();
}

void drag_node(Studio& studio, const QString& text, const QWidget& over, QPoint place, const QString& name)
{
    QTreeWidgetItem* node = studio.node(text);
    if (!node)
        return;
    auto& tree = dynamic_cast<TreeView&>(*node->treeWidget());
    tree.ensure_visible(node);
    studio.settle();
    drag_shot(studio, *tree.viewport(), tree.text_rect(node).center(), over, place, name);
}

/// The first child of a tree's folder with children, which is opened.
QString first_child(Studio& studio)
{
    TreeView& tree = studio.main().visible_tree();
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        if (tree.topLevelItem(i)->childCount() == 0)
            continue;
        tree.expandItem(tree.topLevelItem(i));
        studio.settle();
        return tree.topLevelItem(i)->child(0)->text(0);
    }
    studio.fault(QStringLiteral("the tree has nothing to drag"));
    return {};
}

QHash<QString, QString> prefs_of(int points, bool stock, bool list)
{
    const auto one_or_zero = [](bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); };
    return {{QStringLiteral("font"), QString::number(points)},
            {QStringLiteral("alist"), QStringLiteral("1")},
            {QStringLiteral("arcp"), QStringLiteral("1")},
            {QStringLiteral("tv_view"), one_or_zero(stock)},
            {QStringLiteral("lv_view"), one_or_zero(list)}};
}

} // namespace

void drag_scenes(Studio& studio, int points)
{
    const auto named
        = [points](const char* name) { return QStringLiteral("%1-%2pt").arg(QLatin1String(name)).arg(points); };
    studio.start(prefs_of(points, true, true));
    drag_node(studio, first_child(studio), studio.main().list_pane().grid(), {150, 180},
              named("drag-item-to-list"));
    drag_node(studio, first_child(studio), studio.main().visible_tree(), {120, 260}, named("drag-item-to-folder"));
    studio.command(QStringLiteral("mnu_tools_listlist"));
    if (const QWidget* row = studio.visible_child(QStringLiteral("lbl_list(1)")))
        drag_node(studio, first_child(studio), *row, {40, 8}, named("drag-item-to-manager"));

    studio.start(prefs_of(points, true, false));
    RecipePage& page = studio.main().recipe_page();
    drag_node(studio, first_child(studio), page.frame4(), {200, 120}, named("drag-item-to-page"));
    if (page.recipe_lines().count() > 3) {
        drag_shot(studio, *page.lines()[0].ingred, {30, 6}, *page.lines()[2].ingred, {60, 8}, named("drag-line"));
        drag_shot(studio, *page.lines()[2].ingred, {30, 6}, page.frame3(), {4, page.lines()[0].ingred->y() - 3},
                  named("drag-line-above-first"));
    }
    studio.start(prefs_of(points, false, false));
    drag_node(studio, first_child(studio), studio.main().visible_tree(), {90, 200},
              named("drag-recipe-to-category"));
}

} // namespace tarnwick::shots
