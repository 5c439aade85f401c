#include "data/query.h"
#include "household/household.h"
#include "lists/clearing.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "lists/placing.h"
#include "stock/floating_buttons.h"
#include "stock/stock_tree.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/table_dump.h"
#include "support/test_window.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "window/commands.h"

#include <QAction>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace tarnwick;

namespace {

constexpr Key gone = 9; ///< a list key without a record

const QString no_longer
    = QStringLiteral("This list no longer exists. Choose another one from the Shopping lists menu.");

class Window : public TestWindow {
public:
    Window()
        : weekly(add_list(QStringLiteral("Weekly")))
        , dairy(add_category(QStringLiteral("Dairy"), true))
        , milk(add_item(QStringLiteral("Milk"), dairy))
    {
        add_list(QStringLiteral("Camping"));
        set_pref(QStringLiteral("alist"), QString::number(gone));
    }

    QTreeWidgetItem* node() { return main().stock_tree().item_node(milk); }
    void click_node(int x)
    {
        TreeView& tree = main().stock_tree().view();
        tree.ensure_visible(node());
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {x, tree.text_rect(node()).center().y()});
    }

    /// Captions and tool tips of every command, tab and toolbar button, and the title.
    QStringList captions()
    {
        QStringList all{main().windowTitle()};
        for (const QAction* action : main().findChildren<QAction*>())
            all << Commands::plain_caption(*action);
        for (const QTabBar* tabs : main().findChildren<QTabBar*>())
            for (int i = 0; i < tabs->count(); ++i)
                all << tabs->tabText(i) << tabs->tabToolTip(i);
        for (const QWidget* control : main().findChildren<QWidget*>())
            all << control->toolTip();
        return all;
    }

    const Key weekly;
    const Key dairy;
    const Key milk;
};

} // namespace

/// A list key without a record takes no items, and is not given a name.
class tst_missing_list : public QObject {
    Q_OBJECT
private slots:
    void household_refuses_every_operation();
    void placing_says_so_and_writes_nothing_data();
    void placing_says_so_and_writes_nothing();
    void clearing_and_deleting_say_so_and_write_nothing();
    void nothing_reads_as_all_lists();
    void choosing_a_list_ends_it();
};

void tst_missing_list::household_refuses_every_operation()
{
    Window window;
    Connection connection;
    connection.open(window.database());
    Household household(connection);
    int announced = 0;
    connect(&household, &Household::item_changed, &household, [&announced] { ++announced; });
    connect(&household, &Household::lists_changed, &household, [&announced] { ++announced; });
    window.add_row(window.milk, gone, true);
    const QStringList before = table_dump(window.db());
    Placement placement;
    placement.item_key = window.milk;
    for (const Key list : {gone, Key(0), Key(-1)}) {
        placement.list_key = list;
        QVERIFY(household.place(placement) == Refusal::no_list);
        QVERIFY(household.clear_list(list, ClearMode::delete_all) == Refusal::no_list);
        QVERIFY(household.delete_list(list) == Refusal::no_list);
    }
    placement.list_key = window.weekly;
    placement.item_key = 99;
    QVERIFY(household.place(placement) == Refusal::no_item);
    QCOMPARE(table_dump(window.db()), before);
    QCOMPARE(announced, 0);
}

void tst_missing_list::placing_says_so_and_writes_nothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("the tree's menu") << QStringLiteral("mnu_tv_ai");
    QTest::newRow("the stock menu") << QStringLiteral("mnu_edit_stock_to_list");
    QTest::newRow("the item's box") << QString();
}

void tst_missing_list::placing_says_so_and_writes_nothing()
{
    QFETCH(QString, way);
    Window window;
    frmmain& main = window.load();
    QCOMPARE(int(main.shared.current_list), int(gone));
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.expect(QStringLiteral("Shopping list"), no_longer);
    if (way.isEmpty()) {
        window.click_node(49);
    } else {
        window.click_node(200);
        QVERIFY(window.node()->isSelected());
        QVERIFY(!main.floating_buttons().button(0).isVisible());
        QAction& command = main.commands().action(way);
        QVERIFY(command.isEnabled());
        command.trigger();
    }
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window.db()), before);
    QCOMPARE(main.list_pane().grid().rows().rows(), 0);
    QCOMPARE(TreeView::picture(window.node()), 5);
}

void tst_missing_list::clearing_and_deleting_say_so_and_write_nothing()
{
    Window window;
    window.add_row(window.milk, gone, true);
    frmmain& main = window.load();
    const QStringList before = table_dump(window.db());
    for (const char* name : {"mnu_list_clear", "mnu_list_del"})
        QVERIFY(!main.commands().action(QLatin1String(name)).isEnabled());
    MessageScript script;
    script.expect(QStringLiteral("Shopping list"), no_longer);
    main.clearing().clear_list(ClearMode::delete_all);
    script.expect(QStringLiteral("Shopping list"), no_longer);
    main.lists().list_del();
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_missing_list::nothing_reads_as_all_lists()
{
    Window window;
    frmmain& main = window.load();
    for (const bool list_shown : {true, false}) {
        trigger(window, list_shown ? "mnu_view_shoplist" : "mnu_view_rcpepages");
        QCOMPARE(main.shared.list_pane_shown, list_shown);
        window.click_node(200);
        for (const QString& caption : window.captions()) {
            QVERIFY2(!caption.contains(QLatin1String("All list")), qPrintable(caption));
            QVERIFY2(!caption.contains(QLatin1String("ll shopping lists")), qPrintable(caption));
        }
        QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick"));
        const auto* tabs = window.find<QTabBar>(QStringLiteral("TabStrip1(1)"));
        QCOMPARE(tabs->tabText(0), QStringLiteral("Shopping lists"));
        QCOMPARE(tabs->tabToolTip(0), QStringLiteral("Shopping lists"));
    }
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_RenameList")).isVisible());
    QVERIFY(!main.list_pane().notice_shown());
}

void tst_missing_list::choosing_a_list_ends_it()
{
    Window window;
    frmmain& main = window.load();
    QAction& weekly = main.commands().list_entry(1);
    QVERIFY(weekly.isEnabled());
    weekly.trigger();
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
    window.click_node(49);
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
}

QTEST_MAIN(tst_missing_list)
#include "tst_missing_list.moc"
