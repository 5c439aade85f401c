#include "recipes/recipe_fixture.h"

#include "recipes/page_geometry.h"

#include <QContextMenuEvent>
#include <QWheelEvent>

using namespace tarnwick;

namespace {

const QString words = QStringLiteral("peeled, seeded and cut into small cubes with a sharp knife ");

} // namespace

class tst_recipe_scroll : public QObject {
    Q_OBJECT

private slots:
    void the_height_of_the_page_is_estimated_from_lines_and_text_data();
    void the_height_of_the_page_is_estimated_from_lines_and_text();
    void the_estimated_height_ends_at_sixteen_bits();
    void a_line_end_counts_for_two_characters_of_the_height_data();
    void a_line_end_counts_for_two_characters_of_the_height();
    void the_scroll_bar_shows_exactly_for_a_long_page();
    void scrolling_to_the_end_shows_the_end_of_the_body();
    void the_body_fills_the_page_below_the_lines();
    void the_body_keeps_its_place_and_takes_the_room_at_every_scroll();
    void the_caret_takes_the_page_along();
    void an_emptied_body_brings_the_page_back_to_its_top();
    void a_body_emptied_by_its_menu_brings_the_page_back_to_its_top();
    void a_shortened_body_leaves_no_gap_below_the_page();
    void the_page_follows_the_caret_to_a_degree_sign();
    void the_wheel_scrolls_a_long_page_only();
};

void tst_recipe_scroll::the_height_of_the_page_is_estimated_from_lines_and_text_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("last_line");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("line_ends");
    QTest::addColumn<int>("height");
    // A page of 6000 twips has 6000 / 120 = 50 characters in a row, 6000 / 150 = 40, 6000 / 210 = 28.6.
    QTest::newRow("empty at 9") << 9 << 0 << 0 << 0 << 18 + 120;
    QTest::newRow("empty at 10") << 10 << 0 << 0 << 0 << 20 + 120;
    QTest::newRow("empty at 12") << 12 << 0 << 0 << 0 << 24 + 120;
    QTest::newRow("lines at 9") << 9 << 4 << 0 << 0 << 4 * 19 + 18 + 120;
    QTest::newRow("lines at 10") << 10 << 4 << 0 << 0 << 4 * 19 + 20 + 120;
    QTest::newRow("lines at 12") << 12 << 4 << 0 << 0 << 4 * 35 + 24 + 120;
    QTest::newRow("text at 9") << 9 << 4 << 500 << 3 << 331; // 76 + (10 + 3) * 9 + 18 + 120
    QTest::newRow("text at 10") << 10 << 4 << 520 << 3 << 376; // 76 + (13 + 3) * 10 + 20 + 120
    QTest::newRow("text at 12") << 12 << 4 << 400 << 3 << 488; // 140 + (14 + 3) * 12 + 24 + 120
    QTest::newRow("half a row to the even count, down") << 9 << 0 << 225 << 0 << 174; // 4 * 9 + 18 + 120
    QTest::newRow("half a row to the even count, up") << 9 << 0 << 275 << 0 << 192; // 6 * 9 + 18 + 120
}

void tst_recipe_scroll::the_height_of_the_page_is_estimated_from_lines_and_text()
{
    QFETCH(int, size);
    QFETCH(int, last_line);
    QFETCH(int, length);
    QFETCH(int, line_ends);
    QFETCH(int, height);
    QCOMPARE(page_geometry::scroll_scale(last_line, length, line_ends, 6000, size), height);
}

void tst_recipe_scroll::the_estimated_height_ends_at_sixteen_bits()
{
    // 3625 rows of 9 and 138 are 32763, one row more would be 32772.
    QCOMPARE(page_geometry::scroll_scale(0, 3625 * 50, 0, 6000, 9), 32763);
    QCOMPARE(page_geometry::scroll_scale(0, 3626 * 50, 0, 6000, 9), 32767);
}

void tst_recipe_scroll::a_line_end_counts_for_two_characters_of_the_height_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("character"); // width in pixels
    QTest::addColumn<int>("line");
    QTest::newRow("9 points") << 9 << 8 << 19;
    QTest::newRow("10 points") << 10 << 10 << 19;
    QTest::newRow("12 points") << 12 << 14 << 35;
}

void tst_recipe_scroll::a_line_end_counts_for_two_characters_of_the_height()
{
    QFETCH(int, size);
    QFETCH(int, character);
    QFETCH(int, line);
    RecipeWindow window;
    window.set_pref(QStringLiteral("font"), QString::number(size));
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_lines(recipe, 3);
    window.load();
    // As many line ends as a row has characters: two rows of them, and the line ends themselves.
    const int line_ends = window.Text1().width() / character;
    Query(window.db(), "UPDATE recipe_1 SET r_body = ?", QStringLiteral("\r\n").repeated(line_ends)).run();
    window.page().set_recipe(recipe);
    QCOMPARE(window.page().get_scroll_scale(), 2 * line + (2 + line_ends) * size + 2 * size + 120);
}

void tst_recipe_scroll::the_scroll_bar_shows_exactly_for_a_long_page()
{
    RecipeWindow window;
    const Key small = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    const Key large = window.add_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    window.load();
    QScrollBar& bar = window.page().scroll_bar();
    window.page().set_recipe(small);
    QVERIFY(!bar.isVisible());
    window.page().set_recipe(large);
    QVERIFY(bar.isVisible());
    QVERIFY(bar.isEnabled());
    bar.setValue(100);
    QVERIFY(window.page().frame3().y() < 0);
    window.page().set_recipe(small);
    QVERIFY(!bar.isVisible());
    QCOMPARE(window.page().frame3().y(), 0);
}

void tst_recipe_scroll::scrolling_to_the_end_shows_the_end_of_the_body()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(300));
    window.add_lines(recipe, 50);
    window.load();
    window.page().set_recipe(recipe);
    QCOMPARE(window.Text1().height(), 16);
    window.page().scroll_bar().setValue(100);
    QVERIFY(window.Text1().height() >= window.Text1().full_height());
    const int end = window.page().frame3().y() + window.Text1().y() + window.Text1().full_height();
    QVERIFY(end <= window.page().frame4().height());
}

void tst_recipe_scroll::the_body_fills_the_page_below_the_lines()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_lines(recipe, 7);
    window.load();
    window.page().set_recipe(recipe);
    // 1000 and seven times 300 twips are 207 pixels; 14 are left below the body.
    QCOMPARE(window.Text1().y(), 207);
    QCOMPARE(window.Text1().height(), window.page().frame4().height() - 207 - 14);
}

void tst_recipe_scroll::the_body_keeps_its_place_and_takes_the_room_at_every_scroll()
{
    RecipeWindow window;
    const Key recipe = window.add_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    window.add_lines(recipe, 34);
    window.load();
    window.page().set_recipe(recipe);
    const int height = window.page().frame4().height();
    const int top = window.Text1().y();
    QCOMPARE(top, page_geometry::to_pixels(1000 + 34 * 300));
    QVERIFY(top > height);
    int low = 0;
    int high = 0;
    for (int value = 0; value <= 100; ++value) {
        window.page().scroll_bar().setValue(value);
        const int scrolled = -window.page().frame3().y();
        QCOMPARE(window.page().frame3().height(), height + scrolled);
        QCOMPARE(window.Text1().y(), top);
        const int room = height - (top - scrolled) - 14;
        QCOMPARE(window.Text1().height(), room > 16 ? room : 16);
        ++(room > 16 ? high : low);
    }
    QVERIFY(low > 5 && high > 5);
}

void tst_recipe_scroll::the_caret_takes_the_page_along()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    QVERIFY(window.page().scroll_bar().value() > 0);
    QCOMPARE(window.Text1().verticalScrollBar()->value(), 0);
    const int caret = window.Text1().mapTo(&window.page().frame4(), QPoint(0, window.Text1().caret_bottom())).y();
    QVERIFY(caret > 0 && caret < window.page().frame4().height());
    QTest::keyClick(&window.Text1(), Qt::Key_Home, Qt::ControlModifier);
    const int back = window.Text1().mapTo(&window.page().frame4(), QPoint(0, window.Text1().caret_top())).y();
    QVERIFY(back >= 0 && back < window.page().frame4().height());
}

void tst_recipe_scroll::an_emptied_body_brings_the_page_back_to_its_top()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    QScrollBar& bar = window.page().scroll_bar();
    bar.setValue(100);
    window.focus(window.Text1());
    QVERIFY(window.page().frame3().y() < 0);
    QTest::keyClick(&window.Text1(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window.Text1(), Qt::Key_Delete);
    QVERIFY(!bar.isVisible());
    QCOMPARE(window.page().frame3().y(), 0);
    QVERIFY(window.caret_is_in_view());
    QTest::keyClicks(&window.Text1(), QStringLiteral("Stir."));
    QVERIFY(window.caret_is_in_view());
    QCOMPARE(bar.value(), 0);
}

void tst_recipe_scroll::a_body_emptied_by_its_menu_brings_the_page_back_to_its_top()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    window.page().scroll_bar().setValue(100);
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_A, Qt::ControlModifier);
    QWidget* text = window.Text1().viewport();
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(20, 20), text->mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(text, &wanted);
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    auto* remove = menu->findChild<QAction*>(QStringLiteral("edit-delete"));
    QVERIFY(remove && remove->isEnabled());
    remove->trigger();
    menu->close();
    QCOMPARE(window.Text1().toPlainText(), QString());
    QCOMPARE(window.page().frame3().y(), 0);
    QVERIFY(!window.page().scroll_bar().isVisible());
    QVERIFY(window.caret_is_in_view());
}

void tst_recipe_scroll::a_shortened_body_leaves_no_gap_below_the_page()
{
    RecipeWindow window;
    const int rows = 120;
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"), QStringLiteral("a\n").repeated(rows));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_End, Qt::ControlModifier);
    const int height = window.page().frame4().height();
    const int row = window.Text1().fontMetrics().lineSpacing();
    const int taken = height / row - 2;
    for (int i = 0; i < taken; ++i)
        QTest::keyClick(&window.Text1(), Qt::Key_Up);
    const int caret = window.Text1().textCursor().position();
    for (int i = 0; i < 2 * taken; ++i)
        QTest::keyClick(&window.Text1(), Qt::Key_Delete);
    QCOMPARE(window.Text1().textCursor().position(), caret);
    QVERIFY(window.page().scroll_bar().isVisible());
    QVERIFY(window.page().frame3().y() < 0);
    QVERIFY(window.caret_is_in_view());
    const int end = window.page().frame3().y() + window.Text1().y() + window.Text1().full_height();
    QVERIFY2(height - end < 2 * row, qPrintable(QStringLiteral("%1 of %2").arg(end).arg(height)));
}

void tst_recipe_scroll::the_page_follows_the_caret_to_a_degree_sign()
{
    RecipeWindow window;
    window.open_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200) + QStringLiteral("350"));
    window.focus(window.Text1());
    QTest::keyClick(&window.Text1(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(window.page().frame3().y(), 0);
    QTest::keyClicks(&window.Text1(), QStringLiteral("x"));
    QVERIFY(window.Text1().toPlainText().endsWith(QChar(0xba)));
    QVERIFY(window.Text1().textCursor().atEnd());
    QVERIFY(window.page().frame3().y() < 0);
    QVERIFY(window.caret_is_in_view());
}

void tst_recipe_scroll::the_wheel_scrolls_a_long_page_only()
{
    RecipeWindow window;
    const Key small = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    const Key large = window.add_recipe(QStringLiteral("Stew"), QStringLiteral("11"), words.repeated(200));
    window.load();
    // An event made by a program does not climb to the parents by itself as the user's does.
    const auto turn = [&] {
        QWidget* target = window.Text1().viewport();
        for (bool taken = false; target && !taken; target = target->parentWidget()) {
            QWheelEvent wheel(QPointF(20, 20), target->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, -120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            taken = QApplication::sendEvent(target, &wheel) && wheel.isAccepted();
            if (target == &window.page().frame4())
                break;
        }
    };
    window.page().set_recipe(small);
    turn();
    QCOMPARE(window.page().scroll_bar().value(), 0);
    window.page().set_recipe(large);
    turn();
    QVERIFY(window.page().scroll_bar().value() > 0);
    QVERIFY(window.page().frame3().y() < 0);
    QCOMPARE(window.Text1().verticalScrollBar()->value(), 0);
}

QTEST_MAIN(tst_recipe_scroll)
#include "tst_recipe_scroll.moc"
