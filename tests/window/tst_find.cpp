#include "dialogs/find_item.h"
#include "recipes/recipe_fixture.h"
#include "window/view_state.h"
#include "support/tool_button.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest>

using namespace tarnwick;

namespace {

/// The main window with a catalogue and a recipe book, and the find dialog beside it.
struct FindWindow : RecipeWindow {
    Key dairy = add_category(QStringLiteral("Dairy"));
    Key bakery = add_category(QStringLiteral("Bakery"));
    Key list = add_list(QStringLiteral("Shop"));
    Key milk = add_item(QStringLiteral("Whole milk"), dairy);
    Key bread = add_item(QStringLiteral("Milk bread"), bakery);
    Key buns = add_item(QStringLiteral("Almond milk buns"), bakery);
    Key eggs = add_item(QStringLiteral("Eggs"), dairy);
    Key soup = add_recipe(QStringLiteral("Milk soup"), QStringLiteral("11"));
    Key pudding = add_recipe(QStringLiteral("Pudding with milk"), QStringLiteral("13"));

    FindWindow()
    {
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("alist"), QString::number(list));
    }

    find_item* dialog() { return main().findChild<find_item*>(QStringLiteral("find_item")); }
    template <typename Widget> Widget& part(const char* name)
    {
        return *dialog()->findChild<Widget*>(QLatin1String(name));
    }
    QPushButton& button() { return part<QPushButton>("Command1(0)"); }
    QString result() { return part<QLabel>("Label2").text(); }
    QRadioButton& option(int i) { return part<QRadioButton>(i == 0 ? "Option1(0)" : "Option1(1)"); }

    void open(const char* command = "mnu_tools_find_item")
    {
        trigger(QLatin1String(command));
        QVERIFY(dialog());
        QVERIFY(dialog()->isVisible());
    }
    void type(const QString& text)
    {
        auto& box = part<QLineEdit>("Text1");
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }
    void press()
    {
        QVERIFY(button().isEnabled());
        QTest::mouseClick(&button(), Qt::LeftButton);
    }
    void find(const QString& text)
    {
        type(text);
        press();
    }
    QString selected(TreeView& tree) { return tree.selected() ? tree.selected()->text(0) : QString(); }
    QString item_selected() { return selected(main().stock_tree().view()); }
    QString recipe_selected() { return selected(main().recipe_tree().view()); }
    QString status() { return find_panel()->text(); }
    QLabel* find_panel() { return main().findChild<QLabel*>(QStringLiteral("StatusBar1(1)")); }
};

} // namespace

class tst_find : public QObject {
    Q_OBJECT
private slots:
    void a_blank_text_never_gets_as_far_as_a_query();
    void option_follows_the_tree_and_the_two_menu_items_force_it();
    void one_match_never_changes_the_caption_to_find_next();
    void stock_matches_are_stepped_through_by_category_key_first();
    void exhausted_stepping_can_be_left_only_by_changing_text_or_option();
    void a_percent_sign_or_an_underscore_acts_as_a_pattern_sign();
    void an_apostrophe_is_searched_for_as_it_stands();
    void nothing_found_is_told_and_disables_the_button();
    void a_match_opens_its_folder_and_is_followed_by_menus_and_status();
    void a_recipe_that_is_found_is_shown_and_its_page_comes_to_the_front();
    void the_tree_of_the_kind_comes_up();
    void a_match_that_has_gone_meanwhile_is_passed_over();
    void a_line_that_is_being_typed_is_kept();
    void a_text_of_10000_characters_is_searched_for();
    void the_dialog_is_modeless_comes_back_and_closes();
    void keys_after_the_dialog_mean_what_it_found_data();
    void keys_after_the_dialog_mean_what_it_found();
};

void tst_find::a_blank_text_never_gets_as_far_as_a_query()
{
    FindWindow w;
    w.load();
    w.open();
    QCOMPARE(w.dialog()->windowTitle(), QStringLiteral("Find Item"));
    QVERIFY(!w.button().isEnabled());
    w.type(QStringLiteral("   "));
    QVERIFY(!w.button().isEnabled());
    QTest::mouseClick(&w.option(1), Qt::LeftButton);
    QVERIFY(!w.button().isEnabled());
    w.type(QStringLiteral("a"));
    QVERIFY(w.button().isEnabled());
    QCOMPARE(w.result(), QStringLiteral(" "));
}

void tst_find::option_follows_the_tree_and_the_two_menu_items_force_it()
{
    FindWindow w;
    w.load();
    w.open("mnu_tools_find_recipe");
    QVERIFY(w.option(1).isChecked() && !w.option(0).isChecked());
    w.open("mnu_tools_find_item");
    QVERIFY(w.option(0).isChecked() && !w.option(1).isChecked());
    w.dialog()->close();
    w.trigger(QStringLiteral("mnu_view_rcp"));
    auto* find = w.main().findChild<QToolButton*>(tool_button(ToolButton::find));
    QVERIFY(find->isEnabled());
    QTest::mouseClick(find, Qt::LeftButton);
    QTRY_VERIFY(w.dialog() && w.dialog()->isVisible());
    QVERIFY(w.option(1).isChecked());
}

void tst_find::one_match_never_changes_the_caption_to_find_next()
{
    FindWindow w;
    w.load();
    w.open();
    w.find(QStringLiteral(" eggs "));
    QCOMPARE(w.part<QLineEdit>("Text1").text(), QStringLiteral("eggs"));
    QCOMPARE(w.result(), QStringLiteral("1 item found"));
    QCOMPARE(w.button().text(), QStringLiteral("FIND NOW"));
    w.press();
    QCOMPARE(w.result(), QStringLiteral("1 item found"));
    QCOMPARE(w.item_selected(), QStringLiteral("Eggs"));
}

void tst_find::stock_matches_are_stepped_through_by_category_key_first()
{
    FindWindow w;
    w.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    w.load();
    w.open();
    w.find(QStringLiteral("MILK"));
    QCOMPARE(w.item_selected(), QStringLiteral("Whole milk"));
    QCOMPARE(w.result(), QStringLiteral("1 of 3 items found"));
    QCOMPARE(w.button().text(), QStringLiteral("FIND NEXT"));
    w.press();
    QCOMPARE(w.item_selected(), QStringLiteral("Almond milk buns"));
    QCOMPARE(w.result(), QStringLiteral("2 of 3 items found"));
    w.press();
    QCOMPARE(w.item_selected(), QStringLiteral("Milk bread"));
    QCOMPARE(w.result(), QStringLiteral("3 of 3 items found"));
}

void tst_find::exhausted_stepping_can_be_left_only_by_changing_text_or_option()
{
    FindWindow w;
    w.load();
    w.open();
    w.find(QStringLiteral("milk"));
    w.press();
    w.press();
    QVERIFY(!w.button().isEnabled());
    QCOMPARE(w.button().text(), QStringLiteral("FIND NEXT"));
    QTest::mouseClick(&w.option(1), Qt::LeftButton);
    QVERIFY(w.button().isEnabled());
    QCOMPARE(w.button().text(), QStringLiteral("FIND NOW"));
    QCOMPARE(w.result(), QString());
    w.press();
    w.press();
    QVERIFY(!w.button().isEnabled());
    w.type(QStringLiteral("mil"));
    QVERIFY(w.button().isEnabled());
    QCOMPARE(w.button().text(), QStringLiteral("FIND NOW"));
}

void tst_find::a_percent_sign_or_an_underscore_acts_as_a_pattern_sign()
{
    FindWindow w;
    w.load();
    w.open();
    w.find(QStringLiteral("m_lk b%d"));
    QCOMPARE(w.result(), QStringLiteral("1 item found"));
    QCOMPARE(w.item_selected(), QStringLiteral("Milk bread"));
}

void tst_find::an_apostrophe_is_searched_for_as_it_stands()
{
    FindWindow w;
    w.add_item(QStringLiteral("Farmer's cheese"), w.dairy);
    w.load();
    w.open();
    w.find(QStringLiteral("r's"));
    QCOMPARE(w.item_selected(), QStringLiteral("Farmer's cheese"));
}

void tst_find::nothing_found_is_told_and_disables_the_button()
{
    FindWindow w;
    w.load();
    w.open();
    w.find(QStringLiteral("xyz"));
    QCOMPARE(w.result(), QStringLiteral("Item not found"));
    QVERIFY(!w.button().isEnabled());
    QTest::mouseClick(&w.option(1), Qt::LeftButton);
    w.press();
    QCOMPARE(w.result(), QStringLiteral("Recipe not found"));
}

void tst_find::a_match_opens_its_folder_and_is_followed_by_menus_and_status()
{
    FindWindow w;
    w.load();
    QVERIFY(!w.main().stock_tree().category_node(w.dairy)->isExpanded());
    w.open();
    w.find(QStringLiteral("eggs"));
    QVERIFY(w.main().stock_tree().category_node(w.dairy)->isExpanded());
    QCOMPARE(w.status().trimmed(), QStringLiteral("Not listed :: Dairy category"));
    QCOMPARE(w.main().commands().action(QStringLiteral("mnu_edit_stock_to_list")).text(),
             QStringLiteral("Add Eggs to shopping list"));
}

void tst_find::a_recipe_that_is_found_is_shown_and_its_page_comes_to_the_front()
{
    FindWindow w;
    w.load();
    w.open("mnu_tools_find_recipe");
    w.find(QStringLiteral("milk"));
    QCOMPARE(w.result(), QStringLiteral("1 of 2 recipes found"));
    QCOMPARE(w.recipe_selected(), QStringLiteral("Milk soup"));
    QVERIFY(!w.main().shared.list_pane_shown);
    QVERIFY(w.page().frame4().isVisible());
    QCOMPARE(w.title().text(), QStringLiteral("Milk soup"));
    w.press();
    QCOMPARE(w.result(), QStringLiteral("2 of 2 recipes found"));
    QCOMPARE(w.title().text(), QStringLiteral("Pudding with milk"));
    QVERIFY(!w.button().isEnabled());
}

void tst_find::the_tree_of_the_kind_comes_up()
{
    FindWindow w;
    w.load();
    w.open("mnu_tools_find_recipe");
    w.find(QStringLiteral("soup"));
    QVERIFY(w.main().recipe_tree().view().isVisible());
    QVERIFY(!w.main().commands().action(QStringLiteral("mnu_view_sort_alpha")).isEnabled());
    w.open("mnu_tools_find_item");
    w.find(QStringLiteral("eggs"));
    QVERIFY(w.main().stock_tree().view().isVisible());
    QVERIFY(w.main().commands().action(QStringLiteral("mnu_view_sort_alpha")).isEnabled());
}

void tst_find::a_match_that_has_gone_meanwhile_is_passed_over()
{
    FindWindow w;
    w.load();
    w.open();
    w.find(QStringLiteral("milk"));
    Query(w.db(), "DELETE FROM items_1 WHERE key_id = ?", w.buns).run();
    w.main().stock_tree().tv_load(false);
    w.press();
    QCOMPARE(w.item_selected(), QStringLiteral("Milk bread"));
    QCOMPARE(w.result(), QStringLiteral("3 of 3 items found"));
    QVERIFY(!w.button().isEnabled());
}

void tst_find::a_line_that_is_being_typed_is_kept()
{
    FindWindow w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    w.set_pref(QStringLiteral("arcp"), QString::number(w.soup));
    w.load();
    w.focus(w.Text1());
    QTest::keyClicks(&w.Text1(), QStringLiteral("Warm it. "));
    w.open("mnu_tools_find_recipe");
    w.find(QStringLiteral("pudding"));
    QCOMPARE(w.title().text(), QStringLiteral("Pudding with milk"));
    QVERIFY(read_recipe(w.db(), w.soup)->body.contains(QStringLiteral("Warm it.")));
}

void tst_find::a_text_of_10000_characters_is_searched_for()
{
    FindWindow w;
    w.load();
    w.open();
    w.part<QLineEdit>("Text1").setText(QString(10000, u'x'));
    w.press();
    QCOMPARE(w.result(), QStringLiteral("Item not found"));
}

void tst_find::the_dialog_is_modeless_comes_back_and_closes()
{
    FindWindow w;
    w.load();
    w.open();
    find_item* first = w.dialog();
    QVERIFY(!first->isModal());
    w.open("mnu_tools_find_recipe");
    QCOMPARE(w.dialog(), first);
    QTest::mouseClick(&w.part<QPushButton>("Command1(1)"), Qt::LeftButton);
    QVERIFY(!first->isVisible());
    QTRY_VERIFY(!w.dialog());
}

void tst_find::keys_after_the_dialog_mean_what_it_found_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("keyboard");
    QTest::newRow("an item") << QByteArray("mnu_tools_find_item") << QStringLiteral("eggs")
                             << QStringLiteral("TreeView1(0)");
    QTest::newRow("a recipe") << QByteArray("mnu_tools_find_recipe") << QStringLiteral("soup")
                              << QStringLiteral("TreeView1(1)");
    QTest::newRow("nothing") << QByteArray("mnu_tools_find_item") << QStringLiteral("kiwi")
                             << QStringLiteral("Listview1");
}

void tst_find::keys_after_the_dialog_mean_what_it_found()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, text);
    QFETCH(QString, keyboard);
    FindWindow w;
    w.add_row(w.milk, w.list, true);
    w.load();
    w.main().findChild<QWidget*>(QStringLiteral("Listview1"))->setFocus();
    w.open(command.constData());
    w.find(text);
    w.dialog()->close();
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), keyboard);
}

QTEST_MAIN(tst_find)
#include "tst_find.moc"
