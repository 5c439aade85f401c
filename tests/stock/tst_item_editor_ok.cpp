#include "stock/item_editor_fixture.h"

#include "widgets/row_editor.h"
#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"
#include "stock/floating_buttons.h"
#include "household/recipe_store.h"
#include "household/status.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QToolButton>

using namespace tarnwick;

namespace {

/// What the main window shows of an item: the list's rows, the row under edit, the node, the page's lines.
QStringList shown_state(frmmain& main, Key item)
{
    QStringList state;
    for (const GridRow& row : main.list_pane().grid().rows().list_rows())
        state << QStringLiteral("%1|%2|%3|%4|%5")
                     .arg(row.groc_key)
                     .arg(row.item, row.desc)
                     .arg(row.light)
                     .arg(row.bold);
    state << QStringLiteral("row editor %1").arg(main.row_editor().edit_row());
    const QTreeWidgetItem* node = main.stock_tree().item_node(item);
    state << node->text(0) << TreeView::tag(node) << QString::number(TreeView::picture(node))
          << TreeView::key(node->parent()) << main.status_panels().text();
    for (const IngredientLine& line : main.recipe_page().lines())
        state << QStringLiteral("%1|%2|%3").arg(line.item_ref).arg(line.tool_tip).arg(line.lite->picture_number());
    return state;
}

} // namespace

/// What OK writes in each mode, and what the main window shows then.
class tst_item_editor_ok : public QObject {
    Q_OBJECT
private slots:
    void new_item_is_written_with_all_its_fields();
    void new_item_with_no_lists_can_still_be_saved();
    void new_item_goes_to_the_ticked_lists();
    void new_item_shows_in_tree_and_status_bar();
    void new_item_on_no_list_offers_the_recipe_button();
    void new_item_without_an_open_recipe_offers_no_recipe_button();
    void new_item_in_the_alphabetic_view_stands_at_root_level();
    void new_item_links_non_stock_lines_of_its_name();
    void renaming_changes_the_list_copies_without_a_question();
    void renaming_turns_own_lines_non_stock_and_links_lines_of_the_new_name();
    void category_change_moves_the_node();
    void unchanged_editor_writes_only_the_status();
    void mode_3_keeps_the_link_of_the_line_through_a_rename();
    void mode_4_links_the_line_and_leaves_its_text();
    void mode_5_links_the_one_line();
    void mode_5_twice_the_same_name_is_refused();
    void recipe_page_shows_light_and_tool_tip();
    void status_stored_and_shown_is_the_computed_one();
    void item_vanished_meanwhile_is_told();
    void failing_write_leaves_nothing_half_done_data();
    void failing_write_leaves_nothing_half_done();
    void read_only_database_raises_the_error();
    void odd_texts_are_stored_as_typed_data();
    void odd_texts_are_stored_as_typed();
    void pasted_line_ends_become_blanks();
};

void tst_item_editor_ok::new_item_is_written_with_all_its_fields()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("  Soap  "));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
        QCOMPARE(int(hands.request().item), 3);
    });
    QCOMPARE(test.window.text(
                 "SELECT key_id || '|' || item || '|' || cat || '|' || status || '|' || to_get || '|' || qty"
                 " || '|' || desc || '|' || modified || '|' || created FROM items_1 WHERE key_id > 2"),
             QStringLiteral("3|Soap|2|5|0|0| |2026-03-14|2026-03-14"));
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_editor_ok::new_item_with_no_lists_can_still_be_saved()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        QVERIFY(!hands.grid().isVisible());
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT count(*) FROM items_1 WHERE item = 'Soap' AND status = 5"), 1);
}

void tst_item_editor_ok::new_item_goes_to_the_ticked_lists()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.click_cell(0, GridColumn::light);
        hands.click_cell(2, GridColumn::light);
        hands.click_cell(2, GridColumn::check);
        hands.type_cell(2, "desc_brdr", QStringLiteral("green"));
        hands.type_cell(2, "qty_brdr", QStringLiteral("4"));
        hands.type_cell(2, "aisle_brdr", QStringLiteral("9"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.list_rows(), QStringLiteral("1: :0: :0:0 / 3:green:4:9:1:0"));
    QCOMPARE(test.window.text("SELECT group_concat(item || modified || created || list || item_id) FROM groc_1"),
             QStringLiteral("Soap2026-03-142026-03-1400,Soap2026-03-142026-03-1400"));
    QCOMPARE(test.count("SELECT count(*) FROM tie WHERE item_id = 3"), 2);
    QCOMPARE(test.count("SELECT status FROM items_1 WHERE key_id = 3"), 7);
}

void tst_item_editor_ok::new_item_shows_in_tree_and_status_bar()
{
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.click_cell(1, GridColumn::light);
        hands.press_ok();
    });
    QTreeWidgetItem* node = main.stock_tree().item_node(3);
    QVERIFY(node);
    QCOMPARE(node->text(0), QStringLiteral("Soap"));
    QCOMPARE(TreeView::key(node), QStringLiteral("item0003"));
    QCOMPARE(TreeView::key(node->parent()), QStringLiteral("cat0002"));
    QCOMPARE(TreeView::picture(node), 6);
    QCOMPARE(TreeView::tag(node), QStringLiteral("6"));
    QCOMPARE(main.stock_tree().view().selected(), node);
    QCOMPARE(main.status_panels().text(), QStringLiteral("Inactive On Market list :: Bakery category"));
    QVERIFY(!main.floating_buttons().button(1).isVisible());
}

void tst_item_editor_ok::new_item_on_no_list_offers_the_recipe_button()
{
    EditorCase test;
    test.add_lists();
    test.window.set_pref(
        QStringLiteral("arcp"),
        QString::number(insert_recipe(test.window.db(), QStringLiteral("Soup"), QStringLiteral("11"))));
    frmmain& main = test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(main.status_panels().text(), QStringLiteral("Not listed :: Bakery category"));
    QVERIFY(main.floating_buttons().button(1).isVisible());
    QCOMPARE(main.floating_buttons().button(1).toolTip(), QStringLiteral("Add Soap to recipe"));
}

void tst_item_editor_ok::new_item_without_an_open_recipe_offers_no_recipe_button()
{
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(main.stock_tree().view().selected()->text(0), QStringLiteral("Soap"));
    QVERIFY(!main.floating_buttons().button(1).isVisible());
}

void tst_item_editor_ok::new_item_in_the_alphabetic_view_stands_at_root_level()
{
    EditorCase test;
    test.window.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    frmmain& main = test.window.load();
    QVERIFY(main.shared.stock_alpha);
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Cream"));
        hands.choose_category(QStringLiteral("Dairy"));
        hands.press_ok();
    });
    QTreeWidgetItem* node = main.stock_tree().item_node(3);
    QVERIFY(node);
    QVERIFY(!node->parent());
    QCOMPARE(main.stock_tree().view().indexOfTopLevelItem(node), 1); // Bread, Cream, Milk
}

void tst_item_editor_ok::new_item_links_non_stock_lines_of_its_name()
{
    EditorCase test;
    test.add_line(QStringLiteral("SOAP"), -1);
    test.add_line(QStringLiteral("Soap"), test.milk);
    test.add_line(QStringLiteral("Soap dish"), -1);
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(test.line_links(), QStringLiteral("3,1,-1"));
    QCOMPARE(test.window.text("SELECT item FROM recipe_2 WHERE key_id = 1"), QStringLiteral("SOAP"));
}

void tst_item_editor_ok::renaming_changes_the_list_copies_without_a_question()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    test.window.add_row(test.milk, test.market, true);
    test.window.add_row(test.bread, test.market, true);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral(" Cream "));
        hands.press_ok(); // any question would be an unexpected dialog
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Cream,Cream,Bread"));
    QCOMPARE(test.window.text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Cream,Bread"));
    QCOMPARE(main.stock_tree().item_node(test.milk)->text(0), QStringLiteral("Cream"));
    const GridModel& shown = main.list_pane().grid().rows();
    QStringList names;
    for (int row = 0; row < shown.rows(); ++row)
        names << shown.row(row).item;
    QCOMPARE(names, QStringList({QStringLiteral("Bread"), QStringLiteral("Cream")}));
}

void tst_item_editor_ok::renaming_turns_own_lines_non_stock_and_links_lines_of_the_new_name()
{
    EditorCase test;
    test.add_line(QStringLiteral("Milk"), test.milk);
    test.add_line(QStringLiteral("cream"), -1);
    test.add_line(QStringLiteral("cream"), test.bread);
    test.add_line(QStringLiteral("salt"), -1);
    test.add_line(QStringLiteral("Cream"), test.milk); // loses its link and finds it again by its text
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Cream"));
        hands.press_ok();
    });
    QCOMPARE(test.line_links(), QStringLiteral("-1,1,2,-1,1"));
    QCOMPARE(test.window.text("SELECT item FROM recipe_2 WHERE key_id = 1"), QStringLiteral("Milk"));
}

void tst_item_editor_ok::category_change_moves_the_node()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    frmmain& main = test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE key_id = 1"), int(test.bakery));
    QTreeWidgetItem* node = main.stock_tree().item_node(test.milk);
    QVERIFY(node);
    QCOMPARE(TreeView::key(node->parent()), QStringLiteral("cat0002"));
    QCOMPARE(TreeView::picture(node), 7);
    QCOMPARE(TreeView::tag(node), QStringLiteral("7"));
    QCOMPARE(main.stock_tree().view().selected(), node);
    QCOMPARE(main.status_panels().text(), QStringLiteral("Active On Weekly list :: Bakery category"));
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.choose_category(QStringLiteral("[OTHER]")); // an item that exists is moved without the question
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE key_id = 1"), 0);
}

void tst_item_editor_ok::unchanged_editor_writes_only_the_status()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"), QString(), QStringLiteral("1"));
    test.add_line(QStringLiteral("Milk"), -1);
    Query(test.window.db(), "UPDATE items_1 SET status = 8, modified = '2020-01-01'").run();
    test.window.load();
    choose_list(test.window, test.weekly);
    for (const int mode : {1, 2, 3, 4}) {
        test.open(mode, test.milk, [&](EditorHands& hands) {
            if (mode == 1)
                hands.messages.expect(QStringLiteral("Add to list"),
                                      QStringLiteral("Milk was not added to any list"));
            hands.press_ok();
            QCOMPARE(hands.messages.left(), 0);
            QVERIFY(!hands.dialog.isVisible());
        });
        QCOMPARE(test.window.text("SELECT desc || '|' || qty || '|' || aisle || '|' || to_get FROM groc_1"),
                 QStringLiteral("cold||1|1"));
        QCOMPARE(test.window.text("SELECT group_concat(item || cat || modified || status) FROM items_1"),
                 QStringLiteral("Milk12020-01-017,Bread22020-01-018"));
        QCOMPARE(test.line_links(), QStringLiteral("-1"));
    }
}

void tst_item_editor_ok::mode_3_keeps_the_link_of_the_line_through_a_rename()
{
    EditorCase test;
    const Key line = test.add_line(QStringLiteral("Milk"), test.milk);
    test.add_line(QStringLiteral("Milk"), test.milk, 2);
    test.window.load();
    test.open(
        3, test.milk,
        [&](EditorHands& hands) {
            hands.type_name(QStringLiteral("Cream"));
            hands.press_ok();
        },
        line);
    QCOMPARE(test.line_links(), QStringLiteral("1,-1"));
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Cream"));
}

void tst_item_editor_ok::mode_4_links_the_line_and_leaves_its_text()
{
    EditorCase test;
    test.add_lists();
    const Key line = test.add_line(QStringLiteral("Warm milk"), -1);
    frmmain& main = test.window.load();
    test.open(
        4, test.milk,
        [&](EditorHands& hands) {
            hands.click_cell(0, GridColumn::light);
            hands.press_ok();
            QVERIFY(!hands.dialog.isVisible());
        },
        line);
    QCOMPARE(test.line_links(), QStringLiteral("1"));
    QCOMPARE(test.window.text("SELECT item FROM recipe_2"), QStringLiteral("Warm milk"));
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Milk"));
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE key_id = 1"), int(test.dairy));
    QCOMPARE(main.stock_tree().item_node(test.milk)->text(0), QStringLiteral("Milk"));
    QCOMPARE(test.count("SELECT count(*) FROM tie WHERE item_id = 1 AND list = 1"), 1);
}

void tst_item_editor_ok::mode_5_links_the_one_line()
{
    EditorCase test;
    test.add_lists();
    const Key line = test.add_line(QStringLiteral("Salt"), -1);
    test.add_line(QStringLiteral("Salt"), -1, 2);
    frmmain& main = test.window.load();
    test.open(
        5, -1,
        [&](EditorHands& hands) {
            hands.choose_category(QStringLiteral("Bakery"));
            hands.click_cell(1, GridColumn::light);
            hands.click_cell(1, GridColumn::check);
            hands.press_ok();
            QVERIFY(!hands.dialog.isVisible());
        },
        line);
    QCOMPARE(test.window.text("SELECT item || cat || status FROM items_1 WHERE key_id = 3"),
             QStringLiteral("Salt27"));
    QCOMPARE(test.line_links(), QStringLiteral("3,-1"));
    QCOMPARE(test.list_rows(), QStringLiteral("2: :0: :1:0"));
    QCOMPARE(main.status_panels().text(), QStringLiteral("Active On Market list :: Bakery category"));
}

void tst_item_editor_ok::mode_5_twice_the_same_name_is_refused()
{
    EditorCase test;
    const Key line = test.add_line(QStringLiteral("MILK"), -1);
    test.window.load();
    test.open(
        5, -1,
        [&](EditorHands& hands) {
            hands.messages.expect(
                QStringLiteral("Duplicate stock item name"),
                QStringLiteral("Stock item MILK already exists -\nYou can't create two stock\nitems with the same "
                               "name\nTIP: To change the name of an\n       ingredient to 'MILK' hit CANCEL\n"
                               "       then edit the ingredient directly."));
            hands.press_ok();
            QVERIFY(hands.dialog.isVisible());
            QCOMPARE(hands.name().text(), QString());
        },
        line);
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
}

void tst_item_editor_ok::recipe_page_shows_light_and_tool_tip()
{
    EditorCase test;
    test.add_lists();
    Query(test.window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', ' ', '11')")
        .run();
    test.add_line(QStringLiteral("Warm milk"), test.milk);
    const Key salt = test.add_line(QStringLiteral("Salt"), -1);
    test.add_line(QStringLiteral("soap"), -1);
    Query(test.window.db(), "UPDATE recipe_2 SET \"order\" = key_id").run();
    test.window.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    test.window.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    frmmain& main = test.window.load();
    RecipePage& page = main.recipe_page();
    QCOMPARE(page.recipe_lines().count(), 3);
    const auto light
        = [&](int index) { return page.lines()[size_t(index)].lite->picture_number() - main.shared.color_index; };
    const auto tool_tip = [&](int index) { return page.lines()[size_t(index)].tool_tip; };
    const auto item_ref = [&](int index) { return int(page.lines()[size_t(index)].item_ref); };

    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(0, GridColumn::light);
        hands.press_ok();
    });
    QCOMPARE(tool_tip(0), QStringLiteral("Warm milk - Inactive On Weekly list :: Dairy category"));
    QCOMPARE(light(0), picture_base::light_off);
    QCOMPARE(light(1), picture_base::light_non_stock);
    QCOMPARE(item_ref(1), -1);

    test.open(
        5, -1,
        [&](EditorHands& hands) {
            hands.choose_category(QStringLiteral("Bakery"));
            hands.press_ok();
        },
        salt);
    QCOMPARE(item_ref(1), 3);
    QCOMPARE(tool_tip(1), QStringLiteral("Salt - Not listed :: Bakery category"));
    QCOMPARE(light(1), picture_base::light_unlisted);

    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(item_ref(2), 4);
    QCOMPARE(tool_tip(2), QStringLiteral("soap: Not listed :: Bakery category"));

    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Cream"));
        hands.press_ok();
    });
    QCOMPARE(item_ref(0), -1);
    QCOMPARE(tool_tip(0), QStringLiteral("Non-stock item"));
    QCOMPARE(light(0), picture_base::light_non_stock);
    QCOMPARE(test.line_links(), QStringLiteral("-1,3,4"));
}

void tst_item_editor_ok::status_stored_and_shown_is_the_computed_one()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true);
    test.window.add_row(test.milk, test.market, false);
    frmmain& main = test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(1, GridColumn::check);
        hands.press_ok();
    });
    QCOMPARE(test.count("SELECT status FROM items_1 WHERE key_id = 1"), 8);
    QCOMPARE(TreeView::picture(main.stock_tree().item_node(test.milk)), 8);
    QCOMPARE(main.status_panels().text(),
             QStringLiteral("Active On Weekly list :: Active On Market list :: Dairy category"));
}

void tst_item_editor_ok::item_vanished_meanwhile_is_told()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.click_cell(1, GridColumn::light);
        Query(test.window.db(), "DELETE FROM items_1 WHERE key_id = 1").run();
        hands.messages.expect(QStringLiteral("Warning"), QStringLiteral("Stock item not found"));
        hands.press_ok();
        QCOMPARE(hands.messages.left(), 0);
        QVERIFY(hands.dialog.isVisible());
    });
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_editor_ok::failing_write_leaves_nothing_half_done_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<bool>("trapped");
    QTest::newRow("placing") << QStringLiteral("BEFORE INSERT ON tie") << true;
    QTest::newRow("rewriting") << QStringLiteral("BEFORE UPDATE OF desc ON groc_1") << false;
    QTest::newRow("taking off") << QStringLiteral("BEFORE DELETE ON tie") << false;
    QTest::newRow("renaming") << QStringLiteral("BEFORE UPDATE OF item ON items_1") << false;
    QTest::newRow("linking") << QStringLiteral("BEFORE UPDATE ON recipe_2") << false;
    QTest::newRow("moving") << QStringLiteral("BEFORE UPDATE OF cat ON items_1") << false;
}

void tst_item_editor_ok::failing_write_leaves_nothing_half_done()
{
    QFETCH(QString, failing);
    QFETCH(bool, trapped);
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"));
    test.window.add_row(test.milk, test.market, true);
    test.window.add_row(test.bread, test.market, true);
    Query(test.window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', ' ', '11')")
        .run();
    test.add_line(QStringLiteral("Milk"), test.milk);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    main.recipe_page().set_recipe(1);
    QCOMPARE(main.recipe_page().recipe_lines().count(), 1);
    ListGrid& grid = main.list_pane().grid();
    QCOMPARE(grid.rows().rows(), 2);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      {grid.col_left(GridColumn::desc) + 8, grid.row_height() * 3 / 2});
    QVERIFY(main.row_editor().is_open());
    QCOMPARE(grid.rows().row(1).item, QStringLiteral("Milk"));
    const QStringList shown = shown_state(main, test.milk);
    const QString before = test.list_rows();
    main.connection().db().exec("CREATE TEMP TRIGGER failing " + failing.toStdString()
                                + " BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    bool thrown = false;
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_cell(0, "desc_brdr", QStringLiteral("warm"));
        hands.click_cell(1, GridColumn::light);
        hands.click_cell(2, GridColumn::light);
        hands.type_name(QStringLiteral("Cream"));
        hands.choose_category(QStringLiteral("Bakery"));
        if (trapped)
            hands.messages.expect(QStringLiteral("TarnWick"),
                                  QStringLiteral("TarnWick has encountered an error\nand must shut down"));
        try {
            hands.press_ok();
        } catch (const std::exception&) {
            thrown = true;
        }
    });
    QCOMPARE(thrown, !trapped);
    QCOMPARE(test.window.ends, trapped ? 1 : 0);
    QCOMPARE(test.list_rows(), before);
    QCOMPARE(test.window.text("SELECT group_concat(item || cat) FROM items_1"), QStringLiteral("Milk1,Bread2"));
    QCOMPARE(test.line_links(), QStringLiteral("1"));
    QCOMPARE(test.count("SELECT count(*) FROM tie"), 3);
    QCOMPARE(shown_state(main, test.milk), shown);
    QCOMPARE(main.row_editor().edit_row(), 1);
}

void tst_item_editor_ok::read_only_database_raises_the_error()
{
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    main.connection().db().exec("PRAGMA query_only = 1");
    bool thrown = false;
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        try {
            hands.press_ok();
        } catch (const SQLite::Exception&) {
            thrown = true;
        }
    });
    main.connection().db().exec("PRAGMA query_only = 0");
    QVERIFY(thrown);
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
    QVERIFY(!main.stock_tree().item_node(3));
}

void tst_item_editor_ok::odd_texts_are_stored_as_typed_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes") << QStringLiteral("a \"b\" `c`; DROP TABLE cat --");
    QTest::newRow("patterns") << QStringLiteral("100% fat_free");
    QTest::newRow("emoji") << QStringLiteral("🥛 crème 牛奶");
    QTest::newRow("10,000 characters") << QString(10000, u'x');
    QTest::newRow("markup") << QStringLiteral("<b>bold</b> &amp;");
}

void tst_item_editor_ok::odd_texts_are_stored_as_typed()
{
    QFETCH(QString, text);
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.name().setText(text);
        hands.choose_category(QStringLiteral("Bakery"));
        hands.click_cell(0, GridColumn::light);
        hands.click_cell(0, GridColumn::desc);
        for (const char* editor : {"desc_brdr", "qty_brdr", "aisle_brdr"})
            hands.dialog.findChild<QLineEdit*>(QLatin1String(editor))->setText(text);
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 3"), text);
    QCOMPARE(test.window.text("SELECT desc FROM groc_1"), text);
    QCOMPARE(test.window.text("SELECT qty FROM groc_1"), text);
    QCOMPARE(test.window.text("SELECT aisle FROM groc_1"), text);
    QCOMPARE(main.stock_tree().item_node(3)->text(0), text);
}

void tst_item_editor_ok::pasted_line_ends_become_blanks()
{
    EditorCase test;
    test.window.load();
    test.open(0, -1, [&](EditorHands& hands) {
        hands.name().insert(QStringLiteral("Olive\noil"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
    });
    QCOMPARE(test.window.text("SELECT item FROM items_1 WHERE key_id = 3"), QStringLiteral("Olive oil"));
}

QTEST_MAIN(tst_item_editor_ok)
#include "tst_item_editor_ok.moc"
