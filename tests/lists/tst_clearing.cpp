#include "lists/home_with_lists.h"

#include "household/status.h"
#include "lists/clearing.h"
#include "support/database_steps.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/table_dump.h"
#include "widgets/row_editor.h"
#include "window/commands.h"
#include "support/tool_button.h"

#include <QAction>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace tarnwick;

namespace {

void refuse(Connection& connection, const char* operation, const char* table)
{
    connection.db().exec(std::string("CREATE TEMP TRIGGER refuse BEFORE ") + operation + " ON main." + table
                         + " BEGIN SELECT RAISE(ABORT, 'refused'); END");
}

} // namespace

class tst_clearing : public QObject {
    Q_OBJECT
private slots:
    void mode_1_unchecks_the_buy_it_rows_and_keeps_all();
    void mode_2_deletes_the_unchecked_rows();
    void mode_3_deletes_all_rows_and_the_list_stays();
    void item_on_two_lists_stays_active_after_clearing_one();
    void mode_1_without_buy_it_rows_says_so_and_changes_nothing();
    void mode_2_with_all_rows_ticked_says_no_items();
    void mode_3_without_rows_says_no_unchecked_items();
    void clearing_is_not_offered_in_the_all_lists_view();
    void clearing_ends_with_the_integrity_check();
    void rows_whose_item_is_gone_are_cleared_as_well();
    void item_twice_on_a_list_is_counted_once();
    void failure_in_the_middle_changes_nothing_data();
    void failure_in_the_middle_changes_nothing();
    void clearing_rewrites_the_panel_of_the_selected_item();
    void clearing_tells_of_what_is_current();
    void clearing_costs_in_proportion_to_the_list();

    void groc_del_removes_row_link_and_grid_row();
    void groc_del_corrects_tree_tag_and_panel();
    void groc_del_of_another_item_tells_of_what_is_current();
    void groc_del_of_the_last_row_empties_the_grid_and_closes_the_editor();
    void groc_del_of_a_row_without_link_deletes_the_row_alone();
    void groc_del_failure_changes_nothing();
};

void tst_clearing::mode_1_unchecks_the_buy_it_rows_and_keeps_all()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    main.clearing().clear_list(ClearMode::uncheck);
    QCOMPARE(home.grid(), QStringLiteral("Bread 0 183 113,Eggs 0 183 113,Milk 0 183 113"));
    QCOMPARE(home.list_rows(), QStringLiteral("1:0,2:0,3:0,4:1,5:0"));
    QCOMPARE(home.number("SELECT count(*) FROM tie"), 5);
    QCOMPARE(home.items(), QStringLiteral("Milk70,Bread60,Eggs61"));
    QCOMPARE(TreeView::picture(home.node(home.milk)), 7);
    QCOMPARE(TreeView::picture(home.node(home.bread)), 6);
}

void tst_clearing::mode_2_deletes_the_unchecked_rows()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    main.clearing().clear_list(ClearMode::delete_unchecked);
    QCOMPARE(home.grid(), QStringLiteral("Bread 1 179 122,Milk 1 179 122"));
    QCOMPARE(home.list_rows(), QStringLiteral("1:1,2:1,4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("1-1-1,2-2-1,4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk81,Bread71,Eggs60"));
    choose_list(home, home.weekly);
    QCOMPARE(home.grid(), QStringLiteral("Bread 1 179 122,Milk 1 179 122"));
}

void tst_clearing::mode_3_deletes_all_rows_and_the_list_stays()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    main.clearing().clear_list(ClearMode::delete_all);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(home.list_rows(), QStringLiteral("4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk70,Bread50,Eggs60"));
    QCOMPARE(home.number("SELECT count(*) FROM list_name"), 2);
    QCOMPARE(int(main.shared.current_list), int(home.weekly));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
    QCOMPARE(TreeView::picture(home.node(home.bread)), 5);
}

void tst_clearing::item_on_two_lists_stays_active_after_clearing_one()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.clearing().clear_list(ClearMode::delete_all);
    QCOMPARE(TreeView::picture(home.node(home.milk)), 7);
    QCOMPARE(home.number("SELECT status FROM items_1 WHERE item = 'Milk'"), 7);
}

void tst_clearing::mode_1_without_buy_it_rows_says_so_and_changes_nothing()
{
    HomeWithLists home;
    Query(home.db(), "UPDATE groc_1 SET to_get = 0").run();
    frmmain& main = home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.expect(
        QStringLiteral("list info"), QStringLiteral("No 'buy-it' items in the Weekly list"), Answer::ok,
        [](QDialog& form) { QCOMPARE(dynamic_cast<QMessageBox&>(form).icon(), QMessageBox::Information); });
    main.clearing().clear_list(ClearMode::uncheck);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing::mode_2_with_all_rows_ticked_says_no_items()
{
    HomeWithLists home;
    Query(home.db(), "UPDATE groc_1 SET to_get = 1").run();
    frmmain& main = home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.expect(QStringLiteral("list info"), QStringLiteral("No items in the Weekly list"));
    main.clearing().clear_list(ClearMode::delete_unchecked);
    QCOMPARE(table_dump(home.db()), before);
}

void tst_clearing::mode_3_without_rows_says_no_unchecked_items()
{
    HomeWithLists home;
    home.db().db().exec("DELETE FROM groc_1; DELETE FROM tie");
    frmmain& main = home.load();
    MessageScript script;
    script.expect(QStringLiteral("list info"), QStringLiteral("No unchecked items in the Weekly list"));
    main.clearing().clear_list(ClearMode::delete_all);
}

void tst_clearing::clearing_is_not_offered_in_the_all_lists_view()
{
    HomeWithLists home;
    frmmain& main = home.load();
    QVERIFY(home.find<QToolButton>(tool_button(ToolButton::clear))->isEnabled());
    QVERIFY(main.commands().action(QStringLiteral("mnu_list_del")).isEnabled());
    QAction& all = main.commands().list_entry(2);
    QVERIFY(all.isEnabled());
    all.trigger();
    QVERIFY(main.shared.all_lists_view);
    QVERIFY(!home.find<QToolButton>(tool_button(ToolButton::clear))->isEnabled());
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_del")).isEnabled());
}

void tst_clearing::clearing_ends_with_the_integrity_check()
{
    HomeWithLists home;
    home.db().db().exec("INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (90, 700, 1, 2), (91, 4, 800, 2)");
    clear_rows(home.db(), home.weekly, ClearMode::uncheck);
    QCOMPARE(home.number("SELECT count(*) FROM tie WHERE key_id >= 90"), 0);
}

void tst_clearing::rows_whose_item_is_gone_are_cleared_as_well()
{
    HomeWithLists home;
    Query(home.db(), "DELETE FROM items_1 WHERE item = 'Bread'").run();
    const auto items = clear_rows(home.db(), home.weekly, ClearMode::delete_all).items;
    QCOMPARE(items.size(), size_t(2));
    QCOMPARE(home.list_rows(), QStringLiteral("4:1,5:0"));
}

void tst_clearing::item_twice_on_a_list_is_counted_once()
{
    HomeWithLists home;
    home.add_row(home.bread, home.weekly, true);
    const auto items = clear_rows(home.db(), home.weekly, ClearMode::uncheck).items;
    QCOMPARE(items.size(), size_t(2));
    QCOMPARE(home.number("SELECT status FROM items_1 WHERE item = 'Bread'"), 6);
}

void tst_clearing::failure_in_the_middle_changes_nothing_data()
{
    QTest::addColumn<ClearMode>("mode");
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("table");
    QTest::newRow("uncheck") << ClearMode::uncheck << QByteArray("UPDATE") << QByteArray("items_1");
    QTest::newRow("unchecked") << ClearMode::delete_unchecked << QByteArray("DELETE") << QByteArray("groc_1");
    QTest::newRow("all") << ClearMode::delete_all << QByteArray("UPDATE") << QByteArray("items_1");
}

void tst_clearing::failure_in_the_middle_changes_nothing()
{
    QFETCH(ClearMode, mode);
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, table);
    HomeWithLists home;
    frmmain& main = home.load();
    refuse(main.connection(), operation.constData(), table.constData());
    const QStringList before = table_dump(home.db());
    const QString grid = home.grid();
    QVERIFY_EXCEPTION_THROWN(main.clearing().clear_list(mode), SQLite::Exception);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.grid(), grid);
    QVERIFY(main.updatesEnabled());
}

void tst_clearing::clearing_rewrites_the_panel_of_the_selected_item()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.stock_tree().view().select(home.node(home.bread));
    main.clearing().clear_list(ClearMode::delete_all);
    QCOMPARE(home.panel(), QStringLiteral("Not listed :: OTHER category"));
}

void tst_clearing::clearing_costs_in_proportion_to_the_list()
{
    const auto steps = [](int rows) {
        TestWindow window;
        const Key list = window.add_list(QStringLiteral("Weekly"));
        {
            Transaction transaction(window.db());
            for (int i = 0; i < rows; ++i)
                window.add_row(window.add_item(QStringLiteral("Item %1").arg(i), 0, 7), list, true);
            transaction.commit();
        }
        return database_steps(window.db(), [&] { clear_rows(window.db(), list, ClearMode::delete_all); });
    };
    const int few = steps(200);
    const int many = steps(2000);
    QVERIFY2(many < 15 * few, qPrintable(QStringLiteral("%1 and %2").arg(few).arg(many)));
}

void tst_clearing::groc_del_removes_row_link_and_grid_row()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    main.clearing().groc_del(home.milk_row);
    QCOMPARE(home.grid(), QStringLiteral("Bread 1 179 122,Eggs 0 183 113"));
    QCOMPARE(home.list_rows(), QStringLiteral("2:1,3:0,4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("2-2-1,3-3-1,4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk71,Bread71,Eggs61"));
}

void tst_clearing::groc_del_corrects_tree_tag_and_panel()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.stock_tree().view().select(home.node(home.bread));
    main.clearing().groc_del(home.bread_row);
    QCOMPARE(TreeView::picture(home.node(home.bread)), 5);
    QCOMPARE(TreeView::tag(home.node(home.bread)), QStringLiteral("5"));
    QCOMPARE(home.panel(), QStringLiteral("Not listed :: OTHER category"));
}

/// Bread, Eggs and Milk stand on the list.
void tst_clearing::groc_del_of_another_item_tells_of_what_is_current()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.set_status(QStringLiteral("of Eggs"));
    main.clearing().groc_del(home.eggs_row);
    QCOMPARE(main.list_pane().grid().current_row(), 1);
    QCOMPARE(home.panel(), get_status(home.db(), home.milk));
    main.stock_tree().view().select(home.node(home.eggs));
    main.clearing().groc_del(home.milk_row);
    QCOMPARE(home.panel(), get_status(home.db(), home.bread));
    main.clearing().groc_del(home.bread_row);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(home.panel(), get_status(home.db(), home.eggs));
}

void tst_clearing::clearing_tells_of_what_is_current()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.set_status(QStringLiteral("of Eggs"));
    main.clearing().clear_list(ClearMode::uncheck);
    QCOMPARE(home.panel(), get_status(home.db(), home.bread));
    main.stock_tree().view().select(main.stock_tree().category_node(0));
    main.set_status(QStringLiteral("of Bread"));
    main.clearing().clear_list(ClearMode::delete_all);
    QCOMPARE(home.panel(), QStringLiteral("OTHER category: 3 stock items"));
}

void tst_clearing::groc_del_of_the_last_row_empties_the_grid_and_closes_the_editor()
{
    HomeWithLists home;
    home.set_pref(QStringLiteral("alist"), QString::number(home.camping));
    frmmain& main = home.load();
    main.list_pane().grid().set_current(0, GridColumn::item);
    main.row_editor().show_l_line();
    main.clearing().groc_del(home.eggs_camping);
    QCOMPARE(home.rows().rows(), 1);
    main.list_pane().grid().set_current(0, GridColumn::item);
    main.row_editor().show_l_line();
    main.clearing().groc_del(home.milk_camping);
    QCOMPARE(home.rows().rows(), 0);
    QVERIFY(!main.row_editor().is_open());
    QCOMPARE(home.number("SELECT count(*) FROM list_name"), 2);
}

void tst_clearing::groc_del_of_a_row_without_link_deletes_the_row_alone()
{
    HomeWithLists home;
    home.db().db().exec("INSERT INTO groc_1 (key_id, item) VALUES (40, 'Unlinked')");
    frmmain& main = home.load();
    const QString links = home.links();
    const QString items = home.items();
    main.clearing().groc_del(40);
    QCOMPARE(home.number("SELECT count(*) FROM groc_1 WHERE key_id = 40"), 0);
    QCOMPARE(home.links(), links);
    QCOMPARE(home.items(), items);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing::groc_del_failure_changes_nothing()
{
    HomeWithLists home;
    frmmain& main = home.load();
    refuse(main.connection(), "UPDATE", "items_1");
    const QStringList before = table_dump(home.db());
    QVERIFY_EXCEPTION_THROWN(main.clearing().groc_del(home.milk_row), SQLite::Exception);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

QTEST_MAIN(tst_clearing)
#include "tst_clearing.moc"
