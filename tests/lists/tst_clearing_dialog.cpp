#include "lists/home_with_lists.h"

#include "lists/list_menu.h"
#include "recipes/line_fixture.h"

#include "household/household.h"
#include "household/placing_store.h"
#include "household/status.h"
#include "lists/placing.h"
#include "support/table_dump.h"
#include "widgets/row_editor.h"
#include "support/tool_button.h"

#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QRadioButton>
#include <QScreen>
#include <QToolButton>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

using namespace tarnwick;

namespace {

constexpr int uncheck_option = 0;
constexpr int unchecked_option = 1;
constexpr int all_option = 2;
constexpr int list_option = 3;

QRadioButton& option(QDialog& form, int index)
{
    return *form.findChild<QRadioButton*>(QStringLiteral("Option1(%1)").arg(index));
}

QPushButton& button(QDialog& form, int index)
{
    return *form.findChild<QPushButton*>(QStringLiteral("Command1(%1)").arg(index));
}

void click_option(QDialog& form, int index)
{
    QRadioButton& chosen = option(form, index);
    QTest::mouseClick(&chosen, Qt::LeftButton); // in its middle, which is its caption
    QVERIFY(chosen.isChecked());
}

void click_button(QDialog& form, int index)
{
    QTest::mouseClick(&button(form, index), Qt::LeftButton);
}

/// What a user does in the dialog: an option, then OK.
std::function<void(QDialog&)> choose_and_ok(int index)
{
    return [index](QDialog& form) {
        QCOMPARE(form.objectName(), QStringLiteral("lst_clr_dlg"));
        click_option(form, index);
        click_button(form, 0);
        QVERIFY(!form.isVisible());
    };
}

void click_clear(TestWindow& window)
{
    auto* clear = window.find<QToolButton>(tool_button(ToolButton::clear));
    QVERIFY(clear->isEnabled());
    QTest::mouseClick(clear, Qt::LeftButton);
}

QString question(const char* what, const QString& list)
{
    return QStringLiteral("Are you sure you want to\n\nDELETE ALL %1 from\n\nthe %2 list?")
        .arg(QLatin1String(what), list);
}

const QString warning = QStringLiteral("Warning");
const QString list_info = QStringLiteral("list info");

/// Counts the commits of a window and the announcements of its household.
class Count {
public:
    explicit Count(frmmain& main)
        : handle_(main.connection().db().getHandle())
    {
        sqlite3_commit_hook(
            handle_,
            [](void* count) {
                ++*static_cast<int*>(count);
                return 0;
            },
            &commits);
        QObject::connect(&main.household(), &Household::item_changed, &here_, [this] { ++announcements; });
        QObject::connect(&main.household(), &Household::lists_changed, &here_, [this] { ++announcements; });
    }
    ~Count() { sqlite3_commit_hook(handle_, nullptr, nullptr); }
    Count(const Count&) = delete;
    Count& operator=(const Count&) = delete;

    int commits = 0;
    int announcements = 0;

private:
    sqlite3* handle_;
    QObject here_;
};

} // namespace

class tst_clearing_dialog : public QObject {
    Q_OBJECT
private slots:
    void opens_from_the_menu_and_the_toolbar_with_its_captions();
    void escape_cancel_and_the_close_box_change_nothing();
    void the_keyboard_alone_chooses_answers_and_cancels();
    void clearing_asks_nothing_and_unlights_tree_and_grid();
    void deleting_the_unchecked_items_asks_first();
    void deleting_all_items_asks_first();
    void cancel_at_a_question_leaves_the_dialog_open_and_changes_nothing();
    void mode_1_on_a_list_with_no_buy_it_rows_gives_its_message_and_changes_nothing();
    void mode_2_with_all_rows_ticked_gives_the_words_of_no_items_with_the_name_and_list();
    void mode_3_on_an_empty_list_gives_the_words_of_no_unchecked_items();
    void deleting_the_last_row_of_a_list_leaves_the_list_itself();
    void an_item_on_two_lists_stays_active_after_being_cleared_from_one();
    void clear_is_not_offered_in_the_all_lists_view();
    void no_rows_ends_before_the_repair();
    void deleting_the_list_asks_its_own_question_and_shows_the_next_list();
    void no_to_the_deletion_of_the_list_keeps_it();
    void deleting_the_only_list_leaves_the_invitation();
    void clearing_unlights_rows_that_a_placing_has_lit();
    void each_way_is_one_transaction_and_one_announcement_data();
    void each_way_is_one_transaction_and_one_announcement();
    void a_row_under_edit_is_written_before();
    void a_line_under_edit_is_written_before();
    void a_page_that_cannot_be_left_keeps_the_dialog_away();
    void lights_and_tool_tips_of_the_recipe_page_follow_data();
    void lights_and_tool_tips_of_the_recipe_page_follow();
    void the_dialog_has_room_for_any_name_data();
    void the_dialog_has_room_for_any_name();
    void a_list_that_was_removed_meanwhile_is_told();
    void an_item_that_was_removed_meanwhile_takes_its_row_along();
    void keys_at_the_end_of_their_range_are_cleared();
    void the_window_goes_on_with_the_keyboard_where_it_was();
};

void tst_clearing_dialog::opens_from_the_menu_and_the_toolbar_with_its_captions()
{
    HomeWithLists home;
    frmmain& main = home.load();
    const auto look = [](QDialog& form) {
        QCOMPARE(form.objectName(), QStringLiteral("lst_clr_dlg"));
        QCOMPARE(form.windowTitle(), QStringLiteral("Clear Weekly list"));
        QVERIFY(form.isModal());
        QStringList captions;
        for (int i = 0; i <= list_option; ++i)
            captions += option(form, i).text();
        QCOMPARE(captions,
                 (QStringList{QStringLiteral("Clear (uncheck) all 'buy-it' items"),
                              QStringLiteral("Delete all unchecked items"), QStringLiteral("Delete all items"),
                              QStringLiteral("Delete Weekly List")}));
        QVERIFY(option(form, uncheck_option).isChecked());
        QCOMPARE(button(form, 0).text(), QStringLiteral("OK"));
        QCOMPARE(button(form, 1).text(), QStringLiteral("CANCEL"));
        QVERIFY(button(form, 0).isDefault());
        click_button(form, 1);
        QVERIFY(!form.isVisible());
    };
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.drive(look);
    click_clear(home);
    QCOMPARE(script.left(), 0);

    script.drive(look);
    QMenu& menu = main.commands().menu(QStringLiteral("mnu_list"));
    QMenuBar& bar = *main.menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
    QTRY_VERIFY(menu.isVisible());
    QAction& clear = main.commands().action(QStringLiteral("mnu_list_clear"));
    QVERIFY(clear.isEnabled());
    QCOMPARE(clear.text(), QStringLiteral("Clear Weekly list"));
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&clear).center());
    QTRY_COMPARE(script.left(), 0);
    QCOMPARE(table_dump(home.db()), before);
}

void tst_clearing_dialog::escape_cancel_and_the_close_box_change_nothing()
{
    HomeWithLists home;
    home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.drive([](QDialog& form) {
        click_option(form, all_option);
        click_button(form, 1);
    });
    click_clear(home);
    script.drive([](QDialog& form) {
        click_option(form, unchecked_option);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    click_clear(home);
    script.drive([](QDialog& form) {
        click_option(form, list_option);
        form.close();
    });
    click_clear(home);
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing_dialog::the_keyboard_alone_chooses_answers_and_cancels()
{
    HomeWithLists home;
    home.load();
    MessageScript script;
    // Down to the second option, OK by Return, then Escape at the question and at the dialog.
    script.drive([](QDialog& form) {
        form.activateWindow();
        QTRY_VERIFY(option(form, uncheck_option).hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Down);
        QVERIFY(option(form, unchecked_option).isChecked());
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QVERIFY(form.isVisible());
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    script.drive([](QDialog& form) {
        QCOMPARE(form.windowTitle(), warning);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    click_clear(home);
    QCOMPARE(home.rows().rows(), 3);

    // The same with Return at both, and a way round by Tab to CANCEL and back.
    script.drive([](QDialog& form) {
        form.activateWindow();
        QTRY_VERIFY(option(form, uncheck_option).hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Down);
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        QVERIFY(button(form, 0).hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        QVERIFY(button(form, 1).hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        QVERIFY(option(form, unchecked_option).hasFocus());
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    });
    script.drive([](QDialog& form) { QTest::keyClick(&form, Qt::Key_Return); });
    click_clear(home);
    QCOMPARE(script.left(), 0);
    QCOMPARE(home.grid(), QStringLiteral("Bread 1 179 122,Milk 1 179 122"));
}

void tst_clearing_dialog::clearing_asks_nothing_and_unlights_tree_and_grid()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.stock_tree().view().select(home.node(home.bread));
    MessageScript script;
    script.drive(choose_and_ok(uncheck_option));
    click_clear(home);
    QCOMPARE(home.grid(), QStringLiteral("Bread 0 183 113,Eggs 0 183 113,Milk 0 183 113"));
    QCOMPARE(home.list_rows(), QStringLiteral("1:0,2:0,3:0,4:1,5:0"));
    QCOMPARE(home.items(), QStringLiteral("Milk70,Bread60,Eggs61"));
    QCOMPARE(TreeView::picture(home.node(home.milk)), 7);
    QCOMPARE(TreeView::tag(home.node(home.milk)), QStringLiteral("7"));
    QCOMPARE(TreeView::picture(home.node(home.bread)), 6);
    QCOMPARE(home.panel(), QStringLiteral("Inactive On Weekly list :: OTHER category"));
}

void tst_clearing_dialog::deleting_the_unchecked_items_asks_first()
{
    HomeWithLists home;
    home.load();
    MessageScript script;
    script.drive(choose_and_ok(unchecked_option));
    script.expect(warning, question("unchecked items", QStringLiteral("Weekly")), Answer::ok, [](QDialog& form) {
        auto& box = dynamic_cast<QMessageBox&>(form);
        QCOMPARE(box.icon(), QMessageBox::Critical);
        QCOMPARE(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::Ok));
        QCOMPARE(box.parentWidget()->objectName(), QStringLiteral("lst_clr_dlg"));
    });
    click_clear(home);
    QCOMPARE(home.grid(), QStringLiteral("Bread 1 179 122,Milk 1 179 122"));
    QCOMPARE(home.list_rows(), QStringLiteral("1:1,2:1,4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("1-1-1,2-2-1,4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk81,Bread71,Eggs60"));
    QCOMPARE(TreeView::picture(home.node(home.eggs)), 6); // still on the other list
}

void tst_clearing_dialog::deleting_all_items_asks_first()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")), Answer::ok,
                  [](QDialog& form) { QCOMPARE(dynamic_cast<QMessageBox&>(form).icon(), QMessageBox::Critical); });
    click_clear(home);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(home.list_rows(), QStringLiteral("4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk70,Bread50,Eggs60"));
    QCOMPARE(TreeView::picture(home.node(home.bread)), 5);
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
}

void tst_clearing_dialog::cancel_at_a_question_leaves_the_dialog_open_and_changes_nothing()
{
    HomeWithLists home;
    home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.drive([](QDialog& form) {
        for (const int index : {unchecked_option, all_option}) {
            click_option(form, index);
            click_button(form, 0);
            QVERIFY(form.isVisible());
            QVERIFY(option(form, index).isChecked());
        }
        click_button(form, 1);
    });
    script.expect(warning, question("unchecked items", QStringLiteral("Weekly")), Answer::cancel);
    script.expect(warning, question("items", QStringLiteral("Weekly")), Answer::cancel);
    click_clear(home);
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing_dialog::mode_1_on_a_list_with_no_buy_it_rows_gives_its_message_and_changes_nothing()
{
    HomeWithLists home;
    Query(home.db(), "UPDATE groc_1 SET to_get = 0").run();
    home.load();
    const QStringList before = table_dump(home.db());
    const QString grid = home.grid();
    MessageScript script;
    script.drive(choose_and_ok(uncheck_option));
    script.expect(list_info, QStringLiteral("No 'buy-it' items in the Weekly list"), Answer::ok, [](QDialog& form) {
        QCOMPARE(dynamic_cast<QMessageBox&>(form).icon(), QMessageBox::Information);
        QCOMPARE(dynamic_cast<QMessageBox&>(form).standardButtons(), QMessageBox::Ok);
    });
    click_clear(home);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.grid(), grid);
}

void tst_clearing_dialog::mode_2_with_all_rows_ticked_gives_the_words_of_no_items_with_the_name_and_list()
{
    HomeWithLists home;
    Query(home.db(), "UPDATE groc_1 SET to_get = 1").run();
    home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.drive(choose_and_ok(unchecked_option));
    script.expect(warning, question("unchecked items", QStringLiteral("Weekly")));
    script.expect(list_info, QStringLiteral("No items in the Weekly list"));
    click_clear(home);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing_dialog::mode_3_on_an_empty_list_gives_the_words_of_no_unchecked_items()
{
    HomeWithLists home;
    home.db().db().exec("DELETE FROM groc_1; DELETE FROM tie");
    home.load();
    MessageScript script;
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    script.expect(list_info, QStringLiteral("No unchecked items in the Weekly list"));
    click_clear(home);
}

void tst_clearing_dialog::deleting_the_last_row_of_a_list_leaves_the_list_itself()
{
    HomeWithLists home;
    frmmain& main = home.load();
    const auto still_there = [&] {
        QCOMPARE(home.number("SELECT count(*) FROM list_name"), 2);
        QCOMPARE(int(main.shared.current_list), int(home.weekly));
        QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
        QVERIFY(!notice(home)->isVisible());
    };
    // Row by row with the Delete key ...
    ListGrid& grid = main.list_pane().grid();
    const QRect cell = grid.cell_rect(0, GridColumn::item);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->mapFrom(grid.parentWidget(), cell.center()));
    for (int rows = 3; rows > 0; --rows) {
        QCOMPARE(home.rows().rows(), rows);
        main.list_pane().set_row(home.rows().row(0).groc_key);
        grid.setFocus();
        QTest::keyClick(&grid, Qt::Key_Delete);
    }
    QCOMPARE(home.rows().rows(), 0);
    QVERIFY(!main.row_editor().is_open());
    still_there();

    // ... and all at once.
    home.add_row(home.bread, home.weekly, true);
    choose_list(home, home.weekly);
    MessageScript script;
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(home);
    QCOMPARE(home.rows().rows(), 0);
    still_there();
}

void tst_clearing_dialog::an_item_on_two_lists_stays_active_after_being_cleared_from_one()
{
    HomeWithLists home;
    home.load();
    MessageScript script;
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(home);
    QCOMPARE(TreeView::picture(home.node(home.milk)), 7);
    QCOMPARE(TreeView::tag(home.node(home.milk)), QStringLiteral("7"));
    QCOMPARE(home.number("SELECT status FROM items_1 WHERE item = 'Milk'"), 7);
}

void tst_clearing_dialog::clear_is_not_offered_in_the_all_lists_view()
{
    HomeWithLists home;
    frmmain& main = home.load();
    choose(home, 2);
    QVERIFY(main.shared.all_lists_view);
    QAction& clear = main.commands().action(QStringLiteral("mnu_list_clear"));
    QVERIFY(!clear.isEnabled());
    QCOMPARE(clear.text(), QStringLiteral("Clear lists"));
    const QStringList before = table_dump(home.db());
    const MessageScript nothing_comes;
    auto* button = home.find<QToolButton>(tool_button(ToolButton::clear));
    QVERIFY(!button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
    clear.trigger();
    QTest::qWait(50);
    QCOMPARE(table_dump(home.db()), before);

    choose(home, 0);
    QVERIFY(clear.isEnabled());
    QVERIFY(button->isEnabled());
}

void tst_clearing_dialog::no_rows_ends_before_the_repair()
{
    HomeWithLists home;
    home.db().db().exec("UPDATE groc_1 SET to_get = 0;"
                        "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (90, 700, 1, 1), (91, 4, 800, 2)");
    home.load();
    MessageScript script;
    script.drive(choose_and_ok(uncheck_option));
    script.expect(list_info, QStringLiteral("No 'buy-it' items in the Weekly list"));
    click_clear(home);
    QCOMPARE(home.number("SELECT count(*) FROM tie WHERE key_id >= 90"), 2);

    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(home);
    QCOMPARE(home.links(), QStringLiteral("4-1-2,5-3-2"));
}

void tst_clearing_dialog::deleting_the_list_asks_its_own_question_and_shows_the_next_list()
{
    HomeWithLists home;
    frmmain& main = home.load();
    MessageScript script;
    script.drive(choose_and_ok(list_option));
    script.expect(warning, QStringLiteral("The Weekly list has 3 items on it\nAre you sure you want to delete it?"),
                  Answer::yes, [](QDialog& form) {
                      QCOMPARE(dynamic_cast<QMessageBox&>(form).icon(), QMessageBox::Warning);
                      QCOMPARE(form.parentWidget()->objectName(), QStringLiteral("lst_clr_dlg"));
                  });
    click_clear(home);
    QCOMPARE(home.text("SELECT group_concat(list_name) FROM list_name"), QStringLiteral("Camping"));
    QCOMPARE(home.list_rows(), QStringLiteral("4:1,5:0"));
    QCOMPARE(home.items(), QStringLiteral("Milk70,Bread50,Eggs60"));
    QCOMPARE(int(main.shared.current_list), int(home.camping));
    QCOMPARE(home.grid(), QStringLiteral("Eggs 0 183 113,Milk 1 179 122"));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Camping list)"));
    QCOMPARE(main.commands().caption(QStringLiteral("mnu_list_clear")), QStringLiteral("Clear Camping list"));
    QCOMPARE(TreeView::picture(home.node(home.bread)), 5);
}

void tst_clearing_dialog::no_to_the_deletion_of_the_list_keeps_it()
{
    HomeWithLists home;
    home.load();
    const QStringList before = table_dump(home.db());
    MessageScript script;
    script.drive(choose_and_ok(list_option));
    script.expect(warning, QStringLiteral("The Weekly list has 3 items on it\nAre you sure you want to delete it?"),
                  Answer::no);
    click_clear(home);
    QCOMPARE(table_dump(home.db()), before);
    QCOMPARE(home.rows().rows(), 3);
}

void tst_clearing_dialog::deleting_the_only_list_leaves_the_invitation()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QString::number(weekly));
    frmmain& main = window.load();
    MessageScript script;
    script.drive(choose_and_ok(list_option));
    script.expect(warning, QStringLiteral("Are you sure you want to \ndelete the Weekly list?"), Answer::yes);
    click_clear(window);
    QCOMPARE(int(main.shared.current_list), -1);
    QVERIFY(notice(window)->isVisible());
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_clear")).isEnabled());
    QVERIFY(!window.find<QToolButton>(tool_button(ToolButton::clear))->isEnabled());
}

void tst_clearing_dialog::clearing_unlights_rows_that_a_placing_has_lit()
{
    HomeWithLists home;
    frmmain& main = home.load();
    // Unmarked on this list, but to be bought on the other one: lit until the next load.
    Placement placement;
    placement.item_key = home.add_item(QStringLiteral("Apples"), 0);
    home.add_row(placement.item_key, home.camping, true);
    main.stock_tree().tv_load(false);
    placement.list_key = home.weekly;
    placement.to_get = false;
    placement.created = home.date;
    placement.modified = home.date;
    main.placing().add_item(placement);
    QVERIFY(home.grid().startsWith(QLatin1String("Apples 0 179 122,")));

    MessageScript script;
    script.drive(choose_and_ok(uncheck_option));
    click_clear(home);
    QCOMPARE(home.grid(), QStringLiteral("Apples 0 183 113,Bread 0 183 113,Eggs 0 183 113,Milk 0 183 113"));
    QCOMPARE(TreeView::picture(home.node(placement.item_key)), 7);
}

void tst_clearing_dialog::each_way_is_one_transaction_and_one_announcement_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("announcements");
    QTest::newRow("uncheck") << uncheck_option << 1;
    QTest::newRow("delete unchecked") << unchecked_option << 1;
    QTest::newRow("delete all") << all_option << 1;
    QTest::newRow("delete the list") << list_option << 2; // its items, and the lists
}

void tst_clearing_dialog::each_way_is_one_transaction_and_one_announcement()
{
    QFETCH(int, way);
    QFETCH(int, announcements);
    HomeWithLists home;
    frmmain& main = home.load();
    const Count count(main);
    MessageScript script;
    script.drive(choose_and_ok(way));
    if (way == unchecked_option || way == all_option)
        script.drive([](QDialog& form) { QTest::keyClick(&form, Qt::Key_Return); });
    else if (way == list_option)
        script.drive([](QDialog& form) { dynamic_cast<QMessageBox&>(form).button(QMessageBox::Yes)->click(); });
    click_clear(home);
    QCOMPARE(script.left(), 0);
    QCOMPARE(count.announcements, announcements);
    // The list that follows is marked as the active one by its load.
    QCOMPARE(count.commits, way == list_option ? 2 : 1);
}

void tst_clearing_dialog::a_row_under_edit_is_written_before()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    ListGrid& grid = main.list_pane().grid();
    const QRect cell = grid.cell_rect(1, GridColumn::item);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->mapFrom(grid.parentWidget(), cell.center()));
    QVERIFY(main.row_editor().is_open());
    auto* box = grid.parentWidget()->findChild<QLineEdit*>(QStringLiteral("desc_brdr"));
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClicks(box, QStringLiteral("brown"));
    MessageScript script;
    script.drive([&](QDialog& form) {
        QVERIFY(!main.row_editor().is_open());
        QCOMPARE(home.text("SELECT desc FROM groc_1 WHERE key_id = 3"), QStringLiteral("brown"));
        click_option(form, uncheck_option);
        click_button(form, 0);
    });
    click_clear(home);
    QCOMPARE(home.text("SELECT desc FROM groc_1 WHERE key_id = 3"), QStringLiteral("brown"));
    QCOMPARE(home.rows().cell_text(1, GridColumn::desc), QStringLiteral("brown"));
}

namespace {

/// A recipe page in front with two lines of milk and one of salt; milk is to be bought on Weekly.
class PageWithMilk : public LineWindow {
public:
    PageWithMilk()
        : weekly(add_list(QStringLiteral("Weekly")))
        , milk(add_item(QStringLiteral("Milk"), 0, 7))
    {
        add_row(milk, weekly, true);
        add_line(recipe, QStringLiteral("Milk"), milk, -1, QStringLiteral("2"));
        add_line(recipe, QStringLiteral("Salt"));
        add_line(recipe, QStringLiteral("Whole milk"), milk);
        set_pref(QStringLiteral("alist"), QString::number(weekly));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    }

    int picture(const char* name, int line)
    {
        return control(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(line)).property("picture").toInt()
            - main().shared.color_index;
    }

    const Key weekly;
    const Key milk;
};

} // namespace

void tst_clearing_dialog::a_line_under_edit_is_written_before()
{
    PageWithMilk window;
    window.open();
    window.open_line(0);
    window.qty().selectAll();
    QTest::keyClicks(&window.qty(), QStringLiteral("3"));
    MessageScript script;
    script.drive([&](QDialog& form) {
        QVERIFY(!window.editor().is_open());
        QCOMPARE(window.text("SELECT qty FROM recipe_2 WHERE key_id = 1"), QStringLiteral("3"));
        click_option(form, uncheck_option);
        click_button(form, 0);
    });
    click_clear(window);
    QCOMPARE(window.ingred(0), QStringLiteral("3 Milk"));
    QCOMPARE(window.picture("lite", 0), int(picture_base::light_off));
}

void tst_clearing_dialog::a_page_that_cannot_be_left_keeps_the_dialog_away()
{
    PageWithMilk window;
    window.open();
    window.focus(window.title());
    window.title().selectAll();
    QTest::keyClick(&window.title(), Qt::Key_Delete);
    MessageScript script;
    script.expect(QStringLiteral("Recipe name"),
                  QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"));
    click_clear(window);
    QCOMPARE(window.number("SELECT to_get FROM groc_1"), 1);
    QCOMPARE(window.title().text(), QStringLiteral("Recipe"));
}

void tst_clearing_dialog::lights_and_tool_tips_of_the_recipe_page_follow_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("light");
    QTest::addColumn<QString>("words");
    QTest::newRow("uncheck") << uncheck_option << int(picture_base::light_off)
                             << QStringLiteral("Inactive On Weekly list :: OTHER category");
    QTest::newRow("delete the unchecked")
        << unchecked_option << int(picture_base::light_unlisted) << QStringLiteral("Not listed :: OTHER category");
    QTest::newRow("delete all") << all_option << int(picture_base::light_unlisted)
                                << QStringLiteral("Not listed :: OTHER category");
    QTest::newRow("delete the list") << list_option << int(picture_base::light_unlisted)
                                     << QStringLiteral("Milk - Not listed :: OTHER category"); // the page is loaded
}

void tst_clearing_dialog::lights_and_tool_tips_of_the_recipe_page_follow()
{
    QFETCH(int, way);
    QFETCH(int, light);
    QFETCH(QString, words);
    PageWithMilk window;
    const bool ticked = way != unchecked_option;
    if (!ticked)
        Query(window.db(), "UPDATE groc_1 SET to_get = 0").run();
    window.open();
    QCOMPARE(window.picture("lite", 0), int(ticked ? picture_base::light_on : picture_base::light_off));
    MessageScript script;
    script.drive(choose_and_ok(way));
    if (way == unchecked_option)
        script.expect(warning, question("unchecked items", QStringLiteral("Weekly")));
    else if (way == all_option)
        script.expect(warning, question("items", QStringLiteral("Weekly")));
    else if (way == list_option)
        script.expect(warning,
                      QStringLiteral("The Weekly list has 1 items on it\nAre you sure you want to delete it?"),
                      Answer::yes);
    click_clear(window);
    for (const int line : {0, 2}) {
        QCOMPARE(window.picture("lite", line), light);
        QCOMPARE(window.picture("Check1", line), int(picture_base::check_off));
        QCOMPARE(window.control(QStringLiteral("ingred(%1)").arg(line)).toolTip(), words);
    }
    QCOMPARE(window.picture("lite", 1), int(picture_base::light_non_stock));
}

void tst_clearing_dialog::the_dialog_has_room_for_any_name_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* tag, const QString& name, const QString& caption = {}) {
        QTest::newRow(tag) << name << (caption.isEmpty() ? QStringLiteral("Delete %1 List").arg(name) : caption);
    };
    row("ampersand", QStringLiteral("Fish & chips"), QStringLiteral("Delete Fish && chips List"));
    row("markup", QStringLiteral("<b>bold</b>"));
    row("percent", QStringLiteral("100%1 %"), QStringLiteral("Delete 100%1 % List"));
    row("changed mark", QStringLiteral("[*]"));
    row("emoji", QString::fromUtf8("🥕 \"roots\""));
    row("10,000 signs", QString(10000, u'W'), QStringLiteral("cut"));
}

void tst_clearing_dialog::the_dialog_has_room_for_any_name()
{
    QFETCH(QString, name);
    QFETCH(QString, caption);
    TestWindow window;
    const Key list = window.add_list(name);
    window.set_pref(QStringLiteral("alist"), QString::number(list));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), list, false);
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        QVERIFY2(form.width() < 800, qPrintable(QString::number(form.width())));
        if (caption == QLatin1String("cut"))
            QVERIFY(option(form, list_option).text().startsWith(QLatin1String("Delete WWW"))
                    && option(form, list_option).text().endsWith(QLatin1String("WWW List")));
        else
            QCOMPARE(option(form, list_option).text(), caption);
        QCOMPARE(form.windowTitle().replace(QLatin1String("[*][*]"), QLatin1String("[*]")),
                 QStringLiteral("Clear ") + name + QStringLiteral(" list"));
        click_option(form, all_option);
        click_button(form, 0);
    });
    constexpr int longest_line = 500; // of a message
    QString last_line = QStringLiteral("the ") + name + QStringLiteral(" list?");
    if (last_line.size() > longest_line)
        last_line = last_line.left(longest_line) + QStringLiteral("...");
    script.expect(warning, QStringLiteral("Are you sure you want to\n\nDELETE ALL items from\n\n") + last_line);
    click_clear(window);
    QCOMPARE(window.number("SELECT count(*) FROM tie"), 0);
}

void tst_clearing_dialog::a_list_that_was_removed_meanwhile_is_told()
{
    HomeWithLists home;
    home.load();
    QStringList before;
    MessageScript script;
    script.drive([&](QDialog& form) {
        Query(home.db(), "DELETE FROM list_name WHERE key_id = ?", home.weekly).run();
        before = table_dump(home.db());
        click_button(form, 0);
        QVERIFY(!form.isVisible());
    });
    script.expect(QStringLiteral("Shopping list"),
                  QStringLiteral("This list no longer exists. Choose another one from the Shopping lists menu."));
    click_clear(home);
    QCOMPARE(table_dump(home.db()), before);
}

void tst_clearing_dialog::an_item_that_was_removed_meanwhile_takes_its_row_along()
{
    HomeWithLists home;
    home.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        Query(home.db(), "DELETE FROM items_1 WHERE key_id = ?", home.bread).run();
        click_option(form, all_option);
        click_button(form, 0);
    });
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(home);
    QCOMPARE(home.rows().rows(), 0);
    QCOMPARE(home.list_rows(), QStringLiteral("4:1,5:0"));
    QCOMPARE(home.links(), QStringLiteral("4-1-2,5-3-2"));
    QCOMPARE(home.items(), QStringLiteral("Milk70,Eggs60"));
}

void tst_clearing_dialog::keys_at_the_end_of_their_range_are_cleared()
{
    TestWindow window;
    window.db().db().exec(
        "INSERT INTO list_name (key_id, list_name) VALUES (32767, 'Weekly');"
        "INSERT INTO items_1 (key_id, item, cat, status) VALUES (9999, 'Ale', 0, 7), (10000, 'Bran', 0, 7),"
        " (1, 'Corn', 0, 7);"
        "INSERT INTO groc_1 (key_id, item, to_get) VALUES (9999, 'Ale', 1), (10000, 'Bran', 0), (32767, 'Corn', 1);"
        "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (9999, 9999, 9999, 32767),"
        " (10000, 10000, 10000, 32767), (32767, 32767, 1, 32767)");
    window.set_pref(QStringLiteral("alist"), QStringLiteral("32767"));
    frmmain& main = window.load();
    const auto statuses = [&] { return window.text("SELECT group_concat(item || status) FROM items_1"); };
    MessageScript script;
    script.drive(choose_and_ok(unchecked_option));
    script.expect(warning, question("unchecked items", QStringLiteral("Weekly")));
    click_clear(window);
    QCOMPARE(main.list_pane().grid().rows().rows(), 2);
    QCOMPARE(statuses(), QStringLiteral("Corn7,Ale7,Bran5"));
    script.drive(choose_and_ok(uncheck_option));
    click_clear(window);
    QCOMPARE(statuses(), QStringLiteral("Corn6,Ale6,Bran5"));
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(window);
    QCOMPARE(statuses(), QStringLiteral("Corn5,Ale5,Bran5"));
    QCOMPARE(window.number("SELECT count(*) FROM tie"), 0);
    QCOMPARE(TreeView::picture(main.stock_tree().item_node(9999)), 5);
}

void tst_clearing_dialog::the_window_goes_on_with_the_keyboard_where_it_was()
{
    HomeWithLists home;
    frmmain& main = home.load();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    TreeView& tree = main.stock_tree().view();
    tree.ensure_visible(home.node(home.milk));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.text_rect(home.node(home.milk)).center());
    QVERIFY(tree.hasFocus());
    MessageScript script;
    script.drive(choose_and_ok(all_option));
    script.expect(warning, question("items", QStringLiteral("Weekly")));
    click_clear(home);
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    QVERIFY(tree.hasFocus());
    QVERIFY(main.isEnabled());
    QCOMPARE(tree.selected(), home.node(home.milk));
}

QTEST_MAIN(tst_clearing_dialog)
#include "tst_clearing_dialog.moc"
