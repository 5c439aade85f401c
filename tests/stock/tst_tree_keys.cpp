#include "recipes/line_fixture.h"
#include "stock/stock_tree_fixture.h"
#include "support/contrast.h"
#include "widgets/plain_style.h"

#include <QMenu>

using namespace tarnwick;

/// The keys of the two trees beyond those that move the selection.
class tst_tree_keys : public StockTreeTest {
    Q_OBJECT
private slots:
    void initTestCase() { QApplication::setStyle(new PlainStyle); }
    void init() { set_up(); }
    void cleanup() { tear_down(); }

    void space_does_what_a_click_on_the_box_does();
    void space_held_down_ticks_once();
    void a_blank_in_a_search_by_letters_belongs_to_it();
    void space_after_a_search_or_another_key_is_a_click_again();
    void a_tree_without_a_node_shows_that_it_has_the_keyboard();
    void space_on_a_folder_and_enter_do_nothing();
    void the_menu_keys_open_the_pop_up_at_the_node_data();
    void the_menu_keys_open_the_pop_up_at_the_node();
    void the_menu_keys_open_nothing_without_a_node();
    void space_opens_a_recipe_and_leaves_the_keyboard_in_the_tree();
    void the_menu_key_in_the_recipe_tree_opens_its_pop_up();

private:
    void choose(Key item)
    {
        tree().select(node(item));
        tree().setFocus();
    }
    QMenu& menu(const char* name) { return commands().menu(QLatin1String(name)); }
};

void tst_tree_keys::space_does_what_a_click_on_the_box_does()
{
    load();
    choose(milk_);
    QTest::keyClick(&tree(), Qt::Key_Space);
    QCOMPARE(number("SELECT to_get FROM groc_1"), 1);
    QCOMPARE(TreeView::picture(node(milk_)), 7);
    QVERIFY(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_Space);
    QCOMPARE(number("SELECT to_get FROM groc_1"), 0);
    QCOMPARE(TreeView::picture(node(milk_)), 6);
    QTest::keyClick(&tree(), Qt::Key_Space);
    QCOMPARE(TreeView::picture(node(milk_)), 7);
    QCOMPARE(number("SELECT count(*) FROM groc_1"), 1);
}

void tst_tree_keys::space_held_down_ticks_once()
{
    load();
    choose(milk_);
    QTest::keyPress(&tree(), Qt::Key_Space);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(&tree(), &repeat);
    QCOMPARE(TreeView::picture(node(milk_)), 7);
}

void tst_tree_keys::a_blank_in_a_search_by_letters_belongs_to_it()
{
    const Key plain = window_->add_item(QStringLiteral("Yogurt"), dairy_);
    const Key bananas = window_->add_item(QStringLiteral("Yogurt, Banana"), dairy_);
    const Key greek = window_->add_item(QStringLiteral("Yogurt, Greek"), dairy_);
    load();
    choose(milk_);
    QTest::keyClicks(&tree(), QStringLiteral("yogurt, g"));
    QCOMPARE(tree().selected(), node(greek));
    QCOMPARE(number("SELECT count(*) FROM groc_1"), 0);
    for (const Key item : {plain, bananas, greek})
        QCOMPARE(TreeView::picture(node(item)), TreeView::picture(node(milk_)));
}

void tst_tree_keys::space_after_a_search_or_another_key_is_a_click_again()
{
    const Key greek = window_->add_item(QStringLiteral("Yogurt, Greek"), dairy_);
    const Key oat = window_->add_item(QStringLiteral("Yogurt, Oat"), dairy_);
    load();
    choose(milk_);
    QTest::keyClicks(&tree(), QStringLiteral("yog"));
    QCOMPARE(tree().selected(), node(greek));
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClick(&tree(), Qt::Key_Space);
    QCOMPARE(TreeView::picture(node(greek)), 7);
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(&tree(), QStringLiteral("yog"));
    QCOMPARE(tree().selected(), node(oat));
    QTest::keyClick(&tree(), Qt::Key_Up);
    QTest::keyClick(&tree(), Qt::Key_Space);
    QCOMPARE(TreeView::picture(node(greek)), 6);
}

void tst_tree_keys::a_tree_without_a_node_shows_that_it_has_the_keyboard()
{
    load();
    window_->main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window_->main()));
    const auto edge_stands_out = [this] {
        const QImage shown = tree().viewport()->grab().toImage();
        const QColor ground = tree().palette().color(QPalette::Base);
        return contrast(shown.pixelColor(shown.width() / 2, 0), ground) >= 3
            && contrast(shown.pixelColor(0, shown.height() / 2), ground) >= 3
            && contrast(shown.pixelColor(shown.width() / 2, shown.height() - 1), ground) >= 3;
    };
    tree().select(nullptr);
    tree().setFocus();
    QVERIFY(tree().hasFocus());
    QVERIFY(edge_stands_out());
    tree().select(node(milk_));
    QVERIFY(!edge_stands_out());
    tree().select(nullptr);
    window_->find<QWidget>(QStringLiteral("Listview1"))->setFocus();
    QVERIFY(!edge_stands_out());
}

void tst_tree_keys::space_on_a_folder_and_enter_do_nothing()
{
    load();
    QTreeWidgetItem* folder = tree().node(QStringLiteral("cat") + key_str(dairy_));
    tree().select(folder);
    QTest::keyClick(&tree(), Qt::Key_Space);
    QVERIFY(folder->isExpanded());
    choose(milk_);
    QTest::keyClick(&tree(), Qt::Key_Return);
    QCOMPARE(number("SELECT count(*) FROM groc_1"), 0);
    QCOMPARE(tree().selected(), node(milk_));
}

void tst_tree_keys::the_menu_keys_open_the_pop_up_at_the_node_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("shift");
    QTest::newRow("Menu") << Qt::Key_Menu << false;
    QTest::newRow("Shift+F10") << Qt::Key_F10 << true;
}

void tst_tree_keys::the_menu_keys_open_the_pop_up_at_the_node()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, shift);
    load();
    choose(milk_);
    QTest::keyClick(&tree(), key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(menu("mnu_tv").isVisible());
    const QRect row = tree().text_rect(node(milk_));
    const QPoint at = tree().viewport()->mapFromGlobal(menu("mnu_tv").pos());
    QVERIFY(std::abs(at.y() - row.bottom()) <= 2);
    QCOMPARE(caption("mnu_tv_di"), QStringLiteral("Delete stock item Milk"));
    menu("mnu_tv").close();
}

void tst_tree_keys::the_menu_keys_open_nothing_without_a_node()
{
    load();
    tree().select(nullptr);
    QTest::keyClick(&tree(), Qt::Key_Menu);
    QVERIFY(!menu("mnu_tv").isVisible());
}

void tst_tree_keys::space_opens_a_recipe_and_leaves_the_keyboard_in_the_tree()
{
    RecipeWindow w;
    const Key pie = w.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    const Key soup = w.add_recipe(QStringLiteral("Soup"), QStringLiteral("13"));
    w.set_pref(QStringLiteral("arcp"), QString::number(pie));
    w.load();
    w.tree().setFocus();
    QTest::keyClick(&w.tree(), Qt::Key_Down);
    QCOMPARE(TreeView::key(w.tree().selected()), rcp(soup));
    QCOMPARE(w.page().page_key(), pie);
    QTest::keyClick(&w.tree(), Qt::Key_Space);
    QCOMPARE(w.page().page_key(), soup);
    QCOMPARE(w.main().focusWidget(), &w.tree());
    w.trigger(QStringLiteral("mnu_view_shoplist"));
    w.tree().setFocus();
    QTest::keyClick(&w.tree(), Qt::Key_Space);
    QVERIFY(!w.main().shared.list_pane_shown);
    QTest::keyClick(&w.tree(), Qt::Key_Up);
    QTest::keyClick(&w.tree(), Qt::Key_Return);
    QCOMPARE(w.page().page_key(), soup);
}

void tst_tree_keys::the_menu_key_in_the_recipe_tree_opens_its_pop_up()
{
    RecipeWindow w;
    const Key pie = w.add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    w.set_pref(QStringLiteral("arcp"), QString::number(pie));
    w.load();
    w.tree().setFocus();
    QTest::keyClick(&w.tree(), Qt::Key_Menu);
    QMenu& pop_up = w.main().commands().menu(QStringLiteral("mnu_tv_r"));
    QVERIFY(pop_up.isVisible());
    pop_up.close();
}

QTEST_MAIN(tst_tree_keys)
#include "tst_tree_keys.moc"
