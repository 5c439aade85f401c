#include "recipes/line_fixture.h"

#include "household/status.h"
#include "support/shown_things.h"

using namespace tarnwick;

namespace {

QStringList rows_of(const PickList& list)
{
    QStringList rows;
    for (int i = 0; i < list.count(); ++i)
        rows.append(list.text(i));
    return rows;
}

} // namespace

class tst_pick_list : public QObject {
    Q_OBJECT
private slots:
    void enter_in_the_quantity_ends_the_edit();
    void enter_in_the_measure_ends_the_edit();
    void tab_in_the_list_of_measures_takes_the_measure();
    void the_quantity_list_holds_its_fractions();
    void the_measure_list_holds_its_units();
    void a_typed_quantity_and_a_picked_fraction_join_with_one_blank_data();
    void a_typed_quantity_and_a_picked_fraction_join_with_one_blank();
    void a_picked_measure_replaces_what_is_there();
    void down_in_a_box_selects_the_first_row_and_gives_the_list_the_focus();
    void a_press_in_the_quantity_box_opens_its_list_again();
    void a_press_in_another_box_leaves_its_list_hidden();
    void the_stock_list_follows_the_typed_text();
    void the_final_s_of_a_text_is_cut_even_if_it_is_all();
    void the_list_is_not_filled_again_for_the_name_that_was_there();
    void the_comment_has_no_list();
    void typing_the_plural_of_a_stock_name_links_the_line_and_keeps_the_plural();
    void choosing_a_stock_name_links_the_line_and_goes_to_the_comment();
    void choosing_a_stock_name_for_a_new_line_links_it();
    void another_name_after_a_choice_unlinks_a_new_line();
    void enter_on_a_name_of_no_stock_goes_to_the_comment();
    void going_through_an_untouched_name_of_the_stock_changes_nothing_data();
    void going_through_an_untouched_name_of_the_stock_changes_nothing();
    void a_typed_name_means_the_stock_item_of_that_name_before_its_singular();
    void choosing_the_name_in_the_box_keeps_the_link_and_goes_to_the_comment();
    void choosing_the_name_that_was_typed_stores_it();
    void the_list_stays_inside_the_page_data();
    void the_list_stays_inside_the_page();
};

void tst_pick_list::enter_in_the_quantity_ends_the_edit()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), QStringLiteral("4"));
    QTest::keyClick(&w.qty(), Qt::Key_Return);
    QVERIFY(w.Text1().hasFocus());
    QCOMPARE(w.ingred(0), QStringLiteral("4 Salt"));
}

void tst_pick_list::enter_in_the_measure_ends_the_edit()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.tab(w.qty());
    QTest::keyClicks(&w.measure(), QStringLiteral("pinch"));
    QVERIFY(w.list().isVisible());
    QTest::keyClick(&w.measure(), Qt::Key_Return);
    QVERIFY(w.Text1().hasFocus());
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(key, "measure"), QStringLiteral("pinch"));
    QCOMPARE(w.ingred(0), QStringLiteral("pinch Salt"));
}

void tst_pick_list::tab_in_the_list_of_measures_takes_the_measure()
{
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.tab(w.qty());
    QTest::keyClick(&w.measure(), Qt::Key_Down);
    QVERIFY(w.list().hasFocus());
    QTest::keyClick(&w.list(), Qt::Key_Down);
    QTest::keyClick(&w.list(), Qt::Key_Down);
    w.tab(w.list());
    QCOMPARE(w.measure().text(), QStringLiteral("cup"));
    QVERIFY(w.item().hasFocus());
    QCOMPARE(w.stored(key, "measure"), QStringLiteral("cup"));
}

void tst_pick_list::the_quantity_list_holds_its_fractions()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.tag(QStringLiteral("ListIngred")), QStringLiteral("1"));
    QCOMPARE(
        rows_of(w.list()),
        QStringList({QChar(188), QStringLiteral("1/3"), QChar(189), QChar(190), QStringLiteral("1") + QChar(188),
                     QStringLiteral("1 1/3"), QStringLiteral("1") + QChar(189), QStringLiteral("1") + QChar(190)}));
}

void tst_pick_list::the_measure_list_holds_its_units()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.tab(w.qty());
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.tag(QStringLiteral("ListIngred")), QStringLiteral("2"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("tsp|tbs|cup|oz.|lb.|qt.|can|whole"));
}

void tst_pick_list::a_typed_quantity_and_a_picked_fraction_join_with_one_blank_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("joined");
    for (const char* way : {"click", "Enter", "Tab"}) {
        QTest::addRow("2 %s", way) << QString::fromLatin1(way) << QStringLiteral("2") << QStringLiteral("2 ½");
        QTest::addRow("2 blank %s", way)
            << QString::fromLatin1(way) << QStringLiteral("2 ") << QStringLiteral("2 ½");
        QTest::addRow("none %s", way) << QString::fromLatin1(way) << QString() << QStringLiteral("½");
    }
}

void tst_pick_list::a_typed_quantity_and_a_picked_fraction_join_with_one_blank()
{
    QFETCH(QString, way);
    QFETCH(QString, typed);
    QFETCH(QString, joined);
    LineWindow w;
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::keyClicks(&w.qty(), typed);
    if (way == QLatin1String("click")) {
        w.click_row(2);
    } else {
        QTest::keyClick(&w.qty(), Qt::Key_Down);
        QVERIFY(w.list().hasFocus());
        QTest::keyClick(&w.list(), Qt::Key_Down);
        QTest::keyClick(&w.list(), Qt::Key_Down);
        QCOMPARE(w.list().list_index(), 2);
        QTest::keyClick(&w.list(), way == QLatin1String("Tab") ? Qt::Key_Tab : Qt::Key_Return);
    }
    QCOMPARE(w.qty().text(), joined);
    QVERIFY(w.measure().hasFocus());
    QCOMPARE(w.stored(key, "qty"), joined);
    w.click_text();
    QCOMPARE(w.ingred(0), joined + QStringLiteral(" Salt"));
}

void tst_pick_list::a_picked_measure_replaces_what_is_there()
{
    LineWindow w;
    const Key key
        = w.add_line(w.recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("2"), QStringLiteral("spoon"));
    w.open();
    w.open_line(0);
    w.tab(w.qty());
    w.click_row(1);
    QCOMPARE(w.measure().text(), QStringLiteral("tbs"));
    QVERIFY(w.item().hasFocus());
    QCOMPARE(w.stored(key, "measure"), QStringLiteral("tbs"));
    w.click_text();
    QCOMPARE(w.ingred(0), QStringLiteral("2 tbs Salt"));
}

void tst_pick_list::down_in_a_box_selects_the_first_row_and_gives_the_list_the_focus()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QCOMPARE(w.list().list_index(), -1);
    QTest::keyClick(&w.qty(), Qt::Key_Up);
    QCOMPARE(w.list().list_index(), 0);
    QVERIFY(w.list().hasFocus());
    QVERIFY(w.editor().is_open());
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QVERIFY(!w.list().isVisible());
}

void tst_pick_list::a_press_in_the_quantity_box_opens_its_list_again()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    w.list().hide();
    QTest::mouseClick(&w.qty(), Qt::LeftButton);
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.list().count(), 8);
}

void tst_pick_list::a_press_in_another_box_leaves_its_list_hidden()
{
    LineWindow w;
    w.add_item(QStringLiteral("Salted butter"), 0);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    for (QLineEdit* box : {&w.measure(), &w.item()}) {
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(w.list().isVisible());
        w.list().hide();
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(!w.list().isVisible());
    }
}

void tst_pick_list::the_stock_list_follows_the_typed_text()
{
    LineWindow w;
    const Key beans = w.add_item(QStringLiteral("Beans"), 0);
    w.add_item(QStringLiteral("bean sprouts"), 0);
    w.add_item(QStringLiteral("Beer"), 0);
    w.add_item(QStringLiteral("Butter"), 0);
    w.add_line(w.recipe, QStringLiteral("Zest"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QVERIFY(!w.list().isVisible());
    w.item().selectAll();
    QTest::keyClicks(&w.item(), QStringLiteral("B"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("bean sprouts|Beans|Beer|Butter"));
    QVERIFY(w.list().isVisible());
    QCOMPARE(w.tag(QStringLiteral("ListIngred")), QStringLiteral("3"));
    QTest::keyClicks(&w.item(), QStringLiteral("eans"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("bean sprouts|Beans"));
    QCOMPARE(w.list().item_data(1), beans);
    QTest::keyClicks(&w.item(), QStringLiteral("tock"));
    QVERIFY(!w.list().isVisible());
    w.item().clear();
    QVERIFY(!w.list().isVisible());
}

void tst_pick_list::the_final_s_of_a_text_is_cut_even_if_it_is_all()
{
    LineWindow w;
    for (const char* name : {"Beer", "Oats", "Sage"})
        w.add_item(QString::fromLatin1(name), 0);
    w.add_line(w.recipe, QStringLiteral("Zest"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("s"));
    QVERIFY(w.list().isVisible());
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Beer|Oats|Sage"));
    QTest::keyClicks(&w.item(), QStringLiteral("a"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Sage"));
}

void tst_pick_list::the_list_is_not_filled_again_for_the_name_that_was_there()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    w.add_item(QStringLiteral("Mild cheese"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), milk);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClick(&w.item(), Qt::Key_End);
    QTest::keyClick(&w.item(), Qt::Key_Backspace);
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Mild cheese|Milk"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QTest::keyClicks(&w.item(), QStringLiteral("k"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Mild cheese|Milk"));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(milk));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(milk));
}

void tst_pick_list::the_comment_has_no_list()
{
    LineWindow w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QVERIFY(w.list().isVisible());
    QTest::mouseClick(&w.desc(), Qt::LeftButton);
    QVERIFY(!w.list().isVisible());
    QCOMPARE(w.list().count(), 0);
}

void tst_pick_list::typing_the_plural_of_a_stock_name_links_the_line_and_keeps_the_plural()
{
    LineWindow w;
    const Key apple = w.add_item(QStringLiteral("Apple"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("apples"));
    QVERIFY(w.list().isVisible());
    w.tab(w.item());
    QVERIFY(w.desc().hasFocus());
    QCOMPARE(w.item().text(), QStringLiteral("Apples"));
    QCOMPARE(w.tag(QStringLiteral("ListIngred")), QStringLiteral("4"));
    w.tab(w.desc());
    QCOMPARE(w.ingred(0), QStringLiteral("Apples"));
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Apples"));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(apple));
    QCOMPARE(w.light(0), picture_base::light_unlisted);
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), apple));
}

void tst_pick_list::choosing_a_stock_name_links_the_line_and_goes_to_the_comment()
{
    LineWindow w;
    w.add_item(QStringLiteral("Butter"), 0);
    const Key beer = w.add_item(QStringLiteral("Beer"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("b"));
    w.click_row(0);
    QCOMPARE(w.item().text(), QStringLiteral("Beer"));
    QCOMPARE(w.item().property("Tag").toString(), QStringLiteral("Beer"));
    QVERIFY(w.desc().hasFocus());
    QVERIFY(!w.list().isVisible());
    QCOMPARE(w.editor().draft().edited.item_ref, beer);
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Beer"));
    QCOMPARE(w.stored(key, "item_ref"), QString::number(beer));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(beer));
    w.click_text();
    QCOMPARE(w.ingred(0), QStringLiteral("Beer"));
    QCOMPARE(w.page().rcp_item(0), QStringLiteral("Beer"));
}

void tst_pick_list::choosing_a_stock_name_for_a_new_line_links_it()
{
    LineWindow w;
    const Key beer = w.add_item(QStringLiteral("Beer"), 0);
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClicks(&w.item(), QStringLiteral("be"));
    QTest::keyClick(&w.item(), Qt::Key_Down);
    QTest::keyClick(&w.list(), Qt::Key_Return);
    QCOMPARE(w.item().text(), QStringLiteral("Beer"));
    QCOMPARE(w.editor().draft().edited.item_ref, beer);
    QCOMPARE(w.button("imgScratch").property("Tag").toString(), QStringLiteral("edit"));
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 0);
    w.tab(w.desc());
    QCOMPARE(w.text("SELECT item || item_ref FROM recipe_2"), QStringLiteral("Beer%1").arg(beer));
    // The cross of a chosen, unwritten line drops it as well.
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClicks(&w.item(), QStringLiteral("be"));
    w.click_row(0);
    QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    QCOMPARE(w.lines(), 1);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2"), 1);
}

void tst_pick_list::another_name_after_a_choice_unlinks_a_new_line()
{
    LineWindow w;
    w.add_item(QStringLiteral("Beer"), 0);
    w.open();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QTest::keyClicks(&w.item(), QStringLiteral("be"));
    w.click_row(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Lard"));
    w.click_text();
    QCOMPARE(w.text("SELECT item || item_ref FROM recipe_2"), QStringLiteral("Lard-1"));
}

void tst_pick_list::enter_on_a_name_of_no_stock_goes_to_the_comment()
{
    LineWindow w;
    w.add_item(QStringLiteral("Beer"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Bee"));
    QVERIFY(w.list().isVisible());
    QTest::keyClick(&w.item(), Qt::Key_Return);
    QVERIFY(w.desc().hasFocus());
    QVERIFY(!w.list().isVisible());
    QCOMPARE(w.stored(key, "item"), QStringLiteral("Bee"));
    QCOMPARE(w.stored(key, "item_ref"), QStringLiteral("-1"));
}

void tst_pick_list::going_through_an_untouched_name_of_the_stock_changes_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("linked_to");
    QTest::addColumn<int>("key");
    const auto add = [](const char* what, const char* name, const char* linked_to) {
        for (const auto& [key_name, key] : {std::pair("Tab", Qt::Key_Tab), std::pair("Enter", Qt::Key_Return)})
            QTest::addRow("%s, %s", what, key_name)
                << QString::fromLatin1(name) << QString::fromLatin1(linked_to) << int(key);
    };
    add("other case", "milk", "Milk");
    add("plural beside its singular", "Apples", "Apples");
    add("singular for plural", "egg", "Eggs");
    add("plural for singular", "milks", "Milk");
    add("a name of another item", "Milk", "Eggs");
    add("the very name", "Milk", "Milk");
}

void tst_pick_list::going_through_an_untouched_name_of_the_stock_changes_nothing()
{
    QFETCH(QString, name);
    QFETCH(QString, linked_to);
    QFETCH(int, key);
    LineWindow w;
    Key link = 0;
    for (const char* stock : {"Apple", "Apples", "Eggs", "Milk"}) {
        const Key item = w.add_item(QString::fromLatin1(stock), 0);
        if (QString::fromLatin1(stock) == linked_to)
            link = item;
    }
    const Key line = w.add_line(w.recipe, name, link);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QVERIFY(w.list().isVisible());
    QTest::keyClick(&w.item(), Qt::Key(key));
    QVERIFY(w.desc().hasFocus());
    QVERIFY(!w.list().isVisible());
    QCOMPARE(w.item().text(), name);
    w.tab(w.desc());
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.stored(line, "item || '|' || item_ref"), QStringLiteral("%1|%2").arg(name).arg(link));
    QCOMPARE(w.tag(QStringLiteral("Check1(0)")), QString::number(link));
    QCOMPARE(w.ingred(0), name);
    QCOMPARE(w.page().rcp_item(0), name);
    QCOMPARE(w.line(0).ingred->toolTip(), get_ttt(w.db(), link));
}

void tst_pick_list::a_typed_name_means_the_stock_item_of_that_name_before_its_singular()
{
    LineWindow w;
    w.add_item(QStringLiteral("Apple"), 0);
    const Key apples = w.add_item(QStringLiteral("Apples"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("apples"));
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Apple|Apples"));
    w.tab(w.item());
    QVERIFY(w.desc().hasFocus());
    QCOMPARE(w.stored(key, "item || '|' || item_ref"), QStringLiteral("Apples|%1").arg(apples));
    QCOMPARE(w.editor().draft().edited.item_ref, apples);
}

void tst_pick_list::choosing_the_name_in_the_box_keeps_the_link_and_goes_to_the_comment()
{
    LineWindow w;
    w.add_item(QStringLiteral("Milk"), 0);
    const Key whole = w.add_item(QStringLiteral("Whole milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Milk"), whole);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    QCOMPARE(rows_of(w.list()).join(u'|'), QStringLiteral("Milk"));
    w.click_row(0);
    QVERIFY(w.desc().hasFocus());
    QVERIFY(!w.list().isVisible());
    w.click_text();
    QCOMPARE(w.stored(key, "item || '|' || item_ref"), QStringLiteral("Milk|%1").arg(whole));
}

void tst_pick_list::choosing_the_name_that_was_typed_stores_it()
{
    LineWindow w;
    const Key milk = w.add_item(QStringLiteral("Milk"), 0);
    const Key key = w.add_line(w.recipe, QStringLiteral("Salt"));
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.type(w.item(), QStringLiteral("Milk"));
    w.click_row(0);
    QVERIFY(w.desc().hasFocus());
    QCOMPARE(w.stored(key, "item || '|' || item_ref"), QStringLiteral("Milk|%1").arg(milk));
    QCOMPARE(w.item().property("Tag").toString(), QStringLiteral("Milk"));
    w.click_text();
    QCOMPARE(w.ingred(0), QStringLiteral("Milk"));
}

void tst_pick_list::the_list_stays_inside_the_page_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("line");
    for (int size : {9, 10, 12})
        for (int line : {0, 12, 24})
            QTest::addRow("size %d line %d", size, line) << size << line;
}

void tst_pick_list::the_list_stays_inside_the_page()
{
    QFETCH(int, size);
    QFETCH(int, line);
    LineWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(size));
    {
        Transaction transaction(w.db());
        for (int i = 0; i < 25; ++i) {
            w.add_line(w.recipe, QStringLiteral("Sugar"));
            w.add_item(QStringLiteral("Sugar number %1").arg(i), 0);
        }
        transaction.commit();
    }
    w.open({700, 450});
    w.open_line(line);
    for (QLineEdit* box : {&w.qty(), &w.measure(), &w.item()}) {
        if (!box->hasFocus())
            QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(w.list().isVisible());
        const QRect list = w.list().geometry();
        QVERIFY(w.page().frame4().geometry().contains(list));
        const QRect under(box->mapTo(w.list().parentWidget(), QPoint(0, 0)), box->size());
        QVERIFY(list.top() == under.bottom() + 1 || list.bottom() + 1 == under.top());
        QVERIFY(list.height() > 2 * w.list().sizeHintForRow(0));
        if (size == 12)
            QCOMPARE(list.width(), 173);
    }
}

QTEST_MAIN(tst_pick_list)
#include "tst_pick_list.moc"
