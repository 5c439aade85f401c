#include "window/frmmain.h"
#include "lists/editing_window.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "window/commands.h"
#include "window/layout.h"
#include "window/toolbar.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"
#include "stock/stock_tree.h"
#include "support/test_window.h"
#include "support/tool_button.h"

#include <QAction>
#include <QFrame>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>
#include <QtTest>

using namespace tarnwick;

namespace {

QFrame& bar(frmmain& main)
{
    return main.layout_manager().Frame1();
}

QFrame* shadow(frmmain& main)
{
    return main.findChild<QFrame*>(QStringLiteral("frame2"));
}

/// Presses on the separator and moves the pointer; the button stays down.
void begin_drag(frmmain& main, int by)
{
    QTest::mousePress(&bar(main), Qt::LeftButton, {}, QPoint(2, 100));
    QTest::mouseMove(&bar(main), QPoint(2 + by / 2, 100));
    QTest::mouseMove(&bar(main), QPoint(2 + by, 100));
}

void drag(frmmain& main, int by)
{
    begin_drag(main, by);
    QTest::mouseRelease(&bar(main), Qt::LeftButton, {}, QPoint(2 + by, 100));
}

int stored_separator(TestWindow& w)
{
    return w.pref(QStringLiteral("seprtr")).toInt();
}

void resize(frmmain& main, int width, int height)
{
    main.resize(width, height);
    QApplication::processEvents();
}

/// Of the tree, the grid's cells, the header over them and the tabs.
QList<int> row_heights(frmmain& main)
{
    QApplication::processEvents();
    ListGrid& grid = main.list_pane().grid();
    TreeView& tree = main.stock_tree().view();
    QList<int> heights{tree.row_height()};
    for (int row = 0; row < grid.rows().rows(); ++row)
        for (const GridColumn column : {GridColumn::check, GridColumn::item, GridColumn::desc})
            heights += grid.cell_rect(row, column).height();
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        heights += tree.visualItemRect(tree.topLevelItem(i)).height();
    heights += main.layout_manager().header_row().height();
    heights += main.findChild<QTabBar*>(QStringLiteral("TabStrip1(1)"))->height();
    return heights;
}

} // namespace

class tst_layout : public QObject {
    Q_OBJECT
private slots:
    void panes_do_not_overlap_data();
    void panes_do_not_overlap();
    void grid_takes_what_tree_and_margins_leave();
    void drag_moves_the_separator_and_stores_it_in_twips();
    void shadow_alone_moves_while_the_button_is_down();
    void dragging_to_the_right_edge_stops_at_the_limit_390_pixels_from_the_edge();
    void dragging_to_the_left_edge_stops_160_pixels_from_it();
    void a_separator_that_stands_left_of_the_limit_is_not_pulled_back();
    void dragging_less_than_13_pixels_to_the_left_does_nothing();
    void dragging_13_pixels_to_the_left_moves();
    void a_click_on_the_separator_writes_nothing();
    void arrow_keys_move_the_separator();
    void a_drag_keeps_the_open_row_and_its_boxes_over_their_cells();
    void enter_on_the_separator_closes_the_open_row();
    void a_very_narrow_window_keeps_the_separator_on_the_form_and_writes_its_position();
    void a_resize_that_leaves_400_pixels_does_not_move_the_separator();
    void absurd_settings_give_a_usable_window_data();
    void absurd_settings_give_a_usable_window();
    void type_sizes_make_the_rows_grow_in_order();
    void restart_at_size_12_gives_the_same_row_heights_as_the_menu();
    void restart_at_size_12_gives_the_same_rows_as_the_menu_entry();
    void three_sizes_by_toolbar_menu_and_restart_give_the_same_rows_data();
    void three_sizes_by_toolbar_menu_and_restart_give_the_same_rows();
    void type_size_reaches_tabs_and_trees();
    void start_does_not_store_another_separator();
    void window_refuses_to_get_smaller_than_its_controls();
    void every_status_panel_has_room_in_a_narrow_window_data();
    void every_status_panel_has_room_in_a_narrow_window();
    void updates_are_on_again_after_every_operation();
};

void tst_layout::panes_do_not_overlap_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("points");
    for (const QSize size : {QSize(640, 480), QSize(1000, 700), QSize(1920, 1080)})
        for (const int points : {9, 10, 12})
            QTest::addRow("%dx%d at %d", size.width(), size.height(), points) << size << points;
}

void tst_layout::panes_do_not_overlap()
{
    QFETCH(QSize, size);
    QFETCH(int, points);
    TestWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(points));
    frmmain& main = w.load(size);
    const Layout& layout = main.layout_manager();
    const QRect area = bar(main).parentWidget()->rect();
    const QRect tabs = main.findChild<QTabBar*>(QStringLiteral("TabStrip1(1)"))->geometry();
    const QRect left_tabs = main.findChild<QTabBar*>(QStringLiteral("TabStrip1(0)"))->geometry();
    const QRect rects[] = {main.toolbar().widget().geometry(),
                           left_tabs,
                           tabs,
                           layout.left_pane(),
                           layout.header_row(),
                           layout.right_pane()};
    for (const QRect& rect : rects) {
        QVERIFY(rect.isValid());
        QVERIFY(area.contains(rect));
        for (const QRect& other : rects)
            QVERIFY(&rect == &other || !rect.intersects(other));
    }
    QVERIFY(bar(main).x() > layout.left_pane().left());
    QVERIFY(bar(main).geometry().left() >= layout.left_pane().right());
    QVERIFY(layout.right_pane().height() > 100);
}

void tst_layout::grid_takes_what_tree_and_margins_leave()
{
    TestWindow w;
    frmmain& main = w.load();
    const int tree = main.stock_tree().view().width();
    QCOMPARE(main.layout_manager().left_pane().left(), 4);
    QCOMPARE(main.layout_manager().right_pane().width(), 1000 - tree - 20);
    QCOMPARE(main.layout_manager().header_row().left(), main.layout_manager().right_pane().left());
    QCOMPARE(main.list_pane().grid().geometry(), main.layout_manager().right_pane());
    QCOMPARE(main.recipe_page().frame4().y(), main.layout_manager().header_row().top());
}

void tst_layout::drag_moves_the_separator_and_stores_it_in_twips()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    for (const int by : {60, -40}) {
        const int from = bar(main).x();
        drag(main, by);
        QCOMPARE(bar(main).x(), from + by);
        QCOMPARE(stored_separator(w), (from + by) * 15);
        QCOMPARE(main.layout_manager().separator(), from + by);
        QCOMPARE(main.list_pane().grid().x() - bar(main).x(), 5);
    }
    QCOMPARE(bar(main).x(), before + 20);
    QVERIFY(!shadow(main)->isVisible());
}

void tst_layout::shadow_alone_moves_while_the_button_is_down()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    const QRect grid = main.layout_manager().right_pane();
    QVERIFY(!shadow(main)->isVisible());
    begin_drag(main, 50);
    QVERIFY(shadow(main)->isVisible());
    QCOMPARE(shadow(main)->x(), before + 50);
    QCOMPARE(shadow(main)->width(), 4);
    QCOMPARE(shadow(main)->y(), 40);
    QCOMPARE(shadow(main)->height(), bar(main).parentWidget()->height() - 45);
    QCOMPARE(bar(main).x(), before);
    QCOMPARE(main.layout_manager().right_pane(), grid);
    QTest::mouseRelease(&bar(main), Qt::LeftButton, {}, QPoint(52, 100));
    QCOMPARE(bar(main).x(), before + 50);
}

void tst_layout::dragging_to_the_right_edge_stops_at_the_limit_390_pixels_from_the_edge()
{
    TestWindow w;
    frmmain& main = w.load();
    const int by = 990 - bar(main).x();
    begin_drag(main, by);
    QVERIFY(!shadow(main)->isVisible());
    QCOMPARE(bar(main).x(), 1000 - 390);
    QCOMPARE(stored_separator(w), (1000 - 390) * 15);
    QTest::mouseRelease(&bar(main), Qt::LeftButton, {}, QPoint(2, 100));
    QCOMPARE(bar(main).x(), 1000 - 390);
    QVERIFY(main.layout_manager().right_pane().right() < 1000);
}

void tst_layout::dragging_to_the_left_edge_stops_160_pixels_from_it()
{
    TestWindow w;
    frmmain& main = w.load();
    const int to_the_edge = -bar(main).x();
    begin_drag(main, to_the_edge);
    QVERIFY(shadow(main)->isVisible());
    QCOMPARE(shadow(main)->x(), 160);
    QTest::mouseRelease(&bar(main), Qt::LeftButton, {}, QPoint(2 + to_the_edge, 100));
    QVERIFY(!shadow(main)->isVisible());
    QCOMPARE(bar(main).x(), 160);
    QCOMPARE(stored_separator(w), 160 * 15);
    QCOMPARE(main.stock_tree().view().width(), 160 - 4);
    QTest::keyClick(&bar(main), Qt::Key_Left);
    QCOMPARE(bar(main).x(), 160);
}

void tst_layout::a_separator_that_stands_left_of_the_limit_is_not_pulled_back()
{
    TestWindow w;
    w.set_pref(QStringLiteral("seprtr"), QString::number(100 * 15));
    frmmain& main = w.load();
    QCOMPARE(bar(main).x(), 100);
    drag(main, -50);
    QCOMPARE(bar(main).x(), 100);
    drag(main, 20);
    QCOMPARE(bar(main).x(), 120);
    drag(main, -15);
    QCOMPARE(bar(main).x(), 120);
}

void tst_layout::dragging_less_than_13_pixels_to_the_left_does_nothing()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    w.set_pref(QStringLiteral("seprtr"), QStringLiteral("77"));
    drag(main, -12);
    QCOMPARE(bar(main).x(), before);
    QCOMPARE(stored_separator(w), 77);
}

void tst_layout::dragging_13_pixels_to_the_left_moves()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    drag(main, -13);
    QCOMPARE(bar(main).x(), before - 13);
    QCOMPARE(stored_separator(w), (before - 13) * 15);
}

void tst_layout::a_click_on_the_separator_writes_nothing()
{
    TestWindow w;
    frmmain& main = w.load();
    w.set_pref(QStringLiteral("seprtr"), QStringLiteral("77"));
    const int before = bar(main).x();
    QTest::mouseClick(&bar(main), Qt::LeftButton, {}, QPoint(2, 100));
    QCOMPARE(bar(main).x(), before);
    QCOMPARE(stored_separator(w), 77);
    QVERIFY(!shadow(main)->isVisible());
}

void tst_layout::arrow_keys_move_the_separator()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    QTest::keyClick(&bar(main), Qt::Key_Right);
    QCOMPARE(bar(main).x(), before + 10);
    QCOMPARE(stored_separator(w), (before + 10) * 15);
    QTest::keyClick(&bar(main), Qt::Key_Left);
    QTest::keyClick(&bar(main), Qt::Key_Left);
    QCOMPARE(bar(main).x(), before - 10);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&bar(main), Qt::Key_Left);
    QVERIFY(bar(main).x() > 0);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&bar(main), Qt::Key_Right);
    QCOMPARE(bar(main).x(), 1000 - 390);
}

void tst_layout::a_drag_keeps_the_open_row_and_its_boxes_over_their_cells()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    w.open_row(1);
    w.type_into("desc_brdr", QStringLiteral("ripe"));
    const auto over_cells = [&w] {
        const std::pair<const char*, GridColumn> boxes[]
            = {{"desc_brdr", GridColumn::desc}, {"qty_brdr", GridColumn::qty}, {"aisle_brdr", GridColumn::aisle}};
        return std::all_of(std::begin(boxes), std::end(boxes), [&w](const auto& box) {
            return w.shown(box.first) && w.cell_in_form(box.second).contains(w.in_form(box.first).center());
        });
    };
    QVERIFY(over_cells());
    for (const int by : {60, -90, 900}) {
        const int before = bar(w.main()).x();
        drag(w.main(), by);
        QVERIFY(bar(w.main()).x() != before);
        QVERIFY(w.editor().is_open());
        QCOMPARE(w.editor().edit_row(), 1);
        QCOMPARE(w.box("desc_brdr").text(), QStringLiteral("ripe"));
        QVERIFY(over_cells());
    }
    w.type_into("desc_brdr", QStringLiteral("very ripe"));
    QCOMPARE(w.cell(1, GridColumn::desc), QStringLiteral("very ripe"));
}

void tst_layout::enter_on_the_separator_closes_the_open_row()
{
    EditingWindow w;
    w.rows(3);
    w.open();
    w.open_row(1);
    w.type_into("desc_brdr", QStringLiteral("ripe"));
    QTest::mouseClick(&bar(w.main()), Qt::LeftButton, {}, QPoint(2, 100));
    QVERIFY(w.editor().is_open());
    QVERIFY(bar(w.main()).hasFocus());
    QTest::keyClick(&bar(w.main()), Qt::Key_Return);
    QVERIFY(!w.editor().is_open());
}

void tst_layout::a_very_narrow_window_keeps_the_separator_on_the_form_and_writes_its_position()
{
    TestWindow w;
    frmmain& main = w.load();
    drag(main, 250);
    const int before = bar(main).x();
    resize(main, main.minimumWidth(), 500);
    QVERIFY(bar(main).x() < before);
    QVERIFY(bar(main).x() > 0);
    QVERIFY(bar(main).geometry().right() < main.width());
    QCOMPARE(stored_separator(w), bar(main).x() * 15);
    QVERIFY(main.layout_manager().right_pane().width() >= 400);
    QVERIFY(main.layout_manager().right_pane().right() < main.width());
    const int narrow = bar(main).x();
    resize(main, 1200, 700);
    QCOMPARE(bar(main).x(), narrow);
}

void tst_layout::a_resize_that_leaves_400_pixels_does_not_move_the_separator()
{
    TestWindow w;
    frmmain& main = w.load();
    const int before = bar(main).x();
    w.set_pref(QStringLiteral("seprtr"), QStringLiteral("77"));
    resize(main, before + 416, 600);
    QCOMPARE(main.layout_manager().right_pane().width(), 400);
    QCOMPARE(bar(main).x(), before);
    QCOMPARE(stored_separator(w), 77);
    resize(main, before + 415, 600);
    QVERIFY(bar(main).x() < before);
    QCOMPARE(stored_separator(w), bar(main).x() * 15);
}

void tst_layout::absurd_settings_give_a_usable_window_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    for (const char* key : {"seprtr", "fwidth", "fheight"})
        for (const char* value : {"-99999999", "0", "99999999", "1e300", "abc", ""})
            QTest::addRow("%s %s", key, value) << QString::fromLatin1(key) << QString::fromLatin1(value);
    for (const char* value : {"-7", "0", "11", "32767", "abc", ""})
        QTest::addRow("font %s", value) << QStringLiteral("font") << QString::fromLatin1(value);
}

void tst_layout::absurd_settings_give_a_usable_window()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    TestWindow w;
    w.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    w.set_pref(key, value);
    frmmain& main = w.load({});
    QVERIFY(main.width() >= main.minimumWidth());
    resize(main, 800, 600);
    const QRect right = main.layout_manager().right_pane();
    QVERIFY(main.layout_manager().left_pane().width() > 0);
    QVERIFY(right.width() >= 400);
    QVERIFY(right.height() > 100);
    QVERIFY(right.right() < 800);
    QVERIFY(bar(main).x() > 0 && bar(main).x() < 800);
}

void tst_layout::type_sizes_make_the_rows_grow_in_order()
{
    TestWindow w;
    frmmain& main = w.load();
    struct Tops {
        int tabs, header, grid;
    };
    const auto tops = [&main](int size) {
        main.view_state().set_type_size(size);
        const Layout& layout = main.layout_manager();
        const int bar = main.toolbar().widget().height(); // its captions follow the type size as well
        return Tops{main.findChild<QTabBar*>(QStringLiteral("TabStrip1(1)"))->height(),
                    layout.header_row().top() - bar, layout.right_pane().top() - bar};
    };
    const Tops small = tops(9);
    const Tops medium = tops(10);
    const Tops large = tops(12);
    QCOMPARE(medium.tabs - small.tabs, 2);
    QCOMPARE(large.tabs - small.tabs, 6);
    QCOMPARE(medium.header - small.header, 2);
    QCOMPARE(large.header - small.header, 6);
    QCOMPARE(medium.grid - medium.header - (small.grid - small.header), 3);
    QCOMPARE(large.grid - large.header - (small.grid - small.header), 6);
    const Tops damaged = tops(77);
    QCOMPARE(damaged.grid, small.grid);
}

void tst_layout::restart_at_size_12_gives_the_same_row_heights_as_the_menu()
{
    for (const int size : {10, 12}) {
        TestWindow by_menu;
        frmmain& first = by_menu.load();
        first.view_state().set_type_size(size);
        TestWindow by_start;
        by_start.set_pref(QStringLiteral("font"), QString::number(size));
        frmmain& second = by_start.load();
        QCOMPARE(second.list_pane().grid().row_height(), first.list_pane().grid().row_height());
        QCOMPARE(second.list_pane().grid().row_height(), size == 12 ? 28 : 24);
        QCOMPARE(second.layout_manager().right_pane(), first.layout_manager().right_pane());
        QCOMPARE(second.layout_manager().header_row(), first.layout_manager().header_row());
        QCOMPARE(second.layout_manager().left_pane(), first.layout_manager().left_pane());
    }
}

void tst_layout::restart_at_size_12_gives_the_same_rows_as_the_menu_entry()
{
    TestWindow w;
    const Key list = w.add_list(QStringLiteral("Weekly"));
    const Key dairy = w.add_category(QStringLiteral("Dairy"), true);
    for (const char* name : {"Butter", "Cheese", "Milk"})
        w.add_row(w.add_item(QLatin1String(name), dairy), list, true, QStringLiteral("some"), QStringLiteral("2"));
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    frmmain& first = w.load();
    const QList<int> small = row_heights(first);
    QCOMPARE(small.size(), 1 + 3 * 3 + 2 + 2);
    QAction& large = first.commands().action(QStringLiteral("mnu_more_lrg"));
    QVERIFY(large.isEnabled() && large.isVisible());
    large.trigger();
    QApplication::processEvents();
    const QList<int> by_menu = row_heights(first);
    for (int i = 0; i < small.size(); ++i)
        QVERIFY2(by_menu[i] > small[i], qPrintable(QString::number(i)));

    frmmain& second = w.load();
    QCOMPARE(second.shared.type_size, 12);
    QCOMPARE(row_heights(second), by_menu);
}

void tst_layout::three_sizes_by_toolbar_menu_and_restart_give_the_same_rows_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("drop_down");
    QTest::addColumn<int>("presses");
    QTest::addRow("small") << 9 << QStringLiteral("mnu_more_sml") << QStringLiteral("SML") << 4;
    QTest::addRow("medium") << 10 << QStringLiteral("mnu_more_mdm") << QStringLiteral("MDM") << 1;
    QTest::addRow("large") << 12 << QStringLiteral("mnu_more_lrg") << QStringLiteral("LRG") << 2;
}

void tst_layout::three_sizes_by_toolbar_menu_and_restart_give_the_same_rows()
{
    QFETCH(int, size);
    QFETCH(QString, command);
    QFETCH(QString, drop_down);
    QFETCH(int, presses);
    TestWindow w;
    const Key list = w.add_list(QStringLiteral("Weekly"));
    w.add_row(w.add_item(QStringLiteral("Milk"), w.add_category(QStringLiteral("Dairy"), true)), list, true);
    w.set_pref(QStringLiteral("alist"), QString::number(list));
    w.set_pref(QStringLiteral("font"), QString::number(size));
    const QList<int> by_restart = row_heights(w.load());
    const auto start_at_another = [&w, size] {
        w.set_pref(QStringLiteral("font"), size == 9 ? QStringLiteral("12") : QStringLiteral("9"));
        w.load();
    };
    start_at_another();
    QVERIFY(row_heights(w.main()) != by_restart);
    w.main().commands().action(command).trigger();
    QCOMPARE(row_heights(w.main()), by_restart);
    QCOMPARE(w.pref(QStringLiteral("font")), QString::number(size));

    start_at_another();
    auto* button = w.find<QToolButton>(tool_button(ToolButton::size));
    button->menu()->findChild<QAction*>(drop_down)->trigger();
    QCOMPARE(row_heights(w.main()), by_restart);

    w.set_pref(QStringLiteral("font"), QStringLiteral("9"));
    w.load();
    button = w.find<QToolButton>(tool_button(ToolButton::size));
    QVERIFY(button->isVisible());
    for (int i = 0; i < presses; ++i)
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(w.main().shared.type_size, size);
    QCOMPARE(row_heights(w.main()), by_restart);
}

void tst_layout::type_size_reaches_tabs_and_trees()
{
    TestWindow w;
    frmmain& main = w.load();
    for (const int size : {9, 12, 10, 9}) {
        main.view_state().set_type_size(size);
        for (const char* name : {"TabStrip1(0)", "TabStrip1(1)", "TreeView1(0)", "TreeView1(1)"})
            QCOMPARE(main.findChild<QWidget*>(QString::fromLatin1(name))->font().pointSize(), size);
    }
}

void tst_layout::start_does_not_store_another_separator()
{
    TestWindow w;
    w.set_pref(QStringLiteral("seprtr"), QStringLiteral("4950"));
    w.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    w.set_pref(QStringLiteral("wstate"), QStringLiteral("2"));
    frmmain& main = w.load({});
    QVERIFY(main.isMaximized());
    QCOMPARE(bar(main).x(), 330);
    QCOMPARE(stored_separator(w), 4950);
}

void tst_layout::window_refuses_to_get_smaller_than_its_controls()
{
    TestWindow w;
    frmmain& main = w.load();
    resize(main, 50, 50);
    QVERIFY(main.width() >= 484);
    QVERIFY(main.layout_manager().right_pane().height() > 20);
    QVERIFY(main.toolbar().button(ToolButton::folders).geometry().right() < main.width());
}

void tst_layout::every_status_panel_has_room_in_a_narrow_window_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 10, 12})
        QTest::addRow("%d points", points) << points;
}

void tst_layout::every_status_panel_has_room_in_a_narrow_window()
{
    QFETCH(int, points);
    TestWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(points));
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    w.load({560, 480});
    QVERIFY(w.find<QWidget>(QStringLiteral("StatusBar1(6)"))->isVisible());
    QVERIFY(w.find<QWidget>(QStringLiteral("StatusBar1(1)"))->width() >= 40);
    for (int i = 1; i <= 6; ++i) {
        const auto* panel = w.find<QWidget>(QStringLiteral("StatusBar1(%1)").arg(i));
        QVERIFY2(panel->width() >= panel->minimumSizeHint().width(), qPrintable(panel->objectName()));
    }
    // The last text ends about as far from the window's edge as the first begins.
    const auto* last = w.find<QWidget>(QStringLiteral("StatusBar1(6)"));
    QVERIFY(last->mapTo(&w.main(), QPoint(last->width(), 0)).x() + 5 <= w.main().width());
}

void tst_layout::updates_are_on_again_after_every_operation()
{
    TestWindow w;
    frmmain& main = w.load();
    drag(main, 30);
    drag(main, 900);
    resize(main, 700, 500);
    main.view_state().size_cycle();
    main.l_r_refresh();
    QVERIFY(main.updatesEnabled());
}

QTEST_MAIN(tst_layout)
#include "tst_layout.moc"
