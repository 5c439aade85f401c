#include "data/query.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "lists/list_menu.h"
#include "lists/list_pane.h"
#include "lists/lists.h"
#include "support/table_dump.h"

#include <QCheckBox>
#include <QMessageBox>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace tarnwick;

class tst_lists : public QObject {
    Q_OBJECT
private slots:
    void new_list_becomes_current_and_is_stored_under_velora();
    void restart_after_a_new_list_reads_the_older_setting();
    void name_of_apostrophes_only_is_written_empty();
    void name_that_differs_only_in_case_is_taken();
    void pattern_signs_in_a_name_match_other_names_data();
    void pattern_signs_in_a_name_match_other_names();

    void menu_without_lists_is_hidden_and_the_notice_shows();
    void notice_stays_hidden_while_a_recipe_page_is_shown();
    void menu_with_one_list_has_no_entry_for_all();
    void menu_with_several_lists_ends_with_all();
    void ampersand_of_a_name_is_shown_in_the_menu();
    void second_list_adds_the_entry_for_all();

    void choosing_a_list_stores_it_and_loads_it();
    void choosing_all_takes_the_way_of_a_list_with_tag_0();
    void restart_comes_back_to_all_lists();
    void caption_of_exactly_all_stores_s_all_as_1();
    void caption_create_a_shopping_list_opens_the_dialog();
    void choosing_turns_back_from_the_recipe_page();
    void stale_setting_shows_an_empty_grid_without_rename();

    void rename_asks_writes_and_shows_the_name();
    void rename_without_a_name_changes_nothing_data();
    void rename_without_a_name_changes_nothing();
    void rename_allows_a_name_twice_and_strips_apostrophes();
    void rename_is_not_offered_in_the_all_lists_view();
    void rename_box_shows_a_name_like_markup_letter_by_letter();

    void deleting_an_empty_list_asks_by_name();
    void deleting_a_list_with_rows_removes_them_and_updates_items();
    void answer_no_keeps_the_list();
    void after_a_deletion_the_first_list_is_current_and_the_setting_is_1();
    void deleting_the_last_list_hides_both_column_groups_for_good();
    void list_with_dead_links_only_says_so_and_goes();
};

void tst_lists::new_list_becomes_current_and_is_stored_under_velora()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    make_list(window, QStringLiteral("Camping"));
    QCOMPARE(int(main.shared.current_list), 2);
    QVERIFY(!main.shared.all_lists_view);
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Camping list)"));
    QCOMPARE(window.pref(QStringLiteral("alist"), QStringLiteral("velora")), QStringLiteral("2"));
    QCOMPARE(window.pref(QStringLiteral("alist")), QStringLiteral("1"));
}

void tst_lists::restart_after_a_new_list_reads_the_older_setting()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    make_list(window, QStringLiteral("Camping"));
    frmmain& again = window.load();
    QCOMPARE(int(again.shared.current_list), 1);
    QCOMPARE(again.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
}

void tst_lists::name_of_apostrophes_only_is_written_empty()
{
    TestWindow window;
    window.load();
    make_list(window, QStringLiteral("'''"));
    QCOMPARE(window.number("SELECT count(*) FROM list_name"), 1);
    QCOMPARE(window.text("SELECT list_name FROM list_name"), QString());
}

void tst_lists::name_that_differs_only_in_case_is_taken()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.load();
    MessageScript script;
    script.drive([&script](QDialog& form) {
        script.expect(QStringLiteral("Valora info"),
                      QStringLiteral("There is already a list named \nwEEKLY:\nPlease provide a different name\n"
                                     "for your new list - or CANCEL"),
                      Answer::ok, [](QDialog& message) {
                          QCOMPARE(dynamic_cast<QMessageBox&>(message).icon(), QMessageBox::Information);
                      });
        type_name(form, QStringLiteral("w'EEKLY"));
        QVERIFY(form.isVisible());
        QCOMPARE(form.findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("wEEKLY"));
        type_name(form, QStringLiteral("Another"));
        QVERIFY(!form.isVisible());
    });
    trigger(window, "mnu_list_new");
    QCOMPARE(window.text("SELECT group_concat(list_name) FROM list_name"), QStringLiteral("Weekly,Another"));
}

void tst_lists::pattern_signs_in_a_name_match_other_names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("taken");
    QTest::newRow("any text") << QStringLiteral("We%") << true;
    QTest::newRow("any sign") << QStringLiteral("W__kly") << true;
    QTest::newRow("too few signs") << QStringLiteral("W_kly") << false;
    QTest::newRow("another beginning") << QStringLiteral("x%") << false;
}

void tst_lists::pattern_signs_in_a_name_match_other_names()
{
    QFETCH(QString, name);
    QFETCH(bool, taken);
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.load();
    MessageScript script;
    script.drive([&](QDialog& form) {
        if (taken)
            script.expect(QStringLiteral("Valora info"),
                          QStringLiteral("There is already a list named \n") + name
                              + QStringLiteral(":\nPlease provide a different name\n"
                                               "for your new list - or CANCEL"));
        type_name(form, name);
        QCOMPARE(form.isVisible(), taken);
        if (form.isVisible())
            form.reject();
    });
    trigger(window, "mnu_list_new");
    QCOMPARE(window.number("SELECT count(*) FROM list_name"), taken ? 1 : 2);
    QCOMPARE(window.text("SELECT list_name FROM list_name ORDER BY key_id DESC LIMIT 1"),
             taken ? QStringLiteral("Weekly") : name);
}

void tst_lists::menu_without_lists_is_hidden_and_the_notice_shows()
{
    TestWindow window;
    frmmain& main = window.load();
    QCOMPARE(int(main.shared.current_list), -1);
    QCOMPARE(entries(window), QStringList());
    const QAction& entry = main.commands().list_entry(0);
    QCOMPARE(entry.text(), QStringLiteral("list"));
    QCOMPARE(Commands::list_entry_tag(entry), QStringLiteral("-1"));
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_sep")).isVisible());
    QVERIFY(notice(window)->isVisible());
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick"));
}

void tst_lists::notice_stays_hidden_while_a_recipe_page_is_shown()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    frmmain& main = window.load();
    trigger(window, "mnu_view_rcpepages");
    main.household().delete_list(weekly); // as the list manager does beside the page
    QVERIFY(!main.shared.list_pane_shown);
    QVERIFY(!notice(window)->isVisible());
    trigger(window, "mnu_view_shoplist");
    QVERIFY(notice(window)->isVisible());
}

void tst_lists::menu_with_one_list_has_no_entry_for_all()
{
    TestWindow window;
    window.add_list(QStringLiteral(" Weekly "));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    QCOMPARE(entries(window), QStringList{QStringLiteral("1: Weekly|1|ticked")});
    QVERIFY(main.commands().action(QStringLiteral("mnu_list_sep")).isVisible());
    QVERIFY(!notice(window)->isVisible());
}

void tst_lists::menu_with_several_lists_ends_with_all()
{
    TestWindow window;
    window.add_list(QStringLiteral("weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.add_list(QStringLiteral("apples"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = window.load();
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: apples|3"), QStringLiteral("2: Camping|2|ticked"),
                          QStringLiteral("3: weekly|1"), QStringLiteral("4: All|0")}));
    choose_list(window, 0);
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: apples|3"), QStringLiteral("2: Camping|2"),
                          QStringLiteral("3: weekly|1"), QStringLiteral("4: All|0|ticked")}));
}

void tst_lists::ampersand_of_a_name_is_shown_in_the_menu()
{
    TestWindow window;
    window.add_list(QStringLiteral("Fish & Chips"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    const QAction& entry = main.commands().list_entry(0);
    QCOMPARE(entry.text(), QStringLiteral("1: Fish && Chips"));
    QCOMPARE(entry.property("Caption").toString(), QStringLiteral("1: Fish & Chips"));
}

void tst_lists::second_list_adds_the_entry_for_all()
{
    TestWindow window;
    window.load();
    make_list(window, QStringLiteral("Weekly"));
    QVERIFY(!notice(window)->isVisible());
    QCOMPARE(entries(window), QStringList{QStringLiteral("1: Weekly|1|ticked")});
    make_list(window, QStringLiteral("Camping"));
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: Camping|2|ticked"), QStringLiteral("2: Weekly|1"),
                          QStringLiteral("3: All|0")}));
}

void tst_lists::choosing_a_list_stores_it_and_loads_it()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    const Key camping = window.add_list(QStringLiteral("Camping"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), weekly, true);
    window.set_pref(QStringLiteral("alist"), QString::number(camping));
    window.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    frmmain& main = window.load();
    QCOMPARE(main.list_pane().grid().rows().rows(), 0);
    choose(window, 1);
    QCOMPARE(int(main.shared.current_list), int(weekly));
    QVERIFY(!main.shared.all_lists_view);
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
    QCOMPARE(window.pref(QStringLiteral("alist")), QString::number(weekly));
    QCOMPARE(window.pref(QStringLiteral("s_all")), QStringLiteral("0"));
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: Camping|2"), QStringLiteral("2: Weekly|1|ticked"),
                          QStringLiteral("3: All|0")}));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Weekly list)"));
    QVERIFY(main.updatesEnabled());
}

void tst_lists::choosing_all_takes_the_way_of_a_list_with_tag_0()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    choose(window, 2);
    QCOMPARE(int(main.shared.current_list), 0);
    QVERIFY(main.shared.all_lists_view);
    QCOMPARE(window.pref(QStringLiteral("alist")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("s_all")), QStringLiteral("0"));
    QCOMPARE(entries(window).last(), QStringLiteral("3: All|0|ticked"));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (viewing all lists)"));
}

void tst_lists::restart_comes_back_to_all_lists()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    choose(window, 2);
    frmmain& again = window.load();
    QVERIFY(again.shared.all_lists_view);
    QCOMPARE(int(again.shared.current_list), 0);
}

void tst_lists::caption_of_exactly_all_stores_s_all_as_1()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    main.commands().list_entry(1).setProperty("Caption", QStringLiteral(" All "));
    choose(window, 1);
    QVERIFY(main.shared.all_lists_view);
    QCOMPARE(int(main.shared.current_list), 0);
    QCOMPARE(window.pref(QStringLiteral("s_all")), QStringLiteral("1"));
    QCOMPARE(window.pref(QStringLiteral("alist")), QStringLiteral("0"));
}

void tst_lists::caption_create_a_shopping_list_opens_the_dialog()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    main.commands().list_entry(0).setProperty("Caption", QStringLiteral("Create a shopping list"));
    MessageScript script;
    script.drive([](QDialog& form) { type_name(form, QStringLiteral("Camping")); });
    choose(window, 0);
    QCOMPARE(int(main.shared.current_list), 2);
}

void tst_lists::choosing_turns_back_from_the_recipe_page()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    trigger(window, "mnu_view_rcpepages");
    QVERIFY(!main.list_pane().grid().isVisible());
    choose(window, 0);
    QVERIFY(main.shared.list_pane_shown);
    QVERIFY(main.list_pane().grid().isVisible());
}

void tst_lists::stale_setting_shows_an_empty_grid_without_rename()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), 1, true);
    window.set_pref(QStringLiteral("alist"), QStringLiteral("77"));
    frmmain& main = window.load();
    QCOMPARE(main.list_pane().grid().rows().rows(), 0);
    QCOMPARE(int(main.shared.current_list), 77);
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_RenameList")).isVisible());
    choose(window, 1);
    QVERIFY(main.commands().action(QStringLiteral("mnu_list_RenameList")).isVisible());
}

void tst_lists::rename_asks_writes_and_shows_the_name()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        answer_input(form, QStringLiteral("Enter a new name for the Weekly list\n- or choose CANCEL\n\nNew name:"),
                     QStringLiteral("  Aunt & 'Uncle' "));
    });
    trigger(window, "mnu_list_RenameList");
    QCOMPARE(window.text("SELECT list_name FROM list_name WHERE key_id = 1"), QStringLiteral("Aunt & Uncle"));
    // The order of the menu waits for the next rebuild.
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: Camping|2"), QStringLiteral("2: Aunt && Uncle|1|ticked"),
                          QStringLiteral("3: All|0")}));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Aunt & Uncle list)"));
    main.lists().set_mnu_lists();
    QCOMPARE(entries(window).first(), QStringLiteral("1: Aunt && Uncle|1|ticked"));
}

void tst_lists::rename_without_a_name_changes_nothing_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("cancel");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("blanks") << QStringLiteral("   ") << false;
    QTest::newRow("cancel") << QStringLiteral("Camping") << true;
}

void tst_lists::rename_without_a_name_changes_nothing()
{
    QFETCH(QString, answer);
    QFETCH(bool, cancel);
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.drive([&](QDialog& form) {
        form.findChild<QLineEdit*>()->setText(answer);
        if (cancel)
            form.reject();
        else
            form.accept();
    });
    trigger(window, "mnu_list_RenameList");
    QCOMPARE(table_dump(window.db()), before);
}

void tst_lists::rename_allows_a_name_twice_and_strips_apostrophes()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    MessageScript script;
    script.drive([](QDialog& form) {
        form.findChild<QLineEdit*>()->setText(QStringLiteral("Ca'mping"));
        form.accept();
    });
    trigger(window, "mnu_list_RenameList");
    QCOMPARE(window.text("SELECT group_concat(list_name) FROM list_name"), QStringLiteral("Camping,Camping"));
}

void tst_lists::rename_is_not_offered_in_the_all_lists_view()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    frmmain& main = window.load();
    QVERIFY(main.commands().action(QStringLiteral("mnu_list_RenameList")).isVisible());
    choose(window, 2);
    QVERIFY(!main.commands().action(QStringLiteral("mnu_list_RenameList")).isVisible());
}

void tst_lists::rename_box_shows_a_name_like_markup_letter_by_letter()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    const QString name = QStringLiteral("<b>x</b>");
    for (const QString& shown : {QStringLiteral("Weekly"), name}) {
        QList<Qt::TextFormat> formats;
        MessageScript script;
        script.drive([&](QDialog& form) {
            for (const QLabel* label : form.findChildren<QLabel*>())
                formats += label->textFormat();
            answer_input(form,
                         QStringLiteral("Enter a new name for the ") + shown
                             + QStringLiteral(" list\n- or choose CANCEL\n\nNew name:"),
                         name);
        });
        trigger(window, "mnu_list_RenameList");
        QCOMPARE(formats, QList<Qt::TextFormat>{Qt::PlainText});
    }
    QCOMPARE(window.text("SELECT list_name FROM list_name"), name);
}

void tst_lists::deleting_an_empty_list_asks_by_name()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Are you sure you want to \ndelete the Weekly list?"),
                  Answer::yes, [](QDialog& form) {
                      const auto& message = dynamic_cast<QMessageBox&>(form);
                      QCOMPARE(message.icon(), QMessageBox::Warning);
                      QCOMPARE(message.defaultButton(), message.button(QMessageBox::Yes));
                  });
    trigger(window, "mnu_list_del");
    QCOMPARE(window.text("SELECT group_concat(list_name) FROM list_name"), QStringLiteral("Camping"));
}

void tst_lists::deleting_a_list_with_rows_removes_them_and_updates_items()
{
    TestWindow window;
    const Key weekly = window.add_list(QStringLiteral("Weekly"));
    const Key camping = window.add_list(QStringLiteral("Camping"));
    const Key milk = window.add_item(QStringLiteral("Milk"), 0, 8);
    const Key bread = window.add_item(QStringLiteral("Bread"), 0, 7);
    window.add_row(milk, weekly, true);
    window.add_row(bread, weekly, true);
    const Key kept = window.add_row(milk, camping, true);
    window.set_pref(QStringLiteral("alist"), QString::number(weekly));
    frmmain& main = window.load();
    MessageScript script;
    script.expect(QStringLiteral("Warning"),
                  QStringLiteral("The Weekly list has 2 items on it\nAre you sure you want to delete it?"),
                  Answer::yes);
    trigger(window, "mnu_list_del");
    QCOMPARE(window.text("SELECT group_concat(key_id) FROM groc_1"), QString::number(kept));
    QCOMPARE(window.text("SELECT group_concat(groc_id) FROM tie"), QString::number(kept));
    QCOMPARE(window.text("SELECT group_concat(item || status || to_get) FROM items_1"),
             QStringLiteral("Milk70,Bread50"));
    QCOMPARE(int(main.shared.current_list), int(camping));
    QCOMPARE(main.list_pane().grid().rows().rows(), 1);
}

void tst_lists::answer_no_keeps_the_list()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), list, true);
    window.set_pref(QStringLiteral("alist"), QString::number(list));
    window.load();
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.expect(QStringLiteral("Warning"),
                  QStringLiteral("The Weekly list has 1 items on it\nAre you sure you want to delete it?"),
                  Answer::no);
    trigger(window, "mnu_list_del");
    QCOMPARE(table_dump(window.db()), before);
    QCOMPARE(window.main().list_pane().grid().rows().rows(), 1);
}

void tst_lists::after_a_deletion_the_first_list_is_current_and_the_setting_is_1()
{
    TestWindow window;
    for (const char* name : {"Zoo", "Weekly", "Camping"})
        window.add_list(QString::fromLatin1(name));
    window.db().db().exec("UPDATE list_name SET key_id = key_id + 10");
    window.set_pref(QStringLiteral("alist"), QStringLiteral("12"));
    frmmain& main = window.load();
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Are you sure you want to \ndelete the Weekly list?"),
                  Answer::yes);
    trigger(window, "mnu_list_del");
    QCOMPARE(int(main.shared.current_list), 11);
    QCOMPARE(window.pref(QStringLiteral("alist")), QStringLiteral("1"));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Zoo list)"));
    QCOMPARE(entries(window),
             (QStringList{QStringLiteral("1: Camping|13"), QStringLiteral("2: Zoo|11|ticked"),
                          QStringLiteral("3: All|0")}));
}

void tst_lists::deleting_the_last_list_hides_both_column_groups_for_good()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("cpn"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("aisle"), QStringLiteral("1"));
    frmmain& main = window.load();
    HeaderBar& header = main.list_pane().header();
    QVERIFY(header.group_shown(ColumnGroup::coupon));
    QVERIFY(header.group_shown(ColumnGroup::aisle));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), QStringLiteral("Are you sure you want to \ndelete the Weekly list?"),
                  Answer::yes);
    trigger(window, "mnu_list_del");
    QCOMPARE(int(main.shared.current_list), -1);
    QCOMPARE(window.pref(QStringLiteral("alist")), QStringLiteral("-1"));
    QCOMPARE(window.pref(QStringLiteral("cpn"), QStringLiteral("Velora")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("aisle"), QStringLiteral("Velora")), QStringLiteral("0"));
    QVERIFY(notice(window)->isVisible());
    make_list(window, QStringLiteral("Camping"));
    QVERIFY(!header.group_shown(ColumnGroup::coupon));
    QVERIFY(!header.group_shown(ColumnGroup::aisle));
    QCOMPARE(main.list_pane().grid().col_width(GridColumn::aisle), 0);
    QCOMPARE(main.list_pane().grid().col_width(GridColumn::date), 0);
}

void tst_lists::list_with_dead_links_only_says_so_and_goes()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.add_list(QStringLiteral("Camping"));
    window.db().db().exec("INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (1, 50, 60, 1)");
    window.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    window.load();
    MessageScript script;
    script.expect(QStringLiteral("Warning"),
                  QStringLiteral("The Weekly list has 1 items on it\nAre you sure you want to delete it?"),
                  Answer::yes);
    script.expect(QStringLiteral("list info"), QStringLiteral("No unchecked items in the Weekly list"));
    trigger(window, "mnu_list_del");
    QCOMPARE(window.text("SELECT group_concat(list_name) FROM list_name"), QStringLiteral("Camping"));
}

QTEST_MAIN(tst_lists)
#include "tst_lists.moc"
