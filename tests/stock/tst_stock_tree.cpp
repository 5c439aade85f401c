#include "data/runtime_error.h"
#include "window/view_state.h"
#include "stock/stock_clicks.h"
#include "stock/stock_tree_fixture.h"
#include "support/error_number.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>

using namespace tarnwick;

class tst_stock_tree : public StockTreeTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    // the load
    void folders_come_by_name_with_other_last_and_items_by_name();
    void empty_category_stored_as_open_loads_closed_and_forgets_it();
    void other_without_items_has_no_picture_and_a_black_label();
    void other_with_items_is_red_after_the_next_load();
    void other_stored_as_open_shows_the_open_folder_but_stays_closed();
    void alphabetic_view_has_no_folders();
    void startup_expansion_does_not_touch_the_database();
    void item_whose_category_is_gone_is_skipped();
    void missing_category_other_appears_at_the_first_load();
    void key_past_9999_is_error_35602_at_the_second_such_item();

    // folders
    void folder_opened_by_the_user_is_stored_with_its_picture();
    void close_folders_closes_and_stores_all();

    // the selection
    void click_on_an_item_shows_status_and_menus();
    void long_name_is_cut_in_captions_and_whole_elsewhere();
    void captions_follow_the_list_in_use();
    void click_on_a_category_shows_its_line_and_menus();
    void click_on_other_cannot_rename_or_delete();
    void alphabetic_view_hides_the_move_command();
    void press_and_release_elsewhere_acts_on_the_pressed_node();
    void right_click_pops_up_the_menu_and_leaves_the_box_alone();
    void arrow_keys_move_selection_and_status();
    void label_edit_is_refused_for_other();

    // the views
    void sorting_to_the_order_on_show_neither_loads_nor_writes_data();
    void sorting_to_the_order_on_show_neither_loads_nor_writes();
    void sorting_reloads_and_stores_the_order_and_keeps_the_focus();

    // what other panes ask for
    void new_nodes_go_to_their_places_by_name();
    void moved_item_keeps_picture_and_tag();
};

void tst_stock_tree::folders_come_by_name_with_other_last_and_items_by_name()
{
    load();
    QCOMPARE(tree().topLevelItemCount(), 3);
    const QTreeWidgetItem* dairy = tree().topLevelItem(0);
    QCOMPARE(TreeView::key(dairy), QStringLiteral("cat") + key_str(dairy_));
    QCOMPARE(TreeView::picture(dairy), 2);
    QCOMPARE(TreeView::tag(dairy), QStringLiteral("2"));
    QVERIFY(dairy->isExpanded());
    QCOMPARE(dairy->childCount(), 2);
    QCOMPARE(dairy->child(0)->text(0), QStringLiteral("Butter"));
    QCOMPARE(dairy->child(1)->text(0), QStringLiteral("Milk"));
    QCOMPARE(TreeView::picture(dairy->child(1)), 5);
    QCOMPARE(TreeView::tag(dairy->child(1)), QStringLiteral("5"));
    QCOMPARE(tree().topLevelItem(1)->text(0), QStringLiteral("Produce"));
    QCOMPARE(TreeView::key(tree().topLevelItem(2)), QStringLiteral("cat0000"));
    QVERIFY(tree().isVisible());
}

void tst_stock_tree::empty_category_stored_as_open_loads_closed_and_forgets_it()
{
    Query(window_->db(), "UPDATE cat SET expand = 1 WHERE key_id = ?", produce_).run();
    load();
    const QTreeWidgetItem* produce = tree().topLevelItem(1);
    QCOMPARE(TreeView::picture(produce), 1);
    QCOMPARE(TreeView::tag(produce), QStringLiteral("1"));
    QVERIFY(!produce->isExpanded());
    QCOMPARE(number("SELECT expand FROM cat WHERE cat_desc = 'Produce'"), 0);
    QCOMPARE(number("SELECT expand FROM cat WHERE cat_desc = 'Dairy'"), 1);
}

void tst_stock_tree::other_without_items_has_no_picture_and_a_black_label()
{
    load();
    const QTreeWidgetItem* other = tree().node(QStringLiteral("cat0000"));
    QCOMPARE(other->text(0), QStringLiteral("OTHER"));
    QCOMPARE(TreeView::picture(other), 0);
    QCOMPARE(TreeView::tag(other), QString());
    QVERIFY(!other->data(0, Qt::ForegroundRole).isValid());
}

void tst_stock_tree::other_with_items_is_red_after_the_next_load()
{
    load();
    window_->add_item(QStringLiteral("Glue"), 0);
    window_->main().stock_tree().tv_load(false);
    const QTreeWidgetItem* other = tree().node(QStringLiteral("cat0000"));
    QCOMPARE(TreeView::picture(other), 3);
    QCOMPARE(TreeView::tag(other), QStringLiteral("3"));
    QCOMPARE(other->foreground(0).color(), QColor(255, 0, 0));
    QVERIFY(!other->isExpanded());
}

void tst_stock_tree::other_stored_as_open_shows_the_open_folder_but_stays_closed()
{
    window_->add_item(QStringLiteral("Glue"), 0);
    Query(window_->db(), "UPDATE cat SET expand = 1 WHERE key_id = 0").run();
    load();
    const QTreeWidgetItem* other = tree().node(QStringLiteral("cat0000"));
    QCOMPARE(TreeView::picture(other), 4);
    QCOMPARE(TreeView::tag(other), QStringLiteral("4"));
    QVERIFY(!other->isExpanded());
}

void tst_stock_tree::alphabetic_view_has_no_folders()
{
    load_flat();
    QCOMPARE(tree().topLevelItemCount(), 2);
    QCOMPARE(tree().topLevelItem(0)->text(0), QStringLiteral("Butter"));
    QCOMPARE(tree().topLevelItem(1)->text(0), QStringLiteral("Milk"));
    QVERIFY(!tree().node(QStringLiteral("cat0000")));
}

void tst_stock_tree::startup_expansion_does_not_touch_the_database()
{
    Query(window_->db(),
          "CREATE TRIGGER untouched BEFORE UPDATE ON cat BEGIN SELECT RAISE(ABORT, 'cat was written'); END")
        .run();
    load();
    QVERIFY(tree().topLevelItem(0)->isExpanded());
    window_->main().stock_tree().tv_load(false);
    QVERIFY(tree().topLevelItem(0)->isExpanded());
}

void tst_stock_tree::item_whose_category_is_gone_is_skipped()
{
    load();
    const Key lost = window_->add_item(QStringLiteral("Lost"), 77);
    window_->main().stock_tree().tv_load(false);
    QVERIFY(!node(lost));
    QVERIFY(node(milk_));
    QVERIFY(tree().isVisible());
}

void tst_stock_tree::missing_category_other_appears_at_the_first_load()
{
    Query(window_->db(), "DELETE FROM cat WHERE key_id = 0").run();
    load();
    QVERIFY(tree().node(QStringLiteral("cat0000")));
    QCOMPARE(number("SELECT count(*) FROM cat WHERE key_id = 0 AND cat_desc = 'OTHER' AND expand = 0"), 1);
}

void tst_stock_tree::key_past_9999_is_error_35602_at_the_second_such_item()
{
    load();
    const auto add = [this](int key) {
        Query(window_->db(), "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, 'far', 0, 5)", key).run();
    };
    add(10000);
    window_->main().stock_tree().tv_load(false);
    QVERIFY(tree().node(QStringLiteral("item")));
    add(10001);
    QCOMPARE(error_number([this] { window_->main().stock_tree().tv_load(false); }), 35602);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_stock_tree::folder_opened_by_the_user_is_stored_with_its_picture()
{
    window_->add_item(QStringLiteral("Apple"), produce_);
    window_->add_item(QStringLiteral("Glue"), 0);
    load();
    QTreeWidgetItem* produce = tree().topLevelItem(1);
    click(produce);
    QTest::keyClick(&tree(), Qt::Key_Right);
    QVERIFY(produce->isExpanded());
    QCOMPARE(TreeView::picture(produce), 2);
    QCOMPARE(TreeView::tag(produce), QStringLiteral("1"));
    QCOMPARE(number("SELECT expand FROM cat WHERE cat_desc = 'Produce'"), 1);
    QTest::keyClick(&tree(), Qt::Key_Left);
    QCOMPARE(TreeView::picture(produce), 1);
    QCOMPARE(number("SELECT expand FROM cat WHERE cat_desc = 'Produce'"), 0);
    QTreeWidgetItem* other = tree().topLevelItem(2);
    click(other, 80);
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, point(other, 80));
    QVERIFY(other->isExpanded());
    QCOMPARE(TreeView::picture(other), 4);
    QCOMPARE(number("SELECT expand FROM cat WHERE key_id = 0"), 1);
}

void tst_stock_tree::close_folders_closes_and_stores_all()
{
    const Key glue = window_->add_item(QStringLiteral("Glue"), 0);
    load();
    QTreeWidgetItem* other = tree().node(QStringLiteral("cat0000"));
    other->setExpanded(true);
    click(node(glue));
    window_->main().stock_tree().close_folders();
    for (int i = 0; i < tree().topLevelItemCount(); ++i)
        QVERIFY(!tree().topLevelItem(i)->isExpanded());
    QCOMPARE(TreeView::picture(tree().topLevelItem(0)), 1);
    QCOMPARE(TreeView::picture(other), 3);
    QCOMPARE(number("SELECT count(*) FROM cat WHERE expand <> 0"), 0);
    QCOMPARE(tree().selected(), other);
}

void tst_stock_tree::click_on_an_item_shows_status_and_menus()
{
    load();
    click(node(milk_));
    QCOMPARE(tree().selected(), node(milk_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
    QVERIFY(visible("mnu_tv_rename") && enabled("mnu_tv_rename"));
    QVERIFY(!visible("mnu_tv_dc") && !visible("mnu_tv_rn"));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Milk"));
    QCOMPARE(caption("mnu_tv_edit"), QStringLiteral("Edit stock item Milk"));
    QVERIFY(enabled("mnu_tv_di") && enabled("mnu_tv_edit") && enabled("mnu_tv_ni"));
    QVERIFY(visible("mnu_tv_nc") && visible("mnu_tv_sep_1"));
    QVERIFY(visible("mnu_tv_move") && enabled("mnu_tv_move"));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add Milk to Home list"));
    QVERIFY(enabled("mnu_tv_ai") && visible("mnu_edit_stock_to_list"));
    QVERIFY(!enabled("mnu_tv_air"));
}

void tst_stock_tree::long_name_is_cut_in_captions_and_whole_elsewhere()
{
    const QString thirty = QStringLiteral("abcdefghijklmnopqrstuvwxyz1234");
    const Key whole = window_->add_item(thirty, dairy_);
    const Key longer = window_->add_item(thirty + u'5', dairy_);
    load();
    click(node(whole));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add ") + thirty + QStringLiteral(" to Home list"));
    click(node(longer));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add ") + thirty + QStringLiteral("... to Home list"));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item ") + thirty + u'5');
    QVERIFY(button(0).isVisible());
    QCOMPARE(button(0).toolTip(), QStringLiteral("Add ") + thirty + QStringLiteral("5 to Home list"));

    const QString category = QStringLiteral("Shelf of ") + thirty;
    window_->add_category(category);
    load();
    click(tree().topLevelItem(2));
    QCOMPARE(caption("mnu_tv_dc"), QStringLiteral("Delete ") + category + QStringLiteral("  category"));
    QCOMPARE(status(), category + QStringLiteral(" category: 0 stock items"));
    QCOMPARE(window_->find<QLabel>(QStringLiteral("StatusBar1(1)"))->toolTip(), status());
}

void tst_stock_tree::captions_follow_the_list_in_use()
{
    load();
    choose_list(*window_, 0);
    click(node(milk_));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add Milk to a shopping list"));
    QVERIFY(enabled("mnu_tv_ai"));
    for (const Key list : {home_, party_})
        window_->main().household().delete_list(list);
    click(node(butter_));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add to shopping list"));
    QVERIFY(!enabled("mnu_tv_ai"));
    QCOMPARE(caption("mnu_list_del"), QStringLiteral("Delete shopping list"));
    QVERIFY(!enabled("mnu_list_del"));
}

void tst_stock_tree::click_on_a_category_shows_its_line_and_menus()
{
    load();
    click(node(milk_));
    click(tree().topLevelItem(0));
    QCOMPARE(status(), QStringLiteral("Dairy category: 2 stock items"));
    QVERIFY(!visible("mnu_tv_rename") && !enabled("mnu_tv_rename"));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item"));
    QCOMPARE(caption("mnu_tv_edit"), QStringLiteral("Edit stock item"));
    QVERIFY(!enabled("mnu_tv_di") && !enabled("mnu_tv_edit") && enabled("mnu_tv_ni"));
    QCOMPARE(caption("mnu_tv_dc"), QStringLiteral("Delete Dairy  category"));
    QCOMPARE(caption("mnu_tv_rn"), QStringLiteral("Rename Dairy  category"));
    QVERIFY(visible("mnu_tv_dc") && visible("mnu_tv_rn") && enabled("mnu_tv_dc") && enabled("mnu_tv_rn"));
    QVERIFY(visible("mnu_tv_nc") && visible("mnu_tv_sep_1"));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add to shopping list"));
    QCOMPARE(caption("mnu_tv_air"), QStringLiteral("Add to recipe"));
    QVERIFY(!enabled("mnu_tv_ai") && !enabled("mnu_tv_move") && !enabled("mnu_tv_air"));
}

void tst_stock_tree::click_on_other_cannot_rename_or_delete()
{
    load();
    click(tree().node(QStringLiteral("cat0000")));
    QCOMPARE(status(), QStringLiteral("OTHER category: 0 stock items"));
    QCOMPARE(caption("mnu_tv_dc"), QStringLiteral("Delete  category"));
    QCOMPARE(caption("mnu_tv_rn"), QStringLiteral("Rename  category"));
    QVERIFY(visible("mnu_tv_dc") && visible("mnu_tv_rn") && !enabled("mnu_tv_dc") && !enabled("mnu_tv_rn"));
}

void tst_stock_tree::alphabetic_view_hides_the_move_command()
{
    load_flat();
    click(node(milk_));
    QVERIFY(!visible("mnu_tv_move") && !visible("mnu_tv_nc") && !visible("mnu_tv_sep_1"));
    QCOMPARE(caption("mnu_edit_move"), QStringLiteral("Move Milk to a different category"));
    QVERIFY(!enabled("mnu_edit_move"));
}

void tst_stock_tree::press_and_release_elsewhere_acts_on_the_pressed_node()
{
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    QTest::mousePress(tree().viewport(), Qt::LeftButton, {}, point(node(milk_), box_in_folder));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 0);
    QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, point(node(butter_), 200));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 1);
    QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, point(node(butter_), 200)); // of no press
    QCOMPARE(tree().selected(), node(milk_));
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("7"));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 1);
}

void tst_stock_tree::right_click_pops_up_the_menu_and_leaves_the_box_alone()
{
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_), box_in_folder, Qt::RightButton);
    QMenu& menu = commands().menu(QStringLiteral("mnu_tv"));
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Milk"));
    QCOMPARE(number("SELECT to_get FROM groc_1"), 0);
    menu.close();
}

void tst_stock_tree::arrow_keys_move_selection_and_status()
{
    window_->add_row(milk_, home_, false);
    load();
    click(node(butter_));
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
    QVERIFY(button(0).isVisible());
    QTest::keyClick(&tree(), Qt::Key_Down);
    QCOMPARE(tree().selected(), node(milk_));
    QCOMPARE(status(), QStringLiteral("Inactive On Home list :: Dairy category"));
    QVERIFY(!button(0).isVisible());
    QTest::keyClick(&tree(), Qt::Key_Up);
    QCOMPARE(status(), QStringLiteral("Not listed :: Dairy category"));
    QTest::keyClick(&tree(), Qt::Key_Up);
    QCOMPARE(status(), QStringLiteral("Dairy category: 2 stock items"));
}

void tst_stock_tree::label_edit_is_refused_for_other()
{
    load();
    click(tree().node(QStringLiteral("cat0000")));
    QTest::keyClick(&tree(), Qt::Key_F2);
    QVERIFY(!tree().findChild<QLineEdit*>());
    click(tree().topLevelItem(0));
    QTest::keyClick(&tree(), Qt::Key_F2);
    auto* editor = tree().findChild<QLineEdit*>();
    QVERIFY(editor);
    QTest::keyClick(editor, Qt::Key_Escape);
}

void tst_stock_tree::sorting_to_the_order_on_show_neither_loads_nor_writes_data()
{
    QTest::addColumn<bool>("flat");
    QTest::addColumn<QString>("command");
    QTest::newRow("by category") << false << QStringLiteral("mnu_view_sort_cat");
    QTest::newRow("alphabetic") << true << QStringLiteral("mnu_view_sort_alpha");
}

void tst_stock_tree::sorting_to_the_order_on_show_neither_loads_nor_writes()
{
    QFETCH(bool, flat);
    QFETCH(QString, command);
    if (flat)
        load_flat();
    else
        load();
    click(node(milk_));
    TreeView::set_tag(node(butter_), QStringLiteral("marked"));
    window_->set_pref(QStringLiteral("sort"), QStringLiteral("untouched"));
    QAction& sort = commands().action(command);
    QVERIFY(sort.isEnabled() && sort.isChecked());
    sort.trigger();
    QCOMPARE(TreeView::tag(node(butter_)), QStringLiteral("marked"));
    QVERIFY(node(milk_));
    QCOMPARE(tree().selected(), node(milk_));
    QVERIFY(sort.isChecked());
    QCOMPARE(window_->pref(QStringLiteral("sort")), QStringLiteral("untouched"));
}

void tst_stock_tree::sorting_reloads_and_stores_the_order_and_keeps_the_focus()
{
    load();
    window_->main().view_state().sort(true);
    QVERIFY(!tree().node(QStringLiteral("cat0000")));
    QVERIFY(shared().stock_alpha);
    QCOMPARE(window_->pref(QStringLiteral("sort")), QStringLiteral("alpha"));
    QVERIFY(tree().hasFocus());
    window_->main().view_state().sort(false);
    QVERIFY(tree().topLevelItem(0)->isExpanded());
    QCOMPARE(window_->pref(QStringLiteral("sort")), QStringLiteral("cat"));
}

void tst_stock_tree::new_nodes_go_to_their_places_by_name()
{
    load();
    Household& household = window_->main().household();
    household.make_category(QStringLiteral("Frozen"));
    QCOMPARE(tree().topLevelItem(1)->text(0), QStringLiteral("Frozen"));
    QCOMPARE(TreeView::picture(tree().topLevelItem(1)), 1);
    QCOMPARE(tree().selected(), tree().topLevelItem(1));
    household.make_category(QStringLiteral("Zoo"));
    QCOMPARE(tree().topLevelItem(3)->text(0), QStringLiteral("Zoo"));
    QCOMPARE(tree().topLevelItem(4)->text(0), QStringLiteral("OTHER"));
    const Key key = add_item(QStringLiteral("Cheese"));
    const QTreeWidgetItem* cheese = node(key);
    QCOMPARE(cheese->parent()->child(1), cheese);
    QCOMPARE(TreeView::key(cheese), QStringLiteral("item") + key_str(key));
    QCOMPARE(TreeView::tag(cheese), QStringLiteral("5"));
    QCOMPARE(tree().selected(), cheese);
    window_->main().stock_tree().tv_load(true);
    add_item(QStringLiteral("Cheese"));
    QCOMPARE(tree().topLevelItem(1)->text(0), QStringLiteral("Cheese"));
}

void tst_stock_tree::moved_item_keeps_picture_and_tag()
{
    load();
    for (const Key list : {home_, party_}) {
        Placement placement;
        placement.list_key = list;
        placement.item_key = milk_;
        placement.to_get = true;
        placement.opened = false;
        QCOMPARE(window_->main().household().place(placement), Refusal::none);
    }
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("8"));
    window_->main().household().move_item(milk_, produce_);
    QCOMPARE(node(milk_)->parent()->text(0), QStringLiteral("Produce"));
    QCOMPARE(TreeView::picture(node(milk_)), 8);
    QCOMPARE(TreeView::tag(node(milk_)), QStringLiteral("8"));
    QCOMPARE(tree().selected(), node(milk_));
    QVERIFY(node(milk_)->parent()->isExpanded());
}

QTEST_MAIN(tst_stock_tree)
#include "tst_stock_tree.moc"
