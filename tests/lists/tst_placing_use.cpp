#include "household/household.h"
#include "lists/list_menu.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "widgets/tree_view.h"
#include "stock/item_editor_fixture.h"
#include "stock/stock_tree.h"
#include "support/edit_request.h"
#include "support/last_placed.h"
#include "support/table_dump.h"

#include <QMessageBox>

using namespace tarnwick;

namespace {

const QString no_lists_text
    = QStringLiteral("There are no lists to add to -\nTo create a new list click the\n"
                     "New list button on the toolbar\n(notepad icon marked 'New') or go to\n"
                     "Shopping List/New on the menu bar");

/// A stock in the open folder "Dairy", placed by the hands of a user on tree and menus.
class Stock : public TestWindow {
public:
    static constexpr int box_in_folder = 49; ///< the middle of an item's box, pixels in the tree

    Key item(const QString& name) { return add_item(name, dairy); }

    void open()
    {
        load();
        main().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main()));
    }

    TreeView& tree() { return main().stock_tree().view(); }
    GridModel& rows() { return main().list_pane().grid().rows(); }

    void click_node(QTreeWidgetItem* node, int x = 200)
    {
        QVERIFY(node);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, QPoint(x, tree().text_rect(node).center().y()));
    }
    void click_box(Key item) { click_node(main().stock_tree().item_node(item), box_in_folder); }

    void place(Key item)
    {
        click_node(main().stock_tree().item_node(item));
        trigger(*this, "mnu_edit_stock_to_list");
    }

    QStringList shown_rows()
    {
        QStringList names;
        for (const GridRow& row : rows().list_rows())
            names += row.item + QString::number(row.groc_key);
        return names;
    }

    const Key dairy = add_category(QStringLiteral("Dairy"), true);
};

} // namespace

class tst_placing_use : public QObject {
    Q_OBJECT
private slots:
    void after_a_rename_in_the_item_editor_placed_rows_stand_as_a_load_puts_them();
    void rows_out_of_order_are_sorted_along_with_current_row_and_open_editor();
    void with_a_stored_choice_older_than_the_lists_placing_asks_for_a_list();
    void in_the_all_lists_view_an_item_on_a_list_is_placed_without_the_question();
    void in_the_all_lists_view_the_new_row_is_brought_into_view_and_chosen();
    void without_lists_the_menu_and_the_box_say_so();
    void a_selected_category_is_not_placed_data();
    void a_selected_category_is_not_placed();
};

void tst_placing_use::after_a_rename_in_the_item_editor_placed_rows_stand_as_a_load_puts_them()
{
    Stock stock;
    const Key list = stock.add_list(QStringLiteral("Weekly"));
    for (const char* name : {"Apples", "Bread", "Milk", "Zest"})
        stock.add_row(stock.item(QString::fromLatin1(name)), list, true);
    const Key corn = stock.item(QStringLiteral("Corn"));
    const Key yeast = stock.item(QStringLiteral("Yeast"));
    stock.set_pref(QStringLiteral("alist"), QString::number(list));
    stock.open();
    ListGrid& grid = stock.main().list_pane().grid();
    {
        MessageScript script;
        script.drive([&script](QDialog& dialog) {
            EditorHands hands(dialog, script);
            hands.type_name(QStringLiteral("Yams"));
            hands.press_ok();
        });
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(60, grid.row_height() / 2));
        QVERIFY(stock.main().row_editor().is_open());
        QTest::mouseClick(stock.find<QWidget>(QStringLiteral("imgedit")), Qt::LeftButton);
    }
    QCOMPARE(stock.rows().row(0).item, QStringLiteral("Yams"));

    const LastPlaced placed_last(stock.main().household());
    for (const Key item : {corn, yeast}) {
        stock.place(item);
        const int row = stock.rows().find_row(placed_last.key());
        QCOMPARE(stock.rows().row(row).item_key, item);
        QCOMPARE(grid.current_row(), row);
        QCOMPARE(stock.main().row_editor().edit_row(), row);
    }
    const QStringList placed = stock.shown_rows();
    QCOMPARE(placed.size(), 6);
    choose_list(stock, list);
    QCOMPARE(placed, stock.shown_rows());
}

void tst_placing_use::rows_out_of_order_are_sorted_along_with_current_row_and_open_editor()
{
    Stock stock;
    const Key list = stock.add_list(QStringLiteral("Weekly"));
    for (const char* name : {"Apples", "Bread", "Milk"})
        stock.add_row(stock.item(QString::fromLatin1(name)), list, true, QString::fromLatin1(name).toLower());
    const Key corn = stock.item(QStringLiteral("Corn"));
    stock.set_pref(QStringLiteral("alist"), QString::number(list));
    stock.open();
    ListGrid& grid = stock.main().list_pane().grid();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(60, grid.row_height() / 2));
    RowEditor& editor = stock.main().row_editor();
    QCOMPARE(editor.edit_row(), 0);
    stock.rows().set_cell_text(0, GridColumn::item, QStringLiteral("Yams"));

    Placement quiet;
    quiet.list_key = list;
    quiet.item_key = corn;
    quiet.quiet = true;
    stock.main().placing().add_item(quiet);
    QCOMPARE(stock.rows().rows(), 4);
    QCOMPARE(stock.rows().row(3).item, QStringLiteral("Yams"));
    QCOMPARE(grid.current_row(), 3);
    QVERIFY(editor.is_open());
    QCOMPARE(editor.edit_row(), 3);
    auto* desc = stock.find<QLineEdit>(QStringLiteral("desc_brdr"));
    QCOMPARE(desc->y(), grid.cell_rect(3, GridColumn::desc).top());
    QTest::mouseClick(desc, Qt::LeftButton);
    QTest::keyClick(desc, Qt::Key_End);
    QTest::keyClicks(desc, QStringLiteral("!"));
    QCOMPARE(stock.text("SELECT group_concat(trim(desc)) FROM groc_1"), QStringLiteral("apples!,bread,milk,"));
}

void tst_placing_use::with_a_stored_choice_older_than_the_lists_placing_asks_for_a_list()
{
    Stock stock;
    const Key milk = stock.item(QStringLiteral("Milk"));
    stock.add_list(QStringLiteral("Weekly"));
    stock.set_pref(QStringLiteral("alist"), QStringLiteral("-1"));
    stock.open();
    QCOMPARE(stock.main().windowTitle(), QStringLiteral("Tarnwick (viewing all lists)"));
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Adding Milk"));
        EditorHands hands(dialog, script);
        hands.click_cell(0, GridColumn::light);
        hands.press_ok();
    });
    stock.click_box(milk);
    QCOMPARE(script.left(), 0);
    QCOMPARE(stock.rows().rows(), 1);
    QCOMPARE(stock.number("SELECT list FROM tie"), 1);
    QCOMPARE(stock.pref(QStringLiteral("alist")), QStringLiteral("-1"));
}

void tst_placing_use::in_the_all_lists_view_an_item_on_a_list_is_placed_without_the_question()
{
    Stock stock;
    const Key milk = stock.item(QStringLiteral("Milk"));
    const Key weekly = stock.add_list(QStringLiteral("Weekly"));
    stock.add_list(QStringLiteral("Camping"));
    stock.add_row(milk, weekly, true);
    stock.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    stock.open();
    QVERIFY(stock.main().shared.all_lists_view);
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("l_item_edit"));
        QCOMPARE(request_of(dialog).mode, EditMode::place_item);
        QCOMPARE(request_of(dialog).item, milk);
        QCOMPARE(request_of(dialog).row, Key(-1));
        dialog.reject();
    });
    stock.place(milk);
    QCOMPARE(script.left(), 0);
    QCOMPARE(stock.number("SELECT count(*) FROM groc_1"), 1);
}

/// A list of all rows that is longer than the grid; the new row belongs far below what is on show.
void tst_placing_use::in_the_all_lists_view_the_new_row_is_brought_into_view_and_chosen()
{
    Stock stock;
    const Key zest = stock.item(QStringLiteral("Zest"));
    const Key weekly = stock.add_list(QStringLiteral("Weekly"));
    stock.add_list(QStringLiteral("Camping"));
    for (int i = 0; i < 80; ++i)
        stock.add_row(stock.item(QStringLiteral("Item %1").arg(i, 2)), weekly, false);
    stock.set_pref(QStringLiteral("alist"), QStringLiteral("0"));
    stock.open();
    ListGrid& grid = stock.main().list_pane().grid();
    QCOMPARE(grid.top_row(), 0);
    MessageScript script;
    script.drive([&](QDialog& dialog) {
        EditorHands hands(dialog, script);
        hands.click_cell(1, GridColumn::light);
        hands.press_ok();
    });
    stock.place(zest);
    QCOMPARE(script.left(), 0);
    QCOMPARE(stock.rows().rows(), 81);
    QCOMPARE(grid.rows().row(grid.current_row()).item_key, zest);
    QVERIFY(grid.row_is_visible(grid.current_row()));
}

void tst_placing_use::without_lists_the_menu_and_the_box_say_so()
{
    Stock stock;
    const Key milk = stock.item(QStringLiteral("Milk"));
    const Key bread = stock.item(QStringLiteral("Bread"));
    stock.add_row(bread, -1, false);
    stock.open();
    const QStringList before = table_dump(stock.db());
    {
        MessageScript script;
        script.expect(QStringLiteral("No lists"), no_lists_text);
        stock.click_box(milk);
    }
    {
        MessageScript script;
        script.expect(QStringLiteral("No lists"), no_lists_text);
        stock.place(milk);
    }
    const QString question
        = QStringLiteral("There is already an inactive Bread\n stock item on the All list -\n\n"
                         "Do you want to add another?\n\nChoose YES to add another, NO to Cancel:");
    {
        MessageScript script;
        script.expect(QStringLiteral("Question"), question, Answer::yes);
        script.expect(QStringLiteral("No lists"), no_lists_text);
        stock.place(bread);
    }
    {
        MessageScript script;
        script.expect(QStringLiteral("Question"), question, Answer::no);
        stock.click_box(bread);
    }
    QCOMPARE(table_dump(stock.db()), before);
}

void tst_placing_use::a_selected_category_is_not_placed_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("menu of the window") << QStringLiteral("mnu_edit_stock_to_list");
    QTest::newRow("menu of the tree") << QStringLiteral("mnu_tv_ai");
}

/// The key of the category ends like that of an item.
void tst_placing_use::a_selected_category_is_not_placed()
{
    QFETCH(QString, command);
    Stock stock;
    QCOMPARE(stock.item(QStringLiteral("Milk")), stock.dairy);
    const Key list = stock.add_list(QStringLiteral("Weekly"));
    stock.set_pref(QStringLiteral("alist"), QString::number(list));
    stock.open();
    const QStringList before = table_dump(stock.db());
    QTreeWidgetItem* folder = stock.tree().node(QStringLiteral("cat") + key_str(stock.dairy));
    QAction& action = stock.main().commands().action(command);
    stock.click_node(stock.main().stock_tree().item_node(1));
    QVERIFY(action.isEnabled());
    stock.click_node(folder);
    QCOMPARE(stock.tree().selected(), folder);
    QVERIFY(!action.isEnabled());
    QCOMPARE(table_dump(stock.db()), before);
    QCOMPARE(stock.rows().rows(), 0);
}

QTEST_MAIN(tst_placing_use)
#include "tst_placing_use.moc"
