#include "stock/item_editor_fixture.h"

#include "lists/placing.h"
#include "household/status.h"

#include <QAbstractItemView>
#include <QDate>

using namespace tarnwick;

/// The rows of the dialog: what a click or a text does to them, and what OK makes of it.
class tst_item_editor_rows : public QObject {
    Q_OBJECT
private slots:
    void placing_writes_the_marked_row_with_its_cells();
    void placing_from_the_all_lists_view_goes_through_the_dialog();
    void placing_shows_in_the_grid();
    void placing_keeps_quantity_text_and_coupon();
    void pre_marked_row_gets_its_coupon_box_with_the_placing();
    void quantity_beyond_16_bits_is_kept_as_text();
    void row_ticked_and_unticked_again_is_not_placed();
    void row_taken_off_goes_from_list_tree_and_grid();
    void row_taken_off_and_put_back_is_merely_kept();
    void row_placed_taken_off_and_placed_again_comes_once();
    void buy_it_box_flips_and_is_written();
    void buy_it_box_of_a_row_not_on_the_list_puts_the_item_there();
    void texts_are_written_and_empty_ones_become_one_blank();
    void text_on_a_list_without_the_item_writes_nothing();
    void text_typed_before_the_tick_is_placed();
    void steppers_change_the_quantity();
    void coupon_on_takes_today_or_a_later_stored_date();
    void coupon_off_leaves_the_date_in_the_database();
    void calendar_date_is_written();
    void main_grid_follows_in_every_mode_data();
    void main_grid_follows_in_every_mode();
    void row_vanished_meanwhile_is_passed_over();
    void column_boxes_hide_columns_and_store_nothing();
};

void tst_item_editor_rows::placing_writes_the_marked_row_with_its_cells()
{
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    choose_list(test.window, test.market);
    test.open(1, test.milk, [&](EditorHands& hands) {
        hands.type_cell(1, "aisle_brdr", QStringLiteral("5"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.list_rows(), QStringLiteral("2: :0:5:1:0"));
    QCOMPARE(test.count("SELECT status * 10 + to_get FROM items_1 WHERE key_id = 1"), 71);
    QCOMPARE(main.status_panels().text(), QStringLiteral("Active On Market list :: Dairy category"));
    QCOMPARE(TreeView::picture(main.stock_tree().item_node(test.milk)), 7);
}

void tst_item_editor_rows::placing_from_the_all_lists_view_goes_through_the_dialog()
{
    EditorCase test;
    test.add_lists();
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    test.window.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    frmmain& main = test.window.load();
    QVERIFY(main.shared.all_lists_view);
    MessageScript messages;
    messages.drive([&](QDialog& dialog) {
        EditorHands hands(dialog, messages);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding Milk"));
        hands.click_cell(2, GridColumn::light);
        hands.click_cell(2, GridColumn::check);
        hands.press_ok();
        QVERIFY(!dialog.isVisible());
    });
    main.placing().stock_to_list(test.milk);
    QCOMPARE(test.list_rows(), QStringLiteral("3: :0: :1:0"));
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
    QCOMPARE(int(main.list_pane().grid().rows().row(0).list_key), int(test.party));
}

void tst_item_editor_rows::placing_shows_in_the_grid()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.bread, test.market, true);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    QCOMPARE(int(main.shared.current_list), int(test.market));
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
    test.open(1, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::light);
        hands.type_cell(1, "desc_brdr", QStringLiteral("cold"));
        hands.press_ok();
    });
    const GridModel& shown = main.list_pane().grid().rows();
    QCOMPARE(shown.rows(), 2); // the row on the other list is not on show
    QCOMPARE(shown.row(1).item, QStringLiteral("Milk"));
    QCOMPARE(shown.row(1).desc, QStringLiteral("cold"));
    QCOMPARE(shown.row(1).check, picture_base::check_on);
    QCOMPARE(test.count("SELECT count(*) FROM tie WHERE item_id = 1"), 2);
}

void tst_item_editor_rows::placing_keeps_quantity_text_and_coupon()
{
    EditorCase test;
    test.add_lists();
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    test.open(1, test.milk, [&](EditorHands& hands) {
        hands.type_cell(1, "qty_brdr", QStringLiteral("2 lb"));
        hands.click_cell(1, GridColumn::coupon);
        QCOMPARE(hands.row(1).date, QStringLiteral("3/14/2026"));
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("2: :2 lb: :1:1"));
    QCOMPARE(test.window.text("SELECT created FROM groc_1"), QStringLiteral("2026-03-14"));
    const GridRow row = main.list_pane().grid().rows().row(0);
    QCOMPARE(row.qty, QStringLiteral("2 lb"));
    QCOMPARE(row.coupon, picture_base::coupon_on);
    QCOMPARE(row.date, QStringLiteral("3/14/2026"));
}

void tst_item_editor_rows::pre_marked_row_gets_its_coupon_box_with_the_placing()
{
    EditorCase test;
    test.add_lists();
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    const GridModel& shown = main.list_pane().grid().rows();
    test.open(1, test.milk, [](EditorHands& hands) { hands.press_ok(); });
    QCOMPARE(shown.rows(), 1);
    QCOMPARE(shown.row(0).coupon, picture_base::coupon_off);
    test.open(1, test.bread, [](EditorHands& hands) {
        hands.click_cell(1, GridColumn::coupon);
        QCOMPARE(hands.row(1).coupon, picture_base::coupon_on);
        hands.press_ok();
    });
    QCOMPARE(shown.row(0).item, QStringLiteral("Bread"));
    QCOMPARE(shown.row(0).coupon, picture_base::coupon_on);
    QCOMPARE(test.list_rows(), QStringLiteral("2: :0: :1:0 / 2: :0: :1:1"));
}

void tst_item_editor_rows::quantity_beyond_16_bits_is_kept_as_text()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Rice"));
        hands.choose_category(QStringLiteral("Bakery"));
        for (int row = 0; row < 3; ++row)
            hands.click_cell(row, GridColumn::light);
        hands.type_cell(0, "qty_brdr", QStringLiteral("99999999999999999999"));
        hands.type_cell(1, "qty_brdr", QStringLiteral("-3"));
        hands.type_cell(2, "qty_brdr", QStringLiteral("1.5"));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT group_concat(qty) FROM groc_1"),
             QStringLiteral("99999999999999999999,-3,1.5"));
    QCOMPARE(test.window.ends, 0);
}

void tst_item_editor_rows::row_ticked_and_unticked_again_is_not_placed()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(1, GridColumn::light);
        QCOMPARE(hands.row(1).light, picture_base::light_off);
        hands.click_cell(1, GridColumn::light);
        QCOMPARE(hands.row(1).light, picture_base::light_unlisted);
        hands.press_ok();
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_editor_rows::row_taken_off_goes_from_list_tree_and_grid()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, true, QStringLiteral("cold"), QStringLiteral("2"),
                        QStringLiteral("9"));
    const Key kept = test.window.add_row(test.milk, test.weekly, false);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(1, GridColumn::light);
        QCOMPARE(hands.row(1).light, picture_base::light_unlisted);
        QCOMPARE(hands.row(1).check, picture_base::check_off);
        QCOMPARE(hands.row(1).desc, QStringLiteral(" "));
        QCOMPARE(hands.row(1).qty, QStringLiteral(" "));
        QCOMPARE(hands.row(1).aisle, QStringLiteral(" "));
        QCOMPARE(hands.row(1).coupon, 0);
        QCOMPARE(hands.row(1).date, QStringLiteral(" "));
        QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 2); // nothing is written before OK
        hands.press_ok();
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(test.count("SELECT groc_id FROM tie"), int(kept));
    QCOMPARE(test.count("SELECT status FROM items_1 WHERE key_id = 1"), 6);
    QCOMPARE(main.list_pane().grid().rows().rows(), 0);
    QCOMPARE(TreeView::tag(main.stock_tree().item_node(test.milk)), QStringLiteral("6"));
}

void tst_item_editor_rows::row_taken_off_and_put_back_is_merely_kept()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, true, QStringLiteral("cold"), QStringLiteral("2"),
                        QStringLiteral("9"));
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(1, GridColumn::light);
        hands.click_cell(1, GridColumn::light);
        QCOMPARE(hands.row(1).light, picture_base::light_off);
        QCOMPARE(hands.state(), QStringLiteral("Inactive item"));
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("2:cold:2:9:1:0"));
}

void tst_item_editor_rows::row_placed_taken_off_and_placed_again_comes_once()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        for (int i = 0; i < 3; ++i)
            hands.click_cell(0, GridColumn::light);
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1: :0: :0:0"));
}

void tst_item_editor_rows::buy_it_box_flips_and_is_written()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    test.window.add_row(test.milk, test.market, false);
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::check);
        QCOMPARE(hands.row(0).light, picture_base::light_off);
        QCOMPARE(hands.row(0).check, picture_base::check_off);
        hands.click_cell(1, GridColumn::check);
        QCOMPARE(hands.row(1).light, picture_base::light_on);
        QCOMPARE(hands.row(1).check, picture_base::check_on);
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT group_concat(to_get) FROM groc_1"), QStringLiteral("0,1"));
}

void tst_item_editor_rows::buy_it_box_of_a_row_not_on_the_list_puts_the_item_there()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::check);
        QCOMPARE(hands.row(0).light, picture_base::light_on);
        QCOMPARE(hands.row(0).check, picture_base::check_on);
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT tie.list || ':' || to_get FROM groc_1 JOIN tie ON groc_id = groc_1.key_id"),
             QStringLiteral("%1:1").arg(test.weekly));
}

void tst_item_editor_rows::texts_are_written_and_empty_ones_become_one_blank()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"), QStringLiteral("2"),
                        QStringLiteral("9"));
    test.window.add_row(test.milk, test.market, true, QStringLiteral("cold"), QStringLiteral("2"),
                        QStringLiteral("9"));
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("  it's warm "));
        hands.type_cell(0, "qty_brdr", QStringLiteral("3 qt"));
        hands.type_cell(0, "aisle_brdr", QStringLiteral("12b"));
        hands.type_cell(1, "desc_brdr", QString());
        hands.type_cell(1, "qty_brdr", QStringLiteral("  "));
        hands.type_cell(1, "aisle_brdr", QString());
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:it's warm:3 qt:12b:1:0 / 2: : : :1:0"));
}

void tst_item_editor_rows::text_on_a_list_without_the_item_writes_nothing()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("cold"));
        hands.press_ok();
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_editor_rows::text_typed_before_the_tick_is_placed()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("cold"));
        hands.click_cell(0, GridColumn::light);
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:cold:0: :0:0"));
}

void tst_item_editor_rows::steppers_change_the_quantity()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral(" "), QStringLiteral("2lb"));
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::qty);
        auto* up = hands.dialog.findChild<QWidget*>(QStringLiteral("qty_btn(0)"));
        QVERIFY(up && up->isVisible());
        QTest::mouseClick(up, Qt::LeftButton);
        QCOMPARE(hands.row(0).qty, QStringLiteral("3lb"));
        hands.press_ok(); // with the floating editor still open
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1: :3lb: :1:0"));
}

void tst_item_editor_rows::coupon_on_takes_today_or_a_later_stored_date()
{
    EditorCase test;
    test.add_lists();
    const Key past = test.window.add_row(test.milk, test.weekly, true);
    const Key future = test.window.add_row(test.milk, test.market, true);
    const Key dateless = test.window.add_row(test.milk, test.party, true);
    Query(test.window.db(), "UPDATE groc_1 SET created = '2026-01-02' WHERE key_id = ?", past).run();
    Query(test.window.db(), "UPDATE groc_1 SET created = '2026-11-02' WHERE key_id = ?", future).run();
    Query(test.window.db(), "UPDATE groc_1 SET created = NULL WHERE key_id = ?", dateless).run();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        for (int row = 0; row < 3; ++row)
            hands.click_cell(row, GridColumn::coupon);
        QCOMPARE(hands.row(0).coupon, picture_base::coupon_on);
        QCOMPARE(hands.row(0).date, QStringLiteral("3/14/2026"));
        QCOMPARE(hands.row(1).date, QStringLiteral("11/2/2026"));
        QCOMPARE(hands.row(2).date, QStringLiteral("3/14/2026"));
        auto* box = hands.dialog.findChild<QWidget*>(QStringLiteral("chck_box"));
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->property("Tag").toString(), QStringLiteral("ON"));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT group_concat(cpn || created) FROM groc_1"),
             QStringLiteral("12026-03-14,12026-11-02,12026-03-14"));
}

void tst_item_editor_rows::coupon_off_leaves_the_date_in_the_database()
{
    EditorCase test;
    test.add_lists();
    const Key row = test.window.add_row(test.milk, test.weekly, true);
    Query(test.window.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-11-02' WHERE key_id = ?", row).run();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::coupon);
        QCOMPARE(hands.row(0).coupon, picture_base::coupon_off);
        QCOMPARE(hands.row(0).date, QStringLiteral(" "));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT cpn || created FROM groc_1"), QStringLiteral("02026-11-02"));
}

void tst_item_editor_rows::calendar_date_is_written()
{
    EditorCase test;
    test.add_lists();
    const Key row = test.window.add_row(test.milk, test.weekly, true);
    Query(test.window.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-11-02' WHERE key_id = ?", row).run();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::desc);
        auto* button = hands.dialog.findChild<QWidget*>(QStringLiteral("dtp_btn"));
        QVERIFY(button && button->isVisible());
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
        auto* month = hands.dialog.findChild<QWidget*>(QStringLiteral("MonthView1"));
        QVERIFY(month && month->isVisible());
        auto* days = month->findChild<QAbstractItemView*>(QStringLiteral("qt_calendar_calendarview"));
        QVERIFY(days);
        QModelIndex day;
        for (int cell = 0; cell < 42; ++cell) // six weeks; the 20th is none of another month's days
            if (const QModelIndex at = days->model()->index(1 + cell / 7, 1 + cell % 7); at.data().toInt() == 20)
                day = at;
        QVERIFY(day.isValid());
        QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, days->visualRect(day).center());
        QVERIFY(!month->isVisible());
        QVERIFY(hands.dialog.isVisible());
        QCOMPARE(hands.row(0).date, QStringLiteral("11/20/2026"));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT cpn || created FROM groc_1"), QStringLiteral("12026-11-20"));
}

void tst_item_editor_rows::main_grid_follows_in_every_mode_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {1, 2, 3, 4})
        QTest::addRow("%d", mode) << mode;
}

void tst_item_editor_rows::main_grid_follows_in_every_mode()
{
    QFETCH(int, mode);
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, false);
    const Key line = test.add_line(QStringLiteral("Milk"), test.milk);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    test.open(
        mode, test.milk,
        [&](EditorHands& hands) {
            hands.click_cell(1, GridColumn::check);
            hands.click_cell(1, GridColumn::coupon);
            hands.type_cell(1, "desc_brdr", QStringLiteral("cold"));
            hands.type_cell(1, "qty_brdr", QStringLiteral("3"));
            hands.type_cell(1, "aisle_brdr", QStringLiteral("7"));
            if (mode == 1)
                hands.messages.expect(QStringLiteral("Add to list"),
                                      QStringLiteral("Milk was not added to any list"));
            hands.press_ok();
            QCOMPARE(hands.messages.left(), 0);
        },
        line);
    const GridRow row = main.list_pane().grid().rows().row(0);
    QVERIFY(row.to_get);
    QCOMPARE(row.light, picture_base::light_on);
    QCOMPARE(row.check, picture_base::check_on);
    QCOMPARE(row.coupon, picture_base::coupon_on);
    QCOMPARE(row.date, QStringLiteral("3/14/2026"));
    QCOMPARE(row.desc, QStringLiteral("cold"));
    QCOMPARE(row.qty, QStringLiteral("3"));
    QCOMPARE(row.aisle, QStringLiteral("7"));
    QCOMPARE(row.item, QStringLiteral("Milk"));
}

void tst_item_editor_rows::row_vanished_meanwhile_is_passed_over()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    test.window.add_row(test.milk, test.market, true);
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("cold"));
        hands.click_cell(1, GridColumn::light);
        Query(test.window.db(), "DELETE FROM groc_1").run();
        Query(test.window.db(), "DELETE FROM tie").run();
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
    QCOMPARE(test.count("SELECT status FROM items_1 WHERE key_id = 1"), 5);
}

void tst_item_editor_rows::column_boxes_hide_columns_and_store_nothing()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    const QString before = test.window.pref(QStringLiteral("cpn"), QStringLiteral("Velora"))
        + test.window.pref(QStringLiteral("aisle"), QStringLiteral("Velora"));
    test.open(2, test.milk, [&](EditorHands& hands) {
        QCOMPARE(hands.grid().col_width(GridColumn::date), 80);
        for (const char* box : {"Cmd_ShowCol(0)", "Cmd_ShowCol(1)"})
            QTest::mouseClick(hands.dialog.findChild<QWidget*>(QLatin1String(box)), Qt::LeftButton);
        QCOMPARE(hands.grid().col_width(GridColumn::coupon), 0);
        QCOMPARE(hands.grid().col_width(GridColumn::date), 0);
        QCOMPARE(hands.grid().col_width(GridColumn::aisle), 0);
        hands.click_cell(0, GridColumn::desc);
        QVERIFY(!hands.dialog.findChild<QWidget*>(QStringLiteral("aisle_brdr"))->isVisible());
        QTest::mouseClick(hands.dialog.findChild<QWidget*>(QStringLiteral("Cmd_ShowCol(1)")), Qt::LeftButton);
        QCOMPARE(hands.grid().col_width(GridColumn::aisle), 36);
    });
    QCOMPARE(test.window.pref(QStringLiteral("cpn"), QStringLiteral("Velora"))
                 + test.window.pref(QStringLiteral("aisle"), QStringLiteral("Velora")),
             before);
}

QTEST_MAIN(tst_item_editor_rows)
#include "tst_item_editor_rows.moc"
