#include "stock/item_editor_fixture.h"

#include "household/status.h"
#include "support/contrast.h"

#include <QCalendarWidget>
#include <QSpinBox>
#include <QToolButton>
#include <QWindow>

using namespace tarnwick;

namespace {

/// The boxes over a row of the dialog's grid.
class RowHands : public EditorHands {
public:
    explicit RowHands(const EditorHands& hands)
        : EditorHands(hands)
    {
    }

    QWidget& widget(const char* name) { return *dialog.findChild<QWidget*>(QLatin1String(name)); }
    bool shown(const char* name) { return widget(name).isVisible(); }
    QCalendarWidget& calendar() { return *dialog.findChild<QCalendarWidget*>(QStringLiteral("MonthView1")); }

    QPoint middle_of(int row, GridColumn column)
    {
        return {grid().col_left(column) + grid().col_width(column) / 2,
                row * grid().row_height() + grid().row_height() / 2};
    }
    void press_at(QPoint position) { QTest::mousePress(grid().viewport(), Qt::LeftButton, {}, position); }
    void release_at(QPoint position) { QTest::mouseRelease(grid().viewport(), Qt::LeftButton, {}, position); }

    /// The rectangle of a control or of a cell in the dialog.
    QRect in_dialog(const char* name) { return {widget(name).mapTo(&dialog, QPoint()), widget(name).size()}; }
    QRect cell_in_dialog(int row, GridColumn column)
    {
        const QRect cell = grid().cell_rect(row, column);
        return cell.translated(grid().parentWidget()->mapTo(&dialog, QPoint()));
    }

    /// The row under the open boxes; -1 while they are closed.
    int open_row()
    {
        if (!shown("desc_brdr"))
            return -1;
        for (int i = 0; i < grid().rows().rows(); ++i)
            if (in_dialog("desc_brdr").top() == cell_in_dialog(i, GridColumn::desc).top())
                return i;
        return -2;
    }

    void open_calendar(int row)
    {
        click_cell(row, GridColumn::desc);
        QVERIFY(shown("dtp_btn"));
        QTest::mouseClick(&widget("dtp_btn"), Qt::LeftButton);
        QVERIFY(shown("MonthView1"));
    }
};

} // namespace

/// Mouse and keys in the grid of the dialog and in the boxes over its rows.
class tst_item_editor_grid : public QObject {
    Q_OBJECT
private slots:
    void a_press_below_the_rows_that_ends_on_one_acts_on_none();
    void a_press_that_slips_to_another_cell_acts_on_its_own_data();
    void a_press_that_slips_to_another_cell_acts_on_its_own();
    void a_click_below_the_last_row_closes_the_boxes_whichever_row_is_current();
    void up_and_down_move_the_boxes_and_right_enters_them();
    void no_caption_touches_its_box_data() { boxes_cover_their_cells_data(); }
    void no_caption_touches_its_box();
    void boxes_cover_their_cells_data();
    void boxes_cover_their_cells();
    void escape_in_the_calendar_leaves_the_dialog_open();
    void enter_in_the_year_of_the_calendar_does_not_press_ok();

private:
    /// Opens the dialog on the milk, which stands on the first two of three lists.
    static void open(EditorCase& test, const std::function<void(RowHands&)>& work);
};

void tst_item_editor_grid::open(EditorCase& test, const std::function<void(RowHands&)>& work)
{
    test.add_lists();
    for (const Key list : {test.weekly, test.market})
        test.window.add_row(test.milk, list, true, QStringLiteral("cold"), QStringLiteral("2"),
                            QStringLiteral("9"));
    test.window.load();
    test.open(int(EditMode::edit_item), test.milk, [&](EditorHands& hands) {
        RowHands row_hands(hands);
        QCOMPARE(row_hands.grid().rows().rows(), 3);
        work(row_hands);
    });
}

void tst_item_editor_grid::a_press_below_the_rows_that_ends_on_one_acts_on_none()
{
    EditorCase test;
    open(test, [](RowHands& hands) {
        for (const GridColumn column :
             {GridColumn::light, GridColumn::check, GridColumn::coupon, GridColumn::desc}) {
            hands.grid().set_current(1, column);
            hands.press_at(hands.middle_of(5, column));
            hands.release_at(hands.middle_of(1, column));
            QCOMPARE(hands.open_row(), -1);
        }
        QCOMPARE(hands.row(1).light, picture_base::light_on);
        QCOMPARE(hands.row(1).coupon, picture_base::coupon_off);
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:cold:2:9:1:0 / 2:cold:2:9:1:0"));
}

void tst_item_editor_grid::a_press_that_slips_to_another_cell_acts_on_its_own_data()
{
    QTest::addColumn<GridColumn>("pressed");
    QTest::addColumn<int>("released_row");
    QTest::addColumn<GridColumn>("released");
    QTest::newRow("from the description to the on-list box") << GridColumn::desc << 0 << GridColumn::light;
    QTest::newRow("from the buy-it box to the on-list box") << GridColumn::check << 0 << GridColumn::light;
    QTest::newRow("from the buy-it box to that of the next row") << GridColumn::check << 1 << GridColumn::check;
    QTest::newRow("from the coupon to the description of the next row")
        << GridColumn::coupon << 1 << GridColumn::desc;
}

void tst_item_editor_grid::a_press_that_slips_to_another_cell_acts_on_its_own()
{
    QFETCH(GridColumn, pressed);
    QFETCH(int, released_row);
    QFETCH(GridColumn, released);
    EditorCase test;
    open(test, [&](RowHands& hands) {
        hands.press_at(hands.middle_of(0, pressed));
        hands.release_at(hands.middle_of(released_row, released));
        const bool ticked = pressed != GridColumn::check;
        const bool coupon = pressed == GridColumn::coupon;
        QCOMPARE(hands.row(0).check, ticked ? picture_base::check_on : picture_base::check_off);
        QCOMPARE(hands.row(0).light, ticked ? picture_base::light_on : picture_base::light_off);
        QCOMPARE(hands.row(0).coupon, coupon ? picture_base::coupon_on : picture_base::coupon_off);
        QCOMPARE(hands.open_row(), pressed == GridColumn::check ? -1 : 0);
        QCOMPARE(hands.row(1).light, picture_base::light_on);
        QCOMPARE(hands.row(1).check, picture_base::check_on);
    });
}

void tst_item_editor_grid::a_click_below_the_last_row_closes_the_boxes_whichever_row_is_current()
{
    EditorCase test;
    open(test, [](RowHands& hands) {
        for (const int row : {2, 0}) {
            hands.click_cell(row, GridColumn::desc);
            QCOMPARE(hands.open_row(), row);
            hands.click_cell(6, GridColumn::desc);
            QCOMPARE(hands.open_row(), -1);
            QCOMPARE(hands.grid().current_row(), row);
        }
    });
}

void tst_item_editor_grid::up_and_down_move_the_boxes_and_right_enters_them()
{
    EditorCase test;
    open(test, [](RowHands& hands) {
        hands.click_cell(0, GridColumn::item);
        QCOMPARE(hands.open_row(), 0);
        QWindow* window = hands.dialog.windowHandle();
        QTest::keyClick(window, Qt::Key_Up);
        QCOMPARE(hands.open_row(), 0);
        QTest::keyClick(window, Qt::Key_Down);
        QCOMPARE(hands.open_row(), 1);
        QTest::keyClick(window, Qt::Key_Down);
        QTest::keyClick(window, Qt::Key_Down);
        QCOMPARE(hands.open_row(), 2);
        QTest::keyClick(window, Qt::Key_Up);
        QCOMPARE(hands.open_row(), 1);
        QTest::keyClick(window, Qt::Key_Right);
        QVERIFY(hands.widget("desc_brdr").hasFocus());
        QTest::keyClicks(&hands.widget("desc_brdr"), QStringLiteral("ice "));
        QTest::keyClick(window, Qt::Key_End);
        QTest::keyClick(window, Qt::Key_Right);
        QVERIFY(hands.widget("qty_brdr").hasFocus());
        QTest::keyClick(window, Qt::Key_Return);
        QCOMPARE(hands.open_row(), -1);
        QVERIFY(hands.dialog.isVisible());
        hands.press_ok();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:cold:2:9:1:0 / 2:ice cold:2:9:1:0"));
}

void tst_item_editor_grid::boxes_cover_their_cells_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {9, 10, 12})
        QTest::addRow("%d points", size) << size;
}

void tst_item_editor_grid::boxes_cover_their_cells()
{
    QFETCH(int, size);
    EditorCase test;
    test.window.set_pref(QStringLiteral("font"), QString::number(size));
    open(test, [&](RowHands& hands) {
        QCOMPARE(hands.grid().row_height(), size == 9 ? 19 : size == 10 ? 24 : 28);
        hands.click_cell(1, GridColumn::coupon);
        const std::pair<const char*, GridColumn> boxes[]
            = {{"desc_brdr", GridColumn::desc}, {"qty_brdr", GridColumn::qty}, {"chck_box", GridColumn::coupon},
               {"dp_frame", GridColumn::date},  {"dp_brdr", GridColumn::date}, {"aisle_brdr", GridColumn::aisle}};
        const QRect grid(hands.grid().mapTo(&hands.dialog, QPoint()), hands.grid().size());
        for (const auto& [name, column] : boxes) {
            QVERIFY2(hands.shown(name), name);
            const QRect cell = hands.cell_in_dialog(1, column) & grid;
            const QRect box = hands.in_dialog(name);
            QCOMPARE(box.top(), cell.top());
            QCOMPARE(box.height(), cell.height());
            QVERIFY2(qAbs(box.left() - cell.left()) <= 1 && qAbs(box.right() - cell.right()) <= 1, name);
        }
        QVERIFY(hands.in_dialog("qty_brdr").contains(hands.in_dialog("qty_btn(0)")));
        QVERIFY(hands.in_dialog("aisle_brdr").contains(hands.in_dialog("aisle_btn(1)")));
        QVERIFY(hands.in_dialog("dp_frame").contains(hands.in_dialog("dtp_btn")));
        QVERIFY(!hands.shown("frmEditDel"));
    });
}

void tst_item_editor_grid::no_caption_touches_its_box()
{
    QFETCH(int, size);
    EditorCase test;
    test.window.set_pref(QStringLiteral("font"), QString::number(size));
    open(test, [](RowHands& hands) {
        const QRect cell = hands.in_dialog("listheader(3)");
        const QImage image = hands.dialog.grab(cell).toImage();
        const QColor ground = hands.widget("listheader(3)").palette().color(QPalette::Button);
        const int tick_begins = hands.in_dialog("Cmd_ShowCol(1)").right() - 13 - cell.x();
        for (const int x : {tick_begins - 2, tick_begins - 1})
            QVERIFY(best_contrast(image, QRect(x, 2, 1, image.height() - 6), ground) < 1.2);
        QVERIFY(best_contrast(image, QRect(2, 2, tick_begins - 4, image.height() - 6), ground) >= 4.5);
    });
}

void tst_item_editor_grid::escape_in_the_calendar_leaves_the_dialog_open()
{
    EditorCase test;
    open(test, [](RowHands& hands) {
        hands.click_cell(0, GridColumn::coupon);
        hands.open_calendar(0);
        QTest::keyClick(hands.dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(!hands.shown("MonthView1"));
        QVERIFY(hands.dialog.isVisible());
        QCOMPARE(hands.open_row(), 0);
        QTest::keyClick(hands.dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(hands.dialog.isVisible());
        QCOMPARE(hands.open_row(), -1);
        QTest::keyClick(hands.dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:cold:2:9:1:0 / 2:cold:2:9:1:0"));
}

void tst_item_editor_grid::enter_in_the_year_of_the_calendar_does_not_press_ok()
{
    EditorCase test;
    open(test, [](RowHands& hands) {
        hands.click_cell(0, GridColumn::check);
        hands.click_cell(0, GridColumn::coupon);
        for (const auto enter : {Qt::Key_Return, Qt::Key_Enter}) {
            hands.open_calendar(0);
            QTest::mouseClick(hands.calendar().findChild<QToolButton*>(QStringLiteral("qt_calendar_yearbutton")),
                              Qt::LeftButton);
            auto* year = hands.calendar().findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit"));
            QVERIFY(year && year->hasFocus());
            QTest::keyClick(hands.dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(year, QStringLiteral("2031"));
            QTest::keyClick(hands.dialog.windowHandle(), enter);
            QVERIFY(hands.dialog.isVisible());
            QCOMPARE(hands.calendar().yearShown(), 2031);
            QVERIFY(hands.shown("MonthView1"));
            QCOMPARE(hands.open_row(), 0);
            QVERIFY(hands.calendar().isAncestorOf(QApplication::focusWidget()));
            QTest::keyClick(hands.dialog.windowHandle(), Qt::Key_Escape);
        }
        hands.press_cancel();
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1:cold:2:9:1:0 / 2:cold:2:9:1:0"));
}

QTEST_MAIN(tst_item_editor_grid)
#include "tst_item_editor_grid.moc"
