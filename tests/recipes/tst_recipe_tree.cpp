#include "recipes/recipe_fixture.h"

#include "data/runtime_error.h"
#include "household/recipe_categories.h"
#include "support/error_number.h"
#include "support/shown_things.h"
#include "support/table_dump.h"

#include <QMenu>
#include <QMessageBox>

using namespace tarnwick;

class tst_recipe_tree : public QObject {
    Q_OBJECT

private slots:
    void the_fifteen_categories_stand_in_their_order();
    void recipes_stand_under_their_category_in_name_order();
    void the_recipe_of_the_last_run_is_selected_in_its_open_folder();
    void in_the_flat_view_recipes_stand_in_name_order_and_cannot_be_moved();
    void in_the_flat_view_the_move_command_names_its_recipe();
    void sorting_ticks_the_order_and_stores_it();
    void the_order_in_force_is_not_loaded_again();
    void sorting_saves_the_page_first();
    void a_recipe_of_an_unknown_or_one_digit_category_is_not_lost();
    void a_key_in_use_is_error_35602_and_leaves_no_node();
    void a_click_on_a_recipe_shows_its_page();
    void a_click_on_a_category_counts_its_recipes();
    void folders_open_and_close_with_their_pictures();
    void closing_all_folders_stores_nothing();
    void arrow_keys_do_not_change_the_page();
    void no_label_can_be_edited();
    void a_right_click_shows_the_menu();
    void delete_key_on_a_category_is_refused();
};

void tst_recipe_tree::the_fifteen_categories_stand_in_their_order()
{
    RecipeWindow window;
    window.load();
    QCOMPARE(window.tree().topLevelItemCount(), 15);
    QCOMPARE(names_in(window.tree().invisibleRootItem()),
             QStringList({QStringLiteral("poultry"), QStringLiteral("meat"), QStringLiteral("seafood"),
                          QStringLiteral("vegetarian"), QStringLiteral("pasta"), QStringLiteral("rice"),
                          QStringLiteral("dairy"), QStringLiteral("vegetables"), QStringLiteral("sides"),
                          QStringLiteral("salads"), QStringLiteral("soups"), QStringLiteral("breads"),
                          QStringLiteral("desserts"), QStringLiteral("favorites"), QStringLiteral("others")}));
    for (int i = 0; i < 15; ++i) {
        QCOMPARE(TreeView::key(window.tree().topLevelItem(i)), QStringLiteral("rcat") + recipe_category(i));
        QCOMPARE(TreeView::picture(window.tree().topLevelItem(i)), 3);
    }
    QVERIFY(!window.main().commands().action(QStringLiteral("mnu_tv_r_move")).isEnabled());
    QCOMPARE(window.main().commands().caption(QStringLiteral("mnu_tv_r_move")), QStringLiteral("Move recipe"));
}

void tst_recipe_tree::recipes_stand_under_their_category_in_name_order()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("\u00c9clairs"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Broth"), QStringLiteral("11"));
    window.load();
    const QTreeWidgetItem* desserts = window.tree().node(QStringLiteral("rcat13"));
    QCOMPARE(names_in(desserts),
             QStringList({QStringLiteral("Cake"), QStringLiteral("\u00c9clairs"), QStringLiteral("pie")}));
    QCOMPARE(TreeView::key(desserts->child(2)), rcp(pie));
    QCOMPARE(TreeView::picture(desserts->child(2)), 1);
    QVERIFY(!desserts->isExpanded());
}

void tst_recipe_tree::the_recipe_of_the_last_run_is_selected_in_its_open_folder()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.load();
    const QTreeWidgetItem* node = window.main().recipe_tree().recipe_node(pie);
    QCOMPARE(window.tree().selected(), node);
    QVERIFY(node->parent()->isExpanded());
    QCOMPARE(TreeView::picture(node->parent()), 4);
    QCOMPARE(window.main().commands().caption(QStringLiteral("mnu_tv_r_move")), QStringLiteral("Move Pie recipe"));
    QVERIFY(window.main().commands().action(QStringLiteral("mnu_recipe_move")).isEnabled());
}

void tst_recipe_tree::in_the_flat_view_recipes_stand_in_name_order_and_cannot_be_moved()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key broth = window.add_recipe(QStringLiteral("broth"), QStringLiteral("11"));
    window.set_pref(QStringLiteral("arcp"), QString::number(broth));
    window.set_pref(QStringLiteral("sort_r"), QStringLiteral("alpha"));
    window.load();
    QCOMPARE(names_in(window.tree().invisibleRootItem()),
             QStringList({QStringLiteral("broth"), QStringLiteral("Pie")}));
    QCOMPARE(window.tree().selected(), window.main().recipe_tree().recipe_node(broth));
    for (const char* name : {"mnu_recipe_move", "mnu_tv_r_move"})
        QVERIFY(!window.main().commands().action(QLatin1String(name)).isEnabled());
    QCOMPARE(window.main().commands().caption(QStringLiteral("mnu_tv_r_move")), QStringLiteral("Move recipe"));
    window.trigger(QStringLiteral("mnu_view_sort_cat_r"));
    QCOMPARE(window.tree().topLevelItemCount(), 15);
    QVERIFY(window.main().commands().action(QStringLiteral("mnu_recipe_move")).isEnabled());
}

void tst_recipe_tree::in_the_flat_view_the_move_command_names_its_recipe()
{
    RecipeWindow window;
    const Key broth = window.add_recipe(QStringLiteral("Broth"), QStringLiteral("11"));
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(QStringLiteral("rcat11"));
    window.main().recipe_tree().view().expandAll();
    window.click_node(rcp(broth));
    Commands& commands = window.main().commands();
    const QString move = QStringLiteral("mnu_recipe_move");
    QCOMPARE(commands.caption(move), QStringLiteral("Move Broth recipe"));
    QVERIFY(commands.action(move).isEnabled());
    window.trigger(QStringLiteral("mnu_view_sort_alpha_r"));
    QCOMPARE(commands.caption(move), QStringLiteral("Move Broth recipe"));
    QVERIFY(!commands.action(move).isEnabled());
    window.click_node(rcp(pie));
    QCOMPARE(commands.caption(move), QStringLiteral("Move Pie recipe"));
    QVERIFY(!commands.action(move).isEnabled());
    QTest::keyClick(&window.tree(), Qt::Key_Up);
    QCOMPARE(commands.caption(move), QStringLiteral("Move Broth recipe"));
    QVERIFY(!commands.action(move).isEnabled());
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Broth")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(commands.caption(move), QStringLiteral("Move Pie recipe"));
    QVERIFY(!commands.action(move).isEnabled());
    QCOMPARE(commands.caption(QStringLiteral("mnu_tv_r_move")), QStringLiteral("Move recipe"));
}

void tst_recipe_tree::sorting_ticks_the_order_and_stores_it()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("01"));
    window.add_recipe(QStringLiteral("Broth"), QStringLiteral("11"));
    window.load();
    Commands& commands = window.main().commands();
    const QString by_name = QStringLiteral("mnu_view_sort_alpha_r");
    const QString by_category = QStringLiteral("mnu_view_sort_cat_r");
    QVERIFY(!commands.action(by_name).isChecked());
    QVERIFY(commands.action(by_category).isChecked());
    window.trigger(by_name);
    QVERIFY(commands.action(by_name).isChecked());
    QVERIFY(!commands.action(by_category).isChecked());
    QVERIFY(window.main().shared.recipe_alpha);
    QCOMPARE(window.pref(QStringLiteral("sort_r")), QStringLiteral("alpha"));
    QCOMPARE(names_in(window.tree().invisibleRootItem()),
             QStringList({QStringLiteral("Broth"), QStringLiteral("Pie")}));
    window.trigger(by_category);
    QVERIFY(!commands.action(by_name).isChecked());
    QVERIFY(commands.action(by_category).isChecked());
    QVERIFY(!window.main().shared.recipe_alpha);
    QCOMPARE(window.pref(QStringLiteral("sort_r")), QStringLiteral("cat"));
    QCOMPARE(window.tree().topLevelItemCount(), 15);
    QVERIFY(commands.action(QStringLiteral("mnu_view_sort_cat")).isChecked());
    QVERIFY(!commands.action(QStringLiteral("mnu_view_sort_alpha")).isChecked());
    QVERIFY(!window.main().shared.stock_alpha);
}

void tst_recipe_tree::the_order_in_force_is_not_loaded_again()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    const QTreeWidgetItem* desserts = window.tree().node(QStringLiteral("rcat13"));
    window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.trigger(QStringLiteral("mnu_view_sort_cat_r"));
    QCOMPARE(names_in(desserts), QStringList(QStringLiteral("Pie")));
    QVERIFY(window.main().commands().action(QStringLiteral("mnu_view_sort_cat_r")).isChecked());
    window.trigger(QStringLiteral("mnu_view_sort_alpha_r"));
    QCOMPARE(window.tree().topLevelItemCount(), 2);
    window.add_recipe(QStringLiteral("Tart"), QStringLiteral("13"));
    window.trigger(QStringLiteral("mnu_view_sort_alpha_r"));
    QCOMPARE(window.tree().topLevelItemCount(), 2);
    QVERIFY(window.main().commands().action(QStringLiteral("mnu_view_sort_alpha_r")).isChecked());
}

void tst_recipe_tree::sorting_saves_the_page_first()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_End);
    QTest::keyClicks(&window.title(), QStringLiteral("s"));
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Pie"));
    window.trigger(QStringLiteral("mnu_view_sort_alpha_r"));
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Pies"));
    QCOMPARE(names_in(window.tree().invisibleRootItem()), QStringList(QStringLiteral("Pies")));
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(pie));
}

void tst_recipe_tree::a_recipe_of_an_unknown_or_one_digit_category_is_not_lost()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Alien"), QStringLiteral("99"));
    window.add_recipe(QStringLiteral("Blank"), QString());
    window.add_recipe(QStringLiteral("Curry"), QStringLiteral("4"));
    window.load();
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat15"))),
             QStringList({QStringLiteral("Alien"), QStringLiteral("Blank"), QStringLiteral("Curry")}));
    QCOMPARE(window.tree().node(QStringLiteral("rcat04"))->childCount(), 0);
}

void tst_recipe_tree::a_key_in_use_is_error_35602_and_leaves_no_node()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    // Keys beyond four digits have no text of their own for the key of a node.
    Query(window.db(), "INSERT INTO recipe_1 (key_id, r_name, cat) VALUES (10000, 'Far', '13')").run();
    window.main().recipe_tree().recip_load(false);
    QVERIFY(window.tree().node(QStringLiteral("rcp")));
    Query(window.db(), "INSERT INTO recipe_1 (key_id, r_name, cat) VALUES (10001, 'Farther', '13')").run();
    for (const bool alpha : {true, false}) {
        QCOMPARE(error_number([&] { window.main().recipe_tree().recip_load(alpha); }),
                 int(runtime_error::key_not_unique));
        QCOMPARE(window.tree().topLevelItemCount(), 0);
        QVERIFY(!window.tree().node(QStringLiteral("rcp")));
        QVERIFY(!window.tree().node(rcp(1)));
    }
}

void tst_recipe_tree::a_click_on_a_recipe_shows_its_page()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    window.page().scroll_bar().setValue(50);
    window.click_node(rcp(pie));
    QVERIFY(!window.main().shared.list_pane_shown);
    QVERIFY(window.page().frame4().isVisible());
    QCOMPARE(window.title().text(), QStringLiteral("Pie"));
    QCOMPARE(window.main().shared.cur_recipe, pie);
    QCOMPARE(window.main().shared.cur_recipe_name, QStringLiteral("Pie"));
    QCOMPARE(window.pref(QStringLiteral("arcp")), QString::number(pie));
    QCOMPARE(window.page().scroll_bar().value(), 0);
    QCOMPARE(status_text(window.main()), QStringLiteral("Pie recipe"));
    QCOMPARE(window.main().commands().caption(QStringLiteral("mnu_tv_r_del")), QStringLiteral("Delete Pie"));
    QVERIFY(window.main().commands().action(QStringLiteral("mnu_tv_r_del")).isEnabled());
}

void tst_recipe_tree::a_click_on_a_category_counts_its_recipes()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.load();
    window.click_node(QStringLiteral("rcat13"));
    QCOMPARE(status_text(window.main()), QStringLiteral("desserts: 2 recipes"));
    QVERIFY(!window.main().commands().action(QStringLiteral("mnu_tv_r_del")).isEnabled());
}

void tst_recipe_tree::folders_open_and_close_with_their_pictures()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    QTreeWidgetItem* desserts = window.tree().node(QStringLiteral("rcat13"));
    desserts->setExpanded(true);
    QCOMPARE(TreeView::picture(desserts), 4);
    desserts->setExpanded(false);
    QCOMPARE(TreeView::picture(desserts), 3);
}

void tst_recipe_tree::closing_all_folders_stores_nothing()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Broth"), QStringLiteral("11"));
    window.load();
    const QStringList before = table_dump(window.db());
    window.tree().expandAll();
    QVERIFY(window.tree().topLevelItem(12)->isExpanded());
    window.trigger(QStringLiteral("mnu_view_cntrct_all"));
    for (int i = 0; i < 15; ++i) {
        QVERIFY(!window.tree().topLevelItem(i)->isExpanded());
        QCOMPARE(TreeView::picture(window.tree().topLevelItem(i)), 3);
    }
    QCOMPARE(table_dump(window.db()), before);
}

void tst_recipe_tree::arrow_keys_do_not_change_the_page()
{
    RecipeWindow window;
    const Key cake = window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(cake));
    QTest::keyClick(&window.tree(), Qt::Key_Down);
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(pie));
    QCOMPARE(window.title().text(), QStringLiteral("Cake"));
    QCOMPARE(window.main().commands().caption(QStringLiteral("mnu_recipe_del")),
             QStringLiteral("Delete Pie recipe"));
}

void tst_recipe_tree::no_label_can_be_edited()
{
    RecipeWindow window;
    window.load();
    bool cancel = false;
    emit window.tree().before_label_edit(window.tree().topLevelItem(0), cancel);
    QVERIFY(cancel);
}

void tst_recipe_tree::a_right_click_shows_the_menu()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    QMenu& menu = window.main().commands().menu(QStringLiteral("mnu_tv_r"));
    window.click_node(rcp(pie), Qt::RightButton);
    QVERIFY(menu.isVisible());
    menu.hide();
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(pie));
}

void tst_recipe_tree::delete_key_on_a_category_is_refused()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(QStringLiteral("rcat13"));
    MessageScript script;
    script.expect(QStringLiteral("Info"), QStringLiteral("Cannot delete recipe categories"), Answer::ok,
                  [](QDialog& dialog) {
                      const auto& box = static_cast<QMessageBox&>(dialog);
                      QCOMPARE(box.icon(), QMessageBox::Information);
                      QCOMPARE(box.standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
                  });
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.number("SELECT count(*) FROM recipe_1"), 1);
    QCOMPARE(window.tree().topLevelItemCount(), 15);
}

QTEST_MAIN(tst_recipe_tree)
#include "tst_recipe_tree.moc"
