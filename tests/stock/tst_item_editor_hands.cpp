#include "stock/item_editor_fixture.h"

#include <QCalendarWidget>
#include <QCheckBox>

using namespace tarnwick;

namespace {

constexpr int place_item = 1;
constexpr int edit_item = 2;

} // namespace

/// The item editor by mouse and keyboard.
class tst_item_editor_hands : public QObject {
    Q_OBJECT
private slots:
    void init() { household_ = std::make_unique<EditorCase>(); }
    void cleanup() { household_.reset(); }

    void the_light_tells_the_state_in_a_tool_tip();
    void the_buy_it_box_of_another_list_puts_the_item_there_to_buy();
    void the_buy_it_box_of_a_row_taken_off_brings_it_back_to_buy();
    void the_keys_of_the_grid_tick_move_and_take_off();
    void escape_in_a_box_gives_back_its_text_and_leaves_the_dialog_open();
    void escape_in_the_grid_closes_the_open_row_first();
    void tab_goes_along_the_boxes_of_an_open_row_to_ok();
    void tab_goes_back_along_the_boxes_to_the_control_before_the_grid();
    void tab_in_the_calendar_goes_on_from_its_box();
    void one_click_into_a_text_cell_puts_the_caret_there();
    void ok_that_places_nothing_says_so();
    void ok_that_places_something_says_nothing();

private:
    EditorCase& h() { return *household_; }
    void open_window()
    {
        h().add_lists();
        h().window.load();
    }
    static QLineEdit& box(EditorHands& hands, const char* name)
    {
        return *hands.dialog.findChild<QLineEdit*>(QLatin1String(name));
    }
    static void show_columns(EditorHands& hands)
    {
        for (int i = 0; i < 2; ++i) {
            auto* column = hands.dialog.findChild<QCheckBox*>(QStringLiteral("Cmd_ShowCol(%1)").arg(i));
            QVERIFY(column);
            if (!column->isChecked())
                QTest::mouseClick(column, Qt::LeftButton);
        }
    }

    std::unique_ptr<EditorCase> household_;
};

void tst_item_editor_hands::the_light_tells_the_state_in_a_tool_tip()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        QCOMPARE(hands.label("lite").toolTip(), QStringLiteral("Unlisted item"));
        hands.click_cell(0, GridColumn::light);
        QCOMPARE(hands.label("lite").toolTip(), QStringLiteral("Inactive item"));
    });
}

void tst_item_editor_hands::the_buy_it_box_of_another_list_puts_the_item_there_to_buy()
{
    open_window();
    h().open(edit_item, h().milk, [this](EditorHands& hands) {
        hands.click_cell(1, GridColumn::check);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
        hands.press_ok();
        QCOMPARE(h().list_rows(), QStringLiteral("%1: :0: :1:0").arg(h().market));
    });
}

void tst_item_editor_hands::the_buy_it_box_of_a_row_taken_off_brings_it_back_to_buy()
{
    h().add_lists();
    h().window.add_row(h().milk, h().weekly, false, QStringLiteral("fresh"));
    h().window.load();
    h().open(edit_item, h().milk, [this](EditorHands& hands) {
        hands.click_cell(0, GridColumn::light);
        QCOMPARE(hands.state(), QStringLiteral("Unlisted item"));
        hands.click_cell(0, GridColumn::check);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
        hands.press_ok();
        QCOMPARE(h().count("SELECT count(*) FROM groc_1 WHERE to_get = 1"), 1);
        QCOMPARE(h().count("SELECT count(*) FROM groc_1"), 1);
    });
}

void tst_item_editor_hands::the_keys_of_the_grid_tick_move_and_take_off()
{
    open_window();
    h().open(edit_item, h().milk, [this](EditorHands& hands) {
        hands.grid().setFocus();
        QTest::keyClick(&hands.grid(), Qt::Key_End);
        QCOMPARE(hands.grid().current_row(), 2);
        QTest::keyClick(&hands.grid(), Qt::Key_Space);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
        QTest::keyClicks(&hands.grid(), QStringLiteral("6"));
        QVERIFY(box(hands, "qty_brdr").hasFocus());
        QTest::keyClick(&box(hands, "qty_brdr"), Qt::Key_Return);
        QVERIFY(hands.grid().hasFocus());
        QTest::keyClick(&hands.grid(), Qt::Key_Home);
        QTest::keyClick(&hands.grid(), Qt::Key_Space);
        QTest::keyClick(&hands.grid(), Qt::Key_Delete);
        QCOMPARE(hands.state(), QStringLiteral("Active on one list"));
        QTest::keyClick(&hands.grid(), Qt::Key_Return);
        QVERIFY(!hands.dialog.isVisible());
        QCOMPARE(h().list_rows(), QStringLiteral("%1: :6: :1:0").arg(h().party));
    });
}

void tst_item_editor_hands::escape_in_a_box_gives_back_its_text_and_leaves_the_dialog_open()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::desc);
        QLineEdit& desc = box(hands, "desc_brdr");
        QVERIFY(desc.hasFocus());
        QTest::keyClicks(&desc, QStringLiteral("fresh"));
        QCOMPARE(hands.row(0).desc, QStringLiteral("fresh"));
        QTest::keyClick(&desc, Qt::Key_Escape);
        QVERIFY(hands.dialog.isVisible());
        QVERIFY(trim(hands.row(0).desc).isEmpty());
        QVERIFY(hands.grid().hasFocus());
    });
}

void tst_item_editor_hands::escape_in_the_grid_closes_the_open_row_first()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::item);
        QVERIFY(box(hands, "desc_brdr").isVisible());
        QVERIFY(hands.grid().hasFocus());
        QTest::keyClick(&hands.grid(), Qt::Key_Escape);
        QVERIFY(hands.dialog.isVisible());
        QVERIFY(!box(hands, "desc_brdr").isVisible());
        QVERIFY(hands.grid().hasFocus());
        QTest::keyClick(&hands.grid(), Qt::Key_Escape);
        QVERIFY(!hands.dialog.isVisible());
    });
}

void tst_item_editor_hands::tab_goes_along_the_boxes_of_an_open_row_to_ok()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        show_columns(hands);
        hands.click_cell(0, GridColumn::check);
        QTest::keyClick(&hands.grid(), Qt::Key_F2);
        QStringList went{QApplication::focusWidget()->objectName()};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            went << QApplication::focusWidget()->objectName();
            if (went.back() == QLatin1String("qty_brdr"))
                QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
        }
        QCOMPARE(went.join(u' '), QStringLiteral("desc_brdr qty_brdr dp_brdr aisle_brdr Command1(0)"));
        QVERIFY(!box(hands, "desc_brdr").isVisible());
        QCOMPARE(hands.row(0).qty, QStringLiteral("3"));
        QCOMPARE(hands.name().text(), QStringLiteral("Milk"));
    });
}

void tst_item_editor_hands::tab_goes_back_along_the_boxes_to_the_control_before_the_grid()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        show_columns(hands);
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::aisle);
        QStringList went{QApplication::focusWidget()->objectName()};
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            went << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(went.join(u' '), QStringLiteral("aisle_brdr dp_brdr qty_brdr desc_brdr CmdNewCat"));
        QVERIFY(!box(hands, "desc_brdr").isVisible());
    });
}

void tst_item_editor_hands::tab_in_the_calendar_goes_on_from_its_box()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        show_columns(hands);
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::coupon);
        box(hands, "dp_brdr").setFocus();
        QTest::keyClick(&box(hands, "dp_brdr"), Qt::Key_Down);
        auto* calendar = hands.dialog.findChild<QCalendarWidget*>(QStringLiteral("MonthView1"));
        QVERIFY(calendar->isVisible());
        QVERIFY(calendar->isAncestorOf(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(!calendar->isVisible());
        QVERIFY(box(hands, "aisle_brdr").hasFocus());
    });
}

void tst_item_editor_hands::one_click_into_a_text_cell_puts_the_caret_there()
{
    open_window();
    h().open(edit_item, h().milk, [](EditorHands& hands) {
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::qty);
        QVERIFY(box(hands, "qty_brdr").hasFocus());
        QTest::keyClicks(&box(hands, "qty_brdr"), QStringLiteral("12"));
        QCOMPARE(hands.row(0).qty, QStringLiteral("12"));
        hands.click_cell(1, GridColumn::item);
        QVERIFY(hands.grid().hasFocus());
    });
}

void tst_item_editor_hands::ok_that_places_nothing_says_so()
{
    open_window();
    h().marked_list = Key(0);
    h().open(place_item, h().milk, [this](EditorHands& hands) {
        hands.messages.expect(QStringLiteral("Add to list"), QStringLiteral("Milk was not added to any list"));
        hands.press_ok();
        QCOMPARE(hands.messages.left(), 0);
        QVERIFY(!hands.dialog.isVisible());
        QCOMPARE(h().count("SELECT count(*) FROM groc_1"), 0);
    });
}

void tst_item_editor_hands::ok_that_places_something_says_nothing()
{
    open_window();
    h().marked_list = h().market;
    h().open(place_item, h().milk, [this](EditorHands& hands) {
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
        QCOMPARE(h().count("SELECT count(*) FROM groc_1"), 1);
    });
}

QTEST_MAIN(tst_item_editor_hands)
#include "tst_item_editor_hands.moc"
