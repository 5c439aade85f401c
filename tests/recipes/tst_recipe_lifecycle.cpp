#include "recipes/recipe_fixture.h"

#include "data/runtime_error.h"
#include "window/move_window.h"
#include "support/error_number.h"
#include "support/shown_things.h"
#include "support/table_dump.h"
#include "support/tool_button.h"

#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>

using namespace tarnwick;

namespace {

template <typename Widget> Widget& part(QDialog& dialog, const char* name)
{
    return *dialog.findChild<Widget*>(QLatin1String(name));
}

} // namespace

class tst_recipe_lifecycle : public QObject {
    Q_OBJECT

private slots:
    void deleting_asks_and_no_keeps_the_recipe();
    void deleting_takes_the_lines_along();
    void deleting_the_only_recipe_selects_its_category();
    void deleting_the_only_recipe_disables_what_acts_on_the_page();
    void deleting_names_the_next_recipe_in_the_tool_tips();
    void deleting_beside_a_list_keeps_the_tool_tips_of_the_list();
    void deleting_the_first_child_selects_the_next_any_other_the_one_before();
    void deleting_the_last_recipe_of_the_flat_view_leaves_no_recipe();
    void moving_puts_the_recipe_in_its_place_and_closes_an_empty_folder();
    void moving_to_the_same_category_does_not_reload_the_page();
    void moving_another_recipe_to_its_own_category_leaves_the_one_on_the_page();
    void moving_to_the_category_that_is_stored_already_does_nothing();
    void a_stored_one_digit_category_is_accepted_by_a_move();
    void moving_to_no_category_is_an_error_and_changes_nothing();
    void moving_a_vanished_recipe_changes_nothing();
    void the_move_dialog_offers_every_category_but_its_own();
    void the_move_dialog_of_an_item_has_other_on_top();
    void the_naming_dialog_makes_a_recipe_in_the_chosen_category();
    void a_recipe_made_beside_the_stock_shows_its_tree_and_page();
    void ok_stays_disabled_while_the_box_holds_only_blanks();
    void a_new_recipe_falls_into_its_place_in_the_flat_view();
    void a_new_name_loses_its_apostrophes();
    void names_may_repeat();
};

void tst_recipe_lifecycle::deleting_asks_and_no_keeps_the_recipe()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::no,
                  [](QDialog& dialog) {
                      auto& box = static_cast<QMessageBox&>(dialog);
                      QCOMPARE(box.icon(), QMessageBox::Warning);
                      QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
                      QCOMPARE(box.defaultButton(), box.button(QMessageBox::Yes));
                  });
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.number("SELECT count(*) FROM recipe_1"), 1);
    QCOMPARE(window.title().text(), QStringLiteral("Pie"));
}

void tst_recipe_lifecycle::deleting_takes_the_lines_along()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key cake = window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.add_line(pie, QStringLiteral("Flour"));
    window.add_line(pie, QStringLiteral("Eggs"));
    window.add_line(cake, QStringLiteral("Sugar"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    window.trigger(QStringLiteral("mnu_tv_r_del"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.text("SELECT group_concat(r_name) FROM recipe_1"), QStringLiteral("Cake"));
    QCOMPARE(window.text("SELECT group_concat(item) FROM recipe_2"), QStringLiteral("Sugar"));
    QCOMPARE(window.title().text(), QStringLiteral("Cake"));
    QCOMPARE(window.main().shared.cur_recipe, cake);
    QVERIFY(!window.main().recipe_tree().recipe_node(pie));
}

void tst_recipe_lifecycle::deleting_the_only_recipe_selects_its_category()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key broth = window.add_recipe(QStringLiteral("Broth"), QStringLiteral("11"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(TreeView::key(window.tree().selected()), QStringLiteral("rcat13"));
    QCOMPARE(TreeView::picture(window.tree().selected()), 3);
    QCOMPARE(window.tree().topLevelItemCount(), 15);
    QVERIFY(!window.title().isVisible());
    QVERIFY(!window.Text1().isVisible());
    QVERIFY(!window.page().has_recipe());
    QCOMPARE(window.pref(QStringLiteral("arcp")), QStringLiteral("-1"));
    QCOMPARE(status_text(window.main()), QStringLiteral("desserts: 0 recipes"));
    const auto& hint = static_cast<QLabel&>(window.control(QStringLiteral("empty_hint")));
    QVERIFY(hint.isVisible());
    QCOMPARE(hint.text(), PageTexts::no_recipe_hint);
    for (const char* view : {"mnu_view_shoplist", "mnu_view_rcpepages"})
        window.trigger(QLatin1String(view));
    QVERIFY(hint.isVisible());
    window.click_node(rcp(broth));
    QVERIFY(hint.isVisible()); // it has no line
    QVERIFY(hint.text() != PageTexts::no_recipe_hint);
}

void tst_recipe_lifecycle::deleting_the_only_recipe_disables_what_acts_on_the_page()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    QVERIFY(window.page_buttons_enabled(true));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QVERIFY(window.page_buttons_enabled(false));
    QCOMPARE(window.control(tool_button(ToolButton::print)).toolTip(), QStringLiteral("Print recipe"));
    QCOMPARE(window.control(tool_button(ToolButton::preview)).toolTip(), QStringLiteral("Preview recipe"));
}

void tst_recipe_lifecycle::deleting_names_the_next_recipe_in_the_tool_tips()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Tart"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QVERIFY(window.page_buttons_enabled(true));
    QCOMPARE(window.control(tool_button(ToolButton::print)).toolTip(), QStringLiteral("Print Tart recipe"));
    QCOMPARE(window.control(tool_button(ToolButton::preview)).toolTip(), QStringLiteral("Preview Tart recipe"));
    QCOMPARE(window.control(tool_button(ToolButton::word_processor)).toolTip(),
             QStringLiteral("Open recipe in word processor"));
}

void tst_recipe_lifecycle::deleting_beside_a_list_keeps_the_tool_tips_of_the_list()
{
    RecipeWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Tart"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("alist"), QString::number(list));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    QVERIFY(window.main().shared.list_pane_shown);
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    window.trigger(QStringLiteral("mnu_recipe_del"));
    QVERIFY(window.page_buttons_enabled(true));
    QCOMPARE(window.control(tool_button(ToolButton::print)).toolTip(), QStringLiteral("Print Weekly list"));
    QCOMPARE(window.control(tool_button(ToolButton::preview)).toolTip(), QStringLiteral("Preview Weekly list"));
}

void tst_recipe_lifecycle::deleting_the_first_child_selects_the_next_any_other_the_one_before()
{
    RecipeWindow window;
    const Key a = window.add_recipe(QStringLiteral("A"), QStringLiteral("13"));
    const Key b = window.add_recipe(QStringLiteral("B"), QStringLiteral("13"));
    const Key c = window.add_recipe(QStringLiteral("C"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(a));
    {
        MessageScript script;
        script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("A")), Answer::yes);
        QTest::keyClick(&window.tree(), Qt::Key_Delete);
    }
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(b));
    QCOMPARE(window.title().text(), QStringLiteral("B"));
    window.click_node(rcp(c));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("C")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(b));
    QCOMPARE(window.main().shared.cur_recipe, b);
}

void tst_recipe_lifecycle::deleting_the_last_recipe_of_the_flat_view_leaves_no_recipe()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("sort_r"), QStringLiteral("alpha"));
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.expect(QStringLiteral("Warning"), deletion_question(QStringLiteral("Pie")), Answer::yes);
    QTest::keyClick(&window.tree(), Qt::Key_Delete);
    QCOMPARE(window.tree().topLevelItemCount(), 0);
    QVERIFY(!window.title().isVisible());
}

void tst_recipe_lifecycle::moving_puts_the_recipe_in_its_place_and_closes_an_empty_folder()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Apple bake"), QStringLiteral("14"));
    window.add_recipe(QStringLiteral("Toast"), QStringLiteral("14"));
    window.load();
    window.click_node(rcp(pie));
    window.main().recipe_tree().mv_rcp(QStringLiteral("14"), pie);
    QCOMPARE(window.text("SELECT cat FROM recipe_1 WHERE r_name = 'Pie'"), QStringLiteral("14"));
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat14"))),
             QStringList({QStringLiteral("Apple bake"), QStringLiteral("Pie"), QStringLiteral("Toast")}));
    QCOMPARE(TreeView::picture(window.tree().node(QStringLiteral("rcat13"))), 3);
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(pie));
    QVERIFY(window.tree().node(QStringLiteral("rcat14"))->isExpanded());
}

void tst_recipe_lifecycle::moving_to_the_same_category_does_not_reload_the_page()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    Query(window.db(), "UPDATE recipe_1 SET r_name = 'Changed outside'").run();
    window.main().recipe_tree().mv_rcp(QStringLiteral("13"), pie);
    QCOMPARE(window.title().text(), QStringLiteral("Pie"));
    QCOMPARE(window.main().recipe_tree().recipe_node(pie)->text(0), QStringLiteral("Pie"));
}

void tst_recipe_lifecycle::moving_another_recipe_to_its_own_category_leaves_the_one_on_the_page()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key cake = window.add_recipe(QStringLiteral("Cake"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    window.main().recipe_tree().mv_rcp(QStringLiteral("13"), cake);
    QCOMPARE(window.main().shared.cur_recipe, pie);
    window.main().recipe_tree().mv_rcp(QStringLiteral("11"), cake);
    QCOMPARE(window.main().shared.cur_recipe, cake);
    QCOMPARE(window.title().text(), QStringLiteral("Cake"));
}

void tst_recipe_lifecycle::moving_to_the_category_that_is_stored_already_does_nothing()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    Query(window.db(), "UPDATE recipe_1 SET r_name = 'Changed outside', cat = '11'").run();
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.drive([](QDialog& dialog) {
        auto& combo = part<QComboBox>(dialog, "Combo1");
        combo.setCurrentIndex(combo.findText(QStringLiteral("soups")));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_recipe_move"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.title().text(), QStringLiteral("Pie"));
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat13"))), QStringList(QStringLiteral("Pie")));
    QCOMPARE(window.tree().node(QStringLiteral("rcat11"))->childCount(), 0);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_recipe_lifecycle::a_stored_one_digit_category_is_accepted_by_a_move()
{
    RecipeWindow window;
    const Key curry = window.add_recipe(QStringLiteral("Curry"), QStringLiteral("4"));
    window.load();
    window.main().recipe_tree().mv_rcp(QStringLiteral("04"), curry);
    QCOMPARE(window.text("SELECT cat FROM recipe_1"), QStringLiteral("4"));
    window.main().recipe_tree().mv_rcp(QStringLiteral("06"), curry);
    QCOMPARE(window.text("SELECT cat FROM recipe_1"), QStringLiteral("06"));
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat06"))), QStringList(QStringLiteral("Curry")));
    QCOMPARE(window.tree().node(QStringLiteral("rcat15"))->childCount(), 0);
}

void tst_recipe_lifecycle::moving_to_no_category_is_an_error_and_changes_nothing()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    QCOMPARE(error_number([&] { window.main().recipe_tree().mv_rcp(QStringLiteral("16"), pie); }),
             int(runtime_error::element_not_found));
    QCOMPARE(window.text("SELECT cat FROM recipe_1"), QStringLiteral("13"));
    QVERIFY(window.main().recipe_tree().recipe_node(pie));
}

void tst_recipe_lifecycle::moving_a_vanished_recipe_changes_nothing()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    Query(window.db(), "DELETE FROM recipe_1").run();
    window.main().recipe_tree().mv_rcp(QStringLiteral("14"), pie);
    QCOMPARE(window.tree().node(QStringLiteral("rcat14"))->childCount(), 0);
    QVERIFY(!window.page().has_recipe());
    QVERIFY(window.page_buttons_enabled(false));
}

void tst_recipe_lifecycle::the_move_dialog_offers_every_category_but_its_own()
{
    RecipeWindow window;
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.load();
    window.click_node(rcp(pie));
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("move_item"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Move Pie"));
        QCOMPARE(part<QLabel>(dialog, "Label1").text(), QStringLiteral("Move Pie from desserts category to:"));
        auto& combo = part<QComboBox>(dialog, "Combo1");
        QCOMPARE(combo.count(), 14);
        QCOMPARE(combo.findText(QStringLiteral("desserts")), -1);
        QVERIFY(!part<QPushButton>(dialog, "Command1(0)").isEnabled());
        combo.setCurrentIndex(combo.findText(QStringLiteral("soups")));
        QVERIFY(part<QPushButton>(dialog, "Command1(0)").isEnabled());
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_tv_r_move"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.text("SELECT cat FROM recipe_1"), QStringLiteral("11"));
}

void tst_recipe_lifecycle::the_move_dialog_of_an_item_has_other_on_top()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    const Key fruit = window.add_category(QStringLiteral("Fruit"));
    window.add_category(QStringLiteral("Bakery"));
    const Key plums = window.add_item(QStringLiteral("Plums"), fruit);
    window.load();
    TreeView& stock = window.main().stock_tree().view();
    stock.select(window.main().stock_tree().item_node(plums));
    MessageScript script;
    script.drive([](QDialog& dialog) {
        auto& combo = part<QComboBox>(dialog, "Combo1");
        QCOMPARE(part<QLabel>(dialog, "Label1").text(), QStringLiteral("Move Plums from Fruit category to:"));
        QCOMPARE(combo.count(), 2);
        QCOMPARE(combo.itemText(0), QStringLiteral("OTHER"));
        QCOMPARE(combo.itemText(1), QStringLiteral("Bakery"));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(1)"), Qt::LeftButton);
    });
    show_move_item(window.main().program(), window.main().panes(), true);
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.number("SELECT cat FROM items_1"), int{fruit});
    stock.select(window.main().stock_tree().category_node(fruit));
    show_move_item(window.main().program(), window.main().panes(), true);
}

void tst_recipe_lifecycle::the_naming_dialog_makes_a_recipe_in_the_chosen_category()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("09"));
    window.load();
    window.click_node(QStringLiteral("rcat09"));
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("New recipe"));
        QCOMPARE(part<QComboBox>(dialog, "Combo1").currentIndex(), 8);
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral(" Beans "));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_tv_r_new"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.text("SELECT r_name || cat FROM recipe_1 WHERE key_id = 2"), QStringLiteral("Beans09"));
    QCOMPARE(window.text("SELECT r_body FROM recipe_1 WHERE key_id = 2"), help_text());
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat09"))),
             QStringList({QStringLiteral("Beans"), QStringLiteral("Pie")}));
    QVERIFY(window.tree().node(QStringLiteral("rcat09"))->isExpanded());
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(2));
    QCOMPARE(window.main().shared.cur_recipe, Key{2});
    QCOMPARE(window.title().text(), QStringLiteral("Beans"));
    QVERIFY(window.title().isVisible());
    QVERIFY(window.tree().isVisible());
    QCOMPARE(window.Text1().border_style(), 1);
}

void tst_recipe_lifecycle::a_recipe_made_beside_the_stock_shows_its_tree_and_page()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    const Key pie = window.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    window.set_pref(QStringLiteral("arcp"), QString::number(pie));
    window.load();
    QVERIFY(window.control(QStringLiteral("TreeView1(0)")).isVisible());
    QVERIFY(!window.page().frame4().isVisible());
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(pie));
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(part<QComboBox>(dialog, "Combo1").currentIndex(), 0);
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral("Beans"));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(script.left(), 0);
    QVERIFY(!window.control(QStringLiteral("TreeView1(0)")).isVisible());
    QVERIFY(window.control(QStringLiteral("TreeView1(1)")).isVisible());
    QVERIFY(!window.main().shared.stock_view);
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    QCOMPARE(window.find<QTabBar>(QStringLiteral("TabStrip1(0)"))->currentIndex(), 1);
    QCOMPARE(window.find<QTabBar>(QStringLiteral("TabStrip1(1)"))->currentIndex(), 1);
    QVERIFY(window.page().frame4().isVisible());
    QVERIFY(!window.control(QStringLiteral("Listview1")).isVisible());
    QCOMPARE(window.title().text(), QStringLiteral("Beans"));
    QCOMPARE(TreeView::key(window.tree().selected()), rcp(2));
    QCOMPARE(window.text("SELECT cat FROM recipe_1 WHERE r_name = 'Beans'"), QStringLiteral("01"));
    QVERIFY(window.page_buttons_enabled(true));
}

void tst_recipe_lifecycle::ok_stays_disabled_while_the_box_holds_only_blanks()
{
    RecipeWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral("   "));
        QVERIFY(!part<QPushButton>(dialog, "Command1(0)").isEnabled());
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral("x"));
        QVERIFY(part<QPushButton>(dialog, "Command1(0)").isEnabled());
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(1)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.number("SELECT count(*) FROM recipe_1"), 0);
}

void tst_recipe_lifecycle::a_new_recipe_falls_into_its_place_in_the_flat_view()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("sort_r"), QStringLiteral("alpha"));
    window.add_recipe(QStringLiteral("Apple pie"), QStringLiteral("13"));
    window.add_recipe(QStringLiteral("Toast"), QStringLiteral("12"));
    window.load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QCOMPARE(part<QComboBox>(dialog, "Combo1").currentIndex(), 0);
        part<QComboBox>(dialog, "Combo1").setCurrentIndex(14);
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral("Beans"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    window.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(names_in(window.tree().invisibleRootItem()),
             QStringList({QStringLiteral("Apple pie"), QStringLiteral("Beans"), QStringLiteral("Toast")}));
    QCOMPARE(window.text("SELECT cat FROM recipe_1 WHERE r_name = 'Beans'"), QStringLiteral("15"));
}

void tst_recipe_lifecycle::a_new_name_loses_its_apostrophes()
{
    RecipeWindow window;
    window.load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        auto& name = part<QLineEdit>(dialog, "Text1");
        QTest::keyClicks(&name, QStringLiteral("'"));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
        QVERIFY(dialog.isVisible());
        QTest::keyClicks(&name, QStringLiteral("Gran's 'best' pie"));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Grans best pie"));
}

void tst_recipe_lifecycle::names_may_repeat()
{
    RecipeWindow window;
    window.add_recipe(QStringLiteral("Pie"), QStringLiteral("01"));
    window.load();
    MessageScript script;
    script.drive([](QDialog& dialog) {
        QTest::keyClicks(&part<QLineEdit>(dialog, "Text1"), QStringLiteral("Pie"));
        QTest::mouseClick(&part<QPushButton>(dialog, "Command1(0)"), Qt::LeftButton);
    });
    window.trigger(QStringLiteral("mnu_recipe_new"));
    QCOMPARE(names_in(window.tree().node(QStringLiteral("rcat01"))),
             QStringList({QStringLiteral("Pie"), QStringLiteral("Pie")}));
}

QTEST_MAIN(tst_recipe_lifecycle)
#include "tst_recipe_lifecycle.moc"
