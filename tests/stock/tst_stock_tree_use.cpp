#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "widgets/row_editor.h"
#include "household/status.h"
#include "household/recipe_store.h"
#include "stock/stock_tree_fixture.h"
#include "support/edit_request.h"
#include "support/message_script.h"

#include <QDialog>
#include <QPushButton>

#include <cstdlib>

using namespace tarnwick;

class tst_stock_tree_use : public StockTreeTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    // the box
    void box_of_an_inactive_item_activates_its_row();
    void box_of_an_active_item_inactivates_it();
    void box_band_is_exact_in_both_views();
    void box_of_an_item_on_two_lists_changes_the_first_row_only();
    void placing_again_restores_the_true_status_after_a_box_click();
    void saving_in_the_editor_restores_the_true_status_after_a_box_click();
    void box_of_an_item_inactive_on_two_lists_opens_the_editor();
    void box_of_an_item_on_several_active_lists_does_nothing();
    void box_of_an_unlisted_item_places_it();

    // the floating buttons
    void unlisted_item_gets_the_add_button();
    void box_and_button_stand_beside_the_name_in_a_narrow_tree();
    void add_button_needs_a_list();
    void listed_item_gets_the_locate_button();
    void recipe_page_gets_the_recipe_button();
    void names_stand_letter_by_letter_in_the_tool_tips_data();
    void names_stand_letter_by_letter_in_the_tool_tips();
    void row_that_is_not_whole_in_view_gets_no_button();
    void click_on_empty_ground_or_a_folder_hides_the_buttons();
    void add_button_places_the_item_and_keeps_the_focus();
    void enter_in_the_tree_closes_the_editor_that_the_add_button_opened();
    void buttons_hide_when_the_focus_moves();
    void buttons_rest_at_their_places_after_a_load();
    void locate_takes_over_the_list_of_the_first_row();

    void locate_marks_the_row_red_in_the_middle_of_the_grid();
    void locate_in_the_all_lists_view_keeps_it();
    void locate_of_an_item_without_rows_hides_the_button();

    // the grid and the recipe page
    void box_click_repaints_the_row_of_the_list_shown();
    void box_click_leaves_the_grid_of_another_list_alone();
    void box_click_repaints_the_line_of_the_recipe_shown();
    void item_on_the_recipe_shown_gets_no_recipe_button();
    void press_on_a_node_closes_the_editor_of_the_grid();

private:
    void load_with_lagging_status();
};

/// Milk is inactive on Party and active on Home; a click on its box wrote and painted 6 all the same.
void tst_stock_tree_use::load_with_lagging_status()
{
    window_->add_row(milk_, party_, false);
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_), box_in_folder);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 6);
    QCOMPARE(TreeView::picture(node(milk_)), 6);
    QCOMPARE(lite_status(window_->db(), milk_), StatusCode::buy_it);
}

void tst_stock_tree_use::box_of_an_inactive_item_activates_its_row()
{
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_), box_in_folder);
    QCOMPARE(TreeView::picture(node(milk_)), 7);
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("7"));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 1);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 7);
    QCOMPARE(status(), QStringLiteral("Active On Home list :: Dairy category"));
    QVERIFY(!button(2).isVisible()); // this click leaves the buttons as they were
}

void tst_stock_tree_use::box_of_an_active_item_inactivates_it()
{
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_), box_in_folder);
    QCOMPARE(TreeView::picture(node(milk_)), 6);
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("6"));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 0);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 6);
    QCOMPARE(status(), QStringLiteral("Inactive On Home list :: Dairy category"));
    QVERIFY(button(2).isVisible());
}

void tst_stock_tree_use::box_band_is_exact_in_both_views()
{
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    const auto hits = [this](int x) {
        const int before = number("SELECT to_get FROM groc_1");
        click(node(milk_), x);
        return number("SELECT to_get FROM groc_1") != before;
    };
    QCOMPARE(tree().x(), 4);
    QVERIFY(!hits(42));
    QVERIFY(hits(43));
    QVERIFY(hits(55));
    QVERIFY(!hits(56));
    trigger(*window_, "mnu_view_sort_alpha");
    QVERIFY(!hits(23));
    QVERIFY(hits(24));
    QVERIFY(hits(37));
    QVERIFY(!hits(38));
}

void tst_stock_tree_use::box_of_an_item_on_two_lists_changes_the_first_row_only()
{
    window_->add_row(milk_, party_, false);
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    QCOMPARE(TreeView::picture(node(milk_)), 7);
    click(node(milk_), box_in_folder);
    QCOMPARE(number("SELECT to_get FROM groc_1 WHERE key_id = 1"), 0);
    QCOMPARE(number("SELECT to_get FROM groc_1 WHERE key_id = 2"), 1);
    QCOMPARE(TreeView::picture(node(milk_)), 6);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 6);
    QCOMPARE(lite_status(window_->db(), milk_), StatusCode::buy_it);
}

void tst_stock_tree_use::placing_again_restores_the_true_status_after_a_box_click()
{
    load_with_lagging_status();
    MessageScript script;
    script.expect(QStringLiteral("Question"),
                  QStringLiteral("There is already an active Milk\n stock item on the Home list -\n\n"
                                 "Do you want to add another?\n\nChoose YES to add another, NO to Cancel:"),
                  Answer::yes);
    QVERIFY(enabled("mnu_tv_ai"));
    commands().action(QStringLiteral("mnu_tv_ai")).trigger();
    QCOMPARE(script.left(), 0);
    QCOMPARE(number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(lite_status(window_->db(), milk_), StatusCode::buy_it_plus);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 8);
    QCOMPARE(TreeView::picture(node(milk_)), 8);
}

void tst_stock_tree_use::saving_in_the_editor_restores_the_true_status_after_a_box_click()
{
    load_with_lagging_status();
    MessageScript script;
    QString form;
    script.drive([&form](QDialog& dialog) {
        form = dialog.objectName();
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("Command1(0)")), Qt::LeftButton);
        if (dialog.isVisible())
            dialog.reject();
    });
    QVERIFY(enabled("mnu_tv_edit"));
    commands().action(QStringLiteral("mnu_tv_edit")).trigger();
    QCOMPARE(script.left(), 0);
    QCOMPARE(form, QStringLiteral("l_item_edit"));
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 7);
    QCOMPARE(TreeView::picture(node(milk_)), 7);
}

void tst_stock_tree_use::box_of_an_item_inactive_on_two_lists_opens_the_editor()
{
    window_->add_row(milk_, party_, false);
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    MessageScript script;
    script.drive([this](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        QCOMPARE(request_of(dialog).item, milk_);
        QCOMPARE(request_of(dialog).row, Key(-1));
        QCOMPARE(request_of(dialog).mode, EditMode::edit_item);
        dialog.reject();
    });
    click(node(milk_), box_in_folder);
    QCOMPARE(script.left(), 0);
    QCOMPARE(number("SELECT sum(to_get) FROM groc_1"), 0);
    QVERIFY(!button(2).isVisible());
}

void tst_stock_tree_use::box_of_an_item_on_several_active_lists_does_nothing()
{
    window_->add_row(milk_, party_, true);
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 8 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_), box_in_folder);
    QCOMPARE(TreeView::picture(node(milk_)), 8);
    QCOMPARE(number("SELECT sum(to_get) FROM groc_1"), 2);
    QCOMPARE(number("SELECT status FROM items_1 WHERE item = 'Milk'"), 8);
}

void tst_stock_tree_use::box_of_an_unlisted_item_places_it()
{
    load();
    click(node(milk_), box_in_folder);
    QCOMPARE(number("SELECT count(*) FROM tie"), 1);
    QCOMPARE(number("SELECT item_id FROM tie"), int(milk_));
    QCOMPARE(number("SELECT list FROM tie"), int(home_));
    QCOMPARE(TreeView::picture(node(milk_)), 7);
}

void tst_stock_tree_use::unlisted_item_gets_the_add_button()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    QVERIFY(!button(1).isVisible() && !button(2).isVisible());
    QCOMPARE(button(0).toolTip(), QStringLiteral("Add Milk to Home list"));
    QCOMPARE(button(0).x(), window_->main().stock_tree().get_indent() - 60);
    const int top = button(0).y() - window_->main().stock_tree().get_topdent();
    QVERIFY(top >= 0 && top + button(0).height() <= tree().row_height() + 2);
}

void tst_stock_tree_use::box_and_button_stand_beside_the_name_in_a_narrow_tree()
{
    window_->set_pref(QStringLiteral("font"), QStringLiteral("12"));
    load();
    const int wide = tree().text_rect(node(milk_)).left();
    click(node(milk_), 90);
    QVERIFY(button(0).isVisible());
    window_->main().resize(560, 480);
    QApplication::processEvents();
    const int narrow = tree().text_rect(node(milk_)).left();
    QVERIFY(narrow < wide);
    QVERIFY(button(0).isVisible());
    QCOMPARE(button(0).x(), tree().x() + narrow - 60);
    QVERIFY(button(0).x() >= 0);
    click(node(milk_), box_in_folder); // where the light is now
    QCOMPARE(number("SELECT count(*) FROM tie"), 0);
    click(node(milk_), box_in_folder + narrow - wide);
    QCOMPARE(number("SELECT item_id FROM tie"), int(milk_));
}

void tst_stock_tree_use::add_button_needs_a_list()
{
    load();
    choose_list(*window_, 0);
    click(node(milk_));
    QVERIFY(!button(0).isVisible());
}

void tst_stock_tree_use::listed_item_gets_the_locate_button()
{
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    click(node(butter_));
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    QVERIFY(!button(0).isVisible() && !button(1).isVisible());
    QCOMPARE(button(2).toolTip(), QStringLiteral("Locate Milk on shopping lists"));
}

void tst_stock_tree_use::recipe_page_gets_the_recipe_button()
{
    const Key pancakes = insert_recipe(window_->db(), QStringLiteral("Pancakes"), QStringLiteral("02"));
    window_->set_pref(QStringLiteral("arcp"), QString::number(pancakes));
    load();
    trigger(*window_, "mnu_view_rcpepages");
    click(node(milk_));
    QVERIFY(button(1).isVisible());
    QVERIFY(!button(0).isVisible());
    QCOMPARE(button(1).toolTip(), QStringLiteral("Add Milk to Pancakes recipe"));
    QCOMPARE(caption("mnu_tv_air"), QStringLiteral("Add item to Pancakes recipe"));
    QVERIFY(enabled("mnu_tv_air"));
}

void tst_stock_tree_use::names_stand_letter_by_letter_in_the_tool_tips_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("add");
    QTest::addColumn<QString>("locate");
    const auto plain = [](const char* row, const QString& name) {
        QTest::newRow(row) << name << QStringLiteral("Add ") + name + QStringLiteral(" to Home list")
                           << QStringLiteral("Locate ") + name + QStringLiteral(" on shopping lists");
    };
    plain("ampersand", QStringLiteral("Salt & pepper"));
    plain("entity", QStringLiteral("Salt &amp; pepper"));
    plain("quotes", QStringLiteral("12\" \"pizza\""));
    plain("less and greater", QStringLiteral("3 < 4 > 2"));
    QTest::newRow("markup") << QStringLiteral("<b>x</b>")
                            << QStringLiteral("<qt>Add &lt;b&gt;x&lt;/b&gt; to Home list</qt>")
                            << QStringLiteral("<qt>Locate &lt;b&gt;x&lt;/b&gt; on shopping lists</qt>");
    QTest::newRow("markup, ampersand and quotes")
        << QStringLiteral("<i>Salt</i> & \"pepper\"")
        << QStringLiteral("<qt>Add &lt;i&gt;Salt&lt;/i&gt; &amp; &quot;pepper&quot; to Home list</qt>")
        << QStringLiteral("<qt>Locate &lt;i&gt;Salt&lt;/i&gt; &amp; &quot;pepper&quot; on shopping lists</qt>");
}

void tst_stock_tree_use::names_stand_letter_by_letter_in_the_tool_tips()
{
    QFETCH(QString, name);
    QFETCH(QString, add);
    QFETCH(QString, locate);
    Query(window_->db(), "UPDATE items_1 SET item = ? WHERE key_id = ?", name, milk_).run();
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    QCOMPARE(button(0).toolTip(), add);
    QTest::mouseClick(&button(0), Qt::LeftButton);
    window_->main().stock_tree().tv_load(false);
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    QCOMPARE(button(2).toolTip(), locate);
}

void tst_stock_tree_use::row_that_is_not_whole_in_view_gets_no_button()
{
    for (int i = 0; i < 100; ++i)
        window_->add_item(QStringLiteral("Sort %1").arg(i, 3, 10, QLatin1Char('0')), dairy_);
    load();
    const int frame = tree().height() - tree().viewport()->height();
    tree().resize(tree().width(), 10 * tree().row_height() + tree().row_height() / 2 + frame);
    tree().scrollToTop();
    const auto at = [this](int row) { return tree().hit_test({200, row * tree().row_height() + 3}); };
    click(at(9));
    QVERIFY(button(0).isVisible());
    QTreeWidgetItem* cut = at(10);
    QVERIFY(cut);
    tree().setAutoScroll(false);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, {200, 10 * tree().row_height() + 3});
    QCOMPARE(tree().selected(), cut);
    QVERIFY(!button(0).isVisible());
}

void tst_stock_tree_use::click_on_empty_ground_or_a_folder_hides_the_buttons()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, {200, tree().viewport()->height() - 5});
    QVERIFY(!button(0).isVisible());
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    click(tree().topLevelItem(0));
    QVERIFY(!button(0).isVisible());
}

void tst_stock_tree_use::add_button_places_the_item_and_keeps_the_focus()
{
    load();
    click(node(milk_));
    QTest::mouseClick(&button(0), Qt::LeftButton);
    QCOMPARE(number("SELECT item_id FROM tie"), int(milk_));
    QVERIFY(!button(0).isVisible() && !button(1).isVisible() && !button(2).isVisible());
    QVERIFY(tree().hasFocus());
}

void tst_stock_tree_use::enter_in_the_tree_closes_the_editor_that_the_add_button_opened()
{
    load();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        const Key item = key == Qt::Key_Return ? milk_ : butter_;
        click(node(item));
        QTest::mouseClick(&button(0), Qt::LeftButton);
        RowEditor& editor = window_->main().row_editor();
        QVERIFY(editor.is_open());
        const GridModel& rows = window_->main().list_pane().grid().rows();
        QCOMPARE(rows.row(editor.edit_row()).item_key, item);
        QVERIFY(tree().hasFocus());
        QTest::keyClick(&tree(), key);
        QVERIFY(!editor.is_open());
        QVERIFY(tree().hasFocus());
        QCOMPARE(tree().selected(), node(item));
    }
}

void tst_stock_tree_use::buttons_hide_when_the_focus_moves()
{
    load();
    click(node(milk_));
    QVERIFY(button(0).isVisible());
    window_->main().setFocus();
    QVERIFY(!tree().hasFocus());
    QVERIFY(!button(0).isVisible());
    button(2).show();
    tree().setFocus();
    QVERIFY(!button(2).isVisible());
}

void tst_stock_tree_use::buttons_rest_at_their_places_after_a_load()
{
    load();
    QCOMPARE(button(0).x(), 47);
    QCOMPARE(button(1).x(), 47);
    window_->main().stock_tree().tv_load(true);
    QCOMPARE(button(0).x(), 10);
    QCOMPARE(button(1).x(), 10);
}

void tst_stock_tree_use::locate_takes_over_the_list_of_the_first_row()
{
    window_->add_row(milk_, party_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    QCOMPARE(shared().current_list, home_);
    click(node(milk_));
    QTest::mouseClick(&button(2), Qt::LeftButton);
    QCOMPARE(shared().current_list, party_);
    QVERIFY(!button(2).isVisible());
}

void tst_stock_tree_use::locate_marks_the_row_red_in_the_middle_of_the_grid()
{
    for (int i = 0; i < 90; ++i)
        window_->add_row(window_->add_item(QStringLiteral("Item %1").arg(i, 2, 10, QLatin1Char('0')), produce_),
                         home_, false);
    const Key row = window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE groc_1 SET item = 'Item 44b' WHERE key_id = ?", row).run();
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load();
    ListGrid& grid = window_->main().list_pane().grid();
    click(node(milk_));
    QTest::mouseClick(&button(2), Qt::LeftButton);
    const int place = grid.rows().find_row(row);
    QCOMPARE(place, 45);
    QCOMPARE(grid.current_row(), place);
    QCOMPARE(grid.current_col(), GridColumn::item);
    QVERIFY(grid.rows().row(place).located);
    QVERIFY(!grid.rows().row(place - 1).located);
    QVERIFY(std::abs(grid.top_row() + grid.rows_in_view() / 2 - place) <= 1);
    const QVariant color = grid.rows().data(grid.rows().cell(place, GridColumn::item), Qt::ForegroundRole);
    QCOMPARE(color.value<QBrush>().color(), QColor(255, 0, 0));
}

void tst_stock_tree_use::locate_in_the_all_lists_view_keeps_it()
{
    const Key row = window_->add_row(milk_, party_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    window_->set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    window_->set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    load();
    QVERIFY(shared().all_lists_view);
    click(node(milk_));
    QTest::mouseClick(&button(2), Qt::LeftButton);
    QCOMPARE(shared().current_list, Key(0));
    const GridModel& rows = window_->main().list_pane().grid().rows();
    QVERIFY(rows.row(rows.find_row(row)).located);
}

void tst_stock_tree_use::locate_of_an_item_without_rows_hides_the_button()
{
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    QTest::mouseClick(&button(2), Qt::LeftButton);
    QVERIFY(!button(2).isVisible());
    QCOMPARE(shared().current_list, home_);
}

void tst_stock_tree_use::box_click_repaints_the_row_of_the_list_shown()
{
    const Key row = window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    const GridModel& rows = window_->main().list_pane().grid().rows();
    QCOMPARE(rows.rows(), 1);
    click(node(milk_), box_in_folder);
    QCOMPARE(rows.row(rows.find_row(row)).light, 179);
    QCOMPARE(rows.row(rows.find_row(row)).check, 122);
    QVERIFY(rows.row(rows.find_row(row)).to_get);
    click(node(milk_), box_in_folder);
    QCOMPARE(rows.row(rows.find_row(row)).light, 183);
    QCOMPARE(rows.row(rows.find_row(row)).check, 113);
    QVERIFY(!rows.row(rows.find_row(row)).to_get);
}

void tst_stock_tree_use::box_click_leaves_the_grid_of_another_list_alone()
{
    window_->add_row(milk_, party_, false);
    const Key row = window_->add_row(butter_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6").run();
    load();
    click(node(milk_), box_in_folder);
    const GridModel& rows = window_->main().list_pane().grid().rows();
    QCOMPARE(rows.rows(), 1);
    QCOMPARE(rows.row(rows.find_row(row)).light, 183);
    QVERIFY(!rows.row(rows.find_row(row)).to_get);
}

void tst_stock_tree_use::box_click_repaints_the_line_of_the_recipe_shown()
{
    window_->add_row(milk_, home_, true);
    Query(window_->db(), "UPDATE items_1 SET status = 7 WHERE key_id = ?", milk_).run();
    load_recipe_of(milk_);
    auto* light = window_->find<QWidget>(QStringLiteral("lite(0)"));
    auto* check = window_->find<QWidget>(QStringLiteral("Check1(0)"));
    QVERIFY(light && check);
    const int color = shared().color_index;
    QCOMPARE(light->property("picture").toInt(), 179 + color);
    click(node(milk_), box_in_folder);
    QCOMPARE(light->property("picture").toInt(), 183 + color);
    QCOMPARE(check->property("picture").toInt(), 113 + color);
    QVERIFY(check->isEnabled());
    click(node(milk_), box_in_folder);
    QCOMPARE(light->property("picture").toInt(), 179 + color);
    QCOMPARE(check->property("picture").toInt(), 122 + color);
}

void tst_stock_tree_use::item_on_the_recipe_shown_gets_no_recipe_button()
{
    load_recipe_of(milk_);
    click(node(butter_));
    QVERIFY(button(1).isVisible());
    QCOMPARE(button(1).toolTip(), QStringLiteral("Add Butter to Pancakes recipe"));
    click(node(milk_));
    QVERIFY(!button(1).isVisible());
}

void tst_stock_tree_use::press_on_a_node_closes_the_editor_of_the_grid()
{
    window_->add_row(butter_, home_, false);
    load();
    ListGrid& grid = window_->main().list_pane().grid();
    grid.set_current(0, GridColumn::qty);
    window_->main().row_editor().show_l_line();
    QVERIFY(window_->main().row_editor().is_open());
    QTest::mousePress(tree().viewport(), Qt::LeftButton, {}, point(node(milk_), 200));
    QVERIFY(!window_->main().row_editor().is_open());
    QCOMPARE(grid.current_col(), GridColumn::item);
    QVERIFY(!grid.selectionModel()->hasSelection());
    QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, point(node(milk_), 200));
}

QTEST_MAIN(tst_stock_tree_use)
#include "tst_stock_tree_use.moc"
