#include "household/status.h"
#include "household/household.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "stock/stock_tree_fixture.h"
#include "support/table_dump.h"
#include "widgets/list_grid.h"
#include "widgets/node_key.h"
#include "window/toolbar.h"
#include "window/view_state.h"

#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

using namespace tarnwick;

/// What menus, buttons and the status panel say follows the selection, whatever moved it.
class tst_selection : public StockTreeTest {
    Q_OBJECT
private slots:
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void menus_and_status_follow_the_keys_data();
    void menus_and_status_follow_the_keys();
    void menus_follow_a_new_node_a_sort_a_collapse_and_a_removal();
    void menus_follow_a_new_name_of_the_selected_node();
    void status_follows_snap();
    void recipe_menus_and_status_follow_the_keys();
    void a_change_of_view_or_list_keeps_the_captions_of_the_selected_item();
    void a_list_without_a_record_is_named_nowhere();
    void captions_follow_the_name_of_the_recipe();
    void without_an_open_recipe_there_is_nothing_to_add_to_data();
    void without_an_open_recipe_there_is_nothing_to_add_to();
    void locate_goes_with_the_selection_data();
    void locate_goes_with_the_selection();
    void locate_moves_with_its_node_when_a_folder_above_opens();
    void locate_is_about_its_own_node();
    void star_key_opens_the_folder_alone();
    void star_key_in_the_recipe_tree_opens_the_folder_alone();
    void a_held_delete_key_deletes_one_node();
    void legend_shows_the_pictures_of_the_tree();

private:
    QString text_of_selected() { return tree().selected() ? tree().selected()->text(0) : QString(); }
    void check_selected();
    void load_many();
};

/// Every caption that names a node names the selected one, with the enabling that belongs to its kind.
void tst_selection::check_selected()
{
    const QTreeWidgetItem* selected = tree().selected();
    QVERIFY(selected);
    const QString name = selected->text(0);
    const QString key = TreeView::key(selected);
    const bool item = key.startsWith(QLatin1String("item"));
    const bool other = key == QLatin1String("cat0000");
    QCOMPARE(enabled("mnu_tv_di"), item);
    QCOMPARE(enabled("mnu_edit_stock_to_list"), item);
    QCOMPARE(enabled("mnu_edit_del_cat"), !item && !other);
    QCOMPARE(enabled("mnu_edit_rn_cat"), !item && !other);
    if (item) {
        QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item ") + name);
        QCOMPARE(caption("mnu_tv_edit"), QStringLiteral("Edit stock item ") + name);
        QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add ") + name + QStringLiteral(" to Home list"));
        QCOMPARE(caption("mnu_edit_stock_to_list"),
                 QStringLiteral("Add ") + name + QStringLiteral(" to shopping list"));
        QVERIFY(visible("mnu_tv_rename") && !visible("mnu_tv_dc"));
        QCOMPARE(status(), get_status(window_->db(), NodeKey::parse(key).record));
        return;
    }
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item"));
    QCOMPARE(caption("mnu_edit_del_cat"),
             QStringLiteral("Delete ") + (other ? QString() : name + u' ') + QStringLiteral("category"));
    QVERIFY(!visible("mnu_tv_rename") && visible("mnu_tv_dc"));
    QCOMPARE(enabled("mnu_tv_dc"), !other);
    QCOMPARE(status(),
             name + QStringLiteral(" category: ") + QString::number(selected->childCount())
                 + QStringLiteral(" stock items"));
}

void tst_selection::load_many()
{
    for (int i = 0; i < 60; ++i)
        window_->add_item(QStringLiteral("Cheese %1").arg(i, 2, 10, QLatin1Char('0')), dairy_);
    load();
    click(node(milk_)->parent());
}

void tst_selection::menus_and_status_follow_the_keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("reached");
    QTest::newRow("Down") << int(Qt::Key_Down) << QStringLiteral("Butter");
    QTest::newRow("End") << int(Qt::Key_End) << QStringLiteral("OTHER");
    QTest::newRow("Page Down") << int(Qt::Key_PageDown) << QString();
    QTest::newRow("a letter") << int(Qt::Key_B) << QStringLiteral("Butter");
}

void tst_selection::menus_and_status_follow_the_keys()
{
    QFETCH(int, key);
    QFETCH(QString, reached);
    load_many();
    check_selected();
    QTest::keyPress(&tree(), static_cast<Qt::Key>(key)); // not released: the follow-up waits for nothing
    if (reached.isEmpty())
        QVERIFY(text_of_selected().startsWith(QLatin1String("Cheese")));
    else
        QCOMPARE(text_of_selected(), reached);
    check_selected();
    QTest::keyRelease(&tree(), static_cast<Qt::Key>(key));
    QTest::keyPress(&tree(), Qt::Key_Home);
    QCOMPARE(text_of_selected(), QStringLiteral("Dairy"));
    check_selected();
}

void tst_selection::menus_follow_a_new_node_a_sort_a_collapse_and_a_removal()
{
    load();
    click(node(milk_));
    window_->main().household().make_category(QStringLiteral("Frozen"));
    QCOMPARE(text_of_selected(), QStringLiteral("Frozen"));
    check_selected();
    click(node(milk_));
    node(milk_)->parent()->setExpanded(false);
    QCOMPARE(text_of_selected(), QStringLiteral("Dairy"));
    check_selected();
    node(milk_)->parent()->setExpanded(true);
    click(node(milk_));
    window_->main().household().delete_item(milk_);
    QCOMPARE(text_of_selected(), QStringLiteral("Dairy"));
    click(node(butter_));
    QCOMPARE(text_of_selected(), QStringLiteral("Butter"));
    check_selected();
    QVERIFY(commands().action(QStringLiteral("mnu_view_sort_alpha")).isEnabled());
    commands().action(QStringLiteral("mnu_view_sort_alpha")).trigger();
    QVERIFY(!tree().selected());
    QCOMPARE(status(), QString());
    for (const char* name : {"mnu_tv_di", "mnu_tv_edit", "mnu_edit_move", "mnu_edit_stock_to_list"}) {
        QVERIFY(!enabled(name));
        QVERIFY(!caption(name).contains(QLatin1String("Butter")));
    }
}

void tst_selection::menus_follow_a_new_name_of_the_selected_node()
{
    load();
    click(node(milk_));
    node(milk_)->setText(0, QStringLiteral("Oat milk"));
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Oat milk"));
    QCOMPARE(caption("mnu_edit_move"), QStringLiteral("Move Oat milk to a different category"));
}

void tst_selection::status_follows_snap()
{
    load();
    click(node(milk_));
    QTest::mouseClick(&window_->main().toolbar().button(ToolButton::folders), Qt::LeftButton);
    QCOMPARE(text_of_selected(), QStringLiteral("Dairy"));
    check_selected();
}

void tst_selection::recipe_menus_and_status_follow_the_keys()
{
    Query(window_->db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (2, 'Zuppa', ' ', '13')").run();
    load_recipe_of(milk_);
    commands().action(QStringLiteral("mnu_view_rcp")).trigger();
    TreeView& recipes = window_->main().recipe_tree().view();
    recipes.setFocus();
    QTest::mouseClick(recipes.viewport(), Qt::LeftButton, {},
                      recipes.text_rect(recipes.node(QStringLiteral("rcp0001"))).center());
    QCOMPARE(status(), QStringLiteral("Pancakes recipe"));
    QTest::keyPress(&recipes, Qt::Key_Down);
    QCOMPARE(TreeView::key(recipes.selected()), QStringLiteral("rcp0002"));
    QCOMPARE(caption("mnu_recipe_del"), QStringLiteral("Delete Zuppa recipe"));
    QCOMPARE(caption("mnu_tv_r_del"), QStringLiteral("Delete Zuppa"));
    QCOMPARE(status(), QStringLiteral("Zuppa recipe"));
    QTest::keyPress(&recipes, Qt::Key_Home);
    QVERIFY(!enabled("mnu_recipe_del") && !enabled("mnu_tv_r_del"));
    QCOMPARE(caption("mnu_recipe_del"), QStringLiteral("Delete recipe"));
    QCOMPARE(status(), QStringLiteral("poultry: 0 recipes"));
}

void tst_selection::a_change_of_view_or_list_keeps_the_captions_of_the_selected_item()
{
    load_recipe_of(butter_);
    click(node(milk_));
    QCOMPARE(caption("mnu_tv_air"), QStringLiteral("Add item to Pancakes recipe"));
    QVERIFY(enabled("mnu_tv_air"));
    window_->main().view_state().show_list_pane(true);
    QVERIFY(!enabled("mnu_tv_air"));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add Milk to Home list"));
    QAction& party = commands().list_entry(1);
    QCOMPARE(Commands::plain_caption(party), QStringLiteral("2: Party"));
    party.trigger();
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add Milk to Party list"));
    QVERIFY(party.isChecked() && !commands().list_entry(0).isChecked());
}

void tst_selection::a_list_without_a_record_is_named_nowhere()
{
    window_->set_pref(QStringLiteral("alist"), QStringLiteral("77"));
    load();
    click(node(milk_));
    frmmain& main = window_->main();
    QCOMPARE(int(main.shared.current_list), 77);
    const auto* tabs = window_->find<QTabBar>(QStringLiteral("TabStrip1(1)"));
    QStringList texts{main.windowTitle(), tabs->tabText(0), tabs->tabToolTip(0), button(0).toolTip()};
    for (const QAction* action : main.findChildren<QAction*>())
        if (!action->objectName().startsWith(QLatin1String("mnu_list_list")))
            texts << Commands::plain_caption(*action);
    for (const auto which :
         {ToolButton::clear, ToolButton::print, ToolButton::preview, ToolButton::word_processor, ToolButton::email})
        texts << main.toolbar().button(which).toolTip();
    for (const QString& text : std::as_const(texts))
        QVERIFY2(!text.contains(QLatin1String("All list")) && !text.contains(QLatin1String("All shopping lists"))
                     && !text.contains(QLatin1String("all lists")),
                 qPrintable(text));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick"));
    QCOMPARE(tabs->tabText(0), QStringLiteral("Shopping lists"));
    QCOMPARE(caption("mnu_tv_ai"), QStringLiteral("Add Milk to a shopping list"));
    QVERIFY(!visible("mnu_list_RenameList"));
    for (const char* name : {"mnu_list_del", "mnu_list_clear", "mnu_list_Print"})
        QVERIFY(!enabled(name));
    for (int i = 0; i < commands().list_entries(); ++i)
        QVERIFY(!commands().list_entry(i).isChecked());
    QVERIFY(!window_->find<QWidget>(QStringLiteral("frmCreateList"))->isVisible());
}

void tst_selection::captions_follow_the_name_of_the_recipe()
{
    load_recipe_of(butter_);
    click(node(milk_));
    QLineEdit& title = window_->main().recipe_page().title();
    title.selectAll();
    QTest::keyClicks(&title, QStringLiteral("Waffles"));
    QCOMPARE(caption("mnu_tv_air"), QStringLiteral("Add item to Waffles recipe"));
    QVERIFY(
        window_->find<QTabBar>(QStringLiteral("TabStrip1(1)"))->tabToolTip(1).contains(QLatin1String("Waffles")));
}

void tst_selection::without_an_open_recipe_there_is_nothing_to_add_to_data()
{
    QTest::addColumn<QString>("arcp");
    QTest::newRow("none") << QStringLiteral("0");
    QTest::newRow("one that is gone") << QStringLiteral("77");
}

void tst_selection::without_an_open_recipe_there_is_nothing_to_add_to()
{
    QFETCH(QString, arcp);
    window_->set_pref(QStringLiteral("arcp"), arcp);
    window_->set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    load();
    click(node(milk_));
    QVERIFY(window_->main().recipe_page().frame4().isVisible());
    QCOMPARE(caption("mnu_tv_air"), QStringLiteral("Add to recipe"));
    QVERIFY(!enabled("mnu_tv_air"));
    QVERIFY(!button(1).isVisible());
}

void tst_selection::locate_goes_with_the_selection_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Up") << int(Qt::Key_Up);
    QTest::newRow("Home") << int(Qt::Key_Home);
    QTest::newRow("a letter") << int(Qt::Key_B);
    QTest::newRow("its folder closes") << 0;
    QTest::newRow("a sort") << -1;
}

void tst_selection::locate_goes_with_the_selection()
{
    QFETCH(int, key);
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    if (key > 0)
        QTest::keyPress(&tree(), static_cast<Qt::Key>(key));
    else if (key == 0)
        node(milk_)->parent()->setExpanded(false);
    else
        commands().action(QStringLiteral("mnu_view_sort_alpha")).trigger();
    QVERIFY(!button(2).isVisible());
}

void tst_selection::locate_moves_with_its_node_when_a_folder_above_opens()
{
    const Key bread = window_->add_category(QStringLiteral("Bread"));
    window_->add_item(QStringLiteral("Roll"), bread);
    window_->add_row(milk_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", milk_).run();
    load();
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    const int before = button(2).y() - tree().text_rect(node(milk_)).top();
    const int top = button(2).y();
    tree().topLevelItem(0)->setExpanded(true);
    QVERIFY(button(2).isVisible());
    QVERIFY(button(2).y() > top);
    QCOMPARE(button(2).y() - tree().text_rect(node(milk_)).top(), before);
}

void tst_selection::locate_is_about_its_own_node()
{
    const Key milk_row = window_->add_row(milk_, home_, false);
    window_->add_row(butter_, home_, false);
    Query(window_->db(), "UPDATE items_1 SET status = 6").run();
    load();
    click(node(milk_));
    QVERIFY(button(2).isVisible());
    QTest::mouseClick(&button(2), Qt::LeftButton);
    const GridModel& rows = window_->main().list_pane().grid().rows();
    for (int i = 0; i < rows.rows(); ++i)
        QCOMPARE(rows.row(i).located, rows.row(i).groc_key == milk_row);
}

void tst_selection::star_key_opens_the_folder_alone()
{
    const Key apple = window_->add_item(QStringLiteral("Apple"), produce_);
    load();
    QTreeWidgetItem* produce = node(apple)->parent();
    click(produce);
    QVERIFY(!produce->isExpanded());
    const int milk_picture = TreeView::picture(node(milk_));
    const int apple_picture = TreeView::picture(node(apple));
    QTest::keyClick(&tree(), Qt::Key_Asterisk, Qt::ShiftModifier);
    QVERIFY(produce->isExpanded());
    QCOMPARE(TreeView::picture(produce), 2);
    QCOMPARE(TreeView::picture(node(apple)), apple_picture);
    QCOMPARE(TreeView::picture(node(milk_)), milk_picture);
    QVERIFY(!node(apple)->isExpanded());
    QCOMPARE(number("SELECT count(*) FROM cat WHERE expand <> 0"), 2);
    // An expansion of what is no folder, whatever reports it, is neither shown nor stored.
    const QString before = table_dump(window_->db()).join(u'\n');
    emit tree().itemExpanded(node(apple));
    QCOMPARE(TreeView::picture(node(apple)), apple_picture);
    QCOMPARE(table_dump(window_->db()).join(u'\n'), before);
}

void tst_selection::star_key_in_the_recipe_tree_opens_the_folder_alone()
{
    load_recipe_of(milk_);
    commands().action(QStringLiteral("mnu_view_rcp")).trigger();
    TreeView& recipes = window_->main().recipe_tree().view();
    QTreeWidgetItem* recipe = recipes.node(QStringLiteral("rcp0001"));
    QTreeWidgetItem* folder = recipe->parent();
    folder->setExpanded(false);
    recipes.select(folder);
    recipes.setFocus();
    QTest::keyClick(&recipes, Qt::Key_Asterisk, Qt::ShiftModifier);
    QVERIFY(folder->isExpanded());
    QCOMPARE(TreeView::picture(folder), 4);
    QCOMPARE(TreeView::picture(recipe), 1);
    QVERIFY(!recipe->isExpanded());
    emit recipes.itemExpanded(recipe);
    QCOMPARE(TreeView::picture(recipe), 1);
}

void tst_selection::a_held_delete_key_deletes_one_node()
{
    load();
    click(node(milk_));
    int deletions = 0;
    connect(&tree(), &TreeView::key_down, this, [&deletions](int key) { deletions += key == Qt::Key_Delete; });
    for (const bool repeated : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, repeated);
        QApplication::sendEvent(&tree(), &press);
    }
    QCOMPARE(deletions, 1);
}

void tst_selection::legend_shows_the_pictures_of_the_tree()
{
    load();
    const int codes[] = {8, 7, 6, 5, 9};
    QList<QImage> seen;
    for (int i = 0; i < 5; ++i) {
        auto* panel = window_->find<QLabel>(QStringLiteral("StatusBar1(%1)").arg(i + 2));
        panel->show();
        QCOMPARE(panel->property("picture").toInt(), codes[i]);
        const QSize size = list_image_size(ImageList::stock_tree, codes[i]);
        const QImage drawn = panel->grab(QRect(QPoint(6, (panel->height() - size.height()) / 2), size)).toImage();
        for (const QImage& other : std::as_const(seen))
            QVERIFY(drawn != other);
        seen << drawn;
    }
}

QTEST_MAIN(tst_selection)
#include "tst_selection.moc"
