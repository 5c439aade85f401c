#include "lists/editing_window.h"
#include "support/menu_hands.h"
#include "window/commands.h"
#include "widgets/pictures.h"
#include "widgets/tree_view.h"

#include <QClipboard>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>

using namespace tarnwick;

namespace {

constexpr const char* all_controls[]
    = {"desc_brdr",    "qty_brdr",     "qty_btn(0)", "qty_btn(1)", "chck_box",   "cpn_bkgrnd",
       "dp_frame",     "dp_brdr",      "cpn_brdr",   "dtp_btn",    "MonthView1", "aisle_brdr",
       "aisle_btn(0)", "aisle_btn(1)", "frmEditDel", "imgedit",    "imgScratch"};

} // namespace

class tst_row_editor_use : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    // coupon and calendar
    void the_check_box_turns_the_coupon_on_and_off();
    void re_ticking_a_coupon_with_an_expired_date_moves_it_to_today();
    void re_ticking_a_coupon_with_a_future_date_keeps_it();
    void the_calendar_opens_on_the_rows_date_below_the_box();
    void the_calendar_opens_above_the_box_near_the_grids_foot();
    void a_chosen_date_is_written_even_in_the_past();
    void the_calendar_stays_until_a_stepper_or_the_close();
    void escape_closes_the_calendar_alone();
    void the_date_box_takes_no_typing();

    // keys
    void arrows_go_along_the_chain_of_boxes();
    void a_row_is_edited_with_the_keyboard_alone();
    void the_chain_skips_hidden_columns();
    void arrows_inside_a_text_move_the_caret();
    void enter_closes_the_editor_and_returns_to_the_grid_data();
    void enter_closes_the_editor_and_returns_to_the_grid();

    // closing and following
    void scrolling_hides_the_row_and_the_next_click_opens_it();
    void the_wheel_over_a_box_scrolls_the_grid();
    void focus_elsewhere_closes_the_editor();
    void a_click_on_a_tab_closes_the_editor_data();
    void a_click_on_a_tab_closes_the_editor();
    void focus_among_the_editors_keeps_it_open();
    void a_menu_keeps_it_open();
    void hiding_the_grid_closes_the_editor();
    void a_column_group_comes_and_goes_with_its_editors();
    void a_dragged_column_border_takes_the_boxes_along();
    void the_editor_follows_its_row();
    void a_change_of_type_size_replaces_the_editor();

private:
    EditingWindow& w() { return *window_; }

    std::unique_ptr<EditingWindow> window_;
};

void tst_row_editor_use::the_check_box_turns_the_coupon_on_and_off()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().open();
    w().open_row(0);
    QVERIFY(!w().shown("dtp_btn"));
    const int off_picture = w().widget("chck_box").property("picture").toInt();
    QCOMPARE(off_picture, 117 + w().main().shared.color_index);

    w().press("chck_box");
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));
    QCOMPARE(w().widget("chck_box").property("picture").toInt(), 126 + w().main().shared.color_index);
    QVERIFY(w().shown("dtp_btn"));
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("3/14/26"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("3/14/2026"));
    QCOMPARE(w().field(key, "cpn"), QStringLiteral("[1]"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));

    w().press("dtp_btn");
    QVERIFY(w().shown("MonthView1"));
    w().press("chck_box");
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("OFF"));
    QCOMPARE(w().widget("chck_box").property("picture").toInt(), off_picture);
    QVERIFY(!w().shown("dtp_btn"));
    QVERIFY(!w().shown("MonthView1"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral(" "));
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral(" "));
    QCOMPARE(w().field(key, "cpn"), QStringLiteral("[0]"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));
}

void tst_row_editor_use::re_ticking_a_coupon_with_an_expired_date_moves_it_to_today()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2025-12-31"), true);
    w().open();
    w().open_row(0);
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("12/31/25"));
    w().press("chck_box");
    w().press("chck_box");
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("3/14/26"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));
}

void tst_row_editor_use::re_ticking_a_coupon_with_a_future_date_keeps_it()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2026-03-15"), true);
    w().open();
    w().open_row(0);
    w().press("chck_box");
    w().press("chck_box");
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("3/15/26"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("3/15/2026"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-15]"));
}

void tst_row_editor_use::the_calendar_opens_on_the_rows_date_below_the_box()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2028-02-29"), true);
    w().row(QStringLiteral("Salt"));
    w().open();
    w().open_row(0);
    w().press("dtp_btn");
    QVERIFY(w().shown("MonthView1"));
    QCOMPARE(w().calendar().selectedDate(), QDate(2028, 2, 29));
    QCOMPARE(w().calendar().yearShown(), 2028);
    QCOMPARE(w().calendar().monthShown(), 2);
    QCOMPARE(w().in_form("MonthView1").top(), w().in_form("dp_brdr").bottom() + 1);
    QVERIFY(w().grid().parentWidget()->rect().contains(w().in_form("MonthView1")));

    w().open_row(1);
    QVERIFY(!w().shown("MonthView1"));
    w().press("chck_box");
    w().press("dtp_btn");
    QCOMPARE(w().calendar().selectedDate(), w().date);
}

void tst_row_editor_use::the_calendar_opens_above_the_box_near_the_grids_foot()
{
    w().rows(80);
    for (int key = 1; key <= 80; ++key)
        w().coupon(static_cast<Key>(key), QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(w().grid().rows_in_view() - 1);
    w().press("dtp_btn");
    QCOMPARE(w().in_form("MonthView1").bottom(), w().in_form("dp_brdr").top() - 1);
    QVERIFY(w().grid().parentWidget()->rect().contains(w().in_form("MonthView1")));
}

void tst_row_editor_use::a_chosen_date_is_written_even_in_the_past()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2026-01-20"), true);
    w().open();
    w().open_row(0);
    w().press("dtp_btn");
    QVERIFY(w().calendar().isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QCOMPARE(w().calendar().selectedDate(), QDate(2026, 1, 19));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-01-20]"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!w().shown("MonthView1"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-01-19]"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("1/19/2026"));
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("1/19/26"));
    QVERIFY(w().editor().is_open());

    w().press("dtp_btn");
    auto* days = w().calendar().findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
    auto* view = qobject_cast<QAbstractItemView*>(days);
    QVERIFY(view);
    const QModelIndex first_row = view->model()->index(1, 1);
    const QDate before = w().calendar().selectedDate();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(first_row).center());
    QVERIFY(!w().shown("MonthView1"));
    QVERIFY(w().calendar().selectedDate() != before);
    QCOMPARE(w().field(key, "created"), u'[' + w().calendar().selectedDate().toString(Qt::ISODate) + u']');
}

void tst_row_editor_use::the_calendar_stays_until_a_stepper_or_the_close()
{
    w().rows(2);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(0);
    for (const char* stepper : {"qty_btn(0)", "aisle_btn(1)"}) {
        w().press("dtp_btn");
        QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
        QVERIFY(w().shown("MonthView1"));
        QTest::mouseClick(&w().widget(stepper), Qt::LeftButton);
        QVERIFY(!w().shown("MonthView1"));
    }
    w().press("dtp_btn");
    w().editor().lv_edit_off();
    QVERIFY(!w().shown("MonthView1"));
    QCOMPARE(w().field(1, "created"), QStringLiteral("[2027-01-05]"));
}

void tst_row_editor_use::escape_closes_the_calendar_alone()
{
    w().rows(2);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(0);
    w().press("dtp_btn");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!w().shown("MonthView1"));
    QVERIFY(w().editor().is_open());
    QVERIFY(w().grid().hasFocus());
}

void tst_row_editor_use::the_date_box_takes_no_typing()
{
    w().rows(1);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(0);
    QTest::mouseClick(&w().box("dp_brdr"), Qt::LeftButton, {}, QPoint(5, 5));
    QVERIFY(w().box("dp_brdr").hasFocus());
    QTest::keyClicks(&w().box("dp_brdr"), QStringLiteral("9"));
    QTest::keyClick(&w().box("dp_brdr"), Qt::Key_Delete);
    QCOMPARE(w().box("dp_brdr").text(), QStringLiteral("1/5/27"));
    QCOMPARE(w().field(1, "created"), QStringLiteral("[2027-01-05]"));
}

void tst_row_editor_use::a_row_is_edited_with_the_keyboard_alone()
{
    w().rows(2);
    w().open();
    w().grid().setFocus();
    QTest::keyClick(&w().grid(), Qt::Key_Right);
    QVERIFY(w().grid().hasFocus()); // no row is open
    QTest::keyClick(&w().grid(), Qt::Key_Down);
    QCOMPARE(w().editor().edit_row(), 1);
    QTest::keyClick(&w().grid(), Qt::Key_Right);
    QVERIFY(w().box("desc_brdr").hasFocus());
    QTest::keyClicks(&w().box("desc_brdr"), QStringLiteral("very "));
    QTest::keyClick(&w().box("desc_brdr"), Qt::Key_Return);
    QVERIFY(!w().editor().is_open());
    QVERIFY(w().grid().hasFocus());
    QCOMPARE(w().field(2, "desc"), QStringLiteral("[very some]"));
}

void tst_row_editor_use::arrows_go_along_the_chain_of_boxes()
{
    w().rows(1);
    w().coupon(1, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(0);
    QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
    QTest::keyClick(&w().box("desc_brdr"), Qt::Key_End);
    const char* chain[] = {"desc_brdr", "qty_brdr", "dp_brdr", "aisle_brdr"};
    for (int i = 1; i < 4; ++i) {
        QTest::keyClick(&w().box(chain[i - 1]), Qt::Key_Right);
        QVERIFY2(w().box(chain[i]).hasFocus(), chain[i]);
        QTest::keyClick(&w().box(chain[i]), Qt::Key_End);
    }
    QTest::keyClick(&w().box("aisle_brdr"), Qt::Key_Right);
    QVERIFY(w().box("aisle_brdr").hasFocus());
    for (int i = 2; i >= 0; --i) {
        QTest::keyClick(&w().box(chain[i + 1]), Qt::Key_Home);
        QTest::keyClick(&w().box(chain[i + 1]), Qt::Key_Left);
        QVERIFY2(w().box(chain[i]).hasFocus(), chain[i]);
    }
    QTest::keyClick(&w().box("desc_brdr"), Qt::Key_Home);
    QTest::keyClick(&w().box("desc_brdr"), Qt::Key_Left);
    QVERIFY(w().box("desc_brdr").hasFocus());
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().field(1, "desc"), QStringLiteral("[some]"));
}

void tst_row_editor_use::the_chain_skips_hidden_columns()
{
    w().rows(1);
    w().open();
    w().set_group(ColumnGroup::coupon, false);
    w().open_row(0);
    QTest::mouseClick(&w().box("qty_brdr"), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::keyClick(&w().box("qty_brdr"), Qt::Key_End);
    QTest::keyClick(&w().box("qty_brdr"), Qt::Key_Right);
    QVERIFY(w().box("aisle_brdr").hasFocus());
    QTest::keyClick(&w().box("aisle_brdr"), Qt::Key_Home);
    QTest::keyClick(&w().box("aisle_brdr"), Qt::Key_Left);
    QVERIFY(w().box("qty_brdr").hasFocus());
    w().set_group(ColumnGroup::aisle, false);
    QVERIFY(w().editor().is_open());
    QTest::keyClick(&w().box("qty_brdr"), Qt::Key_End);
    QTest::keyClick(&w().box("qty_brdr"), Qt::Key_Right);
    QVERIFY(w().box("qty_brdr").hasFocus());
}

void tst_row_editor_use::arrows_inside_a_text_move_the_caret()
{
    w().rows(1);
    w().open();
    w().open_row(0);
    w().type_into("qty_brdr", QStringLiteral("12345"));
    QLineEdit& box = w().box("qty_brdr");
    box.setCursorPosition(2);
    QTest::keyClick(&box, Qt::Key_Right);
    QCOMPARE(box.cursorPosition(), 3);
    QTest::keyClick(&box, Qt::Key_Left);
    QCOMPARE(box.cursorPosition(), 2);
    QVERIFY(box.hasFocus());
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClick(&box, Qt::Key_Right, Qt::ShiftModifier);
    QVERIFY(box.hasFocus());
}

void tst_row_editor_use::enter_closes_the_editor_and_returns_to_the_grid_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"desc_brdr", "qty_brdr", "dp_brdr", "aisle_brdr"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_row_editor_use::enter_closes_the_editor_and_returns_to_the_grid()
{
    QFETCH(QByteArray, name);
    w().rows(2);
    w().open();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        w().open_row(1);
        QTest::mouseClick(&w().box(name), Qt::LeftButton, {}, QPoint(5, 5));
        QTest::keyClick(&w().box(name), key);
        QVERIFY(!w().editor().is_open());
        QVERIFY(w().grid().hasFocus());
        QCOMPARE(w().grid().current_row(), 1);
        QVERIFY(!w().grid().rows().row(1).bold);
        for (const char* control : all_controls)
            QVERIFY2(!w().shown(control), control);
    }
}

void tst_row_editor_use::scrolling_hides_the_row_and_the_next_click_opens_it()
{
    w().rows(80);
    w().open();
    w().open_row(3);
    w().grid().verticalScrollBar()->setValue(2);
    QVERIFY(!w().editor().is_open());
    for (const char* control : all_controls)
        QVERIFY2(!w().shown(control), control);
    QVERIFY(!w().grid().rows().row(3).bold);
    w().open_row(4);
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    QCOMPARE(w().grid().top_row(), 2);
}

void tst_row_editor_use::the_wheel_over_a_box_scrolls_the_grid()
{
    w().rows(80);
    w().open();
    w().open_row(3);
    QLineEdit& box = w().box("desc_brdr");
    const QPointF spot(5, 5);
    QWheelEvent wheel(spot, box.mapToGlobal(spot), {}, QPoint(0, -240), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &wheel);
    QVERIFY(w().grid().top_row() > 0);
    QVERIFY(!w().editor().is_open());
}

void tst_row_editor_use::focus_elsewhere_closes_the_editor()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    QVERIFY(w().grid().hasFocus());
    w().main().visible_tree().setFocus();
    QVERIFY(!w().editor().is_open());
    QVERIFY(w().main().visible_tree().hasFocus());

    w().open_row(1);
    QTest::mouseClick(&w().box("desc_brdr"), Qt::LeftButton);
    w().main().visible_tree().setFocus();
    QVERIFY(!w().editor().is_open());
    QVERIFY(w().main().visible_tree().hasFocus());
}

void tst_row_editor_use::a_click_on_a_tab_closes_the_editor_data()
{
    QTest::addColumn<QString>("strip");
    QTest::addColumn<int>("tab");
    for (const int strip : {0, 1})
        for (const int tab : {0, 1})
            QTest::addRow("strip %d, tab %d", strip, tab) << QStringLiteral("TabStrip1(%1)").arg(strip) << tab;
}

void tst_row_editor_use::a_click_on_a_tab_closes_the_editor()
{
    QFETCH(QString, strip);
    QFETCH(int, tab);
    w().rows(2);
    w().open();
    w().click_cell(1, GridColumn::desc);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), 1);
    auto* tabs = w().find<QTabBar>(strip);
    QVERIFY(tabs && tabs->isVisible());
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
    QCOMPARE(tabs->currentIndex(), tab);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!w().shown("desc_brdr"));
    QVERIFY(!w().grid().rows().row(1).bold);
}

void tst_row_editor_use::focus_among_the_editors_keeps_it_open()
{
    w().rows(2);
    w().coupon(2, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(1);
    for (const char* name : {"desc_brdr", "qty_brdr", "dp_brdr", "aisle_brdr", "desc_brdr"}) {
        QTest::mouseClick(&w().box(name), Qt::LeftButton, {}, QPoint(5, 5));
        QVERIFY2(w().box(name).hasFocus(), name);
        QVERIFY2(w().editor().is_open(), name);
    }
    for (const char* name : {"qty_btn(0)", "qty_btn(1)", "aisle_btn(0)", "aisle_btn(1)", "dtp_btn", "chck_box"}) {
        w().press(name);
        QVERIFY2(w().editor().is_open(), name);
    }
    w().grid().setFocus();
    QVERIFY(w().editor().is_open());
}

void tst_row_editor_use::a_menu_keeps_it_open()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    QMenu& menu = w().main().commands().menu(QStringLiteral("mnu_lv"));
    menu.popup(w().main().mapToGlobal(QPoint(300, 300)));
    QVERIFY(menu.isVisible());
    QVERIFY(w().editor().is_open());
    menu.close();
    QVERIFY(w().editor().is_open());
}

void tst_row_editor_use::hiding_the_grid_closes_the_editor()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    w().main().list_pane().show_pane(false);
    for (const char* control : all_controls)
        QVERIFY2(!w().shown(control), control);
}

void tst_row_editor_use::a_column_group_comes_and_goes_with_its_editors()
{
    w().rows(2);
    w().coupon(2, QStringLiteral("2027-01-05"), true);
    w().open();
    w().open_row(1);
    w().press("dtp_btn");
    w().type_into("desc_brdr", QStringLiteral("half typed "));
    w().set_group(ColumnGroup::coupon, false);
    QVERIFY(w().editor().is_open());
    QVERIFY(!w().shown("MonthView1"));
    for (const char* name : {"chck_box", "cpn_bkgrnd", "dp_frame", "dp_brdr", "cpn_brdr", "dtp_btn"})
        QVERIFY2(!w().shown(name), name);
    QVERIFY(w().shown("aisle_brdr"));
    QCOMPARE(w().in_form("desc_brdr").right(), w().cell_in_form(GridColumn::desc).right());
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral("half typed "));
    w().set_group(ColumnGroup::aisle, false);
    for (const char* name : {"aisle_brdr", "aisle_btn(0)", "aisle_btn(1)"})
        QVERIFY2(!w().shown(name), name);
    w().set_group(ColumnGroup::coupon, true);
    for (const char* name : {"chck_box", "cpn_bkgrnd", "dp_frame", "dp_brdr", "cpn_brdr", "dtp_btn"})
        QVERIFY2(w().shown(name), name);
}

void tst_row_editor_use::a_dragged_column_border_takes_the_boxes_along()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    const QRect before = w().in_form("desc_brdr");
    QWidget& grip = w().widget("listheader_sprtr(0)");
    const QPoint from = grip.rect().center();
    QTest::mousePress(&grip, Qt::LeftButton, {}, from);
    const QPoint to = grip.mapToGlobal(from) - QPoint(30, 0);
    QMouseEvent move(QEvent::MouseMove, grip.mapFromGlobal(to), to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&grip, &move);
    QTest::mouseRelease(&grip, Qt::LeftButton, {}, grip.mapFromGlobal(to));
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().in_form("desc_brdr").left(), before.left() - 30);
    QCOMPARE(w().in_form("desc_brdr").right(), w().cell_in_form(GridColumn::desc).right());
    QCOMPARE(w().in_form("frmEditDel").left(), w().in_form("desc_brdr").left() - 44);
}

void tst_row_editor_use::the_editor_follows_its_row()
{
    w().rows(4);
    w().open();
    w().open_row(2);
    GridRow first = w().grid().rows().row(0);
    first.item = QStringLiteral("Aaa");
    first.groc_key = 99;
    w().grid().rows().insert_sorted(first);
    QCOMPARE(w().editor().edit_row(), 3);
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    w().type_into("desc_brdr", QStringLiteral("moved"));
    QCOMPARE(w().field(3, "desc"), QStringLiteral("[moved]"));
    QCOMPARE(w().cell(3, GridColumn::desc), QStringLiteral("moved"));
    w().grid().rows().remove_row(3);
    QVERIFY(!w().editor().is_open());
}

void tst_row_editor_use::a_change_of_type_size_replaces_the_editor()
{
    w().set_pref(QStringLiteral("font"), QStringLiteral("7"));
    w().rows(3);
    w().open();
    w().open_row(1);
    QCOMPARE(w().widget("qty_btn(0)").property("picture").toInt(), 150);
    QCOMPARE(w().box("desc_brdr").font().pointSize(), 9);
    trigger(w(), "mnu_more_lrg");
    w().open_row(1);
    QCOMPARE(w().in_form("desc_brdr").top(), w().cell_in_form(GridColumn::desc).top());
    QCOMPARE(w().in_form("desc_brdr").height(), 28);
    QCOMPARE(w().widget("qty_btn(0)").property("picture").toInt(), 152);
    QCOMPARE(w().widget("qty_btn(1)").property("picture").toInt(), 158);
    QCOMPARE(w().box("desc_brdr").font().pointSize(), 12);
}

QTEST_MAIN(tst_row_editor_use)
#include "tst_row_editor_use.moc"
