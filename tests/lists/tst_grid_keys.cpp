#include "lists/editing_window.h"
#include "support/tool_button.h"
#include "widgets/tree_view.h"
#include "window/commands.h"
#include "window/view_state.h"

#include <QMenu>

using namespace tarnwick;

namespace {

class KeysWindow : public EditingWindow {
public:
    /// What closes an open row without the user's wish.
    void interrupt(const QString& change)
    {
        if (change == QLatin1String("scroll"))
            grid().set_top_row(5);
        else if (change == QLatin1String("size"))
            main().view_state().set_type_size(12);
        else if (change == QLatin1String("toolbar"))
            QTest::mouseClick(main().findChild<QAbstractButton*>(tool_button(ToolButton::size)), Qt::LeftButton, {},
                              QPoint(4, 4));
        else
            main().resize(main().width() + 60, main().height() - 40);
        QCoreApplication::processEvents();
    }
};

} // namespace

/// What the keys do in the main window's grid and in the boxes of an open row.
class tst_grid_keys : public QObject {
    Q_OBJECT
private slots:
    void space_ticks_the_current_row_once();
    void enter_and_f2_go_into_the_description_data();
    void enter_and_f2_go_into_the_description();
    void a_letter_starts_the_description_and_a_digit_the_quantity();
    void a_command_key_types_nothing();
    void home_end_and_page_keys_move_the_current_row();
    void the_menu_key_opens_the_pop_up_of_the_row();
    void escape_gives_back_what_the_box_had_and_closes_data();
    void escape_gives_back_what_the_box_had_and_closes();
    void escape_leaves_the_other_boxes_as_they_were_left();
    void space_in_the_date_box_switches_the_coupon();
    void down_in_the_date_box_opens_the_calendar();
    void without_a_coupon_no_calendar_opens();
    void escape_in_the_date_box_gives_coupon_and_date_back_data();
    void escape_in_the_date_box_gives_coupon_and_date_back();
    void one_click_into_a_text_cell_puts_the_caret_there_data();
    void one_click_into_a_text_cell_puts_the_caret_there();
    void a_click_on_a_name_leaves_the_keyboard_in_the_grid();
    void escape_in_the_grid_closes_the_open_row();
    void a_text_goes_on_where_the_window_closed_its_box_data();
    void a_text_goes_on_where_the_window_closed_its_box();
    void keys_of_a_text_go_on_in_it_as_well_data();
    void keys_of_a_text_go_on_in_it_as_well();
    void what_follows_an_interrupted_edit_forgets_it_data();
    void what_follows_an_interrupted_edit_forgets_it();
    void keys_on_a_list_without_rows_do_nothing();
};

void tst_grid_keys::space_ticks_the_current_row_once()
{
    EditingWindow w;
    w.row(QStringLiteral("Butter"));
    const Key cream = w.row(QStringLiteral("Cream"));
    w.open();
    w.grid().setFocus();
    QTest::keyClick(&w.grid(), Qt::Key_Down);
    QTest::keyPress(&w.grid(), Qt::Key_Space);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(&w.grid(), &repeat);
    QCOMPARE(w.field(cream, "to_get"), QStringLiteral("[0]"));
    QTest::keyClick(&w.grid(), Qt::Key_Space);
    QCOMPARE(w.field(cream, "to_get"), QStringLiteral("[1]"));
    QCOMPARE(w.number("SELECT count(*) FROM groc_1 WHERE to_get = 1"), 2);
    QVERIFY(w.grid().hasFocus());
}

void tst_grid_keys::enter_and_f2_go_into_the_description_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("open");
    QTest::newRow("Enter") << Qt::Key_Return << false;
    QTest::newRow("Enter, keypad") << Qt::Key_Enter << false;
    QTest::newRow("F2") << Qt::Key_F2 << false;
    QTest::newRow("Enter, open row") << Qt::Key_Return << true;
    QTest::newRow("F2, open row") << Qt::Key_F2 << true;
}

void tst_grid_keys::enter_and_f2_go_into_the_description()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, open);
    EditingWindow w;
    w.row(QStringLiteral("Butter"), QStringLiteral("salted"));
    w.open();
    if (open)
        w.open_row(0);
    w.grid().setFocus();
    QTest::keyClick(&w.grid(), key);
    QVERIFY(w.box("desc_brdr").hasFocus());
    QCOMPARE(w.box("desc_brdr").cursorPosition(), 6);
    QTest::keyClick(&w.box("desc_brdr"), Qt::Key_Return);
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
}

void tst_grid_keys::a_letter_starts_the_description_and_a_digit_the_quantity()
{
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"), QStringLiteral("salted"), QStringLiteral("2 lb"));
    w.open();
    w.grid().setFocus();
    QTest::keyClicks(&w.grid(), QStringLiteral("f"));
    QVERIFY(w.box("desc_brdr").hasFocus());
    QTest::keyClicks(&w.box("desc_brdr"), QStringLiteral("resh"));
    QCOMPARE(w.field(butter, "desc"), QStringLiteral("[fresh]"));
    QTest::keyClick(&w.box("desc_brdr"), Qt::Key_Return);
    QTest::keyClicks(&w.grid(), QStringLiteral("3"));
    QVERIFY(w.box("qty_brdr").hasFocus());
    QTest::keyClicks(&w.box("qty_brdr"), QStringLiteral("0"));
    QCOMPARE(w.field(butter, "qty"), QStringLiteral("[30]"));
    QCOMPARE(w.field(butter, "desc"), QStringLiteral("[fresh]"));
}

void tst_grid_keys::a_command_key_types_nothing()
{
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"), QStringLiteral("salted"));
    w.open();
    w.grid().setFocus();
    for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        QTest::keyClick(&w.grid(), Qt::Key_B, held);
    QTest::keyClick(&w.grid(), Qt::Key_Shift);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.field(butter, "desc"), QStringLiteral("[salted]"));
}

void tst_grid_keys::home_end_and_page_keys_move_the_current_row()
{
    EditingWindow w;
    w.rows(100);
    w.open();
    w.grid().setFocus();
    const auto expect = [&w](Qt::Key key, int row) {
        QTest::keyClick(&w.grid(), key);
        QCOMPARE(w.grid().current_row(), row);
        QVERIFY(w.grid().row_is_visible(row));
        QCOMPARE(w.editor().edit_row(), row);
        QVERIFY(w.grid().hasFocus());
    };
    const int page = w.grid().rows_in_view() - 1;
    QVERIFY(page > 3);
    expect(Qt::Key_End, 99);
    expect(Qt::Key_PageUp, 99 - page);
    expect(Qt::Key_Home, 0);
    expect(Qt::Key_PageDown, page);
    expect(Qt::Key_PageDown, 2 * page);
    expect(Qt::Key_End, 99);
    expect(Qt::Key_PageDown, 99);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 100);
}

void tst_grid_keys::the_menu_key_opens_the_pop_up_of_the_row()
{
    EditingWindow w;
    w.rows(60);
    w.open();
    w.grid().setFocus();
    QTest::keyClick(&w.grid(), Qt::Key_Down);
    w.grid().set_top_row(20);
    QTest::keyClick(&w.grid(), Qt::Key_Menu);
    QMenu& menu = w.main().commands().menu(QStringLiteral("mnu_lv"));
    QVERIFY(menu.isVisible());
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().row_is_visible(1));
    QVERIFY(w.grid().rows().row(1).bold);
    menu.close();
    w.main().commands().action(QStringLiteral("mnu_lv_di")).trigger();
    QCOMPARE(w.cell(1, GridColumn::item), QStringLiteral("Item 002"));
}

void tst_grid_keys::escape_gives_back_what_the_box_had_and_closes_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("before");
    QTest::newRow("description") << QByteArray("desc_brdr") << QByteArray("desc") << QStringLiteral("salted");
    QTest::newRow("quantity") << QByteArray("qty_brdr") << QByteArray("qty") << QStringLiteral("2 lb");
    QTest::newRow("aisle") << QByteArray("aisle_brdr") << QByteArray("aisle") << QStringLiteral("7");
    QTest::newRow("an empty one") << QByteArray("qty_brdr") << QByteArray("qty") << QStringLiteral(" ");
}

void tst_grid_keys::escape_gives_back_what_the_box_had_and_closes()
{
    QFETCH(QByteArray, box);
    QFETCH(QByteArray, field);
    QFETCH(QString, before);
    EditingWindow w;
    const Key butter
        = w.row(QStringLiteral("Butter"), QStringLiteral("salted"), QStringLiteral("2 lb"), QStringLiteral("7"));
    Query(w.db(), std::string("UPDATE groc_1 SET ") + field.constData() + " = ?", before).run();
    w.open();
    w.open_row(0);
    w.type_into(box.constData(), QStringLiteral("other"));
    QCOMPARE(w.field(butter, field.constData()), QStringLiteral("[other]"));
    QTest::keyClick(&w.box(box.constData()), Qt::Key_Escape);
    QCOMPARE(w.field(butter, field.constData()), u'[' + before + u']');
    QCOMPARE(w.cell(0, GridColumn::item), QStringLiteral("Butter"));
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
}

void tst_grid_keys::escape_leaves_the_other_boxes_as_they_were_left()
{
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"), QStringLiteral("salted"), QStringLiteral("2"));
    w.open();
    w.open_row(0);
    w.type_into("desc_brdr", QStringLiteral("fresh"));
    QTest::keyClick(&w.box("desc_brdr"), Qt::Key_Right);
    QVERIFY(w.box("qty_brdr").hasFocus());
    QTest::keyClicks(&w.box("qty_brdr"), QStringLiteral("1"));
    QCOMPARE(w.field(butter, "qty"), QStringLiteral("[12]"));
    QTest::keyClick(&w.box("qty_brdr"), Qt::Key_Escape);
    QCOMPARE(w.field(butter, "qty"), QStringLiteral("[2]"));
    QCOMPARE(w.field(butter, "desc"), QStringLiteral("[fresh]"));
}

namespace {

/// Goes from the grid over the boxes of the row to the date box.
void go_to_date(EditingWindow& w)
{
    w.grid().setFocus();
    QTest::keyClick(&w.grid(), Qt::Key_F2);
    for (const char* box : {"desc_brdr", "qty_brdr"}) {
        QVERIFY2(w.box(box).hasFocus(), box);
        QTest::keyClick(&w.box(box), Qt::Key_End);
        QTest::keyClick(&w.box(box), Qt::Key_Right);
    }
    QVERIFY(w.box("dp_brdr").hasFocus());
}

void press(Qt::Key key)
{
    QVERIFY(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), key);
}

} // namespace

void tst_grid_keys::space_in_the_date_box_switches_the_coupon()
{
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"));
    w.open();
    go_to_date(w);
    press(Qt::Key_Space);
    QCOMPARE(w.field(butter, "cpn"), QStringLiteral("[1]"));
    QCOMPARE(w.field(butter, "created"), QStringLiteral("[2026-03-14]"));
    QCOMPARE(w.box("dp_brdr").text(), QStringLiteral("3/14/26"));
    QVERIFY(w.box("dp_brdr").hasFocus());
    press(Qt::Key_Space);
    QCOMPARE(w.field(butter, "cpn"), QStringLiteral("[0]"));
    QCOMPARE(trim(w.cell(0, GridColumn::date)), QString());
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    QVERIFY(w.grid().hasFocus());
    QCOMPARE(w.field(butter, "cpn"), QStringLiteral("[1]"));
}

void tst_grid_keys::down_in_the_date_box_opens_the_calendar()
{
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"));
    w.coupon(butter, QStringLiteral("2026-05-06"), true);
    w.open();
    go_to_date(w);
    press(Qt::Key_Down);
    QVERIFY(w.calendar().isAncestorOf(QApplication::focusWidget()));
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    QVERIFY(!w.shown("MonthView1"));
    QVERIFY(w.box("dp_brdr").hasFocus());
    QCOMPARE(w.field(butter, "created"), QStringLiteral("[2026-05-06]"));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    QVERIFY(!w.shown("MonthView1"));
    QVERIFY(w.box("dp_brdr").hasFocus());
    QCOMPARE(w.field(butter, "created"), QStringLiteral("[2026-05-07]"));
    QCOMPARE(w.box("dp_brdr").text(), QStringLiteral("5/7/26"));
    press(Qt::Key_Left);
    QVERIFY(w.box("qty_brdr").hasFocus());
}

void tst_grid_keys::without_a_coupon_no_calendar_opens()
{
    EditingWindow w;
    w.row(QStringLiteral("Butter"));
    w.open();
    go_to_date(w);
    press(Qt::Key_Down);
    QVERIFY(!w.shown("MonthView1"));
    QVERIFY(w.box("dp_brdr").hasFocus());
}

void tst_grid_keys::escape_in_the_date_box_gives_coupon_and_date_back_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QString>("expiry");
    QTest::newRow("no coupon") << false << QString();
    QTest::newRow("a coupon") << true << QStringLiteral("2026-05-06");
    QTest::newRow("an expired coupon") << true << QStringLiteral("2026-01-20");
}

void tst_grid_keys::escape_in_the_date_box_gives_coupon_and_date_back()
{
    QFETCH(bool, on);
    QFETCH(QString, expiry);
    EditingWindow w;
    const Key butter = w.row(QStringLiteral("Butter"));
    if (on)
        w.coupon(butter, expiry, true);
    w.open();
    const QString cell = w.cell(0, GridColumn::date);
    go_to_date(w);
    press(Qt::Key_Space);
    if (on)
        press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    QVERIFY(w.cell(0, GridColumn::date) != cell);
    press(Qt::Key_Escape);
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
    QCOMPARE(w.field(butter, "cpn"), on ? QStringLiteral("[1]") : QStringLiteral("[0]"));
    QCOMPARE(trim(w.cell(0, GridColumn::date)), trim(cell));
    if (on)
        QCOMPARE(w.field(butter, "created"), u'[' + expiry + u']');
}

void tst_grid_keys::one_click_into_a_text_cell_puts_the_caret_there_data()
{
    QTest::addColumn<GridColumn>("column");
    QTest::addColumn<QByteArray>("box");
    QTest::newRow("description") << GridColumn::desc << QByteArray("desc_brdr");
    QTest::newRow("quantity") << GridColumn::qty << QByteArray("qty_brdr");
    QTest::newRow("aisle") << GridColumn::aisle << QByteArray("aisle_brdr");
}

void tst_grid_keys::one_click_into_a_text_cell_puts_the_caret_there()
{
    QFETCH(GridColumn, column);
    QFETCH(QByteArray, box);
    EditingWindow w;
    w.row(QStringLiteral("Butter"), QStringLiteral("aaaaaaaa"), QStringLiteral("aa"), QStringLiteral("aa"));
    w.row(QStringLiteral("Cream"));
    w.open();
    const QRect cell = w.grid().cell_rect(0, column);
    const QPoint left = w.grid().viewport()->mapFrom(w.grid().parentWidget(), cell.center());
    QTest::mouseClick(w.grid().viewport(), Qt::LeftButton, {}, QPoint(left.x() - cell.width() / 2 + 4, left.y()));
    QVERIFY(w.box(box.constData()).hasFocus());
    QCOMPARE(w.box(box.constData()).cursorPosition(), 0);
    QTest::keyClicks(&w.box(box.constData()), QStringLiteral("b"));
    QVERIFY(w.cell(0, column).startsWith(QStringLiteral("baa")));

    w.click_cell(1, column);
    QCOMPARE(w.editor().edit_row(), 1);
    QVERIFY(w.box(box.constData()).hasFocus());
    QTest::keyClicks(&w.box(box.constData()), QStringLiteral("4"));
    QCOMPARE(w.cell(1, column), QStringLiteral("4"));
}

void tst_grid_keys::a_click_on_a_name_leaves_the_keyboard_in_the_grid()
{
    EditingWindow w;
    w.row(QStringLiteral("Butter"));
    w.open();
    for (const GridColumn column : {GridColumn::item, GridColumn::coupon, GridColumn::check}) {
        w.click_cell(0, column);
        QVERIFY(w.grid().hasFocus());
        w.editor().lv_edit_off();
    }
}

void tst_grid_keys::escape_in_the_grid_closes_the_open_row()
{
    EditingWindow w;
    w.row(QStringLiteral("Butter"), QStringLiteral("salted"), QStringLiteral("2"));
    w.open();
    w.open_row(0);
    w.type_into("desc_brdr", QStringLiteral("sweet"));
    w.open_row(0);
    QVERIFY(w.grid().hasFocus());
    QTest::keyClick(&w.grid(), Qt::Key_Escape);
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
    QVERIFY(w.main().isVisible());
    QCOMPARE(w.cell(0, GridColumn::desc), QStringLiteral("sweet"));
    QCOMPARE(w.text("SELECT desc || qty FROM groc_1"), QStringLiteral("sweet2"));
}

void tst_grid_keys::a_text_goes_on_where_the_window_closed_its_box_data()
{
    QTest::addColumn<QString>("change");
    for (const char* change : {"size", "resize", "toolbar", "scroll"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void tst_grid_keys::a_text_goes_on_where_the_window_closed_its_box()
{
    QFETCH(QString, change);
    KeysWindow w;
    w.rows(60);
    w.open();
    w.click_cell(1, GridColumn::desc);
    w.box("desc_brdr").setText(QStringLiteral("shell, brown"));
    w.box("desc_brdr").setCursorPosition(5);
    w.interrupt(change);
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
    QTest::keyPress(&w.grid(), Qt::Key_Shift);
    for (const char letter : {' ', 'S', '2'})
        QTest::keyClick(QApplication::focusWidget(), letter);
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().edit_row(), 1);
    QVERIFY(w.box("desc_brdr").hasFocus());
    QCOMPARE(w.cell(1, GridColumn::desc), QStringLiteral("shell S2, brown"));
    QCOMPARE(w.field(2, "desc"), QStringLiteral("[shell S2, brown]"));
    QCOMPARE(w.field(2, "to_get"), QStringLiteral("[1]"));
    QTest::keyClick(&w.box("desc_brdr"), Qt::Key_Escape);
    QCOMPARE(w.cell(1, GridColumn::desc), QStringLiteral("some"));
}

void tst_grid_keys::keys_of_a_text_go_on_in_it_as_well_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("Backspace") << Qt::Key_Backspace << QStringLiteral("soe!");
    QTest::newRow("Delete") << Qt::Key_Delete << QStringLiteral("som!");
    QTest::newRow("Home") << Qt::Key_Home << QStringLiteral("!some");
    QTest::newRow("End") << Qt::Key_End << QStringLiteral("some!");
    QTest::newRow("Left") << Qt::Key_Left << QStringLiteral("so!me");
}

void tst_grid_keys::keys_of_a_text_go_on_in_it_as_well()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, text);
    KeysWindow w;
    w.rows(3);
    w.open();
    w.click_cell(1, GridColumn::desc);
    w.box("desc_brdr").setCursorPosition(3);
    w.interrupt(QStringLiteral("size"));
    QTest::keyClick(QApplication::focusWidget(), key);
    QTest::keyClick(QApplication::focusWidget(), key == Qt::Key_Backspace ? Qt::Key_End : Qt::Key_Shift);
    QTest::keyClick(QApplication::focusWidget(), '!');
    QCOMPARE(w.cell(1, GridColumn::desc), text);
    QCOMPARE(w.grid().rows().rows(), 3);
    QCOMPARE(w.grid().current_row(), 1);
}

void tst_grid_keys::what_follows_an_interrupted_edit_forgets_it_data()
{
    QTest::addColumn<QString>("act");
    for (const char* act : {"Down and Up", "Escape", "to the tree and back", "row taken away"})
        QTest::newRow(act) << QString::fromLatin1(act);
}

void tst_grid_keys::what_follows_an_interrupted_edit_forgets_it()
{
    QFETCH(QString, act);
    KeysWindow w;
    w.rows(4);
    w.open();
    w.click_cell(1, GridColumn::desc);
    w.interrupt(QStringLiteral("size"));
    if (act == QLatin1String("Escape")) {
        QTest::keyClick(&w.grid(), Qt::Key_Escape);
    } else if (act == QLatin1String("Down and Up")) {
        QTest::keyClick(&w.grid(), Qt::Key_Down);
        QTest::keyClick(&w.grid(), Qt::Key_Up);
    } else if (act == QLatin1String("row taken away")) {
        w.grid().rows().remove_row(1);
        w.grid().set_current(1, GridColumn::item);
    } else {
        w.main().visible_tree().setFocus();
        w.grid().setFocus();
    }
    QTest::keyClick(QApplication::focusWidget(), 'a');
    QCOMPARE(w.cell(1, GridColumn::desc), QStringLiteral("a"));
}

void tst_grid_keys::keys_on_a_list_without_rows_do_nothing()
{
    EditingWindow w;
    w.load();
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    w.grid().setFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F2, Qt::Key_A, Qt::Key_Home, Qt::Key_End,
                           Qt::Key_PageDown, Qt::Key_Menu, Qt::Key_Delete, Qt::Key_Escape})
        QTest::keyClick(&w.grid(), key);
    QVERIFY(!w.editor().is_open());
    QVERIFY(w.grid().hasFocus());
}

QTEST_MAIN(tst_grid_keys)
#include "tst_grid_keys.moc"
