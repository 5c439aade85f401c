#include "lists/editing_window.h"
#include "stock/item_editor_fixture.h"

#include <QDialog>
#include <QSpinBox>
#include <QToolButton>
#include <QWindow>

using namespace tarnwick;

/// The row editor while the item editor is open over it, and after; and the calendar's own boxes.
class tst_row_editor_dialog : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void after_ok_the_boxes_stay_on_their_row_data();
    void after_ok_the_boxes_stay_on_their_row();
    void after_a_placing_on_the_same_list_the_boxes_follow_their_row();
    void after_ok_the_boxes_show_what_the_dialog_wrote();
    void when_the_dialog_takes_the_row_away_the_grid_takes_the_keys();
    void when_the_dialog_turns_the_coupon_off_the_grid_takes_the_keys_of_the_calendar();
    void enter_in_the_year_of_the_calendar_turns_to_it_and_closes_nothing();

private:
    EditingWindow& w() { return *window_; }

    /// Presses the pencil and works in the item editor, which the work closes.
    void edit(const std::function<void(EditorHands&)>& work)
    {
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            dialog.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &dialog);
            EditorHands hands(dialog, script);
            work(hands);
            if (dialog.isVisible())
                dialog.reject();
        });
        w().press("imgedit");
        w().main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w().main()));
    }

    std::unique_ptr<EditingWindow> window_;
};

void tst_row_editor_dialog::after_ok_the_boxes_stay_on_their_row_data()
{
    QTest::addColumn<GridColumn>("column");
    QTest::newRow("after a click on another light") << GridColumn::light;
    QTest::newRow("after a click on another buy-it box") << GridColumn::check;
}

void tst_row_editor_dialog::after_ok_the_boxes_stay_on_their_row()
{
    QFETCH(GridColumn, column);
    w().rows(4);
    w().open();
    w().open_row(1);
    w().click_cell(3, column);
    QCOMPARE(w().grid().current_row(), 3);
    QCOMPARE(w().editor().edit_row(), 3); // the boxes go along
    edit([](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("fresh"));
        hands.press_ok();
    });
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), 3);
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral("fresh"));
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    w().type_into("qty_brdr", QStringLiteral("9"));
    QCOMPARE(w().text("SELECT group_concat(desc || qty) FROM groc_1"), QStringLiteral("some2,some2,some2,fresh9"));
}

void tst_row_editor_dialog::after_a_placing_on_the_same_list_the_boxes_follow_their_row()
{
    const Key market = w().add_list(QStringLiteral("Market"));
    w().rows(3);
    w().set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w().open();
    QVERIFY(w().main().shared.all_lists_view);
    w().open_row(2);
    w().click_cell(0, GridColumn::check);
    edit([&](EditorHands& hands) {
        int row = 0;
        while (hands.row(row).list_key != market)
            ++row;
        hands.click_cell(row, GridColumn::light);
        hands.press_ok();
    });
    QCOMPARE(w().grid().rows().rows(), 4);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().grid().rows().row(w().editor().edit_row()).groc_key, Key(1));
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
}

void tst_row_editor_dialog::after_ok_the_boxes_show_what_the_dialog_wrote()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    edit([](EditorHands& hands) {
        hands.type_name(QStringLiteral("Item 001b"));
        hands.type_cell(0, "desc_brdr", QStringLiteral("changed there"));
        hands.type_cell(0, "qty_brdr", QStringLiteral("7"));
        hands.click_cell(0, GridColumn::coupon);
        hands.press_ok();
    });
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), 1);
    QCOMPARE(w().cell(1, GridColumn::item), QStringLiteral("Item 001b"));
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral("changed there"));
    QCOMPARE(w().box("qty_brdr").text(), QStringLiteral("7"));
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("3/14/26"));
    QVERIFY(w().shown("dtp_btn"));
    QVERIFY(w().widget("imgedit").toolTip().contains(QStringLiteral("'Item 001b'")));
    QCOMPARE(w().field(2, "desc"), QStringLiteral("[changed there]"));
    QCOMPARE(w().field(2, "cpn"), QStringLiteral("[1]"));
}

void tst_row_editor_dialog::when_the_dialog_takes_the_row_away_the_grid_takes_the_keys()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
    QVERIFY(w().box("desc_brdr").hasFocus());
    edit([](EditorHands& hands) {
        hands.click_cell(0, GridColumn::light);
        hands.press_ok();
    });
    QCOMPARE(w().grid().rows().rows(), 3);
    QVERIFY(!w().editor().is_open());
    QVERIFY(w().grid().hasFocus());
    const int row = w().grid().current_row();
    QTest::keyClick(w().main().windowHandle(), Qt::Key_Down);
    QCOMPARE(w().grid().current_row(), row + 1);
    QCOMPARE(w().editor().edit_row(), row + 1);
}

void tst_row_editor_dialog::when_the_dialog_turns_the_coupon_off_the_grid_takes_the_keys_of_the_calendar()
{
    w().rows(3);
    w().coupon(2, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(1);
    w().press("dtp_btn");
    QVERIFY(w().calendar().isAncestorOf(QApplication::focusWidget()));
    edit([](EditorHands& hands) {
        hands.click_cell(0, GridColumn::coupon);
        hands.press_ok();
    });
    QCOMPARE(w().field(2, "cpn"), QStringLiteral("[0]"));
    QVERIFY(!w().shown("MonthView1"));
    QVERIFY(w().grid().hasFocus());
    QTest::keyClick(w().main().windowHandle(), Qt::Key_Down);
    QCOMPARE(w().editor().edit_row(), 2);
}

void tst_row_editor_dialog::enter_in_the_year_of_the_calendar_turns_to_it_and_closes_nothing()
{
    w().rows(3);
    w().coupon(2, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(1);
    for (const auto enter : {Qt::Key_Return, Qt::Key_Enter}) {
        w().press("dtp_btn");
        auto* year_button = w().calendar().findChild<QToolButton*>(QStringLiteral("qt_calendar_yearbutton"));
        QTest::mouseClick(year_button, Qt::LeftButton);
        auto* year = w().calendar().findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit"));
        QVERIFY(year && year->isVisible());
        QVERIFY(year->hasFocus());
        QTest::keyClick(w().main().windowHandle(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2031"));
        QTest::keyClick(w().main().windowHandle(), enter);
        QCOMPARE(w().calendar().yearShown(), 2031);
        QVERIFY(w().shown("MonthView1"));
        QVERIFY(w().editor().is_open());
        QCOMPARE(w().editor().edit_row(), 1);
        QVERIFY(w().calendar().isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(w().field(2, "created"), QStringLiteral("[2027-01-05]"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!w().shown("MonthView1"));
    }
}

QTEST_MAIN(tst_row_editor_dialog)
#include "tst_row_editor_dialog.moc"
