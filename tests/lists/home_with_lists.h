#pragma once

#include "data/query.h"
#include "lists/list_pane.h"
#include "stock/stock_tree.h"
#include "support/test_window.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"

#include <QWidget>

namespace tarnwick {

/// Two lists: Weekly on show with milk and bread to buy and eggs not; milk and eggs on Camping as well.
class HomeWithLists : public TestWindow {
public:
    HomeWithLists()
        : weekly(add_list(QStringLiteral("Weekly")))
        , camping(add_list(QStringLiteral("Camping")))
        , milk(add_item(QStringLiteral("Milk"), 0, 8))
        , bread(add_item(QStringLiteral("Bread"), 0, 7))
        , eggs(add_item(QStringLiteral("Eggs"), 0, 6))
        , milk_row(add_row(milk, weekly, true))
        , bread_row(add_row(bread, weekly, true))
        , eggs_row(add_row(eggs, weekly, false))
        , milk_camping(add_row(milk, camping, true))
        , eggs_camping(add_row(eggs, camping, false))
    {
        Query(db(), "UPDATE items_1 SET to_get = 1").run();
        set_pref(QStringLiteral("alist"), QString::number(weekly));
    }

    GridModel& rows() { return main().list_pane().grid().rows(); }
    /// The grid as text: name, buy-it mark, light, check.
    QString grid()
    {
        QStringList texts;
        for (const GridRow& row : rows().list_rows())
            texts += QStringLiteral("%1 %2 %3 %4").arg(row.item).arg(row.to_get).arg(row.light).arg(row.check);
        return texts.join(u',');
    }
    QString items() { return text("SELECT group_concat(item || status || to_get) FROM items_1"); }
    QString list_rows() { return text("SELECT group_concat(key_id || ':' || to_get) FROM groc_1"); }
    QString links() { return text("SELECT group_concat(groc_id || '-' || item_id || '-' || list) FROM tie"); }
    QTreeWidgetItem* node(Key item) { return main().stock_tree().item_node(item); }
    QString panel() { return main().findChild<QWidget*>(QStringLiteral("StatusBar1(1)"))->toolTip(); }

    const Key weekly;
    const Key camping;
    const Key milk;
    const Key bread;
    const Key eggs;
    const Key milk_row;
    const Key bread_row;
    const Key eggs_row;
    const Key milk_camping;
    const Key eggs_camping;
};

} // namespace tarnwick
