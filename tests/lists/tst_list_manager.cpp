#include "lists/manager_window.h"

#include "data/query.h"
#include "household/household.h"
#include "recipes/recipe_page.h"
#include "widgets/fitted_text.h"
#include "widgets/plain_style.h"
#include "widgets/row_editor.h"
#include "window/view_state.h"
#include "support/tool_button.h"

#include <QSizeGrip>
#include <QStatusBar>
#include <QtTest>

using namespace tarnwick;

namespace {

const QStringList three{QStringLiteral("Corner shop"), QStringLiteral("Baker"), QStringLiteral("Market")};

QStringList numbered_lists(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names += QStringLiteral("List %1").arg(i, 2, 10, QLatin1Char('0'));
    return names;
}

QColor ground(const QWidget& widget)
{
    return widget.palette().color(QPalette::Window);
}

void rename_current(TestWindow& w, const QString& name)
{
    MessageScript script;
    script.drive([&name](QDialog& form) {
        auto* edit = form.findChild<QLineEdit*>();
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    trigger(w, "mnu_list_RenameList");
}

void delete_current(TestWindow& w, const QString& question)
{
    MessageScript script;
    script.expect(QStringLiteral("Warning"), question, Answer::yes);
    trigger(w, "mnu_list_del");
}

} // namespace

class tst_list_manager : public QObject {
    Q_OBJECT
private slots:
    // Rows
    void with_one_list_there_is_no_row_for_all_lists();
    void with_several_lists_they_stand_by_name_and_all_comes_last();
    void rows_stand_at_a_pitch_of_380_twips();
    void a_name_is_shown_letter_by_letter_and_cut_where_it_is_too_long();

    // Without a list
    void with_no_list_a_click_on_the_notice_starts_a_new_list_and_closes_the_window();
    void with_no_list_a_click_on_the_row_starts_a_new_list_and_closes_the_window();
    void a_new_list_that_is_given_up_closes_the_window_too();
    void after_creating_the_first_list_the_notice_goes_away();
    void after_deleting_the_last_list_the_notice_comes_back();

    // Choosing
    void a_click_on_a_label_or_a_picture_chooses_the_list();
    void a_click_on_all_shows_all_lists();
    void choice_is_stored_under_velora_and_does_not_come_back_at_the_next_start();
    void choosing_moves_the_active_mark();
    void a_press_that_is_released_elsewhere_or_with_another_button_chooses_nothing();
    void choosing_turns_back_from_the_recipe_page();
    void the_text_of_an_open_row_is_stored();
    void keys_go_through_the_rows_and_choose();
    void the_frame_round_the_row_with_the_keyboard_is_whole();

    // In step with the main window
    void the_list_chosen_in_the_menu_is_marked();
    void a_new_name_is_shown_at_its_place();
    void a_list_made_or_deleted_in_the_main_window_fills_the_rows_anew();
    void a_cleared_list_stays();
    void page_color_and_type_size_are_taken_over_at_once();

    // The window
    void menu_entry_and_button_open_and_close_the_window();
    void window_is_modeless_and_says_what_can_be_dropped();
    void a_small_window_shows_no_half_letter_of_what_can_be_dropped();
    void escape_closes_it();
    void place_and_size_come_back_within_the_run();
    void many_lists_scroll();
    void a_resize_takes_the_scroll_range_anew();
};

void tst_list_manager::with_one_list_there_is_no_row_for_all_lists()
{
    ManagerWindow w;
    w.open({QStringLiteral("Baker")});
    QCOMPARE(w.rows(), QStringList{QStringLiteral("Baker|1*")});
    QVERIFY(!w.notice_shown());
}

void tst_list_manager::with_several_lists_they_stand_by_name_and_all_comes_last()
{
    ManagerWindow w;
    w.open(three, 3);
    QCOMPARE(w.rows(),
             (QStringList{QStringLiteral("Baker|2"), QStringLiteral("Corner shop|1"), QStringLiteral("Market|3*"),
                          QStringLiteral("All|0")}));
    for (int i = 0; i < 4; ++i)
        QVERIFY(w.label(i)->isVisible() && w.part<QFrame>("frm_list", i)->isVisible());
    QVERIFY(!w.bar().isVisible());
}

void tst_list_manager::rows_stand_at_a_pitch_of_380_twips()
{
    ManagerWindow w;
    w.open(three);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(w.part<QFrame>("frm_list", i)->y(), (i * 380 + 80) / 15);
        QCOMPARE(w.label(i)->x(), 31);
    }
}

void tst_list_manager::a_name_is_shown_letter_by_letter_and_cut_where_it_is_too_long()
{
    const QString markup = QStringLiteral("<b>Fish & chips</b>");
    const QString endless(300, u'w');
    ManagerWindow w;
    w.open({markup, endless});
    QCOMPARE(w.label(0)->text(), markup);
    QCOMPARE(w.label(0)->textFormat(), Qt::PlainText);
    QCOMPARE(w.label(1)->text(), endless);
    QVERIFY(w.label(1)->geometry().right() < w.part<QFrame>("frm_list", 1)->width());
    QCOMPARE(w.part<QFrame>("frm_list", 1)->toolTip(), endless);
}

void tst_list_manager::with_no_list_a_click_on_the_notice_starts_a_new_list_and_closes_the_window()
{
    ManagerWindow w;
    w.open({});
    QVERIFY(w.notice_shown());
    auto* text = w.part<QLabel>(QStringLiteral("txtCreateList"));
    QCOMPARE(text->text(), QStringLiteral("No shopping lists:\nClick here to start a new list"));
    MessageScript script;
    script.drive([&w](QDialog& form) {
        QCOMPARE(form.windowTitle(), QStringLiteral("New shopping list"));
        type_name(form, QStringLiteral("Weekly"));
    });
    QTest::mouseClick(text, Qt::LeftButton);
    QTRY_VERIFY(!w.manager());
    QVERIFY(!w.ticked());
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
}

void tst_list_manager::with_no_list_a_click_on_the_row_starts_a_new_list_and_closes_the_window()
{
    ManagerWindow w;
    w.open({});
    QCOMPARE(w.rows(), QStringList{QStringLiteral("Create a shopping list|-1")});
    MessageScript script;
    script.drive([&w](QDialog& form) {
        type_name(form, QStringLiteral("Weekly"));
        QCOMPARE(w.rows(), QStringList{QStringLiteral("Weekly|1*")});
    });
    w.click_row(0);
    QTRY_VERIFY(!w.manager());
    QCOMPARE(w.number("SELECT count(*) FROM list_name WHERE list_name = 'Weekly'"), 1);
}

void tst_list_manager::a_new_list_that_is_given_up_closes_the_window_too()
{
    ManagerWindow w;
    w.open({});
    MessageScript script;
    script.drive([](QDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); });
    QTest::mouseClick(w.part<QLabel>("pct_list", 0), Qt::LeftButton);
    QTRY_VERIFY(!w.manager());
    QCOMPARE(w.number("SELECT count(*) FROM list_name"), 0);
}

void tst_list_manager::after_creating_the_first_list_the_notice_goes_away()
{
    ManagerWindow w;
    w.open({});
    QVERIFY(w.notice_shown());
    make_list(w, QStringLiteral("Weekly"));
    QVERIFY(w.manager()->isVisible());
    QVERIFY(!w.notice_shown());
    QCOMPARE(w.rows(), QStringList{QStringLiteral("Weekly|1*")});
}

void tst_list_manager::after_deleting_the_last_list_the_notice_comes_back()
{
    ManagerWindow w;
    w.open({QStringLiteral("Weekly")});
    delete_current(w, QStringLiteral("Are you sure you want to \ndelete the Weekly list?"));
    QVERIFY(w.notice_shown());
    QCOMPARE(w.rows(), QStringList{QStringLiteral("Create a shopping list|-1")});
}

void tst_list_manager::a_click_on_a_label_or_a_picture_chooses_the_list()
{
    ManagerWindow w;
    const Key market = 3;
    w.open(three);
    w.add_row(w.add_item(QStringLiteral("Eggs"), 0), market, true);
    w.click_row(2);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Market list)"));
    QCOMPARE(w.main().shared.current_list, market);
    QCOMPARE(w.main().list_pane().grid().rows().rows(), 1);
    QCOMPARE(w.rows().at(2), QStringLiteral("Market|3*"));
    QCOMPARE(w.rows().at(1), QStringLiteral("Corner shop|1"));
    QTest::mouseClick(w.part<QLabel>("pct_list", 0), Qt::LeftButton);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Baker list)"));
    QVERIFY(w.main().commands().list_entry(0).isChecked());
    QVERIFY(w.main().updatesEnabled());
}

void tst_list_manager::a_click_on_all_shows_all_lists()
{
    ManagerWindow w;
    w.open(three);
    const Key eggs = w.add_item(QStringLiteral("Eggs"), 0);
    w.add_row(eggs, 1, true);
    w.add_row(eggs, 2, true);
    w.click_row(3);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (viewing all lists)"));
    QVERIFY(w.main().shared.all_lists_view);
    QCOMPARE(w.main().shared.current_list, Key{0});
    QCOMPARE(w.main().list_pane().grid().rows().rows(), 2);
    QCOMPARE(w.rows().filter(QStringLiteral("*")), QStringList{QStringLiteral("All|0*")});
    w.click_row(0);
    QVERIFY(!w.main().shared.all_lists_view);
    QCOMPARE(w.rows().filter(QStringLiteral("*")), QStringList{QStringLiteral("Baker|2*")});
}

void tst_list_manager::choice_is_stored_under_velora_and_does_not_come_back_at_the_next_start()
{
    ManagerWindow w;
    w.open(three);
    w.click_row(3);
    QCOMPARE(w.velora("s_all"), QStringLiteral("1"));
    QCOMPARE(w.velora("alist"), QStringLiteral("0"));
    w.click_row(2);
    QCOMPARE(w.velora("s_all"), QStringLiteral("0"));
    QCOMPARE(w.velora("alist"), QStringLiteral("3"));
    QCOMPARE(w.pref(QStringLiteral("alist")), QStringLiteral("1"));
    frmmain& again = w.load();
    QCOMPARE(again.windowTitle(), QStringLiteral("Tarnwick (Corner shop list)"));
    QVERIFY(!w.manager());
    QVERIFY(!w.ticked());
}

void tst_list_manager::choosing_moves_the_active_mark()
{
    ManagerWindow w;
    w.open(three);
    QCOMPARE(w.text("SELECT group_concat(key_id) FROM list_name WHERE active <> 0"), QStringLiteral("1"));
    w.click_row(2);
    QCOMPARE(w.text("SELECT group_concat(key_id) FROM list_name WHERE active <> 0"), QStringLiteral("3"));
}

void tst_list_manager::a_press_that_is_released_elsewhere_or_with_another_button_chooses_nothing()
{
    ManagerWindow w;
    w.open(three);
    QTest::mousePress(w.label(2), Qt::LeftButton);
    QTest::mouseRelease(w.label(2), Qt::LeftButton, {}, QPoint(5, 60));
    QTest::mouseClick(w.label(2), Qt::RightButton);
    QCOMPARE(w.main().shared.current_list, Key{1});
    QCOMPARE(w.velora("alist"), QStringLiteral("(none)"));
}

void tst_list_manager::choosing_turns_back_from_the_recipe_page()
{
    ManagerWindow w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    w.open(three);
    QVERIFY(!w.main().shared.list_pane_shown);
    w.click_row(0);
    QVERIFY(w.main().shared.list_pane_shown);
    QVERIFY(w.main().list_pane().grid().isVisible());
    QVERIFY(!w.main().recipe_page().frame4().isVisible());
}

void tst_list_manager::the_text_of_an_open_row_is_stored()
{
    ManagerWindow w;
    const Key eggs = w.add_item(QStringLiteral("Eggs"), 0);
    const Key row = w.add_row(eggs, 1, true);
    w.open(three);
    ListGrid& grid = w.main().list_pane().grid();
    const QPoint cell = grid.cell_rect(0, GridColumn::item).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.viewport()->mapFrom(grid.parentWidget(), cell));
    QVERIFY(w.main().row_editor().is_open());
    auto* box = w.find<QLineEdit>(QStringLiteral("desc_brdr"));
    box->setFocus();
    QTest::keyClicks(box, QStringLiteral("brown"));
    w.click_row(2);
    QVERIFY(!w.main().row_editor().is_open());
    Query stored(w.db(), "SELECT desc FROM groc_1 WHERE key_id = ?", row);
    QVERIFY(stored.next());
    QCOMPARE(stored.text(0).trimmed(), QStringLiteral("brown"));
}

void tst_list_manager::keys_go_through_the_rows_and_choose()
{
    ManagerWindow w;
    w.open(three);
    w.manager()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(w.manager()));
    QTest::keyClick(w.manager(), Qt::Key_Home);
    QCOMPARE(w.manager()->focusWidget(), w.part<QFrame>("frm_list", 0));
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Down);
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Down);
    QCOMPARE(w.main().shared.current_list, Key{1});
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Return);
    QCOMPARE(w.main().shared.current_list, Key{3});
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_End);
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Down);
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Space);
    QVERIFY(w.main().shared.all_lists_view);
    QTest::keyClick(w.manager()->focusWidget(), Qt::Key_Tab);
    QVERIFY(w.manager()->isVisible());
}

void tst_list_manager::the_frame_round_the_row_with_the_keyboard_is_whole()
{
    PlainStyle style;
    ManagerWindow w;
    w.open(three);
    QApplication::setActiveWindow(w.manager());
    QFrame& row = *w.part<QFrame>("frm_list", 0);
    row.setStyle(&style);
    row.setFocus();
    QVERIFY(row.hasFocus());
    const QImage image = row.grab().toImage();
    const QRgb line = image.pixel(4, 1);
    QVERIFY(line != ground(row).rgb());
    for (int x = 4; x < image.width() - 4; ++x) {
        QCOMPARE(image.pixel(x, 1), line);
        QCOMPARE(image.pixel(x, image.height() - 2), line);
    }
}

void tst_list_manager::the_list_chosen_in_the_menu_is_marked()
{
    ManagerWindow w;
    w.open(three);
    choose(w, 2);
    QCOMPARE(w.rows().filter(QStringLiteral("*")), QStringList{QStringLiteral("Market|3*")});
    choose(w, 3);
    QCOMPARE(w.rows().filter(QStringLiteral("*")), QStringList{QStringLiteral("All|0*")});
}

void tst_list_manager::a_new_name_is_shown_at_its_place()
{
    ManagerWindow w;
    w.open(three, 2);
    rename_current(w, QStringLiteral(" Zoe's bakery "));
    QCOMPARE(w.rows().first(), QStringLiteral("Zoes bakery|2*"));
    QCOMPARE(w.part<QFrame>("frm_list", 0)->toolTip(), QStringLiteral("Zoes bakery"));
    w.toggle();
    QTRY_VERIFY(!w.manager());
    w.toggle();
    QCOMPARE(w.rows().at(2), QStringLiteral("Zoes bakery|2*"));
}

void tst_list_manager::a_list_made_or_deleted_in_the_main_window_fills_the_rows_anew()
{
    ManagerWindow w;
    w.open({QStringLiteral("Baker")});
    make_list(w, QStringLiteral("Attic"));
    QCOMPARE(w.rows(),
             (QStringList{QStringLiteral("Attic|2*"), QStringLiteral("Baker|1"), QStringLiteral("All|0")}));
    delete_current(w, QStringLiteral("Are you sure you want to \ndelete the Attic list?"));
    QCOMPARE(w.rows(), QStringList{QStringLiteral("Baker|1*")});
    w.click_row(0);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Baker list)"));
}

void tst_list_manager::a_cleared_list_stays()
{
    ManagerWindow w;
    const Key eggs = w.add_item(QStringLiteral("Eggs"), 0);
    w.add_row(eggs, 2, true);
    w.open(three, 2);
    QCOMPARE(w.main().household().clear_list(2, ClearMode::delete_all), Refusal::none);
    QCOMPARE(w.main().list_pane().grid().rows().rows(), 0);
    QCOMPARE(w.rows().first(), QStringLiteral("Baker|2*"));
    w.click_row(1);
    w.click_row(0);
    QCOMPARE(w.main().windowTitle(), QStringLiteral("Tarnwick (Baker list)"));
}

void tst_list_manager::page_color_and_type_size_are_taken_over_at_once()
{
    ManagerWindow w;
    w.open(three);
    const QColor pink(255, 204, 204);
    QVERIFY(ground(*w.label(0)) != pink);
    w.main().view_state().set_color(1);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(ground(*w.label(i)), pink);
        QCOMPARE(ground(*w.part<QLabel>("pct_list", i)), pink);
        QCOMPARE(ground(*w.part<QFrame>("frm_list", i)), pink);
    }
    QCOMPARE(ground(*w.part<QFrame>(QStringLiteral("frmCreateList"))), pink);
    for (const int size : {12, 10, 9}) {
        w.main().view_state().set_type_size(size);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(w.label(row)->font().pointSize(), size);
        QVERIFY(w.manager()->width() >= w.manager()->sizeHint().width());
        QCOMPARE(w.label(1)->font().bold(), true);
        QCOMPARE(w.part<QFrame>("frm_list", 3)->y(), (3 * 380 + 80) / 15);
        QVERIFY(w.label(0)->fontMetrics().height() <= w.label(0)->height());
    }
    make_list(w, QStringLiteral("Zoo"));
    QCOMPARE(ground(*w.label(4)), pink);
}

void tst_list_manager::menu_entry_and_button_open_and_close_the_window()
{
    ManagerWindow w;
    w.add_list(QStringLiteral("Weekly"));
    w.load();
    QVERIFY(!w.manager() && !w.ticked());
    auto* button = w.find<QToolButton>(tool_button(ToolButton::lists));
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(w.manager()->isVisible());
    QVERIFY(w.ticked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!w.ticked());
    QTRY_VERIFY(!w.manager());
    w.toggle();
    QVERIFY(w.manager()->isVisible() && w.ticked());
    w.toggle();
    QVERIFY(!w.ticked());
    w.toggle();
    QVERIFY2(w.manager() && w.ticked(), "opened again before the closed one is gone");
}

void tst_list_manager::window_is_modeless_and_says_what_can_be_dropped()
{
    ManagerWindow w;
    w.open(three);
    QVERIFY(!w.manager()->isModal());
    QCOMPARE(w.manager()->windowTitle(), QStringLiteral("Shopping lists"));
    QCOMPARE(w.part<QStatusBar>(QStringLiteral("StatusBar1"))->currentMessage(),
             QStringLiteral("Drag and drop stock items on any list"));
}

void tst_list_manager::a_small_window_shows_no_half_letter_of_what_can_be_dropped()
{
    ManagerWindow w;
    w.open(three);
    const auto& bar = *w.part<QStatusBar>(QStringLiteral("StatusBar1"));
    const QString whole = bar.currentMessage();
    QVERIFY(bar.toolTip().isEmpty());
    w.manager()->resize(w.manager()->minimumSize());
    const auto* grip = bar.findChild<QSizeGrip*>();
    QVERIFY(grip);
    QVERIFY(bar.currentMessage().endsWith(ellipsis));
    QVERIFY(bar.fontMetrics().horizontalAdvance(bar.currentMessage()) < grip->x());
    QCOMPARE(bar.toolTip(), whole);
    w.manager()->resize(w.manager()->sizeHint());
    QCOMPARE(bar.currentMessage(), whole);
    QVERIFY(bar.fontMetrics().horizontalAdvance(whole) < grip->x());
    QVERIFY(bar.toolTip().isEmpty());
}

void tst_list_manager::escape_closes_it()
{
    ManagerWindow w;
    w.open(three);
    QTest::keyClick(w.manager(), Qt::Key_Escape);
    QTRY_VERIFY(!w.manager());
    QVERIFY(!w.ticked());
}

void tst_list_manager::place_and_size_come_back_within_the_run()
{
    ManagerWindow w;
    w.open(three);
    w.manager()->resize(310, 190);
    w.manager()->move(130, 90);
    w.manager()->close();
    QTRY_VERIFY(!w.manager());
    w.toggle();
    QCOMPARE(w.manager()->size(), QSize(310, 190));
    QCOMPARE(w.manager()->pos(), QPoint(130, 90));
}

void tst_list_manager::many_lists_scroll()
{
    ManagerWindow w;
    w.open(numbered_lists(40));
    w.manager()->resize(240, 270);
    QVERIFY(w.bar().isVisible());
    const int fitting = w.bar().pageStep();
    QCOMPARE(w.bar().maximum(), 41 - fitting);
    auto* frame = w.part<QFrame>(QStringLiteral("Frame1"));
    QVERIFY((fitting * 380 + 80) / 15 <= frame->height());
    QVERIFY(((fitting + 1) * 380 + 80) / 15 > frame->height());
    w.bar().setValue(5);
    for (const int i : {0, 5, 20})
        QCOMPARE(w.part<QFrame>("frm_list", i)->y(), ((i - 5) * 380 + 80) / 15);
    QVERIFY(w.part<QFrame>("frm_list", 5)->geometry().right() < w.bar().x());
    QWheelEvent down({50, 50}, w.manager()->mapToGlobal(QPointF(50, 50)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(w.manager(), &down);
    QVERIFY(w.bar().value() > 5);
    w.bar().setValue(w.bar().maximum());
    QVERIFY(frame->rect().contains(w.part<QFrame>("frm_list", 40)->geometry()));
    w.click_row(40);
    QVERIFY(w.main().shared.all_lists_view);
    QTest::keyClick(w.manager(), Qt::Key_Home);
    QCOMPARE(w.bar().value(), 0);
}

void tst_list_manager::a_resize_takes_the_scroll_range_anew()
{
    ManagerWindow w;
    w.open(numbered_lists(20));
    w.manager()->resize(240, 270);
    w.bar().setValue(w.bar().maximum());
    w.manager()->resize(240, 700);
    QVERIFY(!w.bar().isVisible());
    QCOMPARE(w.bar().value(), 0);
    QCOMPARE(w.part<QFrame>("frm_list", 0)->y(), 80 / 15);
    w.manager()->resize(240, 130);
    QVERIFY(w.bar().isVisible());
    QVERIFY(w.part<QFrame>("frm_list", 0)->geometry().right() < w.bar().x());
}

QTEST_MAIN(tst_list_manager)
#include "tst_list_manager.moc"
