#include "lists/editing_window.h"
#include "window/commands.h"
#include "support/edit_request.h"
#include "support/menu_hands.h"
#include "support/message_script.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QMenu>

using namespace tarnwick;

namespace {

constexpr int coupon_on = 126;
constexpr int coupon_off = 117;

} // namespace

class tst_list_mouse : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void cleanup() { window_.reset(); }

    void a_click_on_a_text_cell_opens_the_editor_on_its_row_data();
    void a_click_on_a_text_cell_opens_the_editor_on_its_row();
    void a_click_below_the_last_row_closes_the_editor_and_does_not_open_another();
    void a_click_right_of_the_columns_does_nothing();
    void a_click_on_a_light_shows_the_status_and_leaves_the_editor_closed();
    void a_click_on_the_buy_it_box_flips_the_mark_and_leaves_the_editor_closed();
    void a_quick_pair_of_clicks_flips_the_mark_twice();
    void a_press_below_the_rows_that_ends_on_one_changes_nothing();
    void clicks_on_an_empty_list_do_nothing();
    void the_middle_button_changes_nothing();

    void a_click_on_the_coupon_turns_it_on_and_off();
    void re_ticking_a_coupon_with_an_expired_date_moves_it_to_today();
    void re_ticking_a_coupon_with_a_future_date_keeps_it();
    void a_coupon_click_on_a_row_that_has_gone_changes_only_the_picture();
    void in_the_all_lists_view_no_list_stays_current();

    void the_right_press_marks_the_row_and_closes_the_editor();
    void the_right_button_pops_up_the_row_menu();
    void the_right_release_shows_the_status_before_the_menu();
    void the_row_menu_removes_its_row_without_a_question();
    void the_row_menu_opens_the_item_editor();
    void no_row_stays_bold_after_the_item_editor_of_the_row_menu();
    void no_row_menu_on_an_empty_list();

    void delete_removes_the_current_row_without_a_question();
    void delete_of_the_only_row_closes_the_editor();
    void down_and_up_move_the_editor();
    void up_in_the_first_row_and_down_in_the_last_stay();
    void down_past_the_last_row_in_view_scrolls_it_in();
    void other_keys_pass();

    void the_cross_removes_its_row();
    void the_pencil_opens_the_item_editor_and_shows_its_changes();
    void the_buttons_tell_item_and_list();
    void the_buttons_tell_names_like_markup_letter_by_letter();
    void the_buttons_tell_the_rows_own_list_in_the_all_lists_view();
    void a_list_load_closes_the_editor();
    void a_click_on_the_last_page_ticks_the_row_under_the_pointer();
    void the_editor_covers_its_row_on_the_last_page();

private:
    EditingWindow& w() { return *window_; }
    QMenu& row_menu() { return w().main().commands().menu(QStringLiteral("mnu_lv")); }
    void choose(const char* command);
    QString status() { return w().main().findChild<QLabel*>(QStringLiteral("StatusBar1(1)"))->text(); }

    std::unique_ptr<EditingWindow> window_;
};

void tst_list_mouse::choose(const char* command)
{
    QAction& action = w().main().commands().action(QLatin1String(command));
    QVERIFY(action.isEnabled());
    QVERIFY(row_menu().isVisible());
    QVERIFY(row_menu().actions().contains(&action));
    row_menu().close();
    action.trigger();
}

void tst_list_mouse::a_click_on_a_text_cell_opens_the_editor_on_its_row_data()
{
    QTest::addColumn<GridColumn>("column");
    QTest::newRow("name") << GridColumn::item;
    QTest::newRow("description") << GridColumn::desc;
    QTest::newRow("quantity") << GridColumn::qty;
    QTest::newRow("date") << GridColumn::date;
    QTest::newRow("aisle") << GridColumn::aisle;
}

void tst_list_mouse::a_click_on_a_text_cell_opens_the_editor_on_its_row()
{
    QFETCH(GridColumn, column);
    w().rows(4);
    w().open();
    w().click_cell(2, column);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), 2);
    QCOMPARE(w().grid().current_row(), 2);
    QCOMPARE(w().grid().current_col(), GridColumn::item);
    QVERIFY(w().grid().rows().row(2).bold);

    w().click_cell(0, GridColumn::item);
    QVERIFY(w().grid().hasFocus());
    QCOMPARE(w().editor().edit_row(), 0);
    QVERIFY(!w().grid().rows().row(2).bold);
    QVERIFY(w().grid().rows().row(0).bold);
}

void tst_list_mouse::a_click_below_the_last_row_closes_the_editor_and_does_not_open_another()
{
    w().rows(3);
    w().open();
    w().open_row(2);
    w().click_cell(4, GridColumn::item);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().editor().edit_row(), -1);
    QCOMPARE(w().grid().current_row(), 2);
    for (const GridRow& row : w().grid().rows().list_rows())
        QVERIFY(!row.bold);

    w().click_cell(4, GridColumn::item);
    QVERIFY(!w().editor().is_open());
}

void tst_list_mouse::a_click_right_of_the_columns_does_nothing()
{
    w().rows(3);
    w().open();
    w().grid().set_col_width(GridColumn::desc, 40);
    const QRect last = w().grid().cell_rect(1, GridColumn::aisle);
    const QPoint beyond
        = w().grid().viewport()->mapFrom(w().grid().parentWidget(), last.center()) + QPoint(last.width(), 0);
    QVERIFY(w().grid().viewport()->rect().contains(beyond));
    QTest::mouseClick(w().grid().viewport(), Qt::LeftButton, {}, beyond);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);

    // The last pixel of the last column is beyond, the fourth before it is not.
    const QPoint last_pixel = w().middle_of(1, GridColumn::aisle) + QPoint(last.right() - last.center().x(), 0);
    QTest::mouseClick(w().grid().viewport(), Qt::LeftButton, {}, last_pixel);
    QVERIFY(!w().editor().is_open());
    QTest::mouseClick(w().grid().viewport(), Qt::LeftButton, {}, last_pixel - QPoint(4, 0));
    QVERIFY(w().editor().is_open());
}

void tst_list_mouse::a_click_on_a_light_shows_the_status_and_leaves_the_editor_closed()
{
    w().rows(3);
    w().open();
    w().main().set_status(QStringLiteral("before"));
    w().click_cell(1, GridColumn::light);
    QVERIFY(!w().editor().is_open());
    QVERIFY(status().startsWith(QStringLiteral("Active On Corner shop list")));
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);
}

void tst_list_mouse::a_click_on_the_buy_it_box_flips_the_mark_and_leaves_the_editor_closed()
{
    w().rows(3);
    w().open();
    w().click_cell(1, GridColumn::check);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!w().grid().rows().row(1).to_get);
    QCOMPARE(w().number("SELECT to_get FROM groc_1 WHERE key_id = 2"), 0);
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(w().grid().current_col(), GridColumn::item);
    w().click_cell(1, GridColumn::check);
    QVERIFY(w().grid().rows().row(1).to_get);
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);
}

void tst_list_mouse::a_quick_pair_of_clicks_flips_the_mark_twice()
{
    w().rows(2);
    w().open();
    const QPoint box = w().middle_of(1, GridColumn::check);
    QTest::mouseClick(w().grid().viewport(), Qt::LeftButton, {}, box);
    QVERIFY(!w().grid().rows().row(1).to_get);
    w().double_click(*w().grid().viewport(), box);
    QVERIFY(!w().grid().rows().row(1).to_get);
    QTest::mouseDClick(w().grid().viewport(), Qt::LeftButton, {}, box);
    QTest::mouseRelease(w().grid().viewport(), Qt::LeftButton, {}, box);
    QVERIFY(w().grid().rows().row(1).to_get);
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 2);
}

void tst_list_mouse::a_press_below_the_rows_that_ends_on_one_changes_nothing()
{
    w().rows(2);
    w().open();
    w().grid().set_current(0, GridColumn::check);
    QTest::mousePress(w().grid().viewport(), Qt::LeftButton, {}, w().middle_of(4, GridColumn::check));
    QTest::mouseRelease(w().grid().viewport(), Qt::LeftButton, {}, w().middle_of(1, GridColumn::check));
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 2);
}

void tst_list_mouse::clicks_on_an_empty_list_do_nothing()
{
    w().load();
    for (const GridColumn column : {GridColumn::check, GridColumn::item, GridColumn::coupon})
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
            QTest::mouseClick(w().grid().viewport(), button, {}, w().middle_of(0, column));
    for (const auto key : {Qt::Key_Delete, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&w().grid(), key);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!row_menu().isVisible());
}

void tst_list_mouse::the_middle_button_changes_nothing()
{
    w().rows(2);
    w().open();
    for (const GridColumn column : {GridColumn::check, GridColumn::item, GridColumn::coupon}) {
        w().grid().set_current(1, column);
        w().click_cell(1, column, Qt::MiddleButton);
    }
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().number("SELECT sum(to_get) + 10 * sum(cpn) FROM groc_1"), 2);
}

void tst_list_mouse::a_click_on_the_coupon_turns_it_on_and_off()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2020-01-01"), false);
    w().open();

    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().grid().rows().row(0).coupon, coupon_on);
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("3/14/2026"));
    QCOMPARE(w().field(key, "cpn"), QStringLiteral("[1]"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("ON"));

    w().editor().lv_edit_off();
    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().grid().rows().row(0).coupon, coupon_off);
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral(" "));
    QCOMPARE(w().field(key, "cpn"), QStringLiteral("[0]"));
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));
    QCOMPARE(w().widget("chck_box").property("Tag").toString(), QStringLiteral("OFF"));
}

void tst_list_mouse::re_ticking_a_coupon_with_an_expired_date_moves_it_to_today()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2026-03-13"), true);
    w().open();
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("3/13/2026"));
    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-13]"));
    w().editor().lv_edit_off();
    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2026-03-14]"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("3/14/2026"));
}

void tst_list_mouse::re_ticking_a_coupon_with_a_future_date_keeps_it()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().coupon(key, QStringLiteral("2028-02-29"), true);
    w().open();
    w().click_cell(0, GridColumn::coupon);
    w().editor().lv_edit_off();
    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().field(key, "created"), QStringLiteral("[2028-02-29]"));
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral("2/29/2028"));
}

void tst_list_mouse::a_coupon_click_on_a_row_that_has_gone_changes_only_the_picture()
{
    const Key key = w().row(QStringLiteral("Milk"));
    w().row(QStringLiteral("Salt"));
    w().open();
    Query(w().db(), "DELETE FROM groc_1 WHERE key_id = ?", key).run();
    w().click_cell(0, GridColumn::coupon);
    QCOMPARE(w().grid().rows().row(0).coupon, coupon_on);
    QCOMPARE(w().cell(0, GridColumn::date), QStringLiteral(" "));
    QCOMPARE(w().number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(w().number("SELECT cpn FROM groc_1"), 0);
}

void tst_list_mouse::in_the_all_lists_view_no_list_stays_current()
{
    w().rows(2);
    w().set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    w().set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w().open();
    QVERIFY(w().main().shared.all_lists_view);
    w().click_cell(1, GridColumn::check);
    QVERIFY(!w().grid().rows().row(1).to_get);
    QCOMPARE(w().number("SELECT to_get FROM groc_1 WHERE key_id = 2"), 0);
    QCOMPARE(w().main().shared.current_list, Key(0));
    w().click_cell(1, GridColumn::coupon);
    QCOMPARE(w().main().shared.current_list, Key(0));
    QCOMPARE(w().number("SELECT cpn FROM groc_1 WHERE key_id = 2"), 1);
    QVERIFY(w().editor().is_open());
}

void tst_list_mouse::the_right_press_marks_the_row_and_closes_the_editor()
{
    w().rows(3);
    w().open();
    w().open_row(0);
    QTest::mousePress(w().grid().viewport(), Qt::RightButton, {}, w().middle_of(2, GridColumn::desc));
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().grid().current_row(), 2);
    QVERIFY(w().grid().rows().row(2).bold);
    QVERIFY(!w().grid().rows().row(0).bold);
    QVERIFY(!row_menu().isVisible());
    QTest::mouseRelease(w().grid().viewport(), Qt::RightButton, {}, w().middle_of(2, GridColumn::desc));
    QVERIFY(row_menu().isVisible());
    row_menu().close();
}

void tst_list_mouse::the_right_button_pops_up_the_row_menu()
{
    w().rows(3);
    w().open();
    w().click_cell(1, GridColumn::check, Qt::RightButton);
    QVERIFY(row_menu().isVisible());
    QStringList captions;
    for (const QAction* action : row_menu().actions())
        captions += action->text();
    QCOMPARE(captions, QStringList({QStringLiteral("Edit item"), QStringLiteral("Remove item")}));
    QCOMPARE(w().number("SELECT sum(to_get) FROM groc_1"), 3);
    row_menu().close();
    QVERIFY(!w().editor().is_open());
}

void tst_list_mouse::the_right_release_shows_the_status_before_the_menu()
{
    w().row(QStringLiteral("Apple"));
    const Key bread = w().row(QStringLiteral("Bread"));
    Query(w().db(), "UPDATE groc_1 SET to_get = 0 WHERE key_id = ?", bread).run();
    w().open();
    QStringList at_menu;
    connect(&row_menu(), &QMenu::aboutToShow, &row_menu(), [&] { at_menu += status(); });
    for (const int row : {1, 0}) {
        QTest::mousePress(w().grid().viewport(), Qt::RightButton, {}, w().middle_of(row, GridColumn::item));
        QTest::mouseRelease(w().grid().viewport(), Qt::RightButton, {}, w().middle_of(row, GridColumn::item));
        QVERIFY(row_menu().isVisible());
        row_menu().close();
    }
    QCOMPARE(at_menu,
             (QStringList{QStringLiteral("Inactive On Corner shop list :: OTHER category"),
                          QStringLiteral("Active On Corner shop list :: OTHER category")}));
}

void tst_list_mouse::the_row_menu_removes_its_row_without_a_question()
{
    w().rows(3);
    w().open();
    MessageScript no_question;
    w().click_cell(1, GridColumn::desc, Qt::RightButton);
    choose("mnu_lv_di");
    QCOMPARE(w().grid().rows().rows(), 2);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE key_id = 2"), 0);
    QCOMPARE(w().number("SELECT count(*) FROM tie"), 2);
}

void tst_list_mouse::no_row_stays_bold_after_the_item_editor_of_the_row_menu()
{
    w().rows(3);
    w().open();
    for (const char* button : {"Command1(0)", "Command1(1)"}) {
        MessageScript script;
        script.drive([&](QDialog& dialog) {
            QVERIFY(w().grid().rows().row(1).bold);
            dialog.findChild<QAbstractButton*>(QLatin1String(button))->click();
        });
        w().click_cell(1, GridColumn::desc, Qt::RightButton);
        choose("mnu_lv_ed");
        QCOMPARE(script.left(), 0);
        for (const GridRow& row : w().grid().rows().list_rows())
            QVERIFY2(!row.bold, button);
        QCOMPARE(w().grid().current_row(), 1);
    }
}

void tst_list_mouse::the_row_menu_opens_the_item_editor()
{
    w().rows(3);
    w().open();
    MessageScript script;
    script.drive([this](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        QCOMPARE(request_of(dialog).row, w().grid().rows().row(1).groc_key);
        QCOMPARE(request_of(dialog).item, w().grid().rows().row(1).item_key);
        QCOMPARE(request_of(dialog).mode, EditMode::edit_item);
        dialog.reject();
    });
    w().click_cell(1, GridColumn::desc, Qt::RightButton);
    choose("mnu_lv_ed");
    QCOMPARE(script.left(), 0);
}

void tst_list_mouse::no_row_menu_on_an_empty_list()
{
    w().load();
    QTest::mouseClick(w().grid().viewport(), Qt::RightButton, {}, QPoint(60, 10));
    QVERIFY(!row_menu().isVisible());
}

void tst_list_mouse::delete_removes_the_current_row_without_a_question()
{
    w().rows(3);
    w().open();
    MessageScript no_question;
    w().open_row(1);
    QTest::keyClick(&w().grid(), Qt::Key_Delete);
    QCOMPARE(w().grid().rows().rows(), 2);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE key_id = 2"), 0);
    QVERIFY(!w().editor().is_open());
}

void tst_list_mouse::delete_of_the_only_row_closes_the_editor()
{
    w().rows(1);
    w().open();
    w().open_row(0);
    QTest::keyClick(&w().grid(), Qt::Key_Delete);
    QCOMPARE(w().grid().rows().rows(), 0);
    QVERIFY(!w().editor().is_open());
    QCOMPARE(w().number("SELECT count(*) FROM list_name"), 1);
    QTest::keyClick(&w().grid(), Qt::Key_Delete);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1"), 0);
}

void tst_list_mouse::down_and_up_move_the_editor()
{
    w().rows(4);
    w().open();
    w().open_row(1);
    w().main().set_status(QStringLiteral("before"));
    QTest::keyClick(&w().grid(), Qt::Key_Down);
    QCOMPARE(w().grid().current_row(), 2);
    QCOMPARE(w().editor().edit_row(), 2);
    QVERIFY(w().editor().is_open());
    QVERIFY(status().startsWith(QStringLiteral("Active On Corner shop list")));
    QTest::keyClick(&w().grid(), Qt::Key_Up);
    QTest::keyClick(&w().grid(), Qt::Key_Up);
    QCOMPARE(w().editor().edit_row(), 0);
    QVERIFY(w().grid().rows().row(0).bold);
    QVERIFY(!w().grid().rows().row(1).bold);
}

void tst_list_mouse::up_in_the_first_row_and_down_in_the_last_stay()
{
    w().rows(2);
    w().open();
    w().open_row(0);
    QTest::keyClick(&w().grid(), Qt::Key_Up);
    QCOMPARE(w().grid().current_row(), 0);
    w().open_row(1);
    QTest::keyClick(&w().grid(), Qt::Key_Down);
    QCOMPARE(w().grid().current_row(), 1);
    QCOMPARE(w().editor().edit_row(), 1);
}

void tst_list_mouse::down_past_the_last_row_in_view_scrolls_it_in()
{
    w().rows(60);
    w().open();
    const int last_in_view = w().grid().rows_in_view() - 1;
    QVERIFY(last_in_view < 58);
    w().open_row(last_in_view);
    QTest::keyClick(&w().grid(), Qt::Key_Down);
    QCOMPARE(w().editor().edit_row(), last_in_view + 1);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().grid().top_row(), 1);
    QVERIFY(w().grid().row_is_visible(last_in_view + 1));
    for (int i = 0; i <= last_in_view; ++i)
        QTest::keyClick(&w().grid(), Qt::Key_Up);
    QCOMPARE(w().editor().edit_row(), 0);
    QCOMPARE(w().grid().top_row(), 0);
    QVERIFY(w().editor().is_open());
}

void tst_list_mouse::other_keys_pass()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Tab, Qt::Key_F3, Qt::Key_Insert})
        QTest::keyClick(&w().grid(), key);
    QCOMPARE(w().editor().edit_row(), 1);
    QCOMPARE(w().grid().current_row(), 1);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE desc = 'some' AND qty = '2'"), 3);
}

void tst_list_mouse::the_cross_removes_its_row()
{
    w().rows(3);
    w().open();
    MessageScript no_question;
    w().open_row(1);
    w().press("imgScratch");
    QCOMPARE(w().grid().rows().rows(), 2);
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE key_id = 2"), 0);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!w().shown("frmEditDel"));
}

void tst_list_mouse::the_pencil_opens_the_item_editor_and_shows_its_changes()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    MessageScript script;
    script.drive([this](QDialog& dialog) {
        QCOMPARE(request_of(dialog).row, Key(2));
        QCOMPARE(request_of(dialog).mode, EditMode::edit_item);
        w().grid().rows().set_cell_text(1, GridColumn::desc, QStringLiteral("changed there"));
        dialog.reject();
    });
    w().press("imgedit");
    QCOMPARE(script.left(), 0);
    QVERIFY(w().editor().is_open());
    QCOMPARE(w().box("desc_brdr").text(), QStringLiteral("changed there"));
}

void tst_list_mouse::the_buttons_tell_item_and_list()
{
    w().rows(2);
    w().open();
    w().open_row(1);
    QCOMPARE(w().widget("imgedit").toolTip(), QStringLiteral("Edit stock item 'Item 001'"));
    QCOMPARE(w().widget("imgScratch").toolTip(), QStringLiteral("Delete 'Item 001' from Corner shop list"));
    QCOMPARE(w().widget("imgedit").property("Tag").toInt(), 2);
    QCOMPARE(w().widget("qty_btn(0)").property("Tag").toInt(), 2);
    QCOMPARE(w().widget("qty_btn(1)").property("Tag").toInt(), 2);
    QCOMPARE(w().widget("imgScratch").property("Tag").toString(), QStringLiteral("edit"));
}

void tst_list_mouse::the_buttons_tell_names_like_markup_letter_by_letter()
{
    w().row(QStringLiteral("<b>x</b>"));
    w().row(QStringLiteral("Salt & pepper"));
    w().open();
    w().open_row(0);
    QCOMPARE(w().button("imgedit").toolTip(), QStringLiteral("<qt>Edit stock item '&lt;b&gt;x&lt;/b&gt;'</qt>"));
    QCOMPARE(w().button("imgScratch").toolTip(),
             QStringLiteral("<qt>Delete '&lt;b&gt;x&lt;/b&gt;' from Corner shop list</qt>"));
    w().open_row(1);
    QCOMPARE(w().button("imgedit").toolTip(), QStringLiteral("Edit stock item 'Salt & pepper'"));
}

void tst_list_mouse::the_buttons_tell_the_rows_own_list_in_the_all_lists_view()
{
    w().row(QStringLiteral("Apples"));
    const Key market = w().add_list(QStringLiteral("Market"));
    w().add_row(w().add_item(QStringLiteral("Bread"), 0), market, true);
    w().set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    w().set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w().open();
    w().open_row(1);
    QCOMPARE(w().widget("imgScratch").toolTip(), QStringLiteral("Delete 'Bread' from Market list"));
}

void tst_list_mouse::a_list_load_closes_the_editor()
{
    w().rows(3);
    w().open();
    w().open_row(1);
    choose_list(w(), w().list);
    QVERIFY(!w().editor().is_open());
    QVERIFY(!w().shown("frmEditDel"));
}

void tst_list_mouse::a_click_on_the_last_page_ticks_the_row_under_the_pointer()
{
    w().rows(80);
    w().open();
    ListGrid& grid = w().grid();
    grid.set_top_row(80);
    QVERIFY(grid.rowViewportPosition(grid.top_row()) > 0); // a part of a row stands above it
    const int row = grid.top_row() + 2;
    const QRect drawn = grid.visualRect(grid.rows().cell(row, GridColumn::check));
    const Key key = grid.rows().row(row).groc_key;
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(drawn.center().x(), drawn.top() + 1));
    QCOMPARE(w().field(key, "to_get"), QStringLiteral("[0]"));
    QCOMPARE(w().number("SELECT count(*) FROM groc_1 WHERE to_get = 0"), 1);
}

void tst_list_mouse::the_editor_covers_its_row_on_the_last_page()
{
    w().rows(80);
    w().open();
    ListGrid& grid = w().grid();
    grid.set_top_row(80);
    for (const int row : {79, grid.top_row() + 1, grid.top_row() - 1}) {
        const QRect drawn = grid.visualRect(grid.rows().cell(row, GridColumn::desc));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(drawn.center().x(), drawn.bottom()));
        QVERIFY(w().editor().is_open());
        QCOMPARE(w().editor().edit_row(), row);
        const QRect shown = grid.visualRect(grid.rows().cell(row, GridColumn::desc));
        QVERIFY(grid.row_is_visible(row));
        const QRect box = w().box("desc_brdr").geometry();
        QCOMPARE(box.top(), grid.viewport()->mapTo(grid.parentWidget(), shown.topLeft()).y());
        QCOMPARE(box.height(), shown.height());
    }
}

QTEST_MAIN(tst_list_mouse)
#include "tst_list_mouse.moc"
