#include "lists/editing_window.h"
#include "support/message_script.h"

#include <QAbstractItemView>
#include <QDialog>
#include <QWindow>

using namespace tarnwick;

/// Both clicks go through the window, so that each lands on what lies under the pointer by then.
class tst_double_click : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void on_the_end_of_a_name_opens_the_row_and_leaves_it_there_data();
    void on_the_end_of_a_name_opens_the_row_and_leaves_it_there();
    void on_a_coupon_switches_it_once();
    void on_a_quantity_steps_nothing();
    void on_a_date_chooses_it_and_touches_no_row_beneath();
    void on_the_buy_it_box_flips_the_mark_twice();
    void on_a_stepper_steps_twice();
    void on_the_check_box_of_the_coupon_switches_it_twice();
    void on_a_row_that_the_first_click_scrolled_away_touches_no_other();
    void on_a_description_marks_the_word();
    void a_click_after_a_lost_one_counts();

private:
    EditingWindow& w() { return *window_; }

    void double_click(const QWidget& on, QPoint position)
    {
        QTest::mouseDClick(w().main().windowHandle(), Qt::LeftButton, {}, on.mapTo(&w().main(), position));
    }
    void double_click_cell(int row, GridColumn column, QPoint from_middle = {})
    {
        double_click(*w().grid().viewport(), w().middle_of(row, column) + from_middle);
    }
    QString table()
    {
        return w().text("SELECT group_concat(key_id || desc || qty || aisle || to_get || cpn || created)"
                        " FROM (SELECT * FROM groc_1 ORDER BY key_id)");
    }

    std::unique_ptr<EditingWindow> window_;
};

void tst_double_click::on_the_end_of_a_name_opens_the_row_and_leaves_it_there_data()
{
    QTest::addColumn<int>("from_end");
    QTest::newRow("where the cross comes up") << 8;
    QTest::newRow("where the pencil comes up") << 26;
    QTest::newRow("where the frame begins") << 40;
}

void tst_double_click::on_the_end_of_a_name_opens_the_row_and_leaves_it_there()
{
    QFETCH(int, from_end);
    w().rows(3);
    w().open();
    const QString before = table();
    MessageScript no_dialog;
    const QRect name = w().grid().cell_rect(1, GridColumn::item);
    // The second round comes after a use of the button itself.
    for (int round = 0; round < 2; ++round) {
        double_click_cell(1, GridColumn::item, QPoint(name.right() - from_end - name.center().x(), 0));
        QCOMPARE(table(), before);
        QCOMPARE(w().grid().rows().rows(), 3);
        QVERIFY(w().editor().is_open());
        QCOMPARE(w().editor().edit_row(), 1);
        QTest::mousePress(w().main().windowHandle(), Qt::LeftButton, {},
                          w().widget("imgScratch").mapTo(&w().main(), QPoint(5, 5)));
        QTest::mouseRelease(w().main().windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
        w().editor().lv_edit_off();
    }
}

void tst_double_click::on_a_coupon_switches_it_once()
{
    w().rows(3);
    w().open();
    double_click_cell(1, GridColumn::coupon);
    QCOMPARE(w().field(2, "cpn"), QStringLiteral("[1]"));
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));
}

void tst_double_click::on_a_quantity_steps_nothing()
{
    w().rows(3);
    w().open();
    const QString before = table();
    const QRect cell = w().grid().cell_rect(1, GridColumn::qty);
    double_click_cell(1, GridColumn::qty, QPoint(cell.right() - 3 - cell.center().x(), -5));
    QVERIFY(w().in_form("qty_btn(0)").contains(cell.right() - 3, cell.center().y() - 5));
    QCOMPARE(table(), before);
    QVERIFY(w().editor().is_open());
}

void tst_double_click::on_a_date_chooses_it_and_touches_no_row_beneath()
{
    w().rows(20);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(0);
    w().press("dtp_btn");
    auto* days = w().calendar().findChild<QAbstractItemView*>(QStringLiteral("qt_calendar_calendarview"));
    QVERIFY(days);
    QPoint day;
    for (int column = 0; column < 7 && day.isNull(); ++column) {
        const QPoint place = days->visualRect(days->model()->index(4, column)).center();
        const QPoint beneath = days->viewport()->mapTo(&w().main(), place);
        if (w().grid().viewport()->rect().contains(w().grid().viewport()->mapFrom(&w().main(), beneath)))
            day = place;
    }
    QVERIFY(!day.isNull());
    const QString others = w().text("SELECT group_concat(cpn || to_get || desc) FROM groc_1 WHERE key_id > 1");
    double_click(*days->viewport(), day);
    QVERIFY(!w().shown("MonthView1"));
    QCOMPARE(w().field(1, "created"), u'[' + w().calendar().selectedDate().toString(Qt::ISODate) + u']');
    QVERIFY(w().field(1, "created") != QStringLiteral("[2027-01-05]"));
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), 0);
    QCOMPARE(w().grid().current_row(), 0);
    QCOMPARE(w().text("SELECT group_concat(cpn || to_get || desc) FROM groc_1 WHERE key_id > 1"), others);
}

void tst_double_click::on_the_buy_it_box_flips_the_mark_twice()
{
    w().rows(3);
    w().open();
    int changes = 0;
    connect(&w().grid().rows(), &QAbstractItemModel::dataChanged, this, [this, &changes, was = true]() mutable {
        const bool now = w().grid().rows().row(1).to_get;
        changes += now != was ? 1 : 0;
        was = now;
    });
    double_click_cell(1, GridColumn::check);
    QCOMPARE(changes, 2);
    QVERIFY(w().grid().rows().row(1).to_get);
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);
}

void tst_double_click::on_a_stepper_steps_twice()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    double_click(w().widget("qty_btn(0)"), QPoint(4, 4));
    QCOMPARE(w().field(2, "qty"), QStringLiteral("[4]"));
    double_click(w().widget("qty_btn(0)"), QPoint(4, 4));
    QCOMPARE(w().field(2, "qty"), QStringLiteral("[6]"));
}

void tst_double_click::on_the_check_box_of_the_coupon_switches_it_twice()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    double_click(w().widget("chck_box"), w().widget("chck_box").rect().center());
    QCOMPARE(w().field(2, "cpn"), QStringLiteral("[0]"));
    QCOMPARE(w().field(2, "created"), QStringLiteral("[2026-03-14]"));
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("OFF"));
}

void tst_double_click::on_a_row_that_the_first_click_scrolled_away_touches_no_other()
{
    w().rows(80);
    w().open();
    ListGrid& grid = w().grid();
    for (int height = 700; height > 680 && grid.viewport()->height() % grid.row_height() < 8; --height)
        w().main().resize(1000, height);
    const int row = grid.rows_in_view();
    QVERIFY(!grid.row_is_visible(row));
    const QPoint sliver(w().middle_of(row, GridColumn::coupon).x(), grid.viewport()->height() - 3);
    QCOMPARE(grid.row_at(sliver.y()), row);
    const Key key = grid.rows().row(row).groc_key;
    double_click(*grid.viewport(), sliver);
    QVERIFY(grid.row_is_visible(row));
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE cpn <> 0"), 1);
    QCOMPARE(w().field(key, "cpn"), QStringLiteral("[1]"));
    QCOMPARE(w().editor().edit_row(), row);
}

void tst_double_click::on_a_description_marks_the_word()
{
    w().rows(3);
    w().open();
    const QRect cell = w().grid().cell_rect(1, GridColumn::desc);
    double_click_cell(1, GridColumn::desc, QPoint(cell.left() + 12 - cell.center().x(), 0));
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().box("desc_brdr").selectedText(), QStringLiteral("some"));
}

void tst_double_click::a_click_after_a_lost_one_counts()
{
    w().rows(3);
    w().open();
    MessageScript no_dialog;
    const QRect name = w().grid().cell_rect(1, GridColumn::item);
    const QPoint end(name.right() - 8 - name.center().x(), 0);
    double_click_cell(1, GridColumn::item, end);
    QTest::mouseClick(w().main().windowHandle(), Qt::LeftButton, {},
                      w().grid().viewport()->mapTo(&w().main(), w().middle_of(1, GridColumn::item) + end));
    QCOMPARE(w().grid().rows().rows(), 2);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE key_id = 2"), 0);
    QTest::mouseClick(w().main().windowHandle(), Qt::LeftButton, {},
                      w().grid().viewport()->mapTo(&w().main(), w().middle_of(0, GridColumn::check)));
    QVERIFY(!w().grid().rows().row(0).to_get);
}

QTEST_MAIN(tst_double_click)
#include "tst_double_click.moc"
