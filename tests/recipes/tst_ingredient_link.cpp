#include "recipes/line_fixture.h"

#include "household/status.h"
#include "support/shown_things.h"

using namespace tarnwick;

class tst_ingredient_link : public QObject {
    Q_OBJECT
private slots:
    void a_typed_stock_name_links_a_new_line();
    void tab_through_a_typed_stock_name_links_a_new_line_data();
    void tab_through_a_typed_stock_name_links_a_new_line();
    void plural_and_singular_find_one_stock_item_data();
    void plural_and_singular_find_one_stock_item();
    void a_typed_name_shows_the_pictures_of_its_status_at_once_data();
    void a_typed_name_shows_the_pictures_of_its_status_at_once();
    void the_page_shows_the_link_of_every_keystroke_and_the_file_keeps_the_line();
    void leaving_the_box_writes_name_and_link_at_once();
    void the_name_that_the_line_had_gets_its_link_back_data();
    void the_name_that_the_line_had_gets_its_link_back();
    void an_edit_that_is_thrown_away_shows_the_line_as_it_is_stored();
    void a_stock_item_that_goes_meanwhile_leaves_the_line_without_one();
    void an_item_wanted_on_several_lists_leaves_the_pictures_while_typing();
};

void tst_ingredient_link::a_typed_stock_name_links_a_new_line()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("milk"));
    QCOMPARE(w.editor().draft().edited.item_ref, milk);
    w.click_text();
    QCOMPARE(w.number("SELECT item_ref FROM recipe_2"), int(milk));
    QCOMPARE(w.text("SELECT item FROM recipe_2"), QStringLiteral("milk"));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), milk));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
}

void tst_ingredient_link::tab_through_a_typed_stock_name_links_a_new_line_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::newRow("the very name") << QStringLiteral("Apple") << QStringLiteral("Apple");
    QTest::newRow("other case") << QStringLiteral("apple") << QStringLiteral("Apple");
    QTest::newRow("plural") << QStringLiteral("apples") << QStringLiteral("Apples");
}

void tst_ingredient_link::tab_through_a_typed_stock_name_links_a_new_line()
{
    QFETCH(QString, typed);
    QFETCH(QString, written);
    LineWindow w;
    const Key apple = w.add_item(QStringLiteral("Apple"), 0);
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    w.tab(w.qty());
    w.tab(w.measure());
    w.type(w.item(), typed);
    w.tab(w.item());
    QVERIFY(w.desc().hasFocus());
    QVERIFY(!w.list().isVisible());
    w.tab(w.desc());
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.text("SELECT item || '|' || item_ref FROM recipe_2"),
             QStringLiteral("%1|%2").arg(written).arg(apple));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), apple));
}

void tst_ingredient_link::plural_and_singular_find_one_stock_item_data()
{
    QTest::addColumn<QString>("stock");
    QTest::addColumn<QString>("typed");
    QTest::newRow("plural for singular") << QStringLiteral("Apple") << QStringLiteral("apples");
    QTest::newRow("singular for plural") << QStringLiteral("Apples") << QStringLiteral("APPLE");
    QTest::newRow("plural for plural") << QStringLiteral("Apples") << QStringLiteral("ApPlEs");
    QTest::newRow("accents") << QStringLiteral("Éclair") << QStringLiteral("éCLAIRS");
}

void tst_ingredient_link::plural_and_singular_find_one_stock_item()
{
    QFETCH(QString, stock);
    QFETCH(QString, typed);
    LineWindow w;
    const Key item = w.add_item(stock, 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Something"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.item().selectAll();
    w.item().insert(typed);
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(item));
    QCOMPARE(w.stored(key, "item || item_ref"), QStringLiteral("Something-1"));
    w.click_text();
    QCOMPARE(w.stored(key, "item_ref"), QString::number(item));
    QCOMPARE(w.stored(key, "item"), typed);
    QCOMPARE(w.ingred(0), typed);
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    QCOMPARE(w.page().rcp_item(0), stock);
}

void tst_ingredient_link::a_typed_name_shows_the_pictures_of_its_status_at_once_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("light");
    QTest::addColumn<int>("check");
    QTest::newRow("unlisted") << QStringLiteral("Apple") << 175 << 113;
    QTest::newRow("inactive") << QStringLiteral("Bread") << 183 << 113;
    QTest::newRow("buy it") << QStringLiteral("Cocoa") << 179 << 122;
    QTest::newRow("non-stock") << QStringLiteral("Dill") << 171 << 113;
}

void tst_ingredient_link::a_typed_name_shows_the_pictures_of_its_status_at_once()
{
    QFETCH(QString, typed);
    QFETCH(int, light);
    QFETCH(int, check);
    constexpr int color = 3;
    LineWindow w;
    const Key list = w.add_list(QStringLiteral("Shop"));
    w.add_item(QStringLiteral("Apple"), 0);
    w.add_row(w.add_item(QStringLiteral("Bread"), 0), list, false);
    w.add_row(w.add_item(QStringLiteral("Cocoa"), 0), list, true);
    const bool stock = light != picture_base::light_non_stock;
    // Begins with other pictures than those that are to come.
    const Key fish = w.add_item(QStringLiteral("Fish"), 0);
    w.add_row(fish, list, true);
    w.add_line(w.recipe, stock ? QStringLiteral("Salt") : QStringLiteral("Fish"), stock ? Key(-1) : fish);
    w.open();
    QCOMPARE(picture_of(*w.line(0).lite), (stock ? picture_base::light_non_stock : picture_base::light_on) + color);
    QCOMPARE(picture_of(*w.line(0).Check1), (stock ? picture_base::check_off : picture_base::check_on) + color);
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), typed);
    QVERIFY(w.item().hasFocus());
    QCOMPARE(picture_of(*w.line(0).lite), light + color);
    QCOMPARE(picture_of(*w.line(0).Check1), check + color);
    QVERIFY(w.line(0).Check1->isEnabled());
}

void tst_ingredient_link::the_page_shows_the_link_of_every_keystroke_and_the_file_keeps_the_line()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClick(&w.item(), Qt::Key_End);
    QTest::keyClicks(&w.item(), QStringLiteral("y"));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
    QTest::keyClick(&w.item(), Qt::Key_Backspace);
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
}

void tst_ingredient_link::leaving_the_box_writes_name_and_link_at_once()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key oats = w.add_item(QStringLiteral("Oat drink"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    Query(w.db(), "CREATE TABLE seen (line)").run();
    Query(w.db(),
          "CREATE TRIGGER see AFTER UPDATE ON recipe_2"
          " BEGIN INSERT INTO seen VALUES (new.item || new.item_ref); END")
        .run();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Oat drink"));
    QCOMPARE(w.number("SELECT count(*) FROM seen"), 0);
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(oats));
    QTest::mouseClick(&w.qty(), Qt::LeftButton);
    QCOMPARE(w.text("SELECT group_concat(line) FROM seen"), QStringLiteral("Oat drink%1").arg(oats));
    QCOMPARE(w.stored(key, "item || item_ref"), QStringLiteral("Oat drink%1").arg(oats));
}

void tst_ingredient_link::the_name_that_the_line_had_gets_its_link_back_data()
{
    QTest::addColumn<bool>("box_left");
    QTest::newRow("a letter typed and taken back") << false;
    QTest::newRow("after the box was left with another name") << true;
}

void tst_ingredient_link::the_name_that_the_line_had_gets_its_link_back()
{
    QFETCH(bool, box_left);
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Something white"), milk);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClick(&w.item(), Qt::Key_End);
    QTest::keyClicks(&w.item(), QStringLiteral("r"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
    if (box_left) {
        QTest::mouseClick(&w.desc(), Qt::LeftButton);
        QCOMPARE(w.stored(key, "item || item_ref"), QStringLiteral("Something whiter-1"));
        QTest::mouseClick(&w.item(), Qt::LeftButton);
        QTest::keyClick(&w.item(), Qt::Key_End);
    }
    QTest::keyClick(&w.item(), Qt::Key_Backspace);
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "item || item_ref"), QStringLiteral("Something white%1").arg(milk));
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), milk));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
}

void tst_ingredient_link::an_edit_that_is_thrown_away_shows_the_line_as_it_is_stored()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("3"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClicks(&w.item(), QStringLiteral("y"));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
    w.editor().hide_line();
    QCOMPARE(w.stored(key, "qty || item || item_ref"), QStringLiteral("3Milk%1").arg(milk));
    QCOMPARE(w.ingred(0), QStringLiteral("3 Milk"));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), milk));
}

void tst_ingredient_link::a_stock_item_that_goes_meanwhile_leaves_the_line_without_one()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("3"));
    Query(w.db(), "UPDATE recipe_2 SET item_ref = -1").run();
    Query(w.db(), "DELETE FROM items_1").run();
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "qty || item || item_ref"), QStringLiteral("3Milk-1"));
    QCOMPARE(w.ingred(0), QStringLiteral("3 Milk"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
}

void tst_ingredient_link::an_item_wanted_on_several_lists_leaves_the_pictures_while_typing()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_row(milk, w.add_list(QStringLiteral("One")), true);
    w.add_row(milk, w.add_list(QStringLiteral("Two")), true);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Milk"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
    QCOMPARE(w.light(0), picture_base::light_non_stock);
    w.click_text();
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
    QCOMPARE(w.light(0), picture_base::light_on);
    QVERIFY(!w.line(0).Check1->isEnabled());
}

QTEST_MAIN(tst_ingredient_link)
#include "tst_ingredient_link.moc"
