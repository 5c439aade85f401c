#include "data/query.h"
#include "household/household.h"
#include "recipes/line_fixture.h"
#include "support/mouse_hand.h"
#include "support/shown_things.h"
#include "widgets/drag.h"

#include <QLabel>
#include <QScrollBar>
#include <QTabBar>

using namespace tarnwick;

namespace {

/// The page of a recipe with five lines.
class Lines : public LineWindow {
public:
    Lines()
    {
        salt = add_item(QStringLiteral("Salt"), 0, 7);
        for (const QString& name : {QStringLiteral("Water"), QStringLiteral("Salt"), QStringLiteral("Peas"),
                                    QStringLiteral("Leek"), QStringLiteral("Mint")})
            keys.push_back(add_line(recipe, name, name == QLatin1String("Salt") ? salt : Key(-1)));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    }

    QWidget& marker() { return *find<QWidget>(QStringLiteral("insert_ingred")); }
    QLabel& label() { return *find<QLabel>(QStringLiteral("drag_label_ingred")); }
    bool dragging() { return main().drag().running(); }
    Qt::CursorShape pointer() { return QApplication::overrideCursor()->shape(); }

    void take(int i)
    {
        hand.press(*line(i).ingred, {30, 6});
        hand.move_by({6, 0});
        QVERIFY(dragging());
    }

    QString shown()
    {
        QStringList texts;
        for (int i = 0; i < lines(); ++i)
            texts.append(ingred(i));
        return texts.join(u' ');
    }
    QString stored()
    {
        return text("SELECT group_concat(item, ' ') FROM (SELECT item FROM recipe_2 ORDER BY \"order\")");
    }
    /// The pixel row of the marker's bar within the page.
    int marker_on_page()
    {
        return page().frame3().mapFromGlobal(marker().mapToGlobal(marker().rect().center())).y();
    }

    MouseHand hand;
    Key salt = 0;
    std::vector<Key> keys;
};

} // namespace

class tst_line_drags : public QObject {
    Q_OBJECT
private slots:
    void a_drop_moves_the_line_behind_the_one_under_the_pointer_data();
    void a_drop_moves_the_line_behind_the_one_under_the_pointer();
    void a_drop_on_the_same_line_leaves_the_order_as_it_was();
    void a_drop_above_the_first_line_moves_the_line_to_index_0();
    void a_move_of_less_than_50_twips_is_a_click_and_opens_the_editor();
    void after_a_move_the_database_matches_the_lines_on_the_page_and_a_reload_shows_the_same();
    void light_tag_and_tool_tip_go_with_the_line();
    void a_drag_that_leaves_the_page_to_the_tree_or_the_tabs_ends_with_no_move_data();
    void a_drag_that_leaves_the_page_to_the_tree_or_the_tabs_ends_with_no_move();
    void a_drag_across_the_separator_is_over_and_a_release_back_on_the_page_moves_nothing();

    void the_marker_stands_below_the_line_under_the_pointer_and_only_while_dragged();
    void a_drop_on_title_or_instructions_lands_where_the_marker_last_stood_data();
    void a_drop_on_title_or_instructions_lands_where_the_marker_last_stood();
    void light_and_check_box_of_a_line_are_no_places_for_a_line();
    void the_marker_of_a_line_half_out_of_sight_stays_within_the_page();
    void a_wrapped_line_has_the_marker_below_its_last_row();
    void a_line_of_two_rows_is_not_cut_off_at_its_new_place();

    void a_press_on_a_greyed_line_that_is_moved_closes_the_editor_and_drags();
    void a_line_under_edit_without_a_name_is_not_left_by_a_drag();
    void escape_ends_the_drag_and_its_release_opens_no_editor();
    void a_line_that_vanishes_while_it_is_dragged_is_dropped_nowhere();
    void a_line_that_vanishes_under_the_pointer_takes_no_drop();
    void delete_after_a_drop_deletes_the_line_that_was_moved();
    void a_drag_at_the_edge_of_the_page_scrolls_it();
    void only_a_move_is_announced();
};

void tst_line_drags::a_drop_moves_the_line_behind_the_one_under_the_pointer_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order");
    QTest::newRow("down") << 0 << 2 << QStringLiteral("Salt Peas Water Leek Mint");
    QTest::newRow("to the end") << 1 << 4 << QStringLiteral("Water Peas Leek Mint Salt");
    QTest::newRow("up") << 4 << 1 << QStringLiteral("Water Salt Mint Peas Leek");
    QTest::newRow("behind the first") << 3 << 0 << QStringLiteral("Water Leek Salt Peas Mint");
    QTest::newRow("behind the next") << 1 << 2 << QStringLiteral("Water Peas Salt Leek Mint");
    QTest::newRow("behind the one before") << 2 << 1 << QStringLiteral("Water Salt Peas Leek Mint");
}

void tst_line_drags::a_drop_moves_the_line_behind_the_one_under_the_pointer()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, order);
    Lines w;
    w.open();
    w.take(from);
    w.hand.drop_on(*w.line(to).ingred, {30, 6});
    QCOMPARE(w.shown(), order);
    QCOMPARE(w.stored(), order);
    QVERIFY(!w.editor().is_open());
}

void tst_line_drags::a_drop_on_the_same_line_leaves_the_order_as_it_was()
{
    Lines w;
    w.open();
    const QString before = w.shown();
    w.take(2);
    w.hand.drop_on(*w.line(2).ingred, {200, 6});
    QCOMPARE(w.shown(), before);
    QCOMPARE(w.stored(), before);
    QVERIFY(!w.editor().is_open());
}

void tst_line_drags::a_drop_above_the_first_line_moves_the_line_to_index_0()
{
    Lines w;
    w.open();
    w.take(3);
    w.hand.move_to(w.page().frame3(), {5, w.line(0).ingred->y() - 3});
    QVERIFY(w.marker().isVisible());
    QCOMPARE(w.marker_on_page(), w.line(0).ingred->y() - 6);
    w.hand.release();
    QCOMPARE(w.shown(), QStringLiteral("Leek Water Salt Peas Mint"));
    QCOMPARE(w.stored(), w.shown());
}

void tst_line_drags::a_move_of_less_than_50_twips_is_a_click_and_opens_the_editor()
{
    for (const QPoint moved : {QPoint(3, 0), QPoint(0, -3), QPoint(4, 0), QPoint(0, 4)}) {
        Lines w;
        w.open();
        w.hand.press(*w.line(1).ingred, {30, 6});
        w.hand.move_by(moved);
        const bool drags = moved.manhattanLength() > 3;
        QCOMPARE(w.dragging(), drags);
        w.hand.release();
        QCOMPARE(w.editor().is_open(), !drags);
        QCOMPARE(w.marker().isVisible(), false);
    }
}

void tst_line_drags::after_a_move_the_database_matches_the_lines_on_the_page_and_a_reload_shows_the_same()
{
    Lines w;
    // A file with places that repeat and leave gaps.
    Query(w.db(), "UPDATE recipe_2 SET \"order\" = 7 WHERE item IN ('Peas', 'Leek', 'Mint')").run();
    w.open();
    w.take(4);
    w.hand.drop_on(*w.line(0).ingred, {30, 6});
    const QString moved = w.shown();
    QCOMPARE(moved, QStringLiteral("Water Mint Salt Peas Leek"));
    QCOMPARE(w.text("SELECT group_concat(\"order\" || item, ' ') FROM (SELECT * FROM recipe_2 ORDER BY \"order\")"),
             QStringLiteral("0Water 1Mint 2Salt 3Peas 4Leek"));
    for (int i = 0; i < w.lines(); ++i)
        QCOMPARE(w.number(qPrintable(
                     QStringLiteral("SELECT \"order\" FROM recipe_2 WHERE key_id = %1").arg(w.line(i).key))),
                 i);
    w.page().set_recipe(w.recipe);
    QCOMPARE(w.shown(), moved);
}

void tst_line_drags::light_tag_and_tool_tip_go_with_the_line()
{
    Lines w;
    w.open();
    const auto looks = [&w](int i) {
        return QStringList{QString::number(picture_of(*w.line(i).lite)),
                           QString::number(picture_of(*w.line(i).Check1)),
                           w.line(i).Check1->property("Tag").toString(), w.line(i).lite->property("Tag").toString(),
                           w.line(i).ingred->toolTip()};
    };
    const QStringList salt = looks(1);
    const QStringList mint = looks(4);
    QVERIFY(salt != mint);
    w.take(1);
    w.hand.drop_on(*w.line(4).ingred, {30, 6});
    QCOMPARE(looks(4), salt);
    QCOMPARE(looks(3), mint);
    QCOMPARE(w.page().rcp_item(4), QStringLiteral("Salt"));
}

void tst_line_drags::a_drag_that_leaves_the_page_to_the_tree_or_the_tabs_ends_with_no_move_data()
{
    QTest::addColumn<QString>("place");
    for (const char* name :
         {"TreeView1(0)", "TabStrip1(0)", "TabStrip1(1)", "Frame1", "StatusBar1(1)", "Toolbar1(1)"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_line_drags::a_drag_that_leaves_the_page_to_the_tree_or_the_tabs_ends_with_no_move()
{
    QFETCH(QString, place);
    Lines w;
    w.open();
    const QString before = w.shown();
    w.take(0);
    w.hand.move_to(*w.line(3).ingred, {30, 6});
    QVERIFY(w.marker().isVisible());
    w.hand.move_to(w.control(place), {3, 3});
    QVERIFY(!w.marker().isVisible());
    if (w.dragging())
        QCOMPARE(w.pointer(), Qt::ForbiddenCursor);
    w.hand.release();
    QVERIFY(!w.dragging());
    QVERIFY(w.label().isHidden());
    QCOMPARE(w.shown(), before);
    QCOMPARE(w.stored(), before);
    QVERIFY(!w.editor().is_open());
}

void tst_line_drags::a_drag_across_the_separator_is_over_and_a_release_back_on_the_page_moves_nothing()
{
    Lines w;
    w.open();
    const QString before = w.shown();
    w.take(0);
    w.hand.move_to(w.control(QStringLiteral("Frame1")), {3, 100});
    QVERIFY(!w.dragging());
    w.hand.drop_on(*w.line(3).ingred, {30, 6});
    QCOMPARE(w.shown(), before);
    QVERIFY(!w.editor().is_open());
}

void tst_line_drags::the_marker_stands_below_the_line_under_the_pointer_and_only_while_dragged()
{
    for (const int size : {9, 10, 12}) {
        Lines w;
        w.set_pref(QStringLiteral("font"), QString::number(size));
        w.open();
        QVERIFY(!w.marker().isVisible());
        w.take(0);
        QCOMPARE(w.pointer(), Qt::SizeHorCursor);
        QCOMPARE(w.label().text(), QStringLiteral("Water"));
        for (int i = 0; i < w.lines(); ++i) {
            w.hand.move_to(*w.line(i).ingred, {30, 6});
            QVERIFY(w.marker().isVisible());
            const QRect line = w.line(i).ingred->geometry();
            const int least = line.y() + (size == 12 ? 20 : 19);
            QCOMPARE(w.marker_on_page(), std::max(least, line.bottom() + 1));
            if (i + 1 < w.lines())
                QVERIFY(w.marker_on_page() <= w.line(i + 1).ingred->y() + 2);
        }
        const QRect page = w.page().frame4().geometry();
        QCOMPARE(w.marker().x(), page.x() + 3);
        QCOMPARE(w.marker().width(), page.width() - 6);
        w.hand.release();
        QVERIFY(!w.marker().isVisible());
    }
}

void tst_line_drags::a_drop_on_title_or_instructions_lands_where_the_marker_last_stood_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("Text1") << QStringLiteral("Text1");
    QTest::newRow("title") << QStringLiteral("title");
}

void tst_line_drags::a_drop_on_title_or_instructions_lands_where_the_marker_last_stood()
{
    QFETCH(QString, place);
    for (const bool stood : {true, false}) {
        Lines w;
        w.open();
        w.hand.press(*w.line(0).ingred, {30, 6});
        w.hand.move_by({6, 0});
        if (stood)
            w.hand.move_to(*w.line(2).ingred, {30, 6});
        const int mark = w.marker_on_page();
        // Straight from the line to the place, with no other line on the way.
        const QPoint goal = w.control(place).mapToGlobal(QPoint(20, 6));
        QWindow* window = w.main().windowHandle();
        QTest::mouseMove(window, window->mapFromGlobal(goal));
        QVERIFY(w.marker().isVisible());
        QCOMPARE(w.marker_on_page(), mark);
        QTest::mouseRelease(window, Qt::LeftButton, {}, window->mapFromGlobal(goal));
        QCOMPARE(w.shown(),
                 stood ? QStringLiteral("Salt Peas Water Leek Mint") : QStringLiteral("Water Salt Peas Leek Mint"));
    }
}

void tst_line_drags::light_and_check_box_of_a_line_are_no_places_for_a_line()
{
    Lines w;
    w.open();
    const QString before = w.shown();
    for (const bool check : {true, false}) {
        w.take(0);
        w.hand.move_to(*w.line(3).ingred, {30, 6});
        w.hand.move_to(check ? *w.line(3).Check1 : *w.line(3).lite, {8, 8});
        QCOMPARE(w.pointer(), Qt::ForbiddenCursor);
        QVERIFY(!w.marker().isVisible());
        w.hand.release();
        QCOMPARE(w.shown(), before);
    }
}

void tst_line_drags::the_marker_of_a_line_half_out_of_sight_stays_within_the_page()
{
    Lines w;
    w.add_lines(w.recipe, 60);
    w.open();
    const QRect page = w.page().frame4().geometry();
    int last = 0;
    while (w.line(last + 1).ingred->y() + 2 < page.height())
        ++last;
    w.take(0);
    w.hand.move_to(w.page().frame4(), {100, page.height() - 1});
    QVERIFY(w.marker().isVisible());
    QVERIFY(page.contains(w.marker().geometry()));
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    w.hand.release();
}

void tst_line_drags::a_wrapped_line_has_the_marker_below_its_last_row()
{
    Lines w;
    const QString long_name = QStringLiteral("peas ").repeated(60).trimmed();
    w.add_line(w.recipe, long_name);
    w.open();
    w.take(0);
    w.hand.move_to(*w.line(5).ingred, {30, 6});
    const QRect line = w.line(5).ingred->geometry();
    QVERIFY(line.height() > 30);
    QCOMPARE(w.marker_on_page(), line.bottom() + 1);
    w.hand.release();
    QCOMPARE(w.ingred(5), QStringLiteral("Water"));
}

void tst_line_drags::a_line_of_two_rows_is_not_cut_off_at_its_new_place()
{
    Lines w;
    const QString long_name = QStringLiteral("peas ").repeated(60).trimmed();
    w.add_line(w.recipe, long_name);
    w.open();
    const int height = w.line(5).ingred->height();
    w.take(5);
    w.hand.drop_on(*w.line(0).ingred, {30, 6});
    QCOMPARE(w.ingred(1), long_name);
    QCOMPARE(w.line(1).ingred->height(), height);
    QVERIFY(w.line(2).ingred->y() >= w.line(1).ingred->geometry().bottom());
    QCOMPARE(w.line(5).ingred->height(), w.line(0).ingred->height());
}

void tst_line_drags::a_press_on_a_greyed_line_that_is_moved_closes_the_editor_and_drags()
{
    Lines w;
    w.add_lines(w.recipe, 15);
    w.add_line(w.recipe, QStringLiteral("Thyme"));
    w.open();
    w.open_line(0);
    LineWindow::type(w.qty(), QStringLiteral("2"));
    QCOMPARE(w.line(20).ingred->text_color(), LineEditor::grey);
    w.take(20);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.line(0).ingred->text_color(), QColor(Qt::black));
    w.hand.drop_on(*w.line(1).ingred, {30, 6});
    QVERIFY2(w.shown().startsWith(QLatin1String("2 Water Salt Thyme Peas")), qPrintable(w.shown()));
    QVERIFY(!w.editor().is_open());
    // The next click is a click again.
    w.open_line(1);
}

void tst_line_drags::a_line_under_edit_without_a_name_is_not_left_by_a_drag()
{
    Lines w;
    w.add_lines(w.recipe, 15);
    w.open();
    w.open_line(0);
    QTest::mouseClick(&w.item(), Qt::LeftButton);
    w.item().selectAll();
    QTest::keyClick(&w.item(), Qt::Key_Delete);
    MessageScript script;
    script.drive([](QDialog& dialog) { dialog.accept(); });
    w.hand.press(*w.line(19).ingred, {30, 6});
    w.hand.move_by({6, 0});
    QVERIFY(!w.dragging());
    w.hand.move_by({30, -30});
    QVERIFY(!w.dragging());
    w.hand.release();
    QTRY_COMPARE(script.left(), 0);
    QVERIFY(w.stored().startsWith(QLatin1String("Water Salt Peas Leek Mint")));
}

void tst_line_drags::escape_ends_the_drag_and_its_release_opens_no_editor()
{
    Lines w;
    w.open();
    const QString before = w.shown();
    w.take(0);
    w.hand.move_to(*w.line(2).ingred, {30, 6});
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    QVERIFY(!w.dragging());
    QVERIFY(!w.marker().isVisible());
    w.hand.release();
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.shown(), before);
    w.open_line(0);
}

void tst_line_drags::a_line_that_vanishes_while_it_is_dragged_is_dropped_nowhere()
{
    Lines w;
    w.open();
    w.take(1);
    QTest::keyClick(w.line(1).ingred, Qt::Key_Delete);
    QCOMPARE(w.lines(), 4);
    w.hand.move_to(*w.line(3).ingred, {30, 6});
    QVERIFY(!w.marker().isVisible());
    QCOMPARE(w.pointer(), Qt::ForbiddenCursor);
    w.hand.release();
    QCOMPARE(w.shown(), QStringLiteral("Water Peas Leek Mint"));
    QCOMPARE(w.stored(), w.shown());

    // Deleted by another program, which no page hears of.
    w.take(0);
    w.hand.move_to(*w.line(2).ingred, {30, 6});
    Query(w.db(), "DELETE FROM recipe_2 WHERE item = 'Water'").run();
    w.hand.release();
    QCOMPARE(w.stored(), QStringLiteral("Peas Leek Mint"));
}

void tst_line_drags::a_line_that_vanishes_under_the_pointer_takes_no_drop()
{
    Lines w;
    w.open();
    w.take(0);
    w.hand.move_to(*w.line(2).ingred, {30, 6});
    Query(w.db(), "DELETE FROM recipe_2 WHERE item = 'Peas'").run();
    w.hand.release();
    QCOMPARE(w.stored(), QStringLiteral("Water Salt Leek Mint"));
}

void tst_line_drags::delete_after_a_drop_deletes_the_line_that_was_moved()
{
    Lines w;
    w.open();
    w.take(0);
    w.hand.drop_on(*w.line(3).ingred, {30, 6});
    QCOMPARE(w.shown(), QStringLiteral("Salt Peas Leek Water Mint"));
    QVERIFY(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    QCOMPARE(w.stored(), QStringLiteral("Salt Peas Leek Mint"));
}

void tst_line_drags::a_drag_at_the_edge_of_the_page_scrolls_it()
{
    Lines w;
    w.add_lines(w.recipe, 60);
    w.open();
    const QScrollBar& bar = w.page().scroll_bar();
    w.take(0);
    w.hand.move_to(w.page().frame4(), {200, w.page().frame4().height() - 6});
    QTRY_COMPARE(bar.value(), bar.maximum());
    w.hand.move_to(*w.line(64).ingred, {30, 6});
    w.hand.release();
    QCOMPARE(w.ingred(64), QStringLiteral("Water"));
    QCOMPARE(w.number("SELECT \"order\" FROM recipe_2 WHERE item = 'Water'"), 64);
}

void tst_line_drags::only_a_move_is_announced()
{
    Lines w;
    w.open();
    std::vector<int> places;
    connect(&w.main().household(), &Household::line_moved, this,
            [&](const LineMove& move) { places.push_back(move.place); });
    Household& household = w.main().household();
    household.move_line(w.recipe, w.keys[0], w.keys[0]); // behind itself
    household.move_line(w.recipe, w.keys[1], w.keys[0]); // where it stands
    household.move_line(w.recipe, w.keys[0], 0);
    household.move_line(w.recipe, 999, w.keys[0]); // no such line
    household.move_line(w.recipe, w.keys[0], 999);
    household.move_line(w.recipe + 1, w.keys[0], w.keys[2]); // another recipe
    QVERIFY(places.empty());
    QCOMPARE(w.stored(), QStringLiteral("Water Salt Peas Leek Mint"));
    household.move_line(w.recipe, w.keys[0], w.keys[4]);
    household.move_line(w.recipe, w.keys[0], 0);
    QCOMPARE(places, (std::vector<int>{4, 0}));
    QCOMPARE(w.stored(), QStringLiteral("Water Salt Peas Leek Mint"));
}

QTEST_MAIN(tst_line_drags)
#include "tst_line_drags.moc"
