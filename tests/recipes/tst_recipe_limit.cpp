#include "recipes/line_fixture.h"

#include "window/view_state.h"

using namespace tarnwick;

namespace {

const QString full = QStringLiteral("Recipe page is full");
const QString no_room = QStringLiteral("This page is full: there is no room\nfor another ingredient");
const QString too_long = QStringLiteral("This page is full: there is no room\nfor so long an ingredient");
const QString words = QStringLiteral("peeled, seeded and cut into small cubes with a sharp knife ");

/// Lines that still leave a place for one more, by type size.
void add_sizes()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("lines");
    QTest::addRow("9 points") << 9 << 107;
    QTest::addRow("10 points") << 10 << 107;
    QTest::addRow("12 points") << 12 << 80;
}

class LimitWindow : public LineWindow {
public:
    LimitWindow(int size, int count)
    {
        set_pref(QStringLiteral("font"), QString::number(size));
        add_lines(recipe, count);
    }

    int stored_lines() { return number("SELECT count(*) FROM recipe_2"); }

    bool end_of_page_is_in_view()
    {
        const int below = page().frame4().height();
        const int end = Text1().mapTo(&page().frame4(), QPoint(0, Text1().height())).y();
        return end > 0 && end <= below;
    }
};

} // namespace

/// The 16-bit length of a page is a limit for a new line, and for nothing else.
class tst_recipe_limit : public QObject {
    Q_OBJECT
private slots:
    void a_page_of_any_length_is_shown_and_scrolled_data();
    void a_page_of_any_length_is_shown_and_scrolled();
    void a_larger_type_and_then_a_deleted_line_do_no_harm();
    void a_click_on_a_long_recipe_in_a_narrow_window_shows_it();
    void the_last_line_that_has_a_place_is_added_data();
    void the_last_line_that_has_a_place_is_added();
    void a_line_beyond_is_refused_before_it_is_opened_data();
    void a_line_beyond_is_refused_before_it_is_opened();
    void a_stock_item_beyond_is_refused_without_a_question();
    void a_new_line_that_got_too_long_is_refused_when_it_is_left();
    void a_new_line_that_got_too_long_is_kept_when_the_page_changes();
    void an_existing_line_may_grow();
};

void tst_recipe_limit::a_page_of_any_length_is_shown_and_scrolled_data()
{
    add_sizes();
}

void tst_recipe_limit::a_page_of_any_length_is_shown_and_scrolled()
{
    QFETCH(int, size);
    QFETCH(int, lines);
    LimitWindow window(size, 3 * lines);
    window.open();
    QCOMPARE(window.lines(), 3 * lines);
    const QRect last = window.line(3 * lines - 1).ingred->geometry();
    QVERIFY(last.top() > window.line(3 * lines - 2).ingred->geometry().bottom());
    QVERIFY(window.Text1().y() > last.bottom());
    window.page().scroll_bar().setValue(100);
    QVERIFY(window.end_of_page_is_in_view());
    window.page().show_stretch(last.top(), last.bottom());
    const QPoint top = window.line(3 * lines - 1).ingred->mapTo(&window.page().frame4(), QPoint(0, 0));
    QVERIFY(top.y() >= 0 && top.y() < window.page().frame4().height());
}

void tst_recipe_limit::a_larger_type_and_then_a_deleted_line_do_no_harm()
{
    LimitWindow window(9, 85);
    window.open();
    window.main().view_state().set_type_size(12);
    QTest::keyClick(window.line(40).ingred, Qt::Key_Delete);
    QCOMPARE(window.lines(), 84);
    QCOMPARE(window.stored_lines(), 84);
}

void tst_recipe_limit::a_click_on_a_long_recipe_in_a_narrow_window_shows_it()
{
    LimitWindow window(12, 0);
    const Key prose = window.add_recipe(QStringLiteral("Prose"), QStringLiteral("11"));
    for (int i = 0; i < 60; ++i)
        window.add_line(prose, words.repeated(4));
    window.open({500, 400});
    window.click_node(rcp(prose));
    QCOMPARE(window.lines(), 60);
    QCOMPARE(window.tag(QStringLiteral("title")), QString::number(prose));
}

void tst_recipe_limit::the_last_line_that_has_a_place_is_added_data()
{
    add_sizes();
}

void tst_recipe_limit::the_last_line_that_has_a_place_is_added()
{
    QFETCH(int, size);
    QFETCH(int, lines);
    LimitWindow window(size, lines);
    window.open();
    const MessageScript no_message;
    window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(window.editor().is_open());
    QTest::keyClick(&window.qty(), Qt::Key_Tab);
    QTest::keyClick(&window.measure(), Qt::Key_Tab);
    LineWindow::type(window.item(), QStringLiteral("Salt"));
    window.click_text();
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.stored_lines(), lines + 1);
}

void tst_recipe_limit::a_line_beyond_is_refused_before_it_is_opened_data()
{
    add_sizes();
}

void tst_recipe_limit::a_line_beyond_is_refused_before_it_is_opened()
{
    QFETCH(int, size);
    QFETCH(int, lines);
    LimitWindow window(size, lines + 1);
    window.open();
    MessageScript script;
    script.expect(full, no_room);
    window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QCOMPARE(script.left(), 0);
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.lines(), lines + 1);
    QCOMPARE(window.stored_lines(), lines + 1);
    QCOMPARE(window.ends, 0);
}

void tst_recipe_limit::a_stock_item_beyond_is_refused_without_a_question()
{
    LimitWindow window(12, 81);
    const Key salt = window.add_item(QStringLiteral("Sea Salt"), 0);
    Query(window.db(), "UPDATE recipe_2 SET item_ref = ?", salt).run();
    window.open();
    MessageScript script;
    script.expect(full, no_room);
    window.page().drag_ingred(salt, QStringLiteral("Sea Salt"));
    QCOMPARE(script.left(), 0);
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.stored_lines(), 81);
}

void tst_recipe_limit::a_new_line_that_got_too_long_is_refused_when_it_is_left()
{
    LimitWindow window(12, 80);
    window.open();
    window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(window.editor().is_open());
    QTest::keyClick(&window.qty(), Qt::Key_Tab);
    QTest::keyClick(&window.measure(), Qt::Key_Tab);
    LineWindow::type(window.item(), QStringLiteral("Salt"));
    QTest::keyClick(&window.item(), Qt::Key_Tab);
    QVERIFY(window.desc().hasFocus());
    window.desc().setText(words.repeated(3));
    {
        MessageScript script;
        script.expect(full, too_long);
        window.click_text();
        QTRY_COMPARE(script.left(), 0);
    }
    QVERIFY(window.editor().is_open());
    QCOMPARE(window.desc().text(), words.repeated(3));
    QCOMPARE(window.stored_lines(), 80);
    QCOMPARE(window.focused_after_message(), &window.item());
    QTest::mouseClick(&window.desc(), Qt::LeftButton);
    const MessageScript no_message;
    LineWindow::type(window.desc(), QStringLiteral("coarse"));
    window.click_text();
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.stored_lines(), 81);
}

void tst_recipe_limit::a_new_line_that_got_too_long_is_kept_when_the_page_changes()
{
    LimitWindow window(12, 80);
    window.open();
    window.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QTest::keyClick(&window.qty(), Qt::Key_Tab);
    QTest::keyClick(&window.measure(), Qt::Key_Tab);
    LineWindow::type(window.item(), QStringLiteral("Salt"));
    window.desc().setText(words.repeated(3));
    const MessageScript no_message;
    window.page().set_recipe(window.recipe);
    QVERIFY(!window.editor().is_open());
    QCOMPARE(window.stored_lines(), 81);
    QCOMPARE(window.lines(), 81);
}

void tst_recipe_limit::an_existing_line_may_grow()
{
    LimitWindow window(12, 81);
    window.open();
    window.page().scroll_bar().setValue(100);
    window.open_line(80);
    QTest::keyClick(&window.qty(), Qt::Key_Tab);
    QTest::keyClick(&window.measure(), Qt::Key_Tab);
    QTest::keyClick(&window.item(), Qt::Key_Tab);
    window.desc().setText(words.repeated(3));
    const MessageScript no_message;
    window.click_text();
    QVERIFY(!window.editor().is_open());
    QVERIFY(window.ingred(80).contains(QStringLiteral("sharp knife")));
}

QTEST_MAIN(tst_recipe_limit)
#include "tst_recipe_limit.moc"
