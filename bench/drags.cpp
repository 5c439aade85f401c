#include "drags.h"

#include "measure.h"
#include "window.h"

#include "stock/stock_tree.h"
#include "widgets/drag.h"
#include "widgets/tree_view.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

namespace tarnwick::bench {
namespace {

constexpr int turns = 41;
constexpr double bound = 3;

/// A move with the left button down, as the widget gets it that was pressed, and all that it makes paint.
void move(QWidget& pressed, QPoint place)
{
    QMouseEvent event(QEvent::MouseMove, place, pressed.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&pressed, &event);
    Window::settle();
}

void measure_tree(Window& window)
{
    TreeView& tree = window->stock_tree().view();
    QTreeWidget bare;
    bare.setHeaderHidden(true);
    bare.setUniformRowHeights(true);
    for (int i = 0; i < 9999; ++i)
        new QTreeWidgetItem(&bare, {QStringLiteral("Item %1 of the house").arg(i)});
    bare.resize(tree.size());
    bare.show();
    Window::settle();

    tree.expandAll();
    Window::settle();
    QTreeWidgetItem* item = tree.topLevelItem(0)->child(0);
    tree.ensure_visible(item);
    const QPoint place = tree.text_rect(item).center();
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, place);
    move(*tree.viewport(), place + QPoint(5, 0));
    if (!window->drag().running())
        qFatal("nothing is dragged");
    int step = 0;
    const double ratio = median_ratio(
        turns,
        [&] {
            move(*tree.viewport(), {100, 100 + 13 * (++step % 20)});
        },
        [&] { bare.viewport()->repaint(); });
    window->drag().cancel();
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, place);
    print_ratio("move of a drag over a tree of 9,999 items : repaint of a bare tree", ratio, bound);
}

void measure_separator(Window& window)
{
    QStandardItemModel model(5000, 8);
    for (int row = 0; row < 5000; ++row)
        model.setItem(row, 2, new QStandardItem(QStringLiteral("Item %1 of the house").arg(row)));
    QTableView bare;
    bare.setModel(&model);
    bare.verticalHeader()->hide();
    bare.horizontalHeader()->hide();
    bare.resize(window.grid().size());
    bare.show();
    Window::settle();

    auto& separator = *window->findChild<QWidget*>(QStringLiteral("Frame1"));
    const auto& shadow = *window->findChild<QWidget*>(QStringLiteral("frame2"));
    QTest::mousePress(&separator, Qt::LeftButton, {}, QPoint(2, 100));
    move(separator, {20, 100});
    if (!shadow.isVisible())
        qFatal("the separator is not dragged");
    int step = 0;
    const double ratio = median_ratio(
        turns,
        [&] {
            move(separator, {30 + 9 * (++step % 10), 100});
        },
        [&] { bare.viewport()->repaint(); });
    QTest::mouseRelease(&separator, Qt::LeftButton, {}, QPoint(2, 100));
    print_ratio("move of the separator beside 5,000 rows : repaint of a bare table", ratio, bound);
}

} // namespace

void measure_drags()
{
    Window window({9999, 200, 1, 5000});
    measure_tree(window);
    measure_separator(window);
}

} // namespace tarnwick::bench
