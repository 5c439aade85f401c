#include "recipes/line_fixture.h"

#include "household/status.h"

#include <QMessageBox>
#include <QToolButton>

using namespace tarnwick;

namespace {

void click_add_button(LineWindow& w)
{
    auto* add = w.find<QToolButton>(QStringLiteral("flt_btn(1)"));
    QVERIFY(add->isVisible());
    QTest::mouseClick(add, Qt::LeftButton);
}

const QString again_title = QStringLiteral("Item already on recipe");

QString again_text(const QString& name)
{
    return name + QStringLiteral(" already appears on this recipe\nWould you like to add it again?");
}

} // namespace

class tst_add_to_recipe : public QObject {
    Q_OBJECT
private slots:
    void the_item_that_is_named_is_added_after_another_one_was_worked_on_data();
    void the_item_that_is_named_is_added_after_another_one_was_worked_on();
    void the_item_that_is_named_is_added_after_the_item_editor_was_cancelled_data();
    void the_item_that_is_named_is_added_after_the_item_editor_was_cancelled();
    void the_menu_adds_the_item_that_the_arrow_keys_went_to();
    void a_line_of_a_stock_item_opens_with_its_name_and_red_placeholders();
    void the_question_and_a_deleted_line_belong_to_the_recipe_on_the_page();
    void a_stock_item_is_added_by_the_menu();
    void a_stock_item_keeps_its_line_under_another_name();
    void adding_the_same_stock_item_twice_is_allowed_after_the_question();
    void the_same_item_on_another_recipe_is_no_question();
    void a_stock_item_that_has_gone_opens_nothing();
    void the_button_beside_a_new_item_brings_the_recipe_to_front_and_adds_the_line();
    void without_an_open_recipe_an_item_has_no_button();
};

namespace {

void add_the_ways()
{
    QTest::addColumn<bool>("by_menu");
    QTest::newRow("floating button") << false;
    QTest::newRow("menu") << true;
}

void add_milk(StockBesidePage& w, bool by_menu)
{
    MessageScript no_question;
    if (by_menu)
        w.trigger(QStringLiteral("mnu_tv_air"));
    else
        click_add_button(w);
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.qty());
    QCOMPARE(w.item().text(), QStringLiteral("Milk"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
}

} // namespace

void tst_add_to_recipe::the_item_that_is_named_is_added_after_another_one_was_worked_on_data()
{
    add_the_ways();
}

void tst_add_to_recipe::the_item_that_is_named_is_added_after_another_one_was_worked_on()
{
    QFETCH(bool, by_menu);
    StockBesidePage w;
    const Key oil = w.add_item(QStringLiteral("Oil"), 0);
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_row(oil, w.add_list(QStringLiteral("Shop")), false);
    w.add_line(w.recipe, QStringLiteral("Oil"), oil);
    w.open();
    w.select_item(milk);
    QTest::mouseClick(w.line(0).Check1, Qt::LeftButton);
    QCOMPARE(w.number("SELECT to_get FROM groc_1"), 1);
    add_milk(w, by_menu);
    QCOMPARE(w.text("SELECT item || '|' || item_ref FROM recipe_2 ORDER BY key_id DESC"),
             QStringLiteral("Milk|%1").arg(milk));
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
}

void tst_add_to_recipe::the_item_that_is_named_is_added_after_the_item_editor_was_cancelled_data()
{
    add_the_ways();
}

void tst_add_to_recipe::the_item_that_is_named_is_added_after_the_item_editor_was_cancelled()
{
    QFETCH(bool, by_menu);
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.select_item(milk);
    {
        MessageScript script;
        script.drive([](QDialog& dialog) { dialog.reject(); });
        w.trigger(QStringLiteral("mnu_edit_add_stck"));
        QCOMPARE(script.left(), 0);
    }
    add_milk(w, by_menu);
    QCOMPARE(w.text("SELECT item || '|' || item_ref FROM recipe_2"), QStringLiteral("Milk|%1").arg(milk));
}

void tst_add_to_recipe::the_menu_adds_the_item_that_the_arrow_keys_went_to()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key oil = w.add_item(QStringLiteral("Oil"), 0);
    w.add_line(w.recipe, QStringLiteral("Oil"), oil);
    w.open();
    w.select_item(milk);
    TreeView& stock = w.main().stock_tree().view();
    QTest::keyClick(&stock, Qt::Key_Down);
    QCOMPARE(TreeView::key(stock.selected()), QStringLiteral("item") + key_str(oil));
    {
        MessageScript script;
        script.expect(again_title, again_text(QStringLiteral("Oil")), Answer::yes);
        w.trigger(QStringLiteral("mnu_tv_air"));
    }
    QCOMPARE(w.focused_after_message(), &w.qty());
    QCOMPARE(w.item().text(), QStringLiteral("Oil"));
    w.click_text();
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2 WHERE item_ref > 0"), 2);
    QCOMPARE(w.number("SELECT count(DISTINCT item_ref) FROM recipe_2"), 1);
}

void tst_add_to_recipe::a_line_of_a_stock_item_opens_with_its_name_and_red_placeholders()
{
    StockBesidePage w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.select_item(milk);
    click_add_button(w);
    QVERIFY(w.editor().is_open());
    QVERIFY(w.editor().draft().is_new());
    QCOMPARE(w.editor().draft().placed_item, milk);
    QCOMPARE(w.button("imgScratch").toolTip(), QStringLiteral("Cancel adding ingredient"));
    QCOMPARE(w.button("imgScratch").property("Tag").toString(), QStringLiteral("ns"));
    QVERIFY(w.button("imgScratch").isVisible());
    QVERIFY(!w.button("imgedit").isVisible());
    QVERIFY(w.qty().hasFocus());
    QCOMPARE(w.item().text(), QStringLiteral("Milk"));
    QCOMPARE(w.item().property("Tag").toString(), QStringLiteral("Milk"));
    QCOMPARE(w.measure().text(), QStringLiteral("(Measure)"));
    QCOMPARE(w.desc().text(), QStringLiteral("(Comment)"));
    QVERIFY(LineWindow::is_red_italic(w.measure()));
    QVERIFY(LineWindow::is_red_italic(w.desc()));
    QCOMPARE(w.tag(QStringLiteral("ingred(1)")), QStringLiteral(" "));
    QCOMPARE(w.tag(QStringLiteral("Check1(1)")), QString::number(milk));
    QVERIFY(!w.control(QStringLiteral("flt_btn(1)")).isVisible());
    w.tab(w.qty());
    QCOMPARE(w.qty().text(), QStringLiteral("(Qty)"));
    QVERIFY(LineWindow::is_red_italic(w.qty()));
    w.click_text();
    QCOMPARE(w.tag(QStringLiteral("ingred(1)")), QStringLiteral("3^1^Milk"));
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
}

void tst_add_to_recipe::the_question_and_a_deleted_line_belong_to_the_recipe_on_the_page()
{
    StockBesidePage w;
    const Key other = w.add_recipe(QStringLiteral("Stew"), QStringLiteral("02"));
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    QVERIFY(w.page().ingredients().check_exist(milk));
    w.trigger(QStringLiteral("mnu_view_rcp"));
    w.click_node(rcp(other));
    QVERIFY(!w.page().ingredients().check_exist(milk));
    w.click_node(rcp(w.recipe));
    QVERIFY(w.page().ingredients().check_exist(milk));
    QTest::mouseClick(w.line(0).ingred, Qt::LeftButton);
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.tag(QStringLiteral("title")), QString::number(w.recipe));
    QCOMPARE(w.lines(), 1);
    QCOMPARE(w.ingred(0), QStringLiteral("Milk"));
}

void tst_add_to_recipe::a_stock_item_is_added_by_the_menu()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.select_item(milk);
    w.trigger(QStringLiteral("mnu_tv_air"));
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.editor().draft().edited.item_ref, milk);
    QCOMPARE(w.item().text(), QStringLiteral("Milk"));
    QCOMPARE(w.item().property("Tag").toString(), QStringLiteral("Milk"));
    QVERIFY(LineWindow::is_black_upright(w.item()));
    QCOMPARE(w.line(0).lite->picture_number(), 175 + 3);
    QTest::keyClicks(&w.qty(), QStringLiteral("1"));
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.text("SELECT item_ref || '|' || item || '|' || qty || '|' || measure FROM recipe_2"),
             QStringLiteral("%1|Milk|1| ").arg(milk));
    QCOMPARE(w.ingred(0), QStringLiteral("1 Milk"));
}

void tst_add_to_recipe::a_stock_item_keeps_its_line_under_another_name()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.select_item(milk);
    w.trigger(QStringLiteral("mnu_tv_air"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Whole milk"));
    w.click_text();
    QCOMPARE(w.text("SELECT item_ref || '|' || item FROM recipe_2"), QStringLiteral("%1|Whole milk").arg(milk));
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), milk));
    QCOMPARE(w.line(0).lite->picture_number(), 175 + 3);
}

void tst_add_to_recipe::adding_the_same_stock_item_twice_is_allowed_after_the_question()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    QVERIFY(w.page().ingredients().check_exist(milk));
    w.select_item(milk);
    {
        MessageScript script;
        script.expect(again_title, again_text(QStringLiteral("Milk")), Answer::no, [](QDialog& dialog) {
            auto& message = dynamic_cast<QMessageBox&>(dialog);
            QCOMPARE(message.icon(), QMessageBox::Question);
            QCOMPARE(message.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        });
        w.trigger(QStringLiteral("mnu_tv_air"));
    }
    QVERIFY(!w.editor().is_open());
    {
        MessageScript script;
        script.expect(again_title, again_text(QStringLiteral("Milk")), Answer::yes);
        w.trigger(QStringLiteral("mnu_tv_air"));
    }
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.focused_after_message(), &w.qty());
    w.click_text();
    QCOMPARE(w.text("SELECT count(*) FROM recipe_2 WHERE item = 'Milk' AND item_ref > 0"), QStringLiteral("2"));
}

void tst_add_to_recipe::the_same_item_on_another_recipe_is_no_question()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key other = w.add_recipe(QStringLiteral("Shake"), QStringLiteral("07"));
    w.add_line(other, QStringLiteral("Milk"), milk);
    w.open();
    QVERIFY(!w.page().ingredients().check_exist(milk));
    w.select_item(milk);
    w.trigger(QStringLiteral("mnu_tv_air"));
    QVERIFY(w.editor().is_open());
    w.click_text();
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 2);
    QVERIFY(w.page().ingredients().check_exist(milk));
}

void tst_add_to_recipe::a_stock_item_that_has_gone_opens_nothing()
{
    LineWindow w;
    w.open();
    w.page().drag_ingred(77, QStringLiteral("Ghost"));
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 0);
}

void tst_add_to_recipe::the_button_beside_a_new_item_brings_the_recipe_to_front_and_adds_the_line()
{
    StockBesidePage w;
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    w.add_list(QStringLiteral("Shop"));
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.load({1000, 700});
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    QVERIFY(!w.page().frame4().isVisible());
    {
        MessageScript script;
        script.drive([](QDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("txt_item"));
            name->setText(QStringLiteral("Leek"));
            QTest::mouseClick(dialog.findChild<QAbstractButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
        });
        script.expect(QStringLiteral("Stock category"),
                      QStringLiteral("Are you sure you want to place\nLeek in the 'OTHER' category?"), Answer::yes);
        w.trigger(QStringLiteral("mnu_edit_add_stck"));
    }
    w.focused_after_message();
    click_add_button(w);
    QVERIFY(w.page().frame4().isVisible());
    QVERIFY(!w.main().shared.list_pane_shown);
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.item().text(), QStringLiteral("Leek"));
    QVERIFY(w.qty().hasFocus());
    QTest::keyClicks(&w.qty(), QStringLiteral("2"));
    w.click_text();
    QCOMPARE(w.text("SELECT qty || item || item_ref || r_ref || \"order\" FROM recipe_2 WHERE item = 'Leek'"),
             QStringLiteral("2Leek%1%2%3").arg(w.number("SELECT key_id FROM items_1")).arg(w.recipe).arg(1));
    QCOMPARE(w.ingred(1), QStringLiteral("2 Leek"));
}

void tst_add_to_recipe::without_an_open_recipe_an_item_has_no_button()
{
    StockBesidePage w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.set_pref(QStringLiteral("arcp"), QStringLiteral("0"));
    w.load({1000, 700});
    QVERIFY(!w.page().has_recipe());
    w.select_item(milk);
    QVERIFY(!w.control(QStringLiteral("flt_btn(1)")).isVisible());
}

QTEST_MAIN(tst_add_to_recipe)
#include "tst_add_to_recipe.moc"
