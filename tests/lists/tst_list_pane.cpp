#include "window/frmmain.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "widgets/header_bar.h"
#include "widgets/list_grid.h"
#include "lists/list_menu.h"
#include "lists/list_pane.h"
#include "household/list_store.h"
#include "household/household.h"
#include "window/commands.h"
#include "window/view_state.h"
#include "support/error_number.h"
#include "support/test_window.h"

#include <QAction>
#include <QCheckBox>
#include <QFrame>
#include <QHeaderView>
#include <QTest>
#include <QTextBrowser>

using namespace tarnwick;

namespace {

constexpr int grid_width = 500;

} // namespace

class tst_list_pane : public QObject {
    Q_OBJECT

private slots:
    void init();
    void load_shows_the_rows_of_the_list();
    void load_makes_the_first_row_current();
    void list_without_rows_is_active_and_can_be_renamed();
    void all_lists_and_a_list_that_is_gone_hide_the_rename_entry();
    void all_lists_hold_the_same_item_twice_each_with_its_own_list();
    void quantity_empty_or_blank_shows_one_blank();
    void description_and_aisle_of_one_blank_show_as_blank();
    void key_beyond_16_bits_ends_in_the_error_handler();
    void earlier_active_marks_stay();
    void load_opens_a_closed_connection();
    void load_ticks_the_entry_of_the_list();
    void load_shows_the_list_pane();
    void change_of_the_scroll_bar_makes_column_3_current();
    void set_row_makes_the_first_match_current();
    void box_hides_its_columns_and_stores_the_switch();
    void toggle_levels_the_text_columns();
    void toggle_twice_returns_to_the_first_widths();
    void toggle_in_a_small_window_sets_both_text_columns_to_115();
    void menu_captions_follow_the_groups();
    void restore_reads_the_switches_and_stores_nothing();
    void placed_row_is_sorted_in_and_current();
    void placing_and_removing_follow_the_scroll_bar();
    void last_row_can_be_removed();
    void notice_stands_a_quarter_lower_than_the_grid();
    void hidden_pane_hides_grid_header_and_notice();
    void page_colour_reaches_grid_and_notice();
    void a_page_colour_that_there_is_none_of_leaves_grid_and_notice_alike();
    void click_gives_the_grid_the_focus_and_the_tab_key_does_not();
    void placed_rows_stand_as_a_load_would_put_them();

private:
    ListPane& open(Key list);
    void widen_to(int width);
    /// Puts a new stock item on a list, without the boxes over its row.
    void place(const QString& name, Key list, bool quiet = false);
    ListGrid& grid() { return window->main().list_pane().grid(); }
    Key add(const char* name, Key list, bool to_get = false)
    {
        return window->add_row(window->add_item(QLatin1String(name), 0), list, to_get);
    }
    int text_columns_width() { return grid().col_width(GridColumn::item) + grid().col_width(GridColumn::desc); }

    void toggle_by_menu(ColumnGroup group)
    {
        QAction& entry = window->main().commands().action(
            group == ColumnGroup::coupon ? QStringLiteral("mnu_view_cpn") : QStringLiteral("mnu_view_aisle"));
        QVERIFY(entry.isEnabled());
        entry.trigger();
    }

    std::unique_ptr<TestWindow> window;
};

void tst_list_pane::init()
{
    window = std::make_unique<TestWindow>();
    window->set_pref(QStringLiteral("cpn"), QStringLiteral("1"));
    window->set_pref(QStringLiteral("aisle"), QStringLiteral("1"));
}

/// The window with a list on show in a grid of known width.
ListPane& tst_list_pane::open(Key list)
{
    window->set_pref(QStringLiteral("alist"), QString::number(list));
    window->load();
    widen_to(grid_width);
    return window->main().list_pane();
}

void tst_list_pane::widen_to(int width)
{
    frmmain& main = window->main();
    main.resize(main.width() + width - grid().width(), main.height());
    QCoreApplication::processEvents();
    QCOMPARE(grid().width(), width);
}

void tst_list_pane::place(const QString& name, Key list, bool quiet)
{
    Placement placement;
    placement.list_key = list;
    placement.item_key = window->add_item(name, 0);
    placement.created = placement.modified = window->date;
    placement.quiet = quiet;
    placement.opened = false;
    QVERIFY(window->main().household().place(placement) == Refusal::none);
}

void tst_list_pane::load_shows_the_rows_of_the_list()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    const Key other = window->add_list(QStringLiteral("Other"));
    const Key milk = window->add_item(QStringLiteral("Milk"), 0);
    const Key row
        = window->add_row(milk, list, true, QStringLiteral("fresh"), QStringLiteral(" 2 "), QStringLiteral("4b"));
    const Key apple = add("apple", list);
    add("Zest", other);
    Query(window->db(), "UPDATE groc_1 SET cpn = 1, created = '2026-12-05' WHERE key_id = ?", row).run();
    open(list);

    const GridModel& rows = grid().rows();
    QCOMPARE(rows.rows(), 2);
    QCOMPARE(rows.row(0).groc_key, apple);
    QCOMPARE(rows.row(1).groc_key, row);
    QCOMPARE(rows.row(1).list_key, list);
    QCOMPARE(rows.row(1).item_key, milk);
    QVERIFY(rows.row(1).to_get);
    using enum GridColumn;
    const std::pair<GridColumn, const char*> texts[]
        = {{item, "Milk"}, {desc, "fresh"}, {qty, "2"}, {coupon, ""}, {date, "12/5/2026"}, {aisle, "4b"}};
    for (const auto& [column, text] : texts)
        QCOMPARE(rows.cell_text(1, column), QLatin1String(text));
    QCOMPARE(rows.cell_text(0, GridColumn::date), QStringLiteral(" "));
    QVERIFY(!window->main().shared.all_lists_view);
}

void tst_list_pane::load_makes_the_first_row_current()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    for (const char* name : {"a", "b", "c"})
        add(name, list);
    open(list);
    grid().set_current(2, GridColumn::qty);
    choose_list(*window, list);
    QCOMPARE(grid().current_row(), 0);
    QCOMPARE(grid().current_col(), GridColumn::item);
}

void tst_list_pane::list_without_rows_is_active_and_can_be_renamed()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    add("milk", window->add_list(QStringLiteral("Party")));
    open(0);
    const QAction& rename = window->main().commands().action(QStringLiteral("mnu_list_RenameList"));
    QVERIFY(!rename.isVisible());
    QCOMPARE(grid().rows().rows(), 1);
    choose_list(*window, list);
    QCOMPARE(grid().rows().rows(), 0);
    QCOMPARE(grid().current_row(), -1);
    QCOMPARE(window->text("SELECT group_concat(list_name) FROM list_name WHERE active = 1"),
             QStringLiteral("Weekly"));
    QVERIFY(rename.isVisible());
}

void tst_list_pane::all_lists_and_a_list_that_is_gone_hide_the_rename_entry()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    const Key other = window->add_list(QStringLiteral("Party"));
    add("milk", list);
    open(list);
    const QAction& rename = window->main().commands().action(QStringLiteral("mnu_list_RenameList"));
    QVERIFY(rename.isVisible());
    choose_list(*window, 0);
    QVERIFY(!rename.isVisible());
    QVERIFY(window->main().shared.all_lists_view);
    QCOMPARE(grid().rows().rows(), 1);
    Query(window->db(), "DELETE FROM list_name WHERE key_id = ?", other).run(); // by another program
    for (const Key key : {list, other}) {
        choose_list(*window, key);
        QCOMPARE(rename.isVisible(), key == list);
        QCOMPARE(grid().rows().rows(), key == list ? 1 : 0);
    }
}

void tst_list_pane::all_lists_hold_the_same_item_twice_each_with_its_own_list()
{
    const Key first = window->add_list(QStringLiteral("A"));
    const Key second = window->add_list(QStringLiteral("B"));
    const Key milk = window->add_item(QStringLiteral("Milk"), 0);
    window->add_row(milk, first, false);
    add("Zest", first);
    window->add_row(milk, second, false);
    open(0);
    const GridModel& rows = grid().rows();
    QCOMPARE(rows.rows(), 3);
    QCOMPARE(rows.row(0).item, QStringLiteral("Milk"));
    QCOMPARE(rows.row(1).item, QStringLiteral("Milk"));
    QCOMPARE(rows.row(0).list_key, first);
    QCOMPARE(rows.row(1).list_key, second);
    QCOMPARE(window->number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 0);
}

void tst_list_pane::quantity_empty_or_blank_shows_one_blank()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key item = window->add_item(QStringLiteral("Milk"), 0);
    window->add_row(item, list, false, QStringLiteral(" "), QString());
    window->add_row(item, list, false, QStringLiteral(" "), QStringLiteral("    "));
    open(list);
    QCOMPARE(grid().rows().cell_text(0, GridColumn::qty), QStringLiteral(" "));
    QCOMPARE(grid().rows().cell_text(1, GridColumn::qty), QStringLiteral(" "));
}

void tst_list_pane::description_and_aisle_of_one_blank_show_as_blank()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key item = window->add_item(QStringLiteral("Milk"), 0);
    window->add_row(item, list, false, QStringLiteral(" "), QStringLiteral("2"), QStringLiteral(" "));
    open(list);
    for (const GridColumn column : {GridColumn::desc, GridColumn::aisle}) {
        QVERIFY(trim(grid().rows().cell_text(0, column)).isEmpty());
        const QModelIndex cell = grid().rows().cell(0, column);
        QVERIFY(trim(grid().rows().data(cell, Qt::DisplayRole).toString()).isEmpty());
    }
    QCOMPARE(grid().rows().cell_text(0, GridColumn::qty), QStringLiteral("2"));
}

void tst_list_pane::key_beyond_16_bits_ends_in_the_error_handler()
{
    const Key list = window->add_list(QStringLiteral("A"));
    add("milk", list);
    open(list);
    for (const int key : {40000, 32768, 32767}) {
        Query(window->db(), "UPDATE groc_1 SET key_id = ?", key).run();
        Query(window->db(), "UPDATE tie SET groc_id = ?", key).run();
        const bool fits = key == 32767;
        QCOMPARE(error_number([this] { choose(*window, 0); }), fits ? 0 : int(runtime_error::overflow));
        QCOMPARE(int(grid().rows().row(0).groc_key), fits ? key : 1);
    }
}

void tst_list_pane::earlier_active_marks_stay()
{
    const Key first = window->add_list(QStringLiteral("A"));
    const Key second = window->add_list(QStringLiteral("B"));
    open(first);
    choose_list(*window, second);
    QCOMPARE(window->number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 2);
}

void tst_list_pane::load_opens_a_closed_connection()
{
    const Key list = window->add_list(QStringLiteral("A"));
    add("milk", list);
    ListPane& pane = open(list);
    window->main().connection().close();
    pane.lv_load(list);
    QVERIFY(window->main().connection().is_open());
    QCOMPARE(grid().rows().rows(), 1);
}

void tst_list_pane::load_ticks_the_entry_of_the_list()
{
    const Key first = window->add_list(QStringLiteral("A"));
    const Key second = window->add_list(QStringLiteral("B"));
    open(first);
    const Commands& commands = window->main().commands();
    const Key keys[] = {first, second, 0};
    for (const int shown : {1, 0, 2}) {
        choose_list(*window, keys[shown]);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(commands.list_entry(i).isChecked(), i == shown);
    }
}

void tst_list_pane::load_shows_the_list_pane()
{
    open(window->add_list(QStringLiteral("A")));
    trigger(*window, "mnu_view_rcpepages");
    QVERIFY(!grid().isVisible());
    make_list(*window, QStringLiteral("B"));
    QVERIFY(window->main().shared.list_pane_shown);
    QVERIFY(grid().isVisible());
}

void tst_list_pane::change_of_the_scroll_bar_makes_column_3_current()
{
    const Key list = window->add_list(QStringLiteral("A"));
    for (int i = 0; i < 60; ++i)
        add("row", list);
    const Key empty = window->add_list(QStringLiteral("B"));
    open(empty);
    choose_list(*window, list);
    QVERIFY(grid().scroll_bar_shown());
    QCOMPARE(grid().current_row(), 0);
    QCOMPARE(grid().current_col(), GridColumn::desc);
    choose_list(*window, list);
    QCOMPARE(grid().current_col(), GridColumn::item);
}

void tst_list_pane::set_row_makes_the_first_match_current()
{
    const Key list = window->add_list(QStringLiteral("A"));
    add("a", list);
    const Key b = add("b", list);
    add("c", list);
    ListPane& pane = open(list);
    QVERIFY(pane.set_row(b));
    QCOMPARE(grid().current_row(), 1);
    QVERIFY(!pane.set_row(99));
    QCOMPARE(grid().current_row(), 1);
}

void tst_list_pane::box_hides_its_columns_and_stores_the_switch()
{
    open(window->add_list(QStringLiteral("A")));
    const QString application = QStringLiteral("Velora");
    for (const ColumnGroup group : column_groups) {
        const QString key = group == ColumnGroup::coupon ? QStringLiteral("cpn") : QStringLiteral("aisle");
        auto* box = window->find<QCheckBox>(QStringLiteral("Cmd_ShowCol(%1)").arg(static_cast<int>(group)));
        QVERIFY(box->isEnabled() && box->isVisible() && box->isChecked());
        const GridColumn last = group == ColumnGroup::coupon ? GridColumn::date : GridColumn::aisle;
        QTest::mouseClick(box, Qt::RightButton);
        QVERIFY(grid().col_width(last) > 0);
        QTest::mousePress(box, Qt::LeftButton);
        QVERIFY(grid().col_width(last) > 0);
        QTest::mouseRelease(box, Qt::LeftButton);
        QCOMPARE(grid().col_width(last), 0);
        QCOMPARE(window->pref(key, application), QStringLiteral("0"));
        QCOMPARE(window->pref(key), QStringLiteral("1"));
        QTest::mouseClick(box, Qt::LeftButton);
        QCOMPARE(window->pref(key, application), QStringLiteral("1"));
    }
    QCOMPARE(grid().col_width(GridColumn::coupon), 18);
    QCOMPARE(grid().col_width(GridColumn::date), 80);
    QCOMPARE(grid().col_width(GridColumn::aisle), 36);
}

void tst_list_pane::toggle_levels_the_text_columns()
{
    open(window->add_list(QStringLiteral("A")));
    QCOMPARE(text_columns_width(), 294 + 2);
    widen_to(grid_width + 1);
    grid().set_col_width(GridColumn::item, 201);
    grid().set_col_width(GridColumn::desc, 96);
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(grid().col_width(GridColumn::item), (297 + 98) / 2);
    QCOMPARE(grid().col_width(GridColumn::desc), 297 + 98 - (297 + 98) / 2);
    toggle_by_menu(ColumnGroup::aisle);
    QCOMPARE(text_columns_width(), 297 + 98 + 36);
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(text_columns_width(), 297 + 36);
}

void tst_list_pane::toggle_twice_returns_to_the_first_widths()
{
    ListPane& pane = open(window->add_list(QStringLiteral("A")));
    const int item = grid().col_width(GridColumn::item);
    const int desc = grid().col_width(GridColumn::desc);
    QCOMPARE(item, 148);
    for (const ColumnGroup group : column_groups) {
        toggle_by_menu(group);
        toggle_by_menu(group);
        QCOMPARE(grid().col_width(GridColumn::item), item);
        QCOMPARE(grid().col_width(GridColumn::desc), desc);
    }
    // A call without a change of the box moves nothing.
    pane.show_column_group(ColumnGroup::coupon);
    QCOMPARE(grid().col_width(GridColumn::item), item);
    QCOMPARE(grid().col_width(GridColumn::date), 80);
}

void tst_list_pane::toggle_in_a_small_window_sets_both_text_columns_to_115()
{
    open(window->add_list(QStringLiteral("A")));
    window->main().resize(560, 450);
    QCoreApplication::processEvents();
    QVERIFY(grid().width() < 436);
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(grid().col_width(GridColumn::item), 115);
    QCOMPARE(grid().col_width(GridColumn::desc), 115);
    // With both groups on show 115 is too wide for such a grid: the columns are fitted in.
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(grid().horizontalHeader()->length(), grid().width() + 2);
    QVERIFY(std::abs(grid().col_width(GridColumn::item) - grid().col_width(GridColumn::desc)) <= 1);
    const QRect first = window->main().list_pane().header().show_box(ColumnGroup::coupon).geometry();
    const QRect second = window->main().list_pane().header().show_box(ColumnGroup::aisle).geometry();
    QVERIFY(!first.intersects(second));
    QVERIFY(second.right() <= grid().geometry().right());
}

void tst_list_pane::menu_captions_follow_the_groups()
{
    open(window->add_list(QStringLiteral("A")));
    const auto caption
        = [this](const char* name) { return window->main().commands().action(QLatin1String(name)).text(); };
    QCOMPARE(caption("mnu_view_cpn"), QStringLiteral("Hide coupon-expiry column"));
    QCOMPARE(caption("mnu_view_aisle"), QStringLiteral("Hide aisle column"));
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(caption("mnu_view_cpn"), QStringLiteral("Show coupon-expiry column"));
    QCOMPARE(caption("mnu_view_aisle"), QStringLiteral("Hide aisle column"));
    toggle_by_menu(ColumnGroup::aisle);
    QCOMPARE(caption("mnu_view_aisle"), QStringLiteral("Show aisle column"));
    toggle_by_menu(ColumnGroup::coupon);
    QCOMPARE(caption("mnu_view_cpn"), QStringLiteral("Hide coupon-expiry column"));
}

void tst_list_pane::restore_reads_the_switches_and_stores_nothing()
{
    window->set_pref(QStringLiteral("cpn"), QStringLiteral("0"));
    ListPane& pane = open(window->add_list(QStringLiteral("A")));
    QVERIFY(!pane.column_group_shown(ColumnGroup::coupon));
    QVERIFY(pane.column_group_shown(ColumnGroup::aisle));
    QCOMPARE(grid().col_width(GridColumn::coupon), 0);
    QCOMPARE(grid().col_width(GridColumn::date), 0);
    QCOMPARE(grid().col_width(GridColumn::aisle), 36);
    QCOMPARE(window->main().commands().action(QStringLiteral("mnu_view_cpn")).text(),
             QStringLiteral("Show coupon-expiry column"));
    QCOMPARE(window->pref(QStringLiteral("cpn"), QStringLiteral("Velora")), QStringLiteral("(none)"));
}

void tst_list_pane::placed_row_is_sorted_in_and_current()
{
    const Key list = window->add_list(QStringLiteral("A"));
    for (const char* name : {"Apple", "milk", "Zest"})
        add(name, list);
    open(list);
    place(QStringLiteral("MELON"), list);
    QCOMPARE(grid().rows().row(1).item, QStringLiteral("MELON"));
    QCOMPARE(grid().current_row(), 1);
    QCOMPARE(grid().current_col(), GridColumn::item);
    place(QStringLiteral("bread"), list, true);
    QCOMPARE(grid().rows().row(1).item, QStringLiteral("bread"));
    QCOMPARE(grid().rows().row(grid().current_row()).item, QStringLiteral("MELON"));
}

void tst_list_pane::placing_and_removing_follow_the_scroll_bar()
{
    const Key list = window->add_list(QStringLiteral("A"));
    open(list);
    QVERIFY(!grid().scroll_bar_shown());
    const int wide = text_columns_width();
    int rows_without_bar = -1;
    while (!grid().scroll_bar_shown()) {
        QCOMPARE(text_columns_width(), wide);
        place(QStringLiteral("row %1").arg(++rows_without_bar, 2, 10, QLatin1Char('0')), list);
    }
    QVERIFY(rows_without_bar > 10);
    QCOMPARE(text_columns_width(), wide - 17);
    window->main().household().remove_row(grid().rows().row(rows_without_bar).groc_key);
    QVERIFY(!grid().scroll_bar_shown());
    QCOMPARE(text_columns_width(), wide);
    QCOMPARE(grid().current_row(), rows_without_bar - 1);
}

void tst_list_pane::last_row_can_be_removed()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key milk = add("milk", list);
    const Key elsewhere = add("bread", window->add_list(QStringLiteral("B")));
    open(list);
    window->main().household().remove_row(elsewhere);
    QCOMPARE(grid().rows().rows(), 1);
    window->main().household().remove_row(milk);
    QCOMPARE(grid().rows().rows(), 0);
    QCOMPARE(grid().current_row(), -1);
}

void tst_list_pane::notice_stands_a_quarter_lower_than_the_grid()
{
    const Key list = window->add_list(QStringLiteral("A"));
    open(list);
    auto* frame = window->find<QFrame>(QStringLiteral("frmCreateList"));
    auto* text = window->find<QTextBrowser>(QStringLiteral("txtCreateList"));
    QVERIFY(!frame->isVisible());
    window->main().household().delete_list(list);
    QVERIFY(frame->isVisible());
    const int height = grid().height();
    QCOMPARE(frame->geometry(), grid().geometry().translated(0, height / 4));
    QCOMPARE(text->height(), height / 2);
    QCOMPARE(text->geometry().center().x(), frame->rect().center().x());
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->toPlainText(),
             QStringLiteral("There are no shopping lists: \n\nTo create a new shopping list, click the 'New' list "
                            "button \non the toolbar (notepad icon marked 'New' on the far left) \n - or choose "
                            "'Shopping list/New list' from the menu bar"));
    make_list(*window, QStringLiteral("B"));
    QVERIFY(!frame->isVisible());
}

void tst_list_pane::hidden_pane_hides_grid_header_and_notice()
{
    const Key list = window->add_list(QStringLiteral("A"));
    open(list);
    window->main().household().delete_list(list);
    QVERIFY(notice(*window)->isVisible());
    trigger(*window, "mnu_view_rcpepages");
    QVERIFY(!grid().isVisible());
    for (const char* name :
         {"frmCreateList", "Cmd_ShowCol(0)", "listheader(0)", "listheader_lbl(1)", "listheader_sprtr(0)"})
        QVERIFY2(!window->find<QWidget>(QLatin1String(name))->isVisible(), name);
    trigger(*window, "mnu_view_shoplist");
    QVERIFY(grid().isVisible());
    QVERIFY(window->find<QWidget>(QStringLiteral("Cmd_ShowCol(0)"))->isVisible());
}

void tst_list_pane::page_colour_reaches_grid_and_notice()
{
    open(window->add_list(QStringLiteral("A")));
    for (int index = 0; index < 4; ++index) {
        window->main().view_state().set_color(index);
        QCOMPARE(grid().palette().color(QPalette::Base), *page_color_of(index));
        auto* frame = window->find<QFrame>(QStringLiteral("frmCreateList"));
        QCOMPARE(frame->palette().color(QPalette::Window), *page_color_of(index));
    }
}

void tst_list_pane::a_page_colour_that_there_is_none_of_leaves_grid_and_notice_alike()
{
    window->set_pref(QStringLiteral("color"), QStringLiteral("4"));
    open(window->add_list(QStringLiteral("A")));
    QCOMPARE(grid().palette().color(QPalette::Base),
             window->find<QWidget>(QStringLiteral("frmCreateList"))->palette().color(QPalette::Base));
    QVERIFY(grid().palette().color(QPalette::Base) != QColor(Qt::white));
}

void tst_list_pane::click_gives_the_grid_the_focus_and_the_tab_key_does_not()
{
    const Key list = window->add_list(QStringLiteral("A"));
    add("milk", list);
    open(list);
    window->main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window->main()));
    QVERIFY(!grid().hasFocus());
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, {30, 5});
    QVERIFY(grid().hasFocus());
    QVERIFY(!(grid().focusPolicy() & Qt::TabFocus));
}

void tst_list_pane::placed_rows_stand_as_a_load_would_put_them()
{
    const Key list = window->add_list(QStringLiteral("A"));
    open(list);
    for (const char* name : {"b", "A", "a", "B", "\xc3\xa4pfel", "Zest", "_x", "10", "9", "a"})
        place(QString::fromUtf8(name), list);
    std::vector<Key> placed;
    for (const GridRow& row : grid().rows().list_rows())
        placed.push_back(row.groc_key);
    choose_list(*window, list);
    std::vector<Key> loaded;
    for (const GridRow& row : grid().rows().list_rows())
        loaded.push_back(row.groc_key);
    QCOMPARE(placed.size(), size_t(10));
    QCOMPARE(placed, loaded);
}

QTEST_MAIN(tst_list_pane)
#include "tst_list_pane.moc"
