#include "recipes/recipe_fixture.h"

#include "recipes/page_geometry.h"
#include "household/status.h"
#include "support/tool_button.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTabBar>

using namespace tarnwick;

namespace {

const QString words = QStringLiteral("peeled, seeded and cut into small cubes with a sharp knife ");
const QString no_recipe = QStringLiteral("No recipe is open. Choose one in the tree, or click New.");

} // namespace

class tst_recipe_page : public QObject {
    Q_OBJECT

private slots:
    void a_line_joins_quantity_measure_item_and_comment();
    void a_field_of_one_blank_adds_nothing_to_the_line();
    void a_name_like_markup_stands_letter_by_letter_in_the_tool_tip();
    void lines_stand_at_their_computed_places_data();
    void lines_stand_at_their_computed_places();
    void a_long_line_counts_extra_rows_and_all_below_moves_down();
    void no_line_overlaps_the_next_or_the_body_data();
    void no_line_overlaps_the_next_or_the_body();
    void capitals_count_narrower_than_other_characters();
    void tags_carry_keys_and_counts();
    void orders_run_without_gaps_after_a_delete_and_a_reload();
    void an_empty_recipe_hides_its_first_element_only();
    void no_recipe_hides_name_and_body();
    void without_a_recipe_the_page_says_so_at_its_head_and_does_not_scroll_data();
    void without_a_recipe_the_page_says_so_at_its_head_and_does_not_scroll();
    void a_page_without_a_recipe_is_closed_to_typing_data();
    void a_page_without_a_recipe_is_closed_to_typing();
    void a_new_ingredient_without_a_recipe_is_answered_with_the_hint_data();
    void a_new_ingredient_without_a_recipe_is_answered_with_the_hint();
    void a_page_first_shown_when_all_recipes_are_gone_has_no_title();
    void a_hundred_lines_and_lines_of_two_thousand_characters_load();
    void a_blank_item_is_an_unlisted_stock_item();
    void the_loaded_key_is_stored();
    void name_is_in_the_tool_tips_of_print_and_preview();
};

void tst_recipe_page::a_line_joins_quantity_measure_item_and_comment()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(recipe, QStringLiteral(" Salt "), -1, -1, QStringLiteral("1/2"), QStringLiteral("tsp"),
                    QStringLiteral(" coarse "));
    window.add_line(recipe, QStringLiteral("Water"));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    QCOMPARE(window.ingred(0), QStringLiteral("1/2 tsp Salt coarse"));
    QCOMPARE(window.ingred(1), QStringLiteral("Water"));
    QCOMPARE(window.title().text(), QStringLiteral("Soup"));
    QCOMPARE(window.Text1().toPlainText(), QStringLiteral("Stir."));
}

void tst_recipe_page::a_field_of_one_blank_adds_nothing_to_the_line()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    const QString blank = QStringLiteral(" ");
    window.add_line(recipe, QStringLiteral("Flour"), -1, -1, blank, QStringLiteral("cup"),
                    QStringLiteral("sifted"));
    window.add_line(recipe, QStringLiteral("Eggs"), -1, -1, QStringLiteral("2"), blank, QStringLiteral("beaten"));
    window.add_line(recipe, QStringLiteral("Salt"), -1, -1, QStringLiteral("1"), QStringLiteral("tsp"), blank);
    window.add_line(recipe, QStringLiteral("Water"), -1, -1, blank, blank, blank);
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    QCOMPARE(window.ingred(0), QStringLiteral("cup Flour sifted"));
    QCOMPARE(window.ingred(1), QStringLiteral("2 Eggs beaten"));
    QCOMPARE(window.ingred(2), QStringLiteral("1 tsp Salt"));
    QCOMPARE(window.ingred(3), QStringLiteral("Water"));
}

void tst_recipe_page::a_name_like_markup_stands_letter_by_letter_in_the_tool_tip()
{
    RecipeWindow window;
    const QString name = QStringLiteral("<b>x</b>");
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(recipe, name, window.add_item(name, 0));
    window.set_pref(QStringLiteral("arcp"), QString::number(recipe));
    window.load();
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(),
             QStringLiteral("<qt>&lt;b&gt;x&lt;/b&gt; - Not listed :: OTHER category</qt>"));
}

void tst_recipe_page::lines_stand_at_their_computed_places_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QVector<int>>("ingred");
    QTest::addColumn<QVector<int>>("lite");
    QTest::addColumn<QVector<int>>("check");
    QTest::addColumn<int>("body");
    for (int size : {9, 10})
        QTest::addRow("%d points", size)
            << size << QVector<int>{40, 60, 80} << QVector<int>{40, 60, 80} << QVector<int>{40, 60, 80} << 127;
    QTest::addRow("12 points") << 12 << QVector<int>{40, 67, 94} << QVector<int>{43, 69, 96}
                               << QVector<int>{43, 70, 96} << 147;
}

void tst_recipe_page::lines_stand_at_their_computed_places()
{
    QFETCH(int, size);
    QFETCH(QVector<int>, ingred);
    QFETCH(QVector<int>, lite);
    QFETCH(QVector<int>, check);
    QFETCH(int, body);
    RecipeWindow window;
    window.set_pref(QStringLiteral("font"), QString::number(size));
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_lines(recipe, 3);
    window.load();
    window.page().set_recipe(recipe);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(window.control(QStringLiteral("ingred(%1)").arg(i)).y(), ingred[i]);
        QCOMPARE(window.control(QStringLiteral("lite(%1)").arg(i)).y(), lite[i]);
        QCOMPARE(window.control(QStringLiteral("Check1(%1)").arg(i)).y(), check[i]);
        QVERIFY(window.control(QStringLiteral("ingred(%1)").arg(i)).isVisible());
    }
    QCOMPARE(window.Text1().y(), body);
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).width(), window.page().frame4().width() - 80);
    if (size < 12)
        QCOMPARE(window.control(QStringLiteral("ingred(0)")).height(), 20);
}

void tst_recipe_page::a_long_line_counts_extra_rows_and_all_below_moves_down()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(recipe, QStringLiteral("Salt"));
    const Key long_line = window.add_line(recipe, QStringLiteral("Salt"));
    window.add_line(recipe, QStringLiteral("Salt"));
    window.load();
    window.page().set_recipe(recipe);
    const int next = window.control(QStringLiteral("ingred(2)")).y();
    const int body = window.Text1().y();
    Query(window.db(), "UPDATE recipe_2 SET comment = ? WHERE key_id = ?", words.repeated(8), long_line).run();
    window.page().set_recipe(recipe);
    const auto& line = window.page().lines()[1];
    const int extra = window.page().recipe_lines().wrap_extra();
    const int estimate = page_geometry::estimated_rows(line.upper, line.other, 15 * line.ingred->width(), 0);
    QCOMPARE(extra, estimate - 1);
    QVERIFY(extra > 0);
    const int surplus = (line.rows - estimate) * 16;
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).y(), 60);
    QCOMPARE(window.control(QStringLiteral("ingred(2)")).y(), next + 16 * extra + surplus);
    QCOMPARE(window.Text1().y(), page_geometry::to_pixels(1000 + 3 * 300 + 250 * extra) + surplus);
    QVERIFY(window.Text1().y() > body);
}

void tst_recipe_page::no_line_overlaps_the_next_or_the_body_data()
{
    QTest::addColumn<int>("size");
    for (int size : {9, 10, 12})
        QTest::addRow("%d points", size) << size;
}

void tst_recipe_page::no_line_overlaps_the_next_or_the_body()
{
    QFETCH(int, size);
    RecipeWindow window;
    window.set_pref(QStringLiteral("font"), QString::number(size));
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    for (int i = 0; i < 24; ++i)
        window.add_line(recipe, (i % 2 ? words : words.toUpper()).repeated(i % 8));
    window.load();
    window.page().set_recipe(recipe);
    const auto& lines = window.page().lines();
    for (size_t i = 0; i < lines.size(); ++i) {
        const QRect place = lines[i].ingred->geometry();
        const int next = i + 1 < lines.size() ? lines[i + 1].ingred->y() : window.Text1().y();
        QVERIFY2(place.bottom() < next, qPrintable(QString::number(i)));
        const int pitch = size == 12 ? 23 : 16;
        const int needed = lines[i].ingred->fontMetrics().height() + (lines[i].rows - 1) * pitch;
        QVERIFY2(place.height() >= needed, "the line is cut");
        QVERIFY(lines[i].rows >= lines[i].ingred->rows_in(place.width()));
        const int middle = lines[i].Check1->geometry().center().y();
        QVERIFY2(middle > place.top() && middle < place.top() + 27, "the box left its line");
    }
}

void tst_recipe_page::capitals_count_narrower_than_other_characters()
{
    using page_geometry::estimated_rows;
    // 6000 twips: 94 of 32 are 0.501 rows, 94 of 35 are 0.548; 85 of 35 are 0.496.
    QCOMPARE(estimated_rows(94, 0, 6000, 0), 2);
    QCOMPARE(estimated_rows(93, 0, 6000, 0), 1);
    QCOMPARE(estimated_rows(0, 86, 6000, 0), 2);
    QCOMPARE(estimated_rows(0, 85, 6000, 0), 1);
    QCOMPARE(estimated_rows(0, 85, 6000, page_geometry::size_step(12)), 2);
    // Half a row is rounded to the even count of rows.
    QCOMPARE(estimated_rows(0, 100, 7000, 0), 1);
    QCOMPARE(estimated_rows(0, 300, 7000, 0), 3);
    QCOMPARE(page_geometry::line_height(2, 9), 600);
    QCOMPARE(page_geometry::line_height(2, 12), 480);
}

void tst_recipe_page::tags_carry_keys_and_counts()
{
    RecipeWindow window;
    const Key item = window.add_item(QStringLiteral("Sea Salt"), 0);
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    const Key line = window.add_line(recipe, QStringLiteral("Sea Salt"), item, -1, QStringLiteral("1"));
    window.load();
    window.page().set_recipe(recipe);
    QCOMPARE(window.tag(QStringLiteral("lite(0)")), QString::number(line));
    QCOMPARE(window.tag(QStringLiteral("Check1(0)")), QString::number(item));
    QCOMPARE(window.tag(QStringLiteral("ingred(0)")), QStringLiteral("8^2^Sea Salt"));
    QCOMPARE(window.page().rcp_item(0), QStringLiteral("Sea Salt"));
    QCOMPARE(window.tag(QStringLiteral("title")), QString::number(recipe));
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(),
             QStringLiteral("Sea Salt - Not listed :: OTHER category"));
}

void tst_recipe_page::orders_run_without_gaps_after_a_delete_and_a_reload()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    for (const char* name : {"One", "Two", "Three", "Four"})
        window.add_line(recipe, QLatin1String(name));
    window.load();
    window.page().set_recipe(recipe);
    Query(window.db(), "DELETE FROM recipe_2 WHERE item = 'Two'").run();
    window.page().set_recipe(recipe);
    QCOMPARE(window.text("SELECT group_concat(item || \"order\") FROM (SELECT * FROM recipe_2 ORDER BY \"order\")"),
             QStringLiteral("One0,Three1,Four2"));
    QCOMPARE(window.page().lines().size(), size_t{3});
    QVERIFY(!window.control(QStringLiteral("ingred(3)")).isVisible());
}

void tst_recipe_page::an_empty_recipe_hides_its_first_element_only()
{
    RecipeWindow window;
    const Key full = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(full, QStringLiteral("Salt"));
    const Key empty = window.add_recipe(QStringLiteral("Air"), QStringLiteral("15"));
    window.load();
    window.page().set_recipe(full);
    window.page().set_recipe(empty);
    for (const char* name : {"ingred(0)", "lite(0)", "Check1(0)"})
        QVERIFY(!window.control(QLatin1String(name)).isVisible());
    QCOMPARE(window.tag(QStringLiteral("lite(0)")), QStringLiteral("-1"));
    QCOMPARE(window.control(QStringLiteral("lite(0)")).property("picture").toInt(),
             picture_base::light_non_stock + window.main().shared.color_index);
    QCOMPARE(window.control(QStringLiteral("lite(0)")).y(), 40);
    QVERIFY(window.title().isVisible());
    QVERIFY(window.Text1().isVisible());
    QCOMPARE(window.Text1().y(), 67);
}

void tst_recipe_page::no_recipe_hides_name_and_body()
{
    RecipeWindow window;
    window.load();
    window.page().set_recipe(-1);
    QVERIFY(!window.title().isVisible());
    QVERIFY(!window.Text1().isVisible());
    QVERIFY(!window.page().has_recipe());
    window.page().set_recipe(0);
    QVERIFY(window.title().isVisible());
    QCOMPARE(window.tag(QStringLiteral("title")), QStringLiteral("-1"));
}

void tst_recipe_page::without_a_recipe_the_page_says_so_at_its_head_and_does_not_scroll_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 10, 12})
        QTest::addRow("%d points", points) << points;
}

void tst_recipe_page::without_a_recipe_the_page_says_so_at_its_head_and_does_not_scroll()
{
    QFETCH(int, points);
    RecipeWindow window;
    window.set_pref(QStringLiteral("arcp"), QStringLiteral("-1"));
    window.set_pref(QStringLiteral("font"), QString::number(points));
    window.load();
    const auto* hint = window.find<QLabel>(QStringLiteral("empty_hint"));
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), no_recipe);
    const int top = hint->y();
    QVERIFY2(top < 120, qPrintable(QString::number(top)));
    for (int i = 1; i <= 5; ++i) {
        window.main().resize(window.main().size() + QSize(10, 0));
        QCoreApplication::processEvents();
    }
    QCOMPARE(hint->y(), top);
    QVERIFY(!window.find<QScrollBar>(QStringLiteral("VScroll1"))->isVisible());
}

void tst_recipe_page::a_page_first_shown_when_all_recipes_are_gone_has_no_title()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("arcp"), QStringLiteral("-1"));
    window.load();
    QVERIFY(!window.page().frame4().isVisible());
    window.trigger(QStringLiteral("mnu_view_rcpepages"));
    QVERIFY(window.page().frame4().isVisible());
    QVERIFY(!window.title().isVisible());
    QVERIFY(!window.Text1().isVisible());
}

void tst_recipe_page::a_page_without_a_recipe_is_closed_to_typing_data()
{
    QTest::addColumn<QString>("arcp");
    QTest::addColumn<bool>("starts_on_list");
    QTest::newRow("none chosen yet") << QStringLiteral("0") << false;
    QTest::newRow("a recipe that is gone") << QStringLiteral("77") << false;
    QTest::newRow("none chosen yet, a start on the list") << QStringLiteral("0") << true;
    QTest::newRow("a recipe that is gone, a start on the list") << QStringLiteral("77") << true;
}

void tst_recipe_page::a_page_without_a_recipe_is_closed_to_typing()
{
    QFETCH(QString, arcp);
    QFETCH(bool, starts_on_list);
    RecipeWindow window;
    const Key soup = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.set_pref(QStringLiteral("arcp"), arcp);
    if (starts_on_list)
        window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    if (starts_on_list) {
        auto* tabs = window.find<QTabBar>(QStringLiteral("TabStrip1(1)"));
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    }
    QVERIFY(!window.page().has_recipe());
    QCOMPARE(window.main().shared.cur_recipe_name, QString());
    QCOMPARE(window.tag(QStringLiteral("title")), QStringLiteral("-1"));
    QVERIFY(window.title().isVisible());
    QVERIFY(window.Text1().isVisible());
    QCOMPARE(window.Text1().placeholderText(), no_recipe);
    window.focus(window.title());
    QTest::keyClicks(&window.title(), QStringLiteral("Ghost"));
    window.focus(window.Text1());
    QTest::keyClicks(&window.Text1(), QStringLiteral("Boo"));
    QGuiApplication::clipboard()->setText(QStringLiteral("Boo"));
    QTest::keyClick(&window.Text1(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.title().text(), QString());
    QCOMPARE(window.Text1().toPlainText(), QString());
    QCOMPARE(window.Text1().border_style(), 0);
    QVERIFY(!window.edited());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));

    window.click_node(rcp(soup));
    QCOMPARE(window.Text1().placeholderText(), QString());
    window.focus(window.title());
    QTest::keyClicks(&window.title(), QStringLiteral("s"));
    window.focus(window.Text1());
    QVERIFY(window.text("SELECT r_name FROM recipe_1").contains(u's'));
}

void tst_recipe_page::a_new_ingredient_without_a_recipe_is_answered_with_the_hint_data()
{
    QTest::addColumn<QString>("arcp");
    QTest::addColumn<bool>("by_key");
    for (const char* key : {"0", "77", "-1"}) {
        QTest::addRow("button at %s", key) << QString::fromLatin1(key) << false;
        QTest::addRow("Ctrl+I at %s", key) << QString::fromLatin1(key) << true;
    }
}

void tst_recipe_page::a_new_ingredient_without_a_recipe_is_answered_with_the_hint()
{
    QFETCH(QString, arcp);
    QFETCH(bool, by_key);
    RecipeWindow window;
    window.set_pref(QStringLiteral("arcp"), arcp);
    window.load();
    window.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window.main()));
    window.main().set_status(QStringLiteral("Something else"));
    if (by_key)
        QTest::keyClick(&window.main(), Qt::Key_I, Qt::ControlModifier);
    else
        QTest::mouseClick(&window.control(tool_button(ToolButton::ingredient)), Qt::LeftButton);
    QCOMPARE(window.main().status_panels().text(), no_recipe);
    QVERIFY(!window.page().editor_open());
}

void tst_recipe_page::a_hundred_lines_and_lines_of_two_thousand_characters_load()
{
    RecipeWindow window;
    const Key many = window.add_recipe(QStringLiteral("Feast"), QStringLiteral("15"));
    window.add_lines(many, 100);
    const Key wide = window.add_recipe(QStringLiteral("Prose"), QStringLiteral("15"));
    for (int i = 0; i < 3; ++i)
        window.add_line(wide, words.repeated(40).left(2000));
    window.load();
    window.page().set_recipe(many);
    QCOMPARE(window.page().lines().size(), size_t{100});
    window.page().set_recipe(wide);
    QVERIFY(window.page().lines()[0].rows >= 15);
    QVERIFY(window.page().lines()[1].ingred->y() > window.page().lines()[0].ingred->geometry().bottom());
}

void tst_recipe_page::a_blank_item_is_an_unlisted_stock_item()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(recipe, QStringLiteral(" "), -1, -1, QStringLiteral("2"));
    window.load();
    window.page().set_recipe(recipe);
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(), QStringLiteral("Unlisted stock item"));
    QCOMPARE(window.control(QStringLiteral("lite(0)")).property("picture").toInt(), 171 + 3);
}

void tst_recipe_page::the_loaded_key_is_stored()
{
    RecipeWindow window;
    const Key recipe = window.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    QCOMPARE(window.pref(QStringLiteral("arcp")), QString::number(recipe));
    window.page().set_recipe(-1);
    QCOMPARE(window.pref(QStringLiteral("arcp")), QStringLiteral("-1"));
}

void tst_recipe_page::name_is_in_the_tool_tips_of_print_and_preview()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    QCOMPARE(window.control(tool_button(ToolButton::print)).toolTip(), QStringLiteral("Print Soup recipe"));
    QCOMPARE(window.control(tool_button(ToolButton::preview)).toolTip(), QStringLiteral("Preview Soup recipe"));
}

QTEST_MAIN(tst_recipe_page)
#include "tst_recipe_page.moc"
