#include "recipes/line_stock.h"
#include "recipes/recipe_fixture.h"

#include "household/household.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "recipes/page_geometry.h"
#include "household/status.h"
#include "window/view_state.h"
#include "support/edit_request.h"
#include "support/shown_things.h"
#include "support/table_dump.h"

#include <QDialog>
#include <QTabBar>

using namespace tarnwick;

namespace {

/// A recipe with one line on a stock item that stands on two lists, and one line without stock.
class CheckWindow : public RecipeWindow {
public:
    explicit CheckWindow(bool first = false, bool second = false)
    {
        item = add_item(QStringLiteral("Sea Salt"), 0);
        list = add_list(QStringLiteral("Weekly"));
        row = add_row(item, list, first);
        if (second)
            add_row(item, add_list(QStringLiteral("Party")), true);
        recipe = add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
        line = add_line(recipe, QStringLiteral("Sea Salt"), item);
        plain = add_line(recipe, QStringLiteral("Spring water"));
        set_pref(QStringLiteral("arcp"), QString::number(recipe));
        set_pref(QStringLiteral("alist"), QString::number(list));
    }

    void click_check(int index)
    {
        QTest::mouseClick(&control(QStringLiteral("Check1(%1)").arg(index)), Qt::LeftButton);
    }

    int picture(const char* name, int index)
    {
        return control(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index)).property("picture").toInt()
            - 3;
    }

    GridModel& rows() { return main().list_pane().grid().rows(); }

    /// Brings the shopping list (0) or the page (1) to the front, as a click of the user does.
    void click_tab(int index)
    {
        auto* tabs = find<QTabBar>(QStringLiteral("TabStrip1(1)"));
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
    }

    void click_grid_check(int place)
    {
        ListGrid& grid = main().list_pane().grid();
        const QRect cell = grid.cell_rect(place, GridColumn::check);
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                          grid.viewport()->mapFrom(grid.parentWidget(), cell.center()));
    }

    Key item = 0;
    Key list = 0;
    Key row = 0;
    Key recipe = 0;
    Key line = 0;
    Key plain = 0;
};

} // namespace

class tst_recipe_check : public QObject {
    Q_OBJECT

private slots:
    void check_pictures_follow_the_status_data();
    void check_pictures_follow_the_status();
    void a_greyed_check_has_no_effect();
    void a_check_box_acts_on_a_whole_left_click_alone();
    void checking_an_inactive_line_marks_it_on_all_lists();
    void clearing_a_check_clears_it();
    void a_check_changes_the_row_of_the_list_on_show();
    void a_check_leaves_the_grid_when_the_first_row_is_on_another_list();
    void a_check_changes_the_first_row_of_all_lists_on_show();
    void a_check_shows_the_item_in_its_closed_folder();
    void a_check_names_the_status_in_the_tool_tip_of_the_panel();
    void a_greyed_check_is_enabled_again_when_one_list_wants_the_item();
    void checking_a_stock_line_on_no_list_opens_the_editor();
    void checking_a_non_stock_line_opens_the_editor_in_its_adding_mode();
    void clearing_a_non_stock_line_does_nothing();
    void checking_a_vanished_line_does_nothing();
    void refreshing_leaves_the_marks();
    void lines_of_an_item_follow_its_status();
    void a_check_shows_on_every_line_of_its_item();
    void unlinked_and_linked_lines_change_their_kind();
    void type_size_places_the_lines_anew();
    void text_is_readable_on_every_page_colour();
    void an_unknown_colour_leaves_the_page_readable();
};

void tst_recipe_check::check_pictures_follow_the_status_data()
{
    QTest::addColumn<QByteArray>("change");
    QTest::addColumn<int>("lite");
    QTest::addColumn<int>("check");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("unlisted") << QByteArray("DELETE FROM tie") << 175 << 113 << true;
    QTest::newRow("inactive") << QByteArray("UPDATE groc_1 SET to_get = 0") << 183 << 113 << true;
    QTest::newRow("buy it") << QByteArray("UPDATE groc_1 SET to_get = key_id = 1") << 179 << 122 << true;
    QTest::newRow("buy it on several") << QByteArray("UPDATE groc_1 SET to_get = 1") << 179 << 130 << false;
    QTest::newRow("non-stock") << QByteArray("UPDATE recipe_2 SET item_ref = -1") << 171 << 113 << true;
}

void tst_recipe_check::check_pictures_follow_the_status()
{
    QFETCH(QByteArray, change);
    QFETCH(int, lite);
    QFETCH(int, check);
    QFETCH(bool, enabled);
    CheckWindow window(true, true);
    window.db().db().exec(change.toStdString());
    window.load();
    QCOMPARE(window.picture("lite", 0), lite);
    QCOMPARE(window.picture("Check1", 0), check);
    QCOMPARE(window.control(QStringLiteral("Check1(0)")).isEnabled(), enabled);
    window.main().household().tick(window.row, window.list, false);
    QVERIFY(window.control(QStringLiteral("Check1(0)")).isEnabled());
}

void tst_recipe_check::a_check_box_acts_on_a_whole_left_click_alone()
{
    CheckWindow window;
    window.load();
    QWidget& check = window.control(QStringLiteral("Check1(0)"));
    const QPoint inside = check.rect().center();
    const QPoint outside = check.rect().bottomRight() + QPoint(9, 9);
    QTest::mouseClick(&check, Qt::RightButton, {}, inside);
    QTest::mouseClick(&check, Qt::MiddleButton, {}, inside);
    QTest::mousePress(&check, Qt::LeftButton, {}, inside);
    QTest::mouseRelease(&check, Qt::LeftButton, {}, outside);
    QTest::mouseRelease(&check, Qt::LeftButton, {}, inside);
    QCOMPARE(window.number("SELECT to_get FROM groc_1"), 0);
    QTest::mouseClick(&check, Qt::LeftButton, {}, inside);
    QCOMPARE(window.number("SELECT to_get FROM groc_1"), 1);
}

void tst_recipe_check::a_greyed_check_has_no_effect()
{
    CheckWindow window(true, true);
    window.load();
    QCOMPARE(window.picture("Check1", 0), picture_base::check_plus);
    const MessageScript no_dialog;
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(window.picture("Check1", 0), picture_base::check_plus);
}

void tst_recipe_check::checking_an_inactive_line_marks_it_on_all_lists()
{
    CheckWindow window;
    window.add_row(window.item, window.add_list(QStringLiteral("Party")), false);
    window.load();
    QCOMPARE(window.picture("lite", 0), picture_base::light_off);
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(window.number("SELECT status FROM items_1"), 8);
    QCOMPARE(window.picture("lite", 0), picture_base::light_on);
    QCOMPARE(window.picture("Check1", 0), picture_base::check_on);
    const QString words = get_status(window.db(), window.item);
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(), words);
    QCOMPARE(status_text(window.main()), words);
    QTreeWidgetItem* node = window.main().stock_tree().item_node(window.item);
    QCOMPARE(TreeView::picture(node), 8);
    QCOMPARE(window.page().rcp_item_in_work(), QStringLiteral("Sea Salt"));
    QCOMPARE(window.page().state.sel_line, 0);
}

void tst_recipe_check::clearing_a_check_clears_it()
{
    CheckWindow window(true);
    window.load();
    QCOMPARE(window.picture("Check1", 0), picture_base::check_on);
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 0);
    QCOMPARE(window.number("SELECT status FROM items_1"), 6);
    QCOMPARE(window.picture("lite", 0), picture_base::light_off);
    QCOMPARE(window.picture("Check1", 0), picture_base::check_off);
}

void tst_recipe_check::a_check_changes_the_row_of_the_list_on_show()
{
    CheckWindow window;
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    window.find<QTabBar>(QStringLiteral("TabStrip1(1)"))->setCurrentIndex(1);
    GridModel& rows = window.main().list_pane().grid().rows();
    QCOMPARE(rows.rows(), 1);
    QVERIFY(!rows.row(0).to_get);
    window.click_check(0);
    QVERIFY(rows.row(0).to_get);
    QCOMPARE(rows.row(0).light, picture_base::light_on);
    QCOMPARE(rows.row(0).check, picture_base::check_on);
}

void tst_recipe_check::a_check_leaves_the_grid_when_the_first_row_is_on_another_list()
{
    CheckWindow window;
    const Key party = window.add_list(QStringLiteral("Party"));
    const Key second = window.add_row(window.item, party, false);
    window.set_pref(QStringLiteral("alist"), QString::number(party));
    window.load();
    QCOMPARE(window.rows().rows(), 1);
    QCOMPARE(window.rows().row(0).groc_key, second);
    const GridRow before = window.rows().row(0);
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(window.rows().row(0).to_get, before.to_get);
    QCOMPARE(window.rows().row(0).light, before.light);
    QCOMPARE(window.rows().row(0).check, before.check);
}

void tst_recipe_check::a_check_changes_the_first_row_of_all_lists_on_show()
{
    CheckWindow window;
    const Key second = window.add_row(window.item, window.add_list(QStringLiteral("Party")), false);
    window.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    window.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    window.load();
    QVERIFY(window.main().shared.all_lists_view);
    QCOMPARE(window.rows().rows(), 2);
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 2);
    for (int i = 0; i < 2; ++i) {
        const GridRow& row = window.rows().row(i);
        QVERIFY(row.groc_key == window.row || row.groc_key == second);
        QCOMPARE(row.to_get, row.groc_key == window.row);
        QCOMPARE(row.light, row.groc_key == window.row ? picture_base::light_on : picture_base::light_off);
        QCOMPARE(row.check, row.groc_key == window.row ? picture_base::check_on : picture_base::check_off);
    }
}

void tst_recipe_check::a_check_shows_the_item_in_its_closed_folder()
{
    CheckWindow window;
    window.load();
    StockTree& stock = window.main().stock_tree();
    const QTreeWidgetItem* folder = stock.item_node(window.item)->parent();
    QVERIFY(folder && !folder->isExpanded());
    window.click_check(0);
    QVERIFY(folder->isExpanded());
}

void tst_recipe_check::a_check_names_the_status_in_the_tool_tip_of_the_panel()
{
    CheckWindow window;
    window.load();
    window.click_check(0);
    QCOMPARE(window.control(QStringLiteral("StatusBar1(1)")).toolTip(), get_status(window.db(), window.item));
    QVERIFY(!get_status(window.db(), window.item).isEmpty());
}

void tst_recipe_check::a_greyed_check_is_enabled_again_when_one_list_wants_the_item()
{
    CheckWindow window(true, true);
    window.load();
    QWidget& check = window.control(QStringLiteral("Check1(0)"));
    QCOMPARE(window.picture("Check1", 0), picture_base::check_plus);
    QVERIFY(!check.isEnabled());
    window.click_tab(0);
    QVERIFY(window.rows().row(0).to_get);
    window.click_grid_check(0);
    QVERIFY(!window.rows().row(0).to_get);
    window.click_tab(1);
    QVERIFY(check.isVisible());
    QVERIFY(check.isEnabled());
    QCOMPARE(window.picture("Check1", 0), picture_base::check_on);
    QCOMPARE(window.picture("lite", 0), picture_base::light_on);
    window.click_check(0);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 0);
    QCOMPARE(window.picture("Check1", 0), picture_base::check_off);
}

void tst_recipe_check::checking_a_stock_line_on_no_list_opens_the_editor()
{
    CheckWindow window;
    Query(window.db(), "DELETE FROM tie").run();
    Query(window.db(), "DELETE FROM groc_1").run();
    window.add_row(window.add_item(QStringLiteral("Oil"), 0, 6), window.list, false);
    window.add_row(window.add_item(QStringLiteral("Rice"), 0, 7), window.list, true);
    window.load();
    const QStringList before = table_dump(window.db());
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        const EditRequest& request = request_of(dialog);
        QCOMPARE(request.mode, EditMode::recipe_item);
        QCOMPARE(request.item, window.item);
        QCOMPARE(request.row, Key{-1});
        QCOMPARE(request.line, window.line);
        dialog.reject();
    });
    window.click_check(0);
    QCOMPARE(script.left(), 0);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_recipe_check::checking_a_non_stock_line_opens_the_editor_in_its_adding_mode()
{
    CheckWindow window;
    window.load();
    QVERIFY(window.control(QStringLiteral("Check1(1)")).isEnabled());
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        const EditRequest& request = request_of(dialog);
        QCOMPARE(request.mode, EditMode::non_stock_to_stock);
        QCOMPARE(request.name, QStringLiteral("Spring water"));
        QCOMPARE(window.page().rcp_item_in_work(), QStringLiteral("Spring water"));
        QCOMPARE(request.line, window.plain);
        dialog.reject();
    });
    window.click_check(1);
    QCOMPARE(script.left(), 0);
    QCOMPARE(window.number("SELECT count(*) FROM items_1"), 1);
}

void tst_recipe_check::clearing_a_non_stock_line_does_nothing()
{
    CheckWindow window;
    window.load();
    window.page().state.cur_line = 1;
    const MessageScript no_dialog;
    window.page().line_stock().recipe_chck(0, window.plain);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 0);
}

void tst_recipe_check::checking_a_vanished_line_does_nothing()
{
    CheckWindow window;
    window.load();
    Query(window.db(), "DELETE FROM recipe_2").run();
    const MessageScript no_dialog;
    window.click_check(0);
    window.click_check(1);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 0);
}

void tst_recipe_check::refreshing_leaves_the_marks()
{
    CheckWindow window(true, true);
    Query(window.db(), "UPDATE items_1 SET status = 8").run();
    Query(window.db(), "UPDATE cat SET expand = 1").run();
    window.load();
    const QStringList before = table_dump(window.db());
    window.page().line_stock().recipe_chck(2, window.line);
    QCOMPARE(window.number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_recipe_check::lines_of_an_item_follow_its_status()
{
    CheckWindow window;
    window.load();
    QVERIFY(window.page().shows_item(window.item));
    QVERIFY(!window.page().shows_item(window.item + 1));
    QVERIFY(!window.page().shows_item(-1));
    window.main().household().tick(window.row, window.list, true);
    QCOMPARE(window.picture("lite", 0), picture_base::light_on);
    QCOMPARE(window.picture("lite", 1), picture_base::light_non_stock);
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(), get_ttt(window.db(), window.item));
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).toolTip(), QStringLiteral("Non-stock item"));
}

void tst_recipe_check::a_check_shows_on_every_line_of_its_item()
{
    CheckWindow window;
    window.add_line(window.recipe, QStringLiteral("More salt"), window.item);
    window.load();
    for (const bool wanted : {true, false}) {
        window.click_check(wanted ? 2 : 0);
        QCOMPARE(window.number("SELECT to_get FROM groc_1"), wanted ? 1 : 0);
        for (const char* picture : {"lite", "Check1"})
            QCOMPARE(window.picture(picture, 2), window.picture(picture, 0));
        QCOMPARE(window.picture("lite", 0), wanted ? picture_base::light_on : picture_base::light_off);
        const QString words = get_status(window.db(), window.item);
        for (const char* line : {"ingred(0)", "ingred(2)"})
            QVERIFY2(window.control(QLatin1String(line)).toolTip().endsWith(words), line);
    }
}

void tst_recipe_check::unlinked_and_linked_lines_change_their_kind()
{
    CheckWindow window;
    window.load();
    const auto save_as = [&](const QString& name) {
        ItemEdit edit;
        edit.item = window.item;
        edit.name = name;
        edit.renamed = true;
        edit.today = window.date;
        window.main().household().save_item(edit);
    };
    save_as(QStringLiteral("Rock salt"));
    QCOMPARE(window.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
    QCOMPARE(window.picture("lite", 0), picture_base::light_non_stock);
    QCOMPARE(window.control(QStringLiteral("ingred(0)")).toolTip(), QStringLiteral("Non-stock item"));
    save_as(QStringLiteral("Spring water"));
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).toolTip(),
             QStringLiteral("Spring water - ") + get_status(window.db(), window.item));
    QCOMPARE(window.tag(QStringLiteral("Check1(1)")), QString::number(window.item));
    QCOMPARE(window.picture("lite", 1), picture_base::light_off);
    QCOMPARE(window.tag(QStringLiteral("Check1(0)")), QStringLiteral("-1"));
}

void tst_recipe_check::type_size_places_the_lines_anew()
{
    CheckWindow window;
    window.load();
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).y(), 60);
    window.trigger(QStringLiteral("mnu_more_lrg"));
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).y(), 67);
    QCOMPARE(window.control(QStringLiteral("ingred(1)")).font().pointSize(), 12);
    QCOMPARE(window.Text1().font().pointSize(), 12);
    QVERIFY(window.title().font().bold());
    QCOMPARE(window.tag(QStringLiteral("ingred(0)")), QStringLiteral("6^2^Sea Salt"));
}

void tst_recipe_check::text_is_readable_on_every_page_colour()
{
    CheckWindow window;
    window.load();
    for (int index = 0; index < 4; ++index) {
        window.main().view_state().set_color(index);
        for (QWidget* box : {static_cast<QWidget*>(&window.title()), static_cast<QWidget*>(&window.Text1())}) {
            QCOMPARE(box->palette().color(QPalette::Base), *page_color_of(index));
            QCOMPARE(box->palette().color(QPalette::Text), QColor(Qt::black));
        }
        QCOMPARE(window.page().frame4().palette().color(QPalette::Window), *page_color_of(index));
        QCOMPARE(window.page().lines()[0].ingred->text_color(), QColor(Qt::black));
        QCOMPARE(picture_of(*window.page().lines()[0].lite), picture_base::light_off + index);
    }
}

void tst_recipe_check::an_unknown_colour_leaves_the_page_readable()
{
    CheckWindow window;
    window.set_pref(QStringLiteral("color"), QStringLiteral("9"));
    window.load();
    QVERIFY(!window.main().shared.page_color());
    const QPalette colors = window.page().frame4().palette();
    QVERIFY(colors.color(QPalette::Window).lightness() > 200);
    QCOMPARE(colors.color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(picture_of(*window.page().lines()[0].lite), picture_base::light_off + 3);
}

QTEST_MAIN(tst_recipe_check)
#include "tst_recipe_check.moc"
