#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_fixture.h"
#include "stock/floating_buttons.h"

#include <QApplication>
#include <QTabBar>
#include <QToolButton>

using namespace tarnwick;

namespace {

/// A list of two rows, the item "Milk" that is on none, and the recipe "Pie"; stock tree and list on show.
class Window : public RecipeWindow {
public:
    Window()
    {
        set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
        const Key dairy = add_category(QStringLiteral("Dairy"), true);
        const Key list = add_list(QStringLiteral("Home"));
        add_row(add_item(QStringLiteral("Butter"), dairy, 7), list, true);
        add_row(add_item(QStringLiteral("Cream"), dairy, 7), list, true);
        milk_ = add_item(QStringLiteral("Milk"), dairy);
        pie_ = add_recipe(QStringLiteral("Pie"), QStringLiteral("13"), QStringLiteral("Bake."));
        add_line(pie_, QStringLiteral("Salt"));
        set_pref(QStringLiteral("alist"), QString::number(list));
        set_pref(QStringLiteral("arcp"), QString::number(pie_));
    }

    void open()
    {
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }

    QTabBar& tabs(int strip) { return *find<QTabBar>(QStringLiteral("TabStrip1(%1)").arg(strip)); }
    void click_tab(int strip, int tab)
    {
        QTest::mouseClick(&tabs(strip), Qt::LeftButton, {}, tabs(strip).tabRect(tab).center());
    }
    void click_list_tab() { click_tab(1, 0); }
    void click_recipe_tab() { click_tab(1, 1); }

    ListGrid& grid() { return main().list_pane().grid(); }
    void click_row(int row)
    {
        const QPoint middle = grid().cell_rect(row, GridColumn::item).center();
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().viewport()->mapFrom(grid().parentWidget(), middle));
        QVERIFY(main().row_editor().is_open());
    }

    TreeView& stock() { return main().stock_tree().view(); }
    void click_milk()
    {
        const QTreeWidgetItem* node = main().stock_tree().item_node(milk_);
        QVERIFY(node);
        QTest::mouseClick(stock().viewport(), Qt::LeftButton, {}, stock().text_rect(node).center());
    }
    QToolButton& floating_button(int index) { return main().floating_buttons().button(index); }

    void empty_title()
    {
        focus(title());
        QTest::keyClick(&title(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&title(), Qt::Key_Delete);
        QVERIFY(title().text().isEmpty());
    }

    /// A key to whatever has the keyboard, or to the window when nothing has.
    void key(Qt::Key code) { QTest::keyClick(keyboard(), code); }
    void type(const QString& text) { QTest::keyClicks(keyboard(), text); }

    static bool keyboard_is_on_show()
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus && focus->isVisible();
    }

    Key milk_ = 0;
    Key pie_ = 0;

private:
    QWidget* keyboard()
    {
        QWidget* focus = QApplication::focusWidget();
        return focus ? focus : &main();
    }
};

} // namespace

class tst_view_focus : public QObject {
    Q_OBJECT
private slots:
    void a_start_gives_the_keyboard_to_the_tree_data();
    void a_start_gives_the_keyboard_to_the_tree();
    void no_change_of_view_leaves_the_keyboard_in_a_hidden_control_data();
    void no_change_of_view_leaves_the_keyboard_in_a_hidden_control();
    void tab_keys_move_nothing_data();
    void tab_keys_move_nothing();
    void delete_after_the_recipe_tab_removes_no_row();
    void the_grid_takes_no_keys_while_the_page_is_shown();
    void letters_after_a_change_to_the_list_do_not_reach_the_recipe();
    void a_clicked_tab_gives_the_keyboard_to_its_pane_data();
    void a_clicked_tab_gives_the_keyboard_to_its_pane();
    void a_tree_that_takes_the_place_of_another_takes_its_keyboard();
    void a_tab_click_with_an_empty_name_gives_the_message_and_changes_nothing_data();
    void a_tab_click_with_an_empty_name_gives_the_message_and_changes_nothing();
    void a_tab_click_leaves_a_changed_name_by_its_rules();
    void a_menu_choice_stores_an_empty_name_unchecked();
    void a_tab_click_hides_the_add_button_beside_the_tree();
    void a_tab_click_ends_the_edit_of_a_label();
    void a_tab_click_asks_for_the_name_of_a_nameless_new_line();
};

void tst_view_focus::a_start_gives_the_keyboard_to_the_tree_data()
{
    QTest::addColumn<bool>("stock_view");
    QTest::addColumn<bool>("list_view");
    for (const bool stock_view : {true, false})
        for (const bool list_view : {true, false})
            QTest::addRow("%s, %s", stock_view ? "stock" : "recipes", list_view ? "list" : "page")
                << stock_view << list_view;
}

/// No key leads out of a window in which nothing has the keyboard.
void tst_view_focus::a_start_gives_the_keyboard_to_the_tree()
{
    QFETCH(bool, stock_view);
    QFETCH(bool, list_view);
    Window w;
    w.set_pref(QStringLiteral("tv_view"), stock_view ? QStringLiteral("1") : QStringLiteral("0"));
    w.set_pref(QStringLiteral("lv_view"), list_view ? QStringLiteral("1") : QStringLiteral("0"));
    w.open();
    TreeView& tree = stock_view ? w.stock() : w.tree();
    QVERIFY(tree.isVisible());
    QCOMPARE(QApplication::focusWidget(), &tree);
    w.key(Qt::Key_Home);
    QCOMPARE(tree.selected(), tree.topLevelItem(0));
    w.key(Qt::Key_Down);
    QCOMPARE(tree.selected(), tree.itemBelow(tree.topLevelItem(0)));
}

void tst_view_focus::no_change_of_view_leaves_the_keyboard_in_a_hidden_control_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("change");
    const auto add = [](const char* control, const char* change) {
        QTest::addRow("%s, %s", control, change) << QString::fromLatin1(control) << QString::fromLatin1(change);
    };
    for (const char* control :
         {"TreeView1(0)", "TreeView1(1)", "Listview1", "row editor", "title", "Text1", "line"})
        for (const char* change : {"mnu_view_stock", "mnu_view_rcp", "mnu_view_shoplist", "mnu_view_rcpepages"})
            add(control, change);
    // A click on a tab takes the keyboard itself, wherever it was: what it hides and one control that stays.
    add("TreeView1(1)", "stock tab");
    add("Listview1", "stock tab");
    add("TreeView1(0)", "recipes tab");
    add("line", "recipes tab");
    add("title", "list tab");
    add("TreeView1(0)", "list tab");
    add("row editor", "recipe tab");
    add("Text1", "recipe tab");
}

void tst_view_focus::no_change_of_view_leaves_the_keyboard_in_a_hidden_control()
{
    QFETCH(QString, control);
    QFETCH(QString, change);
    Window w;
    w.open();
    const bool list = control == QLatin1String("Listview1") || control == QLatin1String("row editor");
    if (control.startsWith(QLatin1String("TreeView1")))
        w.click_tab(0, control == QLatin1String("TreeView1(1)") ? 1 : 0);
    else if (!list)
        w.click_recipe_tab();
    if (list) {
        w.click_row(1);
        if (control == QLatin1String("row editor"))
            w.focus(w.control(QStringLiteral("qty_brdr")));
        QVERIFY(w.main().row_editor().is_open());
    } else if (control == QLatin1String("line")) {
        QTest::mouseClick(w.page().lines().front().ingred, Qt::LeftButton);
        QVERIFY(w.page().editor_open());
    } else {
        w.control(control).setFocus();
        QVERIFY(w.control(control).hasFocus());
    }

    const QStringList tab_names{QStringLiteral("stock tab"), QStringLiteral("recipes tab"),
                                QStringLiteral("list tab"), QStringLiteral("recipe tab")};
    const auto tab = static_cast<int>(tab_names.indexOf(change));
    if (tab >= 0)
        w.click_tab(tab / 2, tab % 2);
    else
        w.trigger(change);

    QVERIFY(w.keyboard_is_on_show());
}

void tst_view_focus::tab_keys_move_nothing_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<Qt::Key>("key");
    for (const char* control : {"TreeView1(0)", "TreeView1(1)", "TabStrip1(0)", "Frame1", "title", "Listview1",
                                "desc_brdr", "qty_brdr", "aisle_brdr", "dp_brdr"}) {
        QTest::addRow("%s, Tab", control) << QString::fromLatin1(control) << Qt::Key_Tab;
        QTest::addRow("%s, Backtab", control) << QString::fromLatin1(control) << Qt::Key_Backtab;
    }
}

void tst_view_focus::tab_keys_move_nothing()
{
    QFETCH(QString, control);
    QFETCH(Qt::Key, key);
    Window w;
    for (const char* group : {"cpn", "aisle"})
        w.set_pref(QLatin1String(group), QStringLiteral("1"));
    Query(w.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-03-20'").run();
    w.open();
    w.click_milk();
    if (control == QLatin1String("title"))
        w.click_recipe_tab();
    else if (control == QLatin1String("TreeView1(1)"))
        w.click_tab(0, 1);
    else if (control == QLatin1String("Listview1") || control.endsWith(QLatin1String("brdr")))
        w.click_row(0);
    const bool row_open = w.main().row_editor().is_open();
    w.control(control).setFocus();
    QWidget* const focus = QApplication::focusWidget();
    QCOMPARE(focus, &w.control(control));
    const int row = w.grid().current_row();
    const GridColumn column = w.grid().current_col();
    const QString title = w.title().text();
    const QTreeWidgetItem* chosen = w.main().visible_tree().selected();

    w.key(key);

    QCOMPARE(QApplication::focusWidget(), focus);
    QCOMPARE(w.grid().current_row(), row);
    QCOMPARE(w.grid().current_col(), column);
    QCOMPARE(w.main().row_editor().is_open(), row_open);
    QCOMPARE(w.main().visible_tree().selected(), chosen);
    QCOMPARE(w.title().text(), title);
    QVERIFY(!w.edited());
}

void tst_view_focus::delete_after_the_recipe_tab_removes_no_row()
{
    Window w;
    w.open();
    w.click_row(1);
    w.grid().setFocus();
    w.click_recipe_tab();
    QVERIFY(!w.main().shared.list_pane_shown);
    w.key(Qt::Key_Delete);
    w.key(Qt::Key_Down);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 2);
    QCOMPARE(w.grid().rows().rows(), 2);
    QVERIFY(!w.main().row_editor().is_open());
}

void tst_view_focus::the_grid_takes_no_keys_while_the_page_is_shown()
{
    Window w;
    w.open();
    w.click_row(1);
    w.click_recipe_tab();
    QTest::keyClick(&w.grid(), Qt::Key_Delete);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 2);
}

void tst_view_focus::letters_after_a_change_to_the_list_do_not_reach_the_recipe()
{
    Window w;
    w.open();
    w.click_recipe_tab();
    for (QWidget* box : {static_cast<QWidget*>(&w.Text1()), static_cast<QWidget*>(&w.title())}) {
        w.focus(*box);
        w.trigger(QStringLiteral("mnu_view_shoplist"));
        QVERIFY(w.main().shared.list_pane_shown);
        w.type(QStringLiteral("abc"));
        QVERIFY(!w.edited());
        w.trigger(QStringLiteral("mnu_view_rcpepages"));
        QCOMPARE(w.Text1().text(), QStringLiteral("Bake."));
        QCOMPARE(w.title().text(), QStringLiteral("Pie"));
    }
    QCOMPARE(w.text("SELECT r_name || ': ' || r_body FROM recipe_1"), QStringLiteral("Pie: Bake."));
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 2);
}

void tst_view_focus::a_clicked_tab_gives_the_keyboard_to_its_pane_data()
{
    QTest::addColumn<int>("strip");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("keyboard");
    QTest::newRow("stock, in front") << 0 << 0 << QStringLiteral("TreeView1(0)");
    QTest::newRow("recipes") << 0 << 1 << QStringLiteral("TreeView1(1)");
    QTest::newRow("list, in front") << 1 << 0 << QStringLiteral("Listview1");
    QTest::newRow("recipe") << 1 << 1 << QStringLiteral("ingred(0)");
}

void tst_view_focus::a_clicked_tab_gives_the_keyboard_to_its_pane()
{
    QFETCH(int, strip);
    QFETCH(int, tab);
    QFETCH(QString, keyboard);
    Window w;
    w.open();
    (strip == 0 ? static_cast<QWidget&>(w.grid()) : w.stock()).setFocus();
    w.click_tab(strip, tab);
    QCOMPARE(w.tabs(strip).currentIndex(), tab);
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), keyboard);
}

void tst_view_focus::a_tree_that_takes_the_place_of_another_takes_its_keyboard()
{
    Window w;
    w.open();
    w.click_milk();
    QVERIFY(w.stock().hasFocus());
    w.trigger(QStringLiteral("mnu_view_rcp"));
    QVERIFY(w.tree().hasFocus());
    w.trigger(QStringLiteral("mnu_view_stock"));
    QVERIFY(w.stock().hasFocus());
    w.trigger(QStringLiteral("mnu_view_rcpepages"));
    QVERIFY(w.stock().hasFocus());
}

void tst_view_focus::a_tab_click_with_an_empty_name_gives_the_message_and_changes_nothing_data()
{
    QTest::addColumn<int>("strip");
    QTest::addColumn<int>("tab");
    QTest::newRow("stock") << 0 << 0;
    QTest::newRow("recipes") << 0 << 1;
    QTest::newRow("list") << 1 << 0;
    QTest::newRow("recipe, in front") << 1 << 1;
}

void tst_view_focus::a_tab_click_with_an_empty_name_gives_the_message_and_changes_nothing()
{
    QFETCH(int, strip);
    QFETCH(int, tab);
    Window w;
    w.open();
    w.click_recipe_tab();
    w.empty_title();
    w.set_pref(QStringLiteral("lv_view"), QStringLiteral("untouched"));
    w.set_pref(QStringLiteral("tv_view"), QStringLiteral("untouched"));
    {
        MessageScript script;
        script.expect(QStringLiteral("Recipe name"),
                      QStringLiteral("Recipe must have a name\n(Cannot leave it blank)"), Answer::ok,
                      [&w](QDialog&) { QVERIFY(w.main().updatesEnabled()); });
        w.click_tab(strip, tab);
        QTRY_COMPARE(script.left(), 0);
    }
    QVERIFY(w.main().shared.stock_view);
    QVERIFY(!w.main().shared.list_pane_shown);
    QCOMPARE(w.tabs(0).currentIndex(), 0);
    QCOMPARE(w.tabs(1).currentIndex(), 1);
    QVERIFY(w.title().isVisible());
    QCOMPARE(w.title().text(), QStringLiteral("Recipe"));
    QCOMPARE(w.pref(QStringLiteral("lv_view")), QStringLiteral("untouched"));
    QCOMPARE(w.pref(QStringLiteral("tv_view")), QStringLiteral("untouched"));
    w.main().activateWindow();
    QTRY_VERIFY(w.title().hasFocus());

    w.click_tab(strip, tab);
    QCOMPARE(w.tabs(strip).currentIndex(), tab);
    QCOMPARE(w.main().shared.stock_view, strip == 1 || tab == 0);
    QCOMPARE(w.main().shared.list_pane_shown, strip == 1 && tab == 0);
    QCOMPARE(w.text("SELECT r_name FROM recipe_1"), QStringLiteral("Recipe"));
}

void tst_view_focus::a_tab_click_leaves_a_changed_name_by_its_rules()
{
    Window w;
    w.open();
    w.click_recipe_tab();
    w.focus(w.title());
    QTest::keyClick(&w.title(), Qt::Key_End);
    QTest::keyClicks(&w.title(), QStringLiteral("s"));
    w.click_list_tab();
    QVERIFY(w.main().shared.list_pane_shown);
    QVERIFY(!w.edited());
    QCOMPARE(w.text("SELECT r_name FROM recipe_1"), QStringLiteral("Pies"));
}

void tst_view_focus::a_menu_choice_stores_an_empty_name_unchecked()
{
    Window w;
    w.open();
    w.click_recipe_tab();
    w.empty_title();
    const MessageScript no_message;
    w.trigger(QStringLiteral("mnu_view_shoplist"));
    QVERIFY(w.main().shared.list_pane_shown);
    QVERIFY(!w.edited());
    QCOMPARE(w.text("SELECT '[' || r_name || ']' FROM recipe_1"), QStringLiteral("[]"));
}

void tst_view_focus::a_tab_click_hides_the_add_button_beside_the_tree()
{
    Window w;
    w.open();
    w.click_milk();
    QVERIFY(w.floating_button(0).isVisible());
    w.click_recipe_tab();
    QVERIFY(!w.floating_button(0).isVisible());
    w.click_milk();
    QVERIFY(w.floating_button(1).isVisible());
    w.click_list_tab();
    QVERIFY(!w.floating_button(1).isVisible());
}

void tst_view_focus::a_tab_click_ends_the_edit_of_a_label()
{
    Window w;
    w.open();
    w.click_milk();
    QTest::keyClick(&w.stock(), Qt::Key_F2);
    QVERIFY(w.stock().findChild<QLineEdit*>());
    w.click_recipe_tab();
    QTRY_VERIFY(!w.stock().findChild<QLineEdit*>());
    QVERIFY(!w.main().shared.list_pane_shown);
    QVERIFY(w.keyboard_is_on_show());
}

void tst_view_focus::a_tab_click_asks_for_the_name_of_a_nameless_new_line()
{
    Window w;
    w.open();
    w.click_recipe_tab();
    w.trigger(QStringLiteral("mnu_recipe_add_ingred"));
    QVERIFY(w.page().editor_open());
    {
        MessageScript script;
        script.expect(QStringLiteral("Ingredient name missing"),
                      QStringLiteral("Please provide a name for your ingredient\n"
                                     "(or hit CANCEL to cancel adding ingredient)"));
        w.click_list_tab();
        QTRY_COMPARE(script.left(), 0);
    }
    QVERIFY(!w.main().shared.list_pane_shown);
    QCOMPARE(w.tabs(1).currentIndex(), 1);
    QVERIFY(w.page().editor_open());
}

QTEST_MAIN(tst_view_focus)
#include "tst_view_focus.moc"
