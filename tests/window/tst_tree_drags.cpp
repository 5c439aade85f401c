#include "data/query.h"
#include "household/household.h"
#include "lists/list_pane.h"
#include "recipes/line_fixture.h"
#include "stock/floating_buttons.h"
#include "support/message_script.h"
#include "support/mouse_hand.h"
#include "support/shown_things.h"
#include "support/table_dump.h"
#include "widgets/drag.h"
#include "widgets/list_grid.h"
#include "widgets/tree_view.h"
#include "window/status_panels.h"
#include "window/view_state.h"

#include <QDialog>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

using namespace tarnwick;

namespace {

QString item_key(Key item)
{
    return QStringLiteral("item") + key_str(item);
}

QString folder_key(Key category)
{
    return QStringLiteral("cat") + key_str(category);
}

/// The window on a household of two folders and two lists, with the stock tree and the list on show.
class Home : public LineWindow {
public:
    explicit Home(bool page = false)
    {
        set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
        set_pref(QStringLiteral("lv_view"), page ? QStringLiteral("0") : QStringLiteral("1"));
        produce = add_category(QStringLiteral("Produce"), true);
        dairy = add_category(QStringLiteral("Dairy"), true);
        milk = add_item(QStringLiteral("Milk"), dairy);
        butter = add_item(QStringLiteral("Butter"), dairy);
        pears = add_item(QStringLiteral("Pears"), produce);
        home = add_list(QStringLiteral("Home"));
        party = add_list(QStringLiteral("Party"));
        set_pref(QStringLiteral("alist"), QString::number(home));
    }

    void show()
    {
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }

    TreeView& stock() { return main().stock_tree().view(); }
    ListGrid& grid() { return main().list_pane().grid(); }
    QLabel& label() { return *find<QLabel>(QStringLiteral("drag_label_tree")); }
    bool dragging() { return main().drag().running(); }
    QString status() { return status_text(main()); }
    QPoint row(TreeView& tree, const QString& key) { return {150, tree.text_rect(tree.node(key)).center().y()}; }
    Qt::CursorShape pointer()
    {
        return QApplication::overrideCursor() ? QApplication::overrideCursor()->shape() : Qt::BlankCursor;
    }

    /// Drags a stock item out of the tree without dropping it.
    void take(Key item)
    {
        hand.press(stock(), item_key(item));
        hand.move_by({6, 0});
        QVERIFY(dragging());
    }

    MouseHand hand;
    Key produce = 0;
    Key dairy = 0;
    Key milk = 0;
    Key butter = 0;
    Key pears = 0;
    Key home = 0;
    Key party = 0;
};

/// The same on the recipe tree, two recipes in two folders, and the page of the first.
class Kitchen : public Home {
public:
    Kitchen()
        : Home(true)
    {
        set_pref(QStringLiteral("tv_view"), QStringLiteral("0"));
        pie = add_recipe(QStringLiteral("Pie"), QStringLiteral("13"));
    }
    Key pie = 0;
};

} // namespace

class tst_tree_drags : public QObject {
    Q_OBJECT
private slots:
    void a_movement_of_50_twips_or_less_is_a_click_and_no_drag_data();
    void a_movement_of_50_twips_or_less_is_a_click_and_no_drag();
    void only_the_left_button_alone_drags();
    void a_folder_is_not_dragged();
    void a_drag_that_starts_while_the_floating_ingredient_editor_is_open_does_not_happen();
    void the_label_bears_the_name_of_what_is_dragged();
    void the_node_that_was_pressed_is_dragged_wherever_the_pointer_is_when_the_drag_starts();

    void a_stock_item_dropped_on_the_grid_is_put_on_the_list();
    void a_stock_item_dropped_on_the_grid_in_the_all_lists_view_goes_to_the_editor();
    void a_second_drop_on_the_grid_asks_and_obeys();
    void a_drop_on_the_grid_without_lists_tells_so();
    void a_list_that_vanishes_while_an_item_is_dragged_takes_nothing();

    void a_stock_item_dropped_on_a_folder_or_on_an_item_in_it_moves_there();
    void a_stock_item_dropped_on_its_own_folder_changes_nothing();
    void a_stock_item_dropped_on_the_empty_part_below_the_last_row_does_nothing();
    void in_the_alphabetic_view_a_drop_on_the_stock_tree_does_nothing();

    void a_recipe_can_be_dragged_only_in_the_category_view();
    void a_recipe_dropped_on_a_category_or_on_a_recipe_in_it_moves_there();
    void a_recipe_dropped_on_the_row_half_out_of_sight_moves_there();
    void a_recipe_dropped_on_the_empty_part_below_the_last_row_does_nothing();
    void a_recipe_over_the_recipe_page_shows_the_no_drop_pointer_and_a_stock_item_does_not();
    void a_recipe_dropped_on_page_or_grid_does_nothing();

    void a_stock_item_dropped_on_the_page_starts_its_line_data();
    void a_stock_item_dropped_on_the_page_starts_its_line();
    void a_stock_item_that_is_on_the_recipe_asks_first();
    void a_stock_item_dropped_on_a_page_without_a_recipe_tells_so();

    void the_first_click_on_the_stock_tree_after_a_drop_is_spent();
    void the_first_click_on_the_recipe_tree_after_a_drop_is_spent();
    void after_a_drop_on_an_ingredient_line_the_release_counts_again();
    void after_a_drag_ended_by_escape_its_own_release_is_spent_and_no_click();

    void escape_ends_a_drag_without_a_drop();
    void a_message_box_ends_a_drag();
    void an_item_that_vanishes_while_it_is_dragged_is_dropped_nowhere();
    void a_drag_at_the_edge_of_the_tree_scrolls_it();
    void a_drag_at_the_edge_of_the_grid_scrolls_it();
};

void tst_tree_drags::a_movement_of_50_twips_or_less_is_a_click_and_no_drag_data()
{
    QTest::addColumn<QPoint>("moved");
    QTest::addColumn<bool>("drags");
    for (const int pixels : {-4, -3, 3, 4}) {
        QTest::addRow("%d across", pixels) << QPoint(pixels, 0) << (std::abs(pixels) > 3);
        QTest::addRow("%d down", pixels) << QPoint(0, pixels) << (std::abs(pixels) > 3);
    }
}

void tst_tree_drags::a_movement_of_50_twips_or_less_is_a_click_and_no_drag()
{
    QFETCH(QPoint, moved);
    QFETCH(bool, drags);
    Home w;
    w.show();
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.move_by(moved);
    QCOMPARE(w.dragging(), drags);
    QCOMPARE(w.label().isVisible(), drags);
    w.hand.release();
    QVERIFY(!w.dragging());
    QVERIFY(w.label().isHidden());
    // A click shows what can be done with the item.
    QCOMPARE(w.main().floating_buttons().button(0).isVisible(), !drags);
}

void tst_tree_drags::only_the_left_button_alone_drags()
{
    Home w;
    w.show();
    QTest::mousePress(w.stock().viewport(), Qt::RightButton, {}, w.row(w.stock(), item_key(w.milk)));
    QTest::mouseMove(w.stock().viewport(), w.row(w.stock(), item_key(w.milk)) + QPoint(20, 0));
    QVERIFY(!w.dragging());
    QTest::mousePress(w.stock().viewport(), Qt::LeftButton, {}, w.row(w.stock(), item_key(w.milk)));
    QTest::mouseMove(w.stock().viewport(), w.row(w.stock(), item_key(w.milk)) + QPoint(20, 0));
    QVERIFY(!w.dragging());
    QTest::mouseRelease(w.stock().viewport(), Qt::LeftButton);
    QTest::mouseRelease(w.stock().viewport(), Qt::RightButton);
}

void tst_tree_drags::a_folder_is_not_dragged()
{
    Home w;
    w.show();
    w.hand.press(w.stock(), folder_key(w.dairy));
    w.hand.move_to(w.grid(), {100, 100});
    QVERIFY(!w.dragging());
    w.hand.release();
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_tree_drags::a_drag_that_starts_while_the_floating_ingredient_editor_is_open_does_not_happen()
{
    Home w(true);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.show();
    w.open_line(0);
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.move_to(w.page().frame4(), {200, 300});
    QVERIFY(!w.dragging());
    w.hand.release();
    QCOMPARE(w.lines(), 1);
    // With the editor closed by the press, the next one drags.
    QVERIFY(!w.editor().is_open());
    w.take(w.milk);
    w.hand.release();
}

void tst_tree_drags::the_label_bears_the_name_of_what_is_dragged()
{
    Home w;
    w.show();
    w.take(w.milk);
    QCOMPARE(w.label().text(), QStringLiteral("Milk"));
    w.hand.move_to(w.grid(), {200, 200});
    const QPoint off = w.label().pos() - w.grid().mapToGlobal(QPoint(200, 200));
    QVERIFY(off.x() > 0 && off.y() > 0 && off.manhattanLength() < 50);
    w.hand.release();
}

void tst_tree_drags::the_node_that_was_pressed_is_dragged_wherever_the_pointer_is_when_the_drag_starts()
{
    Home w;
    w.show();
    const QPoint butter = w.row(w.stock(), item_key(w.butter));
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.move_by({0, butter.y() - w.row(w.stock(), item_key(w.milk)).y()});
    QCOMPARE(w.label().text(), QStringLiteral("Milk"));
    w.hand.drop_on(w.grid(), {100, 100});
    QCOMPARE(w.text("SELECT item FROM groc_1"), QStringLiteral("Milk"));
}

void tst_tree_drags::a_stock_item_dropped_on_the_grid_is_put_on_the_list()
{
    Home w;
    w.show();
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.drop_on(w.grid(), {100, 200});
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(w.number("SELECT list FROM tie"), w.home);
    QCOMPARE(w.number("SELECT item_id FROM tie"), w.milk);
    QCOMPARE(w.grid().rows().rows(), 1);
    QCOMPARE(TreeView::tag(w.stock().node(item_key(w.milk))), QStringLiteral("7"));
}

void tst_tree_drags::a_stock_item_dropped_on_the_grid_in_the_all_lists_view_goes_to_the_editor()
{
    Home w;
    w.set_pref(QStringLiteral("s_all"), QStringLiteral("1"));
    w.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    w.show();
    MessageScript script;
    QString title;
    script.drive([&title](QDialog& dialog) {
        title = dialog.windowTitle();
        dialog.reject();
    });
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.drop_on(w.grid(), {100, 200});
    QCOMPARE(title, QStringLiteral("Adding Milk"));
    QCOMPARE(script.left(), 0);
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_tree_drags::a_second_drop_on_the_grid_asks_and_obeys()
{
    Home w;
    w.add_row(w.milk, w.home, true);
    w.show();
    const QString question
        = QStringLiteral("There is already an active Milk\n stock item on the Home list -\n\n"
                         "Do you want to add another?\n\nChoose YES to add another, NO to Cancel:");
    for (const Answer answer : {Answer::no, Answer::yes}) {
        MessageScript script;
        bool running = true;
        script.expect(QStringLiteral("Question"), question, answer, [&](QDialog&) {
            running = w.dragging() || w.label().isVisible() || QApplication::overrideCursor();
        });
        w.hand.press(w.stock(), item_key(w.milk));
        w.hand.drop_on(w.grid(), {100, 200});
        QCOMPARE(script.left(), 0);
        QVERIFY(!running);
        QCOMPARE(w.number("SELECT count(*) FROM groc_1"), answer == Answer::yes ? 2 : 1);
    }
}

void tst_tree_drags::a_drop_on_the_grid_without_lists_tells_so()
{
    Home w;
    Query(w.db(), "DELETE FROM list_name").run();
    w.set_pref(QStringLiteral("alist"), QStringLiteral("-1"));
    w.show();
    QVERIFY(w.grid().isVisible());
    MessageScript script;
    QString title;
    script.drive([&title](QDialog& dialog) {
        title = dialog.windowTitle();
        dialog.reject();
    });
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.drop_on(w.grid(), {20, 20});
    QCOMPARE(script.left(), 0);
    QCOMPARE(title, QStringLiteral("No lists"));
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_tree_drags::a_list_that_vanishes_while_an_item_is_dragged_takes_nothing()
{
    Home w;
    w.show();
    w.take(w.milk);
    Query(w.db(), "DELETE FROM list_name WHERE key_id = ?", w.home).run();
    MessageScript script;
    QString title;
    script.drive([&title](QDialog& dialog) {
        title = dialog.windowTitle();
        dialog.reject();
    });
    w.hand.drop_on(w.grid(), {100, 100});
    QCOMPARE(script.left(), 0);
    QCOMPARE(title, QStringLiteral("Shopping list"));
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_tree_drags::a_stock_item_dropped_on_a_folder_or_on_an_item_in_it_moves_there()
{
    for (const bool on_item : {false, true}) {
        Home w;
        w.show();
        w.hand.press(w.stock(), item_key(w.milk));
        w.hand.drop_on(*w.stock().viewport(),
                       w.row(w.stock(), on_item ? item_key(w.pears) : folder_key(w.produce)));
        QCOMPARE(w.number("SELECT cat FROM items_1 WHERE item = 'Milk'"), w.produce);
        QCOMPARE(names_in(w.stock().node(folder_key(w.produce))),
                 QStringList({QStringLiteral("Milk"), QStringLiteral("Pears")}));
    }
}

void tst_tree_drags::a_stock_item_dropped_on_its_own_folder_changes_nothing()
{
    Home w;
    w.show();
    for (const QString& target : {folder_key(w.dairy), item_key(w.butter), item_key(w.milk)}) {
        const QStringList before = names_in(w.stock().node(folder_key(w.dairy)));
        const QStringList data = table_dump(w.db());
        w.hand.press(w.stock(), item_key(w.milk));
        w.main().set_status(QStringLiteral("untouched"));
        w.hand.move_to(*w.stock().viewport(), w.row(w.stock(), target));
        QVERIFY(w.dragging());
        w.hand.release();
        QCOMPARE(names_in(w.stock().node(folder_key(w.dairy))), before);
        QCOMPARE(table_dump(w.db()), data);
        QCOMPARE(w.status(), QStringLiteral("untouched"));
    }
}

void tst_tree_drags::a_stock_item_dropped_on_the_empty_part_below_the_last_row_does_nothing()
{
    Home w;
    w.show();
    const QString items = QStringLiteral("SELECT group_concat(cat) FROM items_1");
    const QString before = w.text(items.toUtf8());
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.move_to(*w.stock().viewport(), {100, w.stock().viewport()->height() - 5});
    QVERIFY(w.dragging());
    w.hand.release();
    QCOMPARE(w.text(items.toUtf8()), before);
}

void tst_tree_drags::in_the_alphabetic_view_a_drop_on_the_stock_tree_does_nothing()
{
    Home w;
    w.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    w.show();
    const QString items = QStringLiteral("SELECT group_concat(cat) FROM items_1");
    const QString before = w.text(items.toUtf8());
    w.hand.press(w.stock(), item_key(w.milk));
    w.hand.move_to(*w.stock().viewport(), w.row(w.stock(), item_key(w.pears)));
    QVERIFY(w.dragging());
    w.hand.release();
    QCOMPARE(w.text(items.toUtf8()), before);
}

void tst_tree_drags::a_recipe_can_be_dragged_only_in_the_category_view()
{
    for (const bool alpha : {false, true}) {
        Kitchen w;
        w.set_pref(QStringLiteral("sort_r"), alpha ? QStringLiteral("alpha") : QStringLiteral("cat"));
        w.show();
        w.hand.press(w.tree(), rcp(w.pie));
        w.hand.move_by({40, 0});
        QCOMPARE(w.dragging(), !alpha);
        if (!alpha)
            QCOMPARE(w.label().text(), QStringLiteral("Pie"));
        w.hand.release();
    }
}

void tst_tree_drags::a_recipe_dropped_on_a_category_or_on_a_recipe_in_it_moves_there()
{
    for (const bool on_recipe : {false, true}) {
        Kitchen w;
        w.show();
        w.tree().node(QStringLiteral("rcat11"))->setExpanded(true);
        w.hand.press(w.tree(), rcp(w.pie));
        w.hand.drop_on(*w.tree().viewport(), w.row(w.tree(), on_recipe ? rcp(w.recipe) : QStringLiteral("rcat11")));
        QCOMPARE(w.text("SELECT cat FROM recipe_1 WHERE r_name = 'Pie'"), QStringLiteral("11"));
        QCOMPARE(names_in(w.tree().node(QStringLiteral("rcat11"))),
                 QStringList({QStringLiteral("Pie"), QStringLiteral("Soup")}));
        QCOMPARE(w.page().page_key(), w.pie);
        // The marker of the drag is gone: only the click on a node is still spent.
        w.click_node(rcp(w.recipe));
        QCOMPARE(w.page().page_key(), w.pie);
        w.click_node(rcp(w.recipe));
        QCOMPARE(w.page().page_key(), w.recipe);
    }
}

void tst_tree_drags::a_recipe_dropped_on_the_row_half_out_of_sight_moves_there()
{
    Kitchen w;
    w.show();
    w.hand.press(w.tree(), rcp(w.pie));
    QTreeWidgetItem* breads = w.tree().node(QStringLiteral("rcat12"));
    // The tree ends in the middle of the row.
    w.tree().scrollToTop();
    const int bottom = w.tree().visualItemRect(breads).center().y() + 1;
    w.tree().resize(w.tree().width(), bottom + w.tree().height() - w.tree().viewport()->height());
    w.tree().scrollToTop();
    w.hand.drop_on(*w.tree().viewport(), {60, w.tree().viewport()->height() - 1});
    QCOMPARE(w.text("SELECT cat FROM recipe_1 WHERE r_name = 'Pie'"), QStringLiteral("12"));
}

void tst_tree_drags::a_recipe_dropped_on_the_empty_part_below_the_last_row_does_nothing()
{
    Kitchen w;
    w.show();
    w.hand.press(w.tree(), rcp(w.pie));
    w.hand.move_to(*w.tree().viewport(), {60, w.tree().viewport()->height() - 3});
    QVERIFY(w.dragging());
    w.hand.release();
    QCOMPARE(w.text("SELECT cat FROM recipe_1 WHERE r_name = 'Pie'"), QStringLiteral("13"));
    QCOMPARE(w.page().page_key(), w.recipe);
}

void tst_tree_drags::a_recipe_over_the_recipe_page_shows_the_no_drop_pointer_and_a_stock_item_does_not()
{
    Kitchen w;
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.show();
    const auto parts = [&w]() -> QList<QWidget*> {
        return {&w.page().frame3(), w.line(0).Check1,     w.line(0).lite,
                w.line(0).ingred,   w.Text1().viewport(), &w.title()};
    };
    w.hand.press(w.tree(), rcp(w.pie));
    for (QWidget* part : parts()) {
        w.hand.move_to(*part, {2, 2});
        QCOMPARE(w.pointer(), Qt::ForbiddenCursor);
        w.hand.move_to(w.tree(), {60, 100});
        QCOMPARE(w.pointer(), Qt::ArrowCursor);
    }
    w.hand.release();
    QVERIFY(!QApplication::overrideCursor());

    Home stock(true);
    stock.add_line(stock.recipe, QStringLiteral("Salt"));
    stock.show();
    stock.take(stock.milk);
    for (QWidget* part : QList<QWidget*>{&stock.page().frame3(), stock.line(0).Check1, stock.line(0).lite,
                                         stock.line(0).ingred, stock.Text1().viewport(), &stock.title()}) {
        stock.hand.move_to(*part, {2, 2});
        QCOMPARE(stock.pointer(), Qt::ArrowCursor);
    }
    QTest::keyClick(&stock.main(), Qt::Key_Escape);
    stock.hand.release();
}

void tst_tree_drags::a_recipe_dropped_on_page_or_grid_does_nothing()
{
    Kitchen w;
    w.show();
    w.hand.press(w.tree(), rcp(w.pie));
    w.hand.move_to(w.page().frame4(), {200, 300});
    QVERIFY(w.dragging());
    w.hand.release();
    QCOMPARE(w.lines(), 0);
    QCOMPARE(w.page().page_key(), w.recipe);

    Kitchen list;
    list.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    list.show();
    list.hand.press(list.tree(), rcp(list.pie));
    list.hand.move_to(list.grid(), {100, 100});
    QVERIFY(list.dragging());
    list.hand.release();
    QCOMPARE(list.number("SELECT count(*) FROM groc_1"), 0);
    QCOMPARE(list.text("SELECT cat FROM recipe_1 WHERE r_name = 'Pie'"), QStringLiteral("13"));
}

void tst_tree_drags::a_stock_item_dropped_on_the_page_starts_its_line_data()
{
    QTest::addColumn<QString>("part");
    for (const char* part : {"Frame3", "Text1", "title", "ingred(0)", "lite(0)"})
        QTest::newRow(part) << QString::fromLatin1(part);
}

void tst_tree_drags::a_stock_item_dropped_on_the_page_starts_its_line()
{
    QFETCH(QString, part);
    Home w(true);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.show();
    w.take(w.milk);
    w.hand.drop_on(w.control(part), {3, 3});
    QVERIFY(w.editor().is_open());
    QCOMPARE(w.item().text(), QStringLiteral("Milk"));
    w.click_text();
    QCOMPARE(w.lines(), 2);
    QCOMPARE(w.line(1).item_ref, w.milk);
    QCOMPARE(w.number("SELECT count(*) FROM recipe_2 WHERE item = 'Milk'"), 1);
}

void tst_tree_drags::a_stock_item_that_is_on_the_recipe_asks_first()
{
    Home w(true);
    w.add_line(w.recipe, QStringLiteral("Milk"), w.milk);
    w.show();
    MessageScript script;
    script.expect(QStringLiteral("Item already on recipe"),
                  QStringLiteral("Milk already appears on this recipe\nWould you like to add it again?"),
                  Answer::no);
    w.take(w.milk);
    w.hand.drop_on(w.page().frame3(), {200, 200});
    QCOMPARE(script.left(), 0);
    QVERIFY(!w.editor().is_open());
    QCOMPARE(w.lines(), 1);
}

void tst_tree_drags::a_stock_item_dropped_on_a_page_without_a_recipe_tells_so()
{
    Home w(true);
    w.set_pref(QStringLiteral("arcp"), QStringLiteral("-1"));
    w.show();
    w.take(w.milk);
    w.hand.drop_on(w.page().frame4(), {200, 200});
    QVERIFY(!w.editor().is_open());
    QVERIFY2(w.status().startsWith(QLatin1String("No recipe is open")), qPrintable(w.status()));
}

void tst_tree_drags::the_first_click_on_the_stock_tree_after_a_drop_is_spent()
{
    Home w;
    w.add_row(w.pears, w.home, false);
    Query(w.db(), "UPDATE items_1 SET status = 6 WHERE key_id = ?", w.pears).run();
    w.show();
    w.take(w.milk);
    w.hand.drop_on(w.stock(), {60, w.stock().height() - 5});
    const QPoint box(49, w.row(w.stock(), item_key(w.pears)).y());
    QTest::mouseClick(w.stock().viewport(), Qt::LeftButton, {}, box);
    // Its press selects the node; its release neither ticks the box nor shows a button.
    QCOMPARE(w.stock().selected(), w.stock().node(item_key(w.pears)));
    QVERIFY2(w.status().startsWith(QLatin1String("Pears")) || w.status().contains(QLatin1String("Home")),
             qPrintable(w.status()));
    QCOMPARE(w.number("SELECT to_get FROM groc_1"), 0);
    QCOMPARE(w.main().floating_buttons().shown(), -1);
    QTest::mouseClick(w.stock().viewport(), Qt::LeftButton, {}, box);
    QCOMPARE(w.number("SELECT to_get FROM groc_1"), 1);
}

void tst_tree_drags::the_first_click_on_the_recipe_tree_after_a_drop_is_spent()
{
    Kitchen w;
    w.show();
    w.hand.press(w.tree(), rcp(w.pie));
    w.hand.drop_on(w.page().frame4(), {200, 300});
    w.click_node(rcp(w.pie));
    QCOMPARE(w.page().page_key(), w.recipe);
    QCOMPARE(TreeView::key(w.tree().selected()), rcp(w.pie));
    w.click_node(rcp(w.pie));
    QCOMPARE(w.page().page_key(), w.pie);
}

void tst_tree_drags::after_a_drop_on_an_ingredient_line_the_release_counts_again()
{
    Home w(true);
    w.add_line(w.recipe, QStringLiteral("Salt"));
    w.show();
    w.take(w.milk);
    w.hand.drop_on(*w.line(0).ingred, {30, 5});
    QVERIFY(w.editor().is_open());
    w.click_text();
    QVERIFY(!w.editor().is_open());
    QTest::mouseClick(w.stock().viewport(), Qt::LeftButton, {}, w.row(w.stock(), item_key(w.pears)));
    QVERIFY(w.main().floating_buttons().button(1).isVisible());
}

void tst_tree_drags::after_a_drag_ended_by_escape_its_own_release_is_spent_and_no_click()
{
    Kitchen w;
    w.show();
    w.hand.press(w.tree(), rcp(w.pie));
    w.hand.move_by({20, 0});
    QVERIFY(w.dragging());
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    QVERIFY(!w.dragging());
    w.hand.release();
    QCOMPARE(w.page().page_key(), w.recipe);
    w.click_node(rcp(w.pie));
    QCOMPARE(w.page().page_key(), w.pie);
}

void tst_tree_drags::escape_ends_a_drag_without_a_drop()
{
    Home w;
    w.show();
    w.take(w.milk);
    w.hand.move_to(w.grid(), {100, 100});
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    QVERIFY(w.label().isHidden());
    w.hand.release();
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_tree_drags::a_message_box_ends_a_drag()
{
    Home w;
    w.show();
    w.take(w.milk);
    w.hand.move_to(w.grid(), {100, 100});
    MessageScript script;
    bool running = true;
    script.expect(QStringLiteral("T"), QStringLiteral("Text"), Answer::ok,
                  [&](QDialog&) { running = w.dragging(); });
    msg_box(&w.main(), QStringLiteral("Text"), box::ok, QStringLiteral("T"));
    QVERIFY(!running);
    w.hand.release();
    QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
    QTest::mouseClick(w.stock().viewport(), Qt::LeftButton, {}, w.row(w.stock(), item_key(w.pears)));
    QVERIFY(w.main().floating_buttons().button(0).isVisible());
}

void tst_tree_drags::an_item_that_vanishes_while_it_is_dragged_is_dropped_nowhere()
{
    for (const bool page : {false, true}) {
        Home w(page);
        w.show();
        const MessageScript script;
        w.take(w.milk);
        w.main().household().delete_item(w.milk);
        QVERIFY(!w.stock().node(item_key(w.milk)));
        if (page)
            w.hand.drop_on(w.page().frame4(), {200, 300});
        else
            w.hand.drop_on(w.grid(), {100, 100});
        QCOMPARE(w.number("SELECT count(*) FROM groc_1"), 0);
        QVERIFY(!w.editor().is_open());
    }
}

void tst_tree_drags::a_drag_at_the_edge_of_the_tree_scrolls_it()
{
    Home w;
    for (int i = 0; i < 80; ++i)
        w.add_item(QStringLiteral("Sort %1").arg(i), w.produce);
    w.show();
    QScrollBar& bar = *w.stock().verticalScrollBar();
    w.stock().scrollToTop();
    w.take(w.milk);
    w.hand.move_to(w.stock(), {100, w.stock().height() - 8});
    QTRY_VERIFY(bar.value() >= 3);
    w.hand.move_to(w.stock(), {100, w.stock().height() / 2});
    const int rest = bar.value();
    QTest::qWait(300);
    QCOMPARE(bar.value(), rest);
    w.hand.move_to(w.stock(), {100, 4});
    QTRY_COMPARE(bar.value(), 0);
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    w.hand.release();
}

void tst_tree_drags::a_drag_at_the_edge_of_the_grid_scrolls_it()
{
    Home w;
    for (int i = 0; i < 60; ++i)
        w.add_row(w.add_item(QStringLiteral("Sort %1").arg(i), w.produce), w.home, true);
    w.show();
    w.grid().set_top_row(0);
    w.take(w.milk);
    w.hand.move_to(w.grid(), {100, w.grid().height() - 4});
    QTRY_VERIFY(w.grid().top_row() >= 2);
    QTest::keyClick(&w.main(), Qt::Key_Escape);
    w.hand.release();
}

QTEST_MAIN(tst_tree_drags)
#include "tst_tree_drags.moc"
