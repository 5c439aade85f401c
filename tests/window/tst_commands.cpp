#include "window/frmmain.h"
#include "widgets/header_bar.h"
#include "lists/list_pane.h"
#include "window/commands.h"
#include "window/menu_table.h"
#include "window/view_state.h"
#include "support/menu_hands.h"
#include "support/test_window.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QtTest>

using namespace tarnwick;

namespace {

/// The items of a menu as "name=caption", without separators and list entries.
QStringList items_of(const QMenu& menu)
{
    QStringList items;
    for (const QAction* action : menu.actions())
        if (!action->isSeparator() && !action->objectName().startsWith(QLatin1String("mnu_list_list")))
            items << action->objectName() + QLatin1Char('=') + Commands::plain_caption(*action);
    return items;
}

} // namespace

class tst_commands : public QObject {
    Q_OBJECT
private slots:
    void menu_bar_has_its_menus_in_order();
    void each_menu_of_the_bar_has_a_letter_of_its_own_and_a_caption_without_it();
    void menus_have_their_items_in_order_data();
    void menus_have_their_items_in_order();
    void pop_ups_are_not_on_the_bar();
    void no_item_has_a_shortcut_key();
    void every_action_is_found_by_its_name();
    void ampersand_in_a_caption_is_shown_as_such();
    void list_array_always_has_an_entry_0();
    void list_entries_stand_between_their_separators();
    void choosing_a_list_entry_reports_its_index_and_leaves_the_tick();
    void a_choice_does_not_tick_by_itself();
    void exit_ends_the_program_and_writes_nothing();
    void view_items_switch_the_left_tree();
    void page_items_act_only_if_the_other_is_checked_and_write_the_reverse_value();
    void column_items_toggle_the_boxes();
    void row_pop_up_asks_for_edit_and_removal();
};

void tst_commands::menu_bar_has_its_menus_in_order()
{
    TestWindow w;
    frmmain main(w.environment());
    QStringList menus;
    for (const QAction* action : main.menuBar()->actions())
        menus << action->objectName() + QLatin1Char('=') + action->text().remove(u'&');
    const QStringList expected{QStringLiteral("mnu_list=Shopping lists"), QStringLiteral("mnu_recipe=Recipes"),
                               QStringLiteral("mnu_edit=Stock"),          QStringLiteral("mnu_tools=Tools"),
                               QStringLiteral("mnu_view=View"),           QStringLiteral("mnu_help=Help")};
    QCOMPARE(menus, expected);
}

void tst_commands::each_menu_of_the_bar_has_a_letter_of_its_own_and_a_caption_without_it()
{
    TestWindow w;
    frmmain main(w.environment());
    QSet<QString> letters;
    for (const QAction* action : main.menuBar()->actions()) {
        const QString title = action->menu()->title();
        QCOMPARE(title.count(u'&'), 1);
        letters.insert(title.mid(title.indexOf(u'&') + 1, 1).toLower());
        QVERIFY(!main.commands().caption(action->objectName()).contains(u'&'));
    }
    QCOMPARE(letters.size(), 6);
}

void tst_commands::menus_have_their_items_in_order_data()
{
    QTest::addColumn<QString>("items");
    const auto row = [](const char* menu, const char* items) { QTest::newRow(menu) << QString::fromLatin1(items); };
    row("mnu_list",
        "mnu_list_new=New;mnu_list_Print=Print;mnu_list_prntsetup=Print setup;"
        "mnu_list_clear=Clear shopping list;mnu_list_del=Delete shopping list;"
        "mnu_list_RenameList=Rename shopping list;mnu_list_exit=Exit");
    row("mnu_recipe",
        "mnu_recipe_add_ingred=Add ingredient;mnu_recipe_new=New recipe;"
        "mnu_recipe_prnt=Print recipe;mnu_recipe_del=Delete recipe;mnu_recipe_move=Move recipe");
    row("mnu_edit",
        "mnu_edit_add_stck=New stock item;mnu_edit_move=Move stock item;"
        "mnu_edit_stock_to_list=Add stock item to list;mnu_edit_add_cat=New stock category;"
        "mnu_edit_rn_cat=Rename stock category;mnu_edit_del_cat=Delete stock category");
    row("mnu_tools",
        "mnu_tools_listlist=List manager;mnu_tools_find=Find;mnu_tools_wp=Word processor;"
        "mnu_tool_email=Email");
    row("mnu_tools_find", "mnu_tools_find_item=Stock item(s);mnu_tools_find_recipe=Recipe(s)");
    row("mnu_tools_wp",
        "mnu_tools_wp_rcp=Open recipe in word processor;"
        "mnu_tools_wp_list=Open shopping list in word processor");
    row("mnu_tool_email", "mnu_tools_email_rcp=Recipe;mnu_tools_email_list=Shopping list");
    row("mnu_view",
        "mnu_view_stock=Stock list;mnu_view_rcp=Recipes list;mnu_view_shoplist=Shopping list;"
        "mnu_view_rcpepages=Recipe pages;mnu_view_sort=Sort stock;mnu_view_sort_r=Sort recipes;"
        "mnu_view_cpn=Hide coupon-expiry column;mnu_view_aisle=Hide aisle column;"
        "mnu_view_cntrct_all=Close all folders;mnu_view_color=page view color...");
    row("mnu_view_sort", "mnu_view_sort_cat=By category;mnu_view_sort_alpha=Alphabetic");
    row("mnu_view_sort_r", "mnu_view_sort_cat_r=By category;mnu_view_sort_alpha_r=Alphabetic");
    row("mnu_help", "mnu_help_launch=Tarnwick help topics;mnu_help_about=About TarnWick");
    row("mnu_lv", "mnu_lv_ed=Edit item;mnu_lv_di=Remove item");
    row("mnu_tv",
        "mnu_tv_ni=New stock item;mnu_tv_edit=Edit stock item;mnu_tv_di=Delete item;"
        "mnu_tv_rename=Rename item;mnu_tv_move=Move item;mnu_tv_nc=New category;"
        "mnu_tv_rn=Rename category;mnu_tv_dc=Delete category;mnu_tv_ai=Add item to list;"
        "mnu_tv_air=Add item to recipe");
    row("mnu_tv_r", "mnu_tv_r_del=Delete recipe;mnu_tv_r_move=Move recipe;mnu_tv_r_new=New recipe");
    row("mnu_ingred", "mnu_ingred_del=Delete ingredient");
    row("mnu_more",
        "mnu_more_find=Find;mnu_more_sort=Sort;mnu_more_close_folders=Snap closed all folders;"
        "mnu_more_size=Size");
    row("mnu_more_sort", "mnu_more_sort_alpha=Alphabetically;mnu_more_sort_cat=By category");
    row("mnu_more_size", "mnu_more_sml=Small;mnu_more_mdm=Medium;mnu_more_lrg=Large");
}

void tst_commands::menus_have_their_items_in_order()
{
    QFETCH(QString, items);
    TestWindow w;
    frmmain main(w.environment());
    const auto* menu = main.findChild<QMenu*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(menu);
    QCOMPARE(items_of(*menu).join(QLatin1Char(';')), items);
}

void tst_commands::pop_ups_are_not_on_the_bar()
{
    TestWindow w;
    frmmain main(w.environment());
    for (const char* name : {"mnu_lv", "mnu_tv", "mnu_tv_r", "mnu_ingred", "mnu_more"})
        QVERIFY(!main.menuBar()->actions().contains(&main.commands().action(QString::fromLatin1(name))));
}

void tst_commands::no_item_has_a_shortcut_key()
{
    TestWindow w;
    frmmain main(w.environment());
    const auto actions = main.findChildren<QAction*>();
    QVERIFY(actions.size() > 80);
    for (const QAction* action : actions)
        QVERIFY2(action->shortcut().isEmpty(), qPrintable(action->objectName()));
}

void tst_commands::every_action_is_found_by_its_name()
{
    TestWindow w;
    frmmain main(w.environment());
    for (const MenuRow& row : menu_table()) {
        if (row.kind == MenuKind::list_array)
            continue;
        const QString name = QString::fromLatin1(row.name);
        QCOMPARE(main.findChild<QAction*>(name), &main.commands().action(name));
    }
    QVERIFY(main.findChild<QAction*>(QStringLiteral("mnu_list_list(0)")));
}

void tst_commands::ampersand_in_a_caption_is_shown_as_such()
{
    TestWindow w;
    frmmain main(w.environment());
    main.commands().set_caption(QStringLiteral("mnu_list_del"), QStringLiteral("Delete Fish & Chips list"));
    const QAction& action = main.commands().action(QStringLiteral("mnu_list_del"));
    QCOMPARE(action.text(), QStringLiteral("Delete Fish && Chips list"));
    QCOMPARE(action.property("Caption").toString(), QStringLiteral("Delete Fish & Chips list"));
    QCOMPARE(main.commands().caption(QStringLiteral("mnu_list_del")), QStringLiteral("Delete Fish & Chips list"));
}

void tst_commands::list_array_always_has_an_entry_0()
{
    TestWindow w;
    frmmain main(w.environment());
    Commands& commands = main.commands();
    QCOMPARE(commands.list_entries(), 1);
    commands.set_list_entry_count(4);
    QCOMPARE(commands.list_entries(), 4);
    QCOMPARE(commands.list_entry(3).objectName(), QStringLiteral("mnu_list_list(3)"));
    commands.set_list_entry_count(0);
    QCOMPARE(commands.list_entries(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!main.findChild<QAction*>(QStringLiteral("mnu_list_list(1)")));
    QCOMPARE(commands.list_entry(0).objectName(), QStringLiteral("mnu_list_list(0)"));
}

void tst_commands::list_entries_stand_between_their_separators()
{
    TestWindow w;
    frmmain main(w.environment());
    main.commands().set_list_entry_count(2);
    QStringList names;
    for (const QAction* action : main.commands().menu(QStringLiteral("mnu_list")).actions())
        names << action->objectName();
    const QStringList begin{QStringLiteral("mnu_list_new"), QStringLiteral("mnu_list_sep"),
                            QStringLiteral("mnu_list_list(0)"), QStringLiteral("mnu_list_list(1)"),
                            QStringLiteral("mnu_list_sep_2")};
    QCOMPARE(names.mid(0, 5), begin);
}

void tst_commands::choosing_a_list_entry_reports_its_index_and_leaves_the_tick()
{
    TestWindow w;
    w.add_list(QStringLiteral("Camping"));
    const Key party = w.add_list(QStringLiteral("Party"));
    w.set_pref(QStringLiteral("alist"), QString::number(party));
    const Commands& commands = w.load().commands();
    const QSignalSpy chosen(&commands, &Commands::list_chosen);
    QVERIFY(commands.list_entry(1).isChecked());
    choose_list(w, party);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0).at(0).toInt(), 1);
    QVERIFY(commands.list_entry(1).isChecked());
}

void tst_commands::a_choice_does_not_tick_by_itself()
{
    TestWindow w;
    const Commands& commands = w.load().commands();
    const QAction& by_category = commands.action(QStringLiteral("mnu_view_sort_cat"));
    QVERIFY(by_category.isChecked());
    trigger(w, "mnu_view_sort_cat"); // is in force already
    QVERIFY(by_category.isChecked());
}

void tst_commands::exit_ends_the_program_and_writes_nothing()
{
    TestWindow w;
    frmmain& main = w.load();
    w.set_pref(QStringLiteral("fwidth"), QStringLiteral("1"));
    QAction& exit = main.commands().action(QStringLiteral("mnu_list_exit"));
    QVERIFY(exit.isEnabled());
    exit.trigger();
    QCOMPARE(w.ends, 1);
    QCOMPARE(w.pref(QStringLiteral("fwidth")), QStringLiteral("1"));
}

void tst_commands::view_items_switch_the_left_tree()
{
    TestWindow w;
    frmmain& main = w.load();
    Commands& commands = main.commands();
    QAction& recipes = commands.action(QStringLiteral("mnu_view_rcp"));
    QAction& stock = commands.action(QStringLiteral("mnu_view_stock"));
    QVERIFY(stock.isChecked() && !recipes.isChecked());
    QVERIFY(recipes.isEnabled());
    recipes.trigger();
    QVERIFY(!main.shared.stock_view);
    QVERIFY(recipes.isChecked() && !stock.isChecked());
    QCOMPARE(w.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    QVERIFY(stock.isEnabled());
    stock.trigger();
    QVERIFY(main.shared.stock_view);
    QVERIFY(stock.isChecked() && !recipes.isChecked());
    QCOMPARE(w.pref(QStringLiteral("tv_view")), QStringLiteral("1"));
}

void tst_commands::page_items_act_only_if_the_other_is_checked_and_write_the_reverse_value()
{
    TestWindow w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    frmmain& main = w.load();
    QAction& pages = main.commands().action(QStringLiteral("mnu_view_rcpepages"));
    QAction& list = main.commands().action(QStringLiteral("mnu_view_shoplist"));
    QVERIFY(list.isEnabled() && list.isChecked());
    list.trigger();
    QVERIFY(list.isChecked());
    QCOMPARE(w.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
    QVERIFY(pages.isEnabled());
    pages.trigger();
    QVERIFY(!main.shared.list_pane_shown);
    QVERIFY(pages.isChecked() && !list.isChecked());
    QCOMPARE(w.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
    list.trigger();
    QVERIFY(main.shared.list_pane_shown);
    QVERIFY(list.isChecked() && !pages.isChecked());
    QCOMPARE(w.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
}

void tst_commands::column_items_toggle_the_boxes()
{
    TestWindow w;
    frmmain& main = w.load();
    for (const ColumnGroup group : column_groups) {
        QCheckBox& box = main.list_pane().header().show_box(group);
        const bool before = box.isChecked();
        QAction& item = main.commands().action(group == ColumnGroup::coupon ? QStringLiteral("mnu_view_cpn")
                                                                            : QStringLiteral("mnu_view_aisle"));
        QVERIFY(item.isEnabled());
        item.trigger();
        QCOMPARE(box.isChecked(), !before);
        item.trigger();
        QCOMPARE(box.isChecked(), before);
    }
}

void tst_commands::row_pop_up_asks_for_edit_and_removal()
{
    TestWindow w;
    frmmain main(w.environment());
    disconnect(&main.commands(), &Commands::edit_row_wanted, nullptr, nullptr);
    disconnect(&main.commands(), &Commands::remove_row_wanted, nullptr, nullptr);
    const QSignalSpy edit(&main.commands(), &Commands::edit_row_wanted);
    const QSignalSpy remove(&main.commands(), &Commands::remove_row_wanted);
    main.commands().action(QStringLiteral("mnu_lv_ed")).trigger();
    QCOMPARE(edit.size(), 1);
    QCOMPARE(remove.size(), 0);
    main.commands().action(QStringLiteral("mnu_lv_di")).trigger();
    QCOMPARE(remove.size(), 1);
}

QTEST_MAIN(tst_commands)
#include "tst_commands.moc"
