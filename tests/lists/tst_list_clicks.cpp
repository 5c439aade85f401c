#include "lists/editing_window.h"
#include "window/commands.h"
#include "window/status_panels.h"
#include "support/shown_things.h"

#include <QMenu>

using namespace tarnwick;

/// What a click tells, and clicks that hit no row.
class tst_list_clicks : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void a_click_on_any_cell_shows_the_status_of_its_row_data();
    void a_click_on_any_cell_shows_the_status_of_its_row();
    void a_right_press_below_the_rows_marks_nothing_and_pops_up_the_menu();
    void a_click_below_the_last_row_closes_the_editor_whichever_row_is_current();
    void a_click_on_the_light_or_box_of_another_row_takes_the_editor_along_data();
    void a_click_on_the_light_or_box_of_another_row_takes_the_editor_along();

private:
    EditingWindow& w() { return *window_; }
    QMenu& row_menu() { return w().main().commands().menu(QStringLiteral("mnu_lv")); }

    std::unique_ptr<EditingWindow> window_;
};

void tst_list_clicks::a_click_on_any_cell_shows_the_status_of_its_row_data()
{
    QTest::addColumn<GridColumn>("column");
    QTest::newRow("light") << GridColumn::light;
    QTest::newRow("name") << GridColumn::item;
    QTest::newRow("description") << GridColumn::desc;
    QTest::newRow("quantity") << GridColumn::qty;
    QTest::newRow("coupon") << GridColumn::coupon;
    QTest::newRow("date") << GridColumn::date;
    QTest::newRow("aisle") << GridColumn::aisle;
}

void tst_list_clicks::a_click_on_any_cell_shows_the_status_of_its_row()
{
    QFETCH(GridColumn, column);
    w().row(QStringLiteral("Apple"));
    const Key bread = w().row(QStringLiteral("Bread"));
    Query(w().db(), "UPDATE groc_1 SET to_get = 0 WHERE key_id = ?", bread).run();
    w().open();
    const QString active = QStringLiteral("Active On Corner shop list :: OTHER category");
    const QString inactive = QStringLiteral("Inactive On Corner shop list :: OTHER category");
    for (const int row : {1, 0}) {
        w().main().set_status(QStringLiteral("before"));
        w().click_cell(row, column);
        QCOMPARE(status_text(w().main()), row == 0 ? active : inactive);
        QCOMPARE(w().find<QWidget>(QStringLiteral("StatusBar1(1)"))->toolTip(), row == 0 ? active : inactive);
    }
}

void tst_list_clicks::a_right_press_below_the_rows_marks_nothing_and_pops_up_the_menu()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    w().editor().lv_edit_off();
    w().main().set_status(QStringLiteral("before"));
    const QPoint below = w().middle_of(5, GridColumn::item);
    QTest::mousePress(w().grid().viewport(), Qt::RightButton, {}, below);
    QCOMPARE(w().grid().current_row(), 1);
    for (const GridRow& row : w().grid().rows().list_rows())
        QVERIFY(!row.bold);
    QVERIFY(!row_menu().isVisible());
    QTest::mouseRelease(w().grid().viewport(), Qt::RightButton, {}, below);
    QVERIFY(row_menu().isVisible());
    row_menu().close();
    QCOMPARE(status_text(w().main()), QStringLiteral("before"));
}

void tst_list_clicks::a_click_below_the_last_row_closes_the_editor_whichever_row_is_current()
{
    w().rows(3);
    w().open();
    for (const int row : {0, 1, 2}) {
        w().open_row(row);
        w().click_cell(4, GridColumn::desc);
        QVERIFY(!w().editor().is_open());
        QCOMPARE(w().editor().edit_row(), -1);
        QCOMPARE(w().grid().current_row(), row);
    }
    w().open_row(0);
    w().click_cell(5, GridColumn::check);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);
}

void tst_list_clicks::a_click_on_the_light_or_box_of_another_row_takes_the_editor_along_data()
{
    QTest::addColumn<GridColumn>("column");
    QTest::newRow("light") << GridColumn::light;
    QTest::newRow("box") << GridColumn::check;
}

void tst_list_clicks::a_click_on_the_light_or_box_of_another_row_takes_the_editor_along()
{
    QFETCH(GridColumn, column);
    w().rows(4);
    w().open();
    w().open_row(1);
    w().click_cell(3, column);
    QCOMPARE(w().grid().current_row(), 3);
    QCOMPARE(w().editor().edit_row(), 3);
    QVERIFY(!w().grid().rows().row(1).bold);
    QVERIFY(w().grid().rows().row(3).bold);
    w().type_into("desc_brdr", QStringLiteral("new"));
    QCOMPARE(w().text("SELECT group_concat(desc) FROM groc_1"), QStringLiteral("some,some,some,new"));
    QCOMPARE(w().grid().current_row(), 3);
}

QTEST_MAIN(tst_list_clicks)
#include "tst_list_clicks.moc"
