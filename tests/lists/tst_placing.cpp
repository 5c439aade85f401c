#include "household/household.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "window/commands.h"
#include "widgets/tree_view.h"
#include "stock/stock_tree.h"
#include "household/status.h"
#include "support/last_placed.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/table_dump.h"
#include "support/test_window.h"

#include <QAction>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

using namespace tarnwick;

namespace {

const QString shut_down = QStringLiteral("TarnWick has encountered an error\nand must shut down");

/// A household with one list on show and milk in stock.
class HomeWithLists : public TestWindow {
public:
    HomeWithLists()
        : weekly(add_list(QStringLiteral("Weekly")))
        , camping(add_list(QStringLiteral("Camping")))
        , milk(add_item(QStringLiteral("Milk"), 0))
    {
        set_pref(QStringLiteral("alist"), QString::number(weekly));
    }

    Placement placement(Key item, Key list) const
    {
        Placement placed;
        placed.list_key = list;
        placed.item_key = item;
        placed.created = date;
        placed.modified = date;
        return placed;
    }
    void view_all() { choose_list(*this, 0); }
    GridModel& rows() { return main().list_pane().grid().rows(); }
    QString cell(int row, GridColumn column) { return rows().cell_text(row, column); }
    QString panel() { return main().findChild<QWidget*>(QStringLiteral("StatusBar1(1)"))->toolTip(); }
    int node_picture(Key item) { return TreeView::picture(main().stock_tree().item_node(item)); }
    void refuse(const char* operation, const char* table)
    {
        main().connection().db().exec(std::string("CREATE TEMP TRIGGER refuse BEFORE ") + operation + " ON main."
                                      + table + " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    }

    const Key weekly;
    const Key camping;
    const Key milk;
};

void expect_second_placing(MessageScript& script, const QString& word, const QString& item, Answer answer)
{
    script.expect(QStringLiteral("Question"),
                  QStringLiteral("There is already an ") + word + u' ' + item
                      + QStringLiteral("\n stock item on the Weekly list -\n\nDo you want to add another?\n\n"
                                       "Choose YES to add another, NO to Cancel:"),
                  answer, [](QDialog& form) {
                      const auto& message = dynamic_cast<QMessageBox&>(form);
                      QCOMPARE(message.icon(), QMessageBox::Question);
                      QCOMPARE(message.defaultButton(), message.button(QMessageBox::No));
                  });
}

} // namespace

class tst_placing : public QObject {
    Q_OBJECT
private slots:
    void placing_writes_the_three_tables();
    void given_values_are_stored();
    void empty_texts_are_stored_as_one_blank();
    void missing_stock_item_is_told_and_nothing_written();
    void failure_in_the_middle_leaves_nothing_and_ends_the_program_data();
    void failure_in_the_middle_leaves_nothing_and_ends_the_program();
    void used_up_keys_end_the_program();

    void placed_row_is_filled_and_current();
    void new_row_is_marked_by_the_row_editor_unless_quiet();
    void menu_command_places_the_selected_item();
    void row_placed_inactive_opens_ticked_while_the_item_is_active_elsewhere();
    void quiet_placing_leaves_current_row_and_status();
    void same_item_twice_gives_two_rows_and_set_row_finds_by_key();
    void duplicate_question_tells_active_from_inactive();
    void item_on_a_list_that_is_not_shown_leaves_the_grid();
    void names_that_differ_in_case_or_symbols_sort_as_the_load_does();
    void placing_in_the_all_lists_view_adds_the_row_of_its_list();
    void duplicate_check_passes_silently_in_the_all_lists_view();
    void without_lists_the_check_runs_and_the_message_follows();

    void toggle_flips_row_and_plain_status();
    void toggle_stores_the_plain_code_and_shows_the_true_one();
    void toggle_in_the_all_lists_view_uses_the_rows_list_and_goes_back();
    void toggle_of_a_row_that_is_gone_does_nothing();
    void failed_toggle_changes_nothing_and_goes_back_to_all_lists();
    void status_of_a_row_is_shown_on_request();
    void placing_costs_the_same_on_a_long_list();
};

void tst_placing::placing_writes_the_three_tables()
{
    HomeWithLists home;
    Query(home.db(), "UPDATE items_1 SET item = '  Milk '").run();
    const auto placed = insert_list_row(home.db(), home.placement(home.milk, home.weekly));
    QVERIFY(placed.has_value());
    QCOMPARE(int(placed->groc_key), 1);
    QCOMPARE(placed->item, QStringLiteral("Milk"));
    QCOMPARE(placed->status, StatusCode::buy_it);
    QCOMPARE(home.text("SELECT key_id || '|' || item || '|' || desc || '|' || aisle || '|' || to_get || '|' || qty"
                       " || '|' || list || '|' || item_id || '|' || modified || '|' || created || '|' || cpn"
                       " FROM groc_1"),
             QStringLiteral("1|Milk| | |1|0|0|0|2026-03-14|2026-03-14|0"));
    QCOMPARE(home.text("SELECT key_id || '|' || groc_id || '|' || item_id || '|' || list FROM tie"),
             QStringLiteral("1|1|1|1"));
    QCOMPARE(home.text("SELECT to_get || '|' || status FROM items_1"), QStringLiteral("1|7"));
}

void tst_placing::given_values_are_stored()
{
    HomeWithLists home;
    Placement placement = home.placement(home.milk, home.camping);
    placement.desc = QStringLiteral("Bob's \"best\" 100%");
    placement.aisle = QStringLiteral("4B");
    placement.qty = -3;
    placement.to_get = false;
    placement.created = QDate(2027, 1, 2);
    insert_list_row(home.db(), placement);
    QCOMPARE(
        home.text("SELECT desc || '|' || aisle || '|' || qty || '|' || to_get || '|' || created || '|' || modified"
                  " FROM groc_1"),
        QStringLiteral("Bob's \"best\" 100%|4B|-3|0|2027-01-02|2026-03-14"));
    QCOMPARE(home.text("SELECT to_get || '|' || status FROM items_1"), QStringLiteral("0|6"));
}

void tst_placing::empty_texts_are_stored_as_one_blank()
{
    HomeWithLists home;
    Placement placement = home.placement(home.milk, home.weekly);
    placement.desc.clear();
    placement.aisle.clear();
    insert_list_row(home.db(), placement);
    QCOMPARE(home.text("SELECT '[' || desc || '][' || aisle || ']' FROM groc_1"), QStringLiteral("[ ][ ]"));
}

void tst_placing::missing_stock_item_is_told_and_nothing_written()
{
    HomeWithLists home;
    frmmain& main = home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
    main.placing().add_item(home.placement(99, home.weekly));
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(home.ends, 0);
}

void tst_placing::failure_in_the_middle_leaves_nothing_and_ends_the_program_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("table");
    QTest::newRow("the list row") << QByteArray("INSERT") << QByteArray("groc_1");
    QTest::newRow("the link") << QByteArray("INSERT") << QByteArray("tie");
    QTest::newRow("the item") << QByteArray("UPDATE") << QByteArray("items_1");
}

void tst_placing::failure_in_the_middle_leaves_nothing_and_ends_the_program()
{
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, table);
    HomeWithLists home;
    frmmain& main = home.load();
    home.refuse(operation.constData(), table.constData());
    const QStringList before = table_dump(home.db());
    const LastPlaced placed(main.household());
    MessageScript script;
    script.expect(QStringLiteral("TarnWick"), shut_down);
    main.placing().stock_to_list(home.milk);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(int(placed.key()), -1);
    QCOMPARE(home.ends, 1);
}

void tst_placing::used_up_keys_end_the_program()
{
    HomeWithLists home;
    home.db().db().exec("INSERT INTO groc_1 (key_id) VALUES (32767)");
    frmmain& main = home.load();
    MessageScript script;
    script.expect(QStringLiteral("TarnWick"), shut_down);
    main.placing().stock_to_list(home.milk);
    QCOMPARE(home.ends, 1);
    QCOMPARE(home.number("SELECT count(*) FROM tie"), 0);
}

void tst_placing::placed_row_is_filled_and_current()
{
    HomeWithLists home;
    for (const char* name : {"Apples", "Zucchini"})
        home.add_row(home.add_item(QString::fromLatin1(name), 0), home.weekly, false);
    frmmain& main = home.load();
    const LastPlaced placed(main.household());
    Placement placement = home.placement(home.milk, home.weekly);
    placement.desc = QStringLiteral("  low fat ");
    placement.aisle = QStringLiteral(" 7 ");
    placement.qty = 12;
    main.placing().add_item(placement);
    QCOMPARE(home.rows().rows(), 3);
    const GridRow& row = home.rows().row(1);
    QCOMPARE(int(row.groc_key), int(placed.key()));
    QCOMPARE(int(row.list_key), int(home.weekly));
    QCOMPARE(int(row.item_key), int(home.milk));
    QVERIFY(row.to_get);
    QCOMPARE(row.light, 179);
    QCOMPARE(row.check, 122);
    QCOMPARE(row.coupon, 117);
    QCOMPARE(home.cell(1, GridColumn::item), QStringLiteral("Milk"));
    QCOMPARE(home.cell(1, GridColumn::desc), QStringLiteral("low fat"));
    QCOMPARE(home.cell(1, GridColumn::qty), QStringLiteral("12"));
    QCOMPARE(home.cell(1, GridColumn::date), QStringLiteral(" "));
    QCOMPARE(home.cell(1, GridColumn::aisle), QStringLiteral("7"));
    QCOMPARE(main.list_pane().grid().current_row(), 1);
    QCOMPARE(main.list_pane().grid().current_col(), GridColumn::item);
    QCOMPARE(home.panel(), QStringLiteral("Active On Weekly list :: OTHER category"));
    QCOMPARE(home.node_picture(home.milk), 7);
}

void tst_placing::new_row_is_marked_by_the_row_editor_unless_quiet()
{
    HomeWithLists home;
    const Key bread = home.add_item(QStringLiteral("Bread"), 0);
    const Key zest = home.add_item(QStringLiteral("Zest"), 0);
    home.add_row(home.add_item(QStringLiteral("Apple"), 0), home.weekly, false);
    frmmain& main = home.load();
    RowEditor& editor = main.row_editor();
    const LastPlaced placed(main.household());

    Placement quiet = home.placement(zest, home.weekly);
    quiet.quiet = true;
    main.placing().add_item(quiet);
    QCOMPARE(home.rows().rows(), 2);
    QVERIFY(!editor.is_open());

    for (const Key item : {home.milk, bread}) {
        main.placing().stock_to_list(item);
        QVERIFY(editor.is_open());
        const int row = home.rows().find_row(placed.key());
        QCOMPARE(editor.edit_row(), row);
        QCOMPARE(home.rows().row(row).item_key, item);
        QVERIFY(home.rows().row(row).bold);
        QCOMPARE(main.list_pane().grid().current_row(), row);
    }
    QCOMPARE(home.text("SELECT group_concat(item) FROM (SELECT item FROM groc_1 ORDER BY key_id)"),
             QStringLiteral("Apple,Zest,Milk,Bread"));
}

void tst_placing::menu_command_places_the_selected_item()
{
    HomeWithLists home;
    frmmain& main = home.load();
    TreeView& tree = main.stock_tree().view();
    tree.select(main.stock_tree().item_node(home.milk));
    main.l_r_refresh();
    QAction& command = main.commands().action(QStringLiteral("mnu_edit_stock_to_list"));
    QVERIFY(command.isEnabled());
    command.trigger();
    QCOMPARE(home.rows().rows(), 1);
    QCOMPARE(home.cell(0, GridColumn::item), QStringLiteral("Milk"));
    QCOMPARE(home.cell(0, GridColumn::qty), QStringLiteral(" "));
    QCOMPARE(home.text("SELECT qty FROM groc_1"), QStringLiteral("0"));
    main.list_pane().lv_load(home.weekly);
    QCOMPARE(home.cell(0, GridColumn::qty), QStringLiteral("0"));
}

void tst_placing::row_placed_inactive_opens_ticked_while_the_item_is_active_elsewhere()
{
    HomeWithLists home;
    home.add_row(home.milk, home.camping, true);
    frmmain& main = home.load();
    Placement placement = home.placement(home.milk, home.weekly);
    placement.to_get = false;
    main.placing().add_item(placement);
    QCOMPARE(home.rows().row(0).check, 122);
    QVERIFY(!home.rows().row(0).to_get);
    main.list_pane().lv_load(home.weekly);
    QCOMPARE(home.rows().row(0).check, 113);
}

void tst_placing::quiet_placing_leaves_current_row_and_status()
{
    HomeWithLists home;
    for (const char* name : {"Apples", "Zucchini"})
        home.add_row(home.add_item(QString::fromLatin1(name), 0), home.weekly, false);
    frmmain& main = home.load();
    main.list_pane().grid().set_current(1, GridColumn::item);
    main.set_status(QStringLiteral("untouched"));
    Placement placement = home.placement(home.milk, home.weekly);
    placement.quiet = true;
    main.placing().add_item(placement);
    QCOMPARE(home.rows().rows(), 3);
    QCOMPARE(home.cell(main.list_pane().grid().current_row(), GridColumn::item), QStringLiteral("Zucchini"));
    QCOMPARE(home.panel(), QStringLiteral("untouched"));
    QCOMPARE(home.node_picture(home.milk), 7);
}

void tst_placing::same_item_twice_gives_two_rows_and_set_row_finds_by_key()
{
    HomeWithLists home;
    frmmain& main = home.load();
    const LastPlaced placed(main.household());
    main.placing().stock_to_list(home.milk);
    const Key first = placed.key();
    MessageScript script;
    expect_second_placing(script, QStringLiteral("active"), QStringLiteral("Milk"), Answer::yes);
    main.placing().stock_to_list(home.milk);
    const Key second = placed.key();
    QVERIFY(first != second);
    QCOMPARE(home.rows().rows(), 2);
    QCOMPARE(home.cell(0, GridColumn::item), home.cell(1, GridColumn::item));
    for (const Key key : {second, first}) {
        QVERIFY(main.list_pane().set_row(key));
        QCOMPARE(int(home.rows().row(main.list_pane().grid().current_row()).groc_key), int(key));
    }
    QCOMPARE(home.number("SELECT status FROM items_1"), 8);
}

void tst_placing::duplicate_question_tells_active_from_inactive()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, false);
    frmmain& main = home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    expect_second_placing(script, QStringLiteral("inactive"), QStringLiteral("Milk"), Answer::no);
    main.placing().stock_to_list(home.milk);
    QCOMPARE(table_dump(home.db()), before);
    QVERIFY(main.placing().chck_item(home.milk, home.camping) == PlacingAnswer::go_on);
}

void tst_placing::item_on_a_list_that_is_not_shown_leaves_the_grid()
{
    HomeWithLists home;
    home.add_row(home.add_item(QStringLiteral("Apples"), 0), home.weekly, true);
    frmmain& main = home.load();
    main.placing().add_item(home.placement(home.milk, home.camping));
    QCOMPARE(home.rows().rows(), 1);
    QCOMPARE(home.cell(0, GridColumn::item), QStringLiteral("Apples"));
    QCOMPARE(home.number("SELECT list FROM tie WHERE item_id = 1"), int(home.camping));
    QCOMPARE(home.number("SELECT status FROM items_1 WHERE key_id = 1"), 7);
    QCOMPARE(home.node_picture(home.milk), 7);
}

void tst_placing::names_that_differ_in_case_or_symbols_sort_as_the_load_does()
{
    HomeWithLists home;
    const QStringList names = {QStringLiteral("apple"),  QStringLiteral("Apple"),    QStringLiteral("APPLE pie"),
                               QStringLiteral("éclair"), QStringLiteral("Eclair"),   QStringLiteral("_under"),
                               QStringLiteral("&more"),  QStringLiteral("100 nuts"), QStringLiteral("zest"),
                               QStringLiteral("-dash"),  QStringLiteral("Zebra")};
    QList<Key> items;
    for (const QString& name : names)
        items += home.add_item(name, 0);
    frmmain& main = home.load();
    for (const Key item : items)
        main.placing().stock_to_list(item);
    QStringList placed;
    for (const GridRow& row : home.rows().list_rows())
        placed += row.item + QString::number(row.groc_key);
    main.list_pane().lv_load(home.weekly);
    QStringList loaded;
    for (const GridRow& row : home.rows().list_rows())
        loaded += row.item + QString::number(row.groc_key);
    QCOMPARE(placed.size(), names.size());
    QCOMPARE(placed, loaded);
}

void tst_placing::placing_in_the_all_lists_view_adds_the_row_of_its_list()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, true);
    frmmain& main = home.load();
    home.view_all();
    QVERIFY(main.shared.all_lists_view);
    main.placing().add_item(home.placement(home.milk, home.camping));
    QCOMPARE(home.rows().rows(), 2);
    QCOMPARE(int(home.rows().row(0).list_key), int(home.weekly));
    QCOMPARE(int(home.rows().row(1).list_key), int(home.camping));
}

void tst_placing::duplicate_check_passes_silently_in_the_all_lists_view()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, true);
    frmmain& main = home.load();
    home.view_all();
    MessageScript script;
    QVERIFY(main.placing().chck_item(home.milk, main.shared.current_list) == PlacingAnswer::go_on);
}

void tst_placing::without_lists_the_check_runs_and_the_message_follows()
{
    TestWindow window;
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    window.add_row(milk, -1, true);
    frmmain& main = window.load();
    QCOMPARE(int(main.shared.current_list), -1);
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.expect(QStringLiteral("Question"),
                  QStringLiteral("There is already an active Milk\n stock item on the All list -\n\n"
                                 "Do you want to add another?\n\nChoose YES to add another, NO to Cancel:"),
                  Answer::yes);
    script.expect(QStringLiteral("No lists"),
                  QStringLiteral("There are no lists to add to -\nTo create a new list click the\n"
                                 "New list button on the toolbar\n(notepad icon marked 'New') or go to\n"
                                 "Shopping List/New on the menu bar"),
                  Answer::ok,
                  [](QDialog& form) { QCOMPARE(dynamic_cast<QMessageBox&>(form).icon(), QMessageBox::Warning); });
    main.placing().stock_to_list(milk);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_placing::toggle_flips_row_and_plain_status()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, false);
    Query(home.db(), "UPDATE items_1 SET to_get = 1").run();
    frmmain& main = home.load();
    main.placing().toggle_buy_it(0);
    QVERIFY(home.rows().row(0).to_get);
    QCOMPARE(home.rows().row(0).light, 179);
    QCOMPARE(home.rows().row(0).check, 122);
    QCOMPARE(home.number("SELECT to_get FROM groc_1"), 1);
    QCOMPARE(home.text("SELECT status || '|' || to_get FROM items_1"), QStringLiteral("7|1"));
    QCOMPARE(home.panel(), QStringLiteral("Active On Weekly list :: OTHER category"));
    QCOMPARE(home.node_picture(home.milk), 7);
    main.placing().toggle_buy_it(0);
    QVERIFY(!home.rows().row(0).to_get);
    QCOMPARE(home.rows().row(0).light, 183);
    QCOMPARE(home.rows().row(0).check, 113);
    QCOMPARE(home.number("SELECT to_get FROM groc_1"), 0);
    QCOMPARE(home.text("SELECT status || '|' || to_get FROM items_1"), QStringLiteral("6|1"));
    QCOMPARE(home.panel(), QStringLiteral("Inactive On Weekly list :: OTHER category"));
    QCOMPARE(home.node_picture(home.milk), 6);
}

void tst_placing::toggle_stores_the_plain_code_and_shows_the_true_one()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, false);
    home.add_row(home.milk, home.camping, true);
    frmmain& main = home.load();
    main.placing().toggle_buy_it(0);
    QCOMPARE(home.number("SELECT status FROM items_1"), 7);
    QCOMPARE(home.node_picture(home.milk), 8);
    main.placing().toggle_buy_it(0);
    QCOMPARE(home.number("SELECT status FROM items_1"), 6);
    QCOMPARE(home.node_picture(home.milk), 7);
}

void tst_placing::toggle_in_the_all_lists_view_uses_the_rows_list_and_goes_back()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, false);
    const Key second = home.add_row(home.milk, home.camping, false);
    frmmain& main = home.load();
    home.view_all();
    main.placing().toggle_buy_it(home.rows().find_row(second));
    QCOMPARE(home.text("SELECT group_concat(key_id || ':' || to_get) FROM groc_1"), QStringLiteral("1:0,2:1"));
    QCOMPARE(int(main.shared.current_list), 0);
}

void tst_placing::toggle_of_a_row_that_is_gone_does_nothing()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, true);
    frmmain& main = home.load();
    Query(home.db(), "DELETE FROM tie").run();
    const QStringList before = table_dump(home.db());
    main.placing().toggle_buy_it(0);
    QCOMPARE(table_dump(home.db()), before);
    QVERIFY(home.rows().row(0).to_get);
}

void tst_placing::failed_toggle_changes_nothing_and_goes_back_to_all_lists()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, true);
    frmmain& main = home.load();
    home.view_all();
    home.refuse("UPDATE", "items_1");
    const QStringList before = table_dump(home.db());
    QVERIFY_EXCEPTION_THROWN(main.placing().toggle_buy_it(0), SQLite::Exception);
    QCOMPARE(table_dump(home.db()), before);
    QVERIFY(home.rows().row(0).to_get);
    QCOMPARE(int(main.shared.current_list), 0);
}

void tst_placing::status_of_a_row_is_shown_on_request()
{
    HomeWithLists home;
    home.add_row(home.milk, home.weekly, false);
    home.add_row(home.milk, home.camping, true);
    frmmain& main = home.load();
    main.placing().show_row_status(0);
    QCOMPARE(home.panel(), QStringLiteral("Inactive On Weekly list :: Active On Camping list :: OTHER category"));
}

void tst_placing::placing_costs_the_same_on_a_long_list()
{
    // Steps of the database's machine, which do not depend on how busy the computer is.
    const auto steps = [](int rows) {
        HomeWithLists home;
        {
            Transaction transaction(home.db());
            for (int i = 0; i < rows; ++i)
                home.add_row(home.add_item(QStringLiteral("Item %1").arg(i, 5), 0), home.weekly, true);
            transaction.commit();
        }
        frmmain& main = home.load();
        int counted = 0;
        sqlite3* handle = main.connection().db().getHandle();
        sqlite3_progress_handler(
            handle, 10,
            [](void* count) {
                ++*static_cast<int*>(count);
                return 0;
            },
            &counted);
        main.placing().stock_to_list(home.milk);
        sqlite3_progress_handler(handle, 0, nullptr, nullptr);
        return counted;
    };
    const int few = steps(50);
    const int many = steps(3000);
    QVERIFY2(many < 3 * few + 50, qPrintable(QStringLiteral("%1 and %2").arg(few).arg(many)));
}

QTEST_MAIN(tst_placing)
#include "tst_placing.moc"
