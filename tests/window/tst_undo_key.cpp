#include "lists/list_pane.h"
#include "recipes/line_fixture.h"
#include "support/table_dump.h"
#include "widgets/list_grid.h"
#include "household/household.h"
#include "household/status.h"
#include "widgets/row_editor.h"
#include "window/commands.h"

#include <QScrollBar>

#include <functional>

using namespace tarnwick;

namespace {

/// A list of three rows and a recipe of three lines.
class Window : public LineWindow {
public:
    Window()
    {
        const Key list = add_list(QStringLiteral("Home"));
        folder = add_category(QStringLiteral("Dairy"));
        const Key other = add_list(QStringLiteral("Party"));
        for (const char* name : {"Butter", "Cream", "Milk"}) {
            const Key item = add_item(QString::fromLatin1(name), folder, 7);
            add_row(item, list, true, QStringLiteral("fresh"), QStringLiteral("2 lb"), QStringLiteral("7"));
            add_line(recipe, QString::fromLatin1(name), item, -1, QStringLiteral("1"), QStringLiteral("cup"),
                     QStringLiteral("cold"));
        }
        add_row(2, other, false);
        Query(db(), "UPDATE groc_1 SET cpn = 1, created = '2026-05-06', modified = '2025-01-02' WHERE key_id = 2")
            .run();
        set_pref(QStringLiteral("alist"), QString::number(list));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    }

    void open_on(bool list)
    {
        set_pref(QStringLiteral("lv_view"), list ? QStringLiteral("1") : QStringLiteral("0"));
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }

    static void press(Qt::Key key)
    {
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    static void undo()
    {
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    }
    ListGrid& grid() { return main().list_pane().grid(); }
    void remove_row(int row)
    {
        grid().setFocus();
        grid().set_current(row, GridColumn::item);
        QTest::keyClick(&grid(), Qt::Key_Delete);
    }
    void remove_line(int line)
    {
        this->line(line).ingred->setFocus();
        QTest::keyClick(this->line(line).ingred, Qt::Key_Delete);
    }
    QStringList names()
    {
        QStringList names;
        for (int i = 0; i < grid().rows().rows(); ++i)
            names << grid().rows().cell_text(i, GridColumn::item);
        return names;
    }
    void choose_list(int entry) { main().commands().list_entry(entry).trigger(); }

    Key folder = 0;
};

} // namespace

/// Ctrl+Z after the removal of a list row or an ingredient line.
class tst_undo_key : public QObject {
    Q_OBJECT
private slots:
    void a_removed_row_comes_back_as_it_was_data();
    void a_removed_row_comes_back_as_it_was();
    void a_removed_line_comes_back_as_it_was_data();
    void a_removed_line_comes_back_as_it_was();
    void the_only_line_comes_back_from_the_instructions();
    void only_the_last_removal_comes_back_and_only_once();
    void after_another_change_nothing_comes_back();
    void a_row_comes_back_wherever_the_keyboard_has_been_data();
    void a_row_comes_back_wherever_the_keyboard_has_been();
    void a_row_comes_back_to_its_list_on_show_alone();
    void a_line_comes_back_wherever_the_keyboard_has_been_data();
    void a_line_comes_back_wherever_the_keyboard_has_been();
    void with_its_item_gone_a_row_stays_away();
    void a_line_does_not_come_back_to_another_recipe();
    void what_was_typed_since_is_undone_in_its_box();
    void the_status_of_a_returned_item_is_true();
    void the_panel_tells_of_the_returned_item();
};

void tst_undo_key::a_removed_row_comes_back_as_it_was_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("by_cross");
    QTest::newRow("first") << 0 << false;
    QTest::newRow("middle, with a coupon") << 1 << false;
    QTest::newRow("last") << 2 << false;
    QTest::newRow("by the cross") << 1 << true;
}

void tst_undo_key::a_removed_row_comes_back_as_it_was()
{
    QFETCH(int, row);
    QFETCH(bool, by_cross);
    Window w;
    w.open_on(true);
    const QStringList before = table_dump(w.db());
    const QStringList names = w.names();
    if (by_cross) {
        w.grid().setFocus();
        w.grid().set_current(row, GridColumn::item);
        w.main().row_editor().show_l_line();
        QTest::mouseClick(&w.control(QStringLiteral("imgScratch")), Qt::LeftButton);
    } else {
        w.remove_row(row);
    }
    QCOMPARE(w.grid().rows().rows(), 2);
    QVERIFY(table_dump(w.db()) != before);
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.names(), names);
    QCOMPARE(w.grid().current_row(), row);
    QCOMPARE(w.grid().rows().row(row).desc, QStringLiteral("fresh"));
    QCOMPARE(w.grid().rows().row(row).qty, QStringLiteral("2 lb"));
    QCOMPARE(trim(w.grid().rows().row(row).date), row == 1 ? QStringLiteral("5/6/2026") : QString());
    QVERIFY(w.grid().hasFocus());
}

void tst_undo_key::a_removed_line_comes_back_as_it_was_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<bool>("by_cross");
    QTest::newRow("first") << 0 << false;
    QTest::newRow("middle") << 1 << false;
    QTest::newRow("last") << 2 << false;
    QTest::newRow("by the cross") << 1 << true;
}

void tst_undo_key::a_removed_line_comes_back_as_it_was()
{
    QFETCH(int, line);
    QFETCH(bool, by_cross);
    Window w;
    w.open_on(false);
    const QStringList before = table_dump(w.db());
    const QString text = w.ingred(line);
    if (by_cross) {
        w.open_line(line);
        QTest::mouseClick(&w.button("imgScratch"), Qt::LeftButton);
    } else {
        w.remove_line(line);
    }
    QCOMPARE(w.lines(), 2);
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.lines(), 3);
    QCOMPARE(w.ingred(line), text);
    QVERIFY(w.line(line).ingred->hasFocus());
}

void tst_undo_key::the_only_line_comes_back_from_the_instructions()
{
    Window w;
    Query(w.db(), "DELETE FROM recipe_2 WHERE key_id > 1").run();
    w.open_on(false);
    const QStringList before = table_dump(w.db());
    w.remove_line(0);
    QVERIFY(w.Text1().hasFocus());
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.lines(), 1);
}

void tst_undo_key::only_the_last_removal_comes_back_and_only_once()
{
    Window w;
    w.open_on(true);
    w.remove_row(0);
    const QStringList before = table_dump(w.db());
    w.remove_row(0);
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.grid().rows().rows(), 2);
}

void tst_undo_key::after_another_change_nothing_comes_back()
{
    Window w;
    w.open_on(true);
    w.remove_row(0);
    QTest::keyClick(&w.grid(), Qt::Key_Space);
    const QStringList before = table_dump(w.db());
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.grid().rows().rows(), 2);
}

void tst_undo_key::a_row_comes_back_wherever_the_keyboard_has_been_data()
{
    QTest::addColumn<std::function<void(Window&)>>("act");
    const auto add = [](const char* name, const std::function<void(Window&)>& act) { QTest::newRow(name) << act; };
    const auto command = [](const char* name) { return [name](Window& w) { w.trigger(QLatin1String(name)); }; };
    const auto there_and_back = [](const char* there, const char* back) {
        return [there, back](Window& w) {
            w.trigger(QLatin1String(there));
            w.trigger(QLatin1String(back));
        };
    };
    add("tree", [](Window& w) { w.press(Qt::Key_F6); });
    add("a folder opened in the tree", [](Window& w) {
        w.press(Qt::Key_F6);
        w.main().stock_tree().category_node(w.folder)->setExpanded(true);
    });
    add("all folders closed", command("mnu_view_cntrct_all"));
    add("the tree sorted by name", command("mnu_view_sort_alpha"));
    add("the tree sorted twice", there_and_back("mnu_view_sort_alpha", "mnu_view_sort_cat"));
    add("the other tree and back", there_and_back("mnu_view_rcp", "mnu_view_stock"));
    add("the page and back", there_and_back("mnu_view_rcpepages", "mnu_view_shoplist"));
    add("another list and back", [](Window& w) {
        w.choose_list(1);
        w.choose_list(0);
    });
    add("all lists", [](Window& w) { w.choose_list(2); });
    add("a column shown", command("mnu_view_cpn"));
    add("scrolled", [](Window& w) { w.grid().verticalScrollBar()->setValue(1); });
    add("a menu of the row", [](Window& w) {
        w.press(Qt::Key_Menu);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    add("a row opened", [](Window& w) { w.press(Qt::Key_Up); });
}

void tst_undo_key::a_row_comes_back_wherever_the_keyboard_has_been()
{
    QFETCH(std::function<void(Window&)>, act);
    Window w;
    w.open_on(true);
    w.remove_row(1);
    w.main().activateWindow();
    act(w);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 3);
    w.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w.main()));
    w.undo();
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 4);
    QVERIFY(w.names().contains(QStringLiteral("Cream")));
}

void tst_undo_key::a_row_comes_back_to_its_list_on_show_alone()
{
    Window w;
    w.open_on(true);
    w.remove_row(1);
    w.choose_list(1);
    const QStringList before = table_dump(w.db());
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.names(), QStringList{QStringLiteral("Cream")});
    w.choose_list(2);
    w.undo();
    QCOMPARE(w.names(),
             (QStringList{QStringLiteral("Butter"), QStringLiteral("Cream"), QStringLiteral("Cream"),
                          QStringLiteral("Milk")}));
}

void tst_undo_key::a_line_comes_back_wherever_the_keyboard_has_been_data()
{
    QTest::addColumn<std::function<void(Window&)>>("act");
    const auto add = [](const char* name, const std::function<void(Window&)>& act) { QTest::newRow(name) << act; };
    add("tree", [](Window& w) { w.press(Qt::Key_F6); });
    add("a folder opened in the tree", [](Window& w) {
        w.press(Qt::Key_F6);
        w.main().stock_tree().category_node(w.folder)->setExpanded(true);
    });
    add("another recipe and back", [](Window& w) {
        w.page().set_recipe(-1);
        w.page().set_recipe(w.recipe);
    });
    add("an arrow key in the instructions", [](Window& w) {
        w.Text1().setFocus();
        w.press(Qt::Key_Right);
        QVERIFY(w.page().texts().is_edited());
        w.press(Qt::Key_F6);
        QVERIFY(!w.page().texts().is_edited());
    });
    add("a line opened and left", [](Window& w) {
        w.press(Qt::Key_Return);
        w.press(Qt::Key_Escape);
    });
    add("the list and back", [](Window& w) {
        w.trigger(QStringLiteral("mnu_view_shoplist"));
        w.trigger(QStringLiteral("mnu_view_rcpepages"));
    });
}

void tst_undo_key::a_line_comes_back_wherever_the_keyboard_has_been()
{
    QFETCH(std::function<void(Window&)>, act);
    Window w;
    w.open_on(false);
    const QString text = w.ingred(1);
    w.remove_line(1);
    act(w);
    QCOMPARE(w.lines(), 2);
    w.undo();
    QCOMPARE(w.lines(), 3);
    QCOMPARE(w.ingred(1), text);
}

void tst_undo_key::with_its_item_gone_a_row_stays_away()
{
    Window w;
    w.open_on(true);
    w.remove_row(0);
    w.main().household().delete_item(1);
    const QStringList before = table_dump(w.db());
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
}

void tst_undo_key::a_line_does_not_come_back_to_another_recipe()
{
    Window w;
    const Key pie = w.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    w.open_on(false);
    w.remove_line(0);
    const QStringList before = table_dump(w.db());
    w.trigger(QStringLiteral("mnu_view_rcp"));
    w.click_node(rcp(pie));
    w.undo();
    QCOMPARE(table_dump(w.db()), before);
    QCOMPARE(w.lines(), 0);
}

void tst_undo_key::what_was_typed_since_is_undone_in_its_box()
{
    Window w;
    w.open_on(false);
    w.remove_line(0);
    w.focus(w.Text1());
    QTest::keyClicks(&w.Text1(), QStringLiteral("x"));
    w.undo();
    QCOMPARE(w.Text1().text(), QStringLiteral("Stir."));
    QCOMPARE(w.lines(), 2);
    w.undo();
    QCOMPARE(w.lines(), 3);
}

void tst_undo_key::the_status_of_a_returned_item_is_true()
{
    Window w;
    w.open_on(true);
    w.remove_row(1);
    QCOMPARE(w.number("SELECT status FROM items_1 WHERE key_id = 2"), 6);
    w.undo();
    QCOMPARE(w.number("SELECT status FROM items_1 WHERE key_id = 2"), 7);
    QCOMPARE(TreeView::picture(w.main().stock_tree().item_node(2)), 7);
}

void tst_undo_key::the_panel_tells_of_the_returned_item()
{
    Window w;
    w.open_on(true);
    w.remove_row(1);
    QTest::keyClick(&w.grid(), Qt::Key_Up);
    w.main().set_status(QStringLiteral("of Butter"));
    w.undo();
    QCOMPARE(w.grid().current_row(), 1);
    QCOMPARE(w.main().status_panels().text(), get_status(w.db(), 2));
}

QTEST_MAIN(tst_undo_key)
#include "tst_undo_key.moc"
