#include "household/household.h"
#include "stock/item_editor_fixture.h"
#include "support/last_placed.h"
#include "support/shown_things.h"

#include "recipes/line_widgets.h"
#include "recipes/recipe_page.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace tarnwick;

namespace {

QStringList names_in(const QTreeWidgetItem& folder)
{
    QStringList names;
    for (int i = 0; i < folder.childCount(); ++i)
        names << folder.child(i)->text(0);
    return names;
}

/// The household with a recipe on show.
class RecipeCase : public EditorCase {
public:
    void load()
    {
        Query(window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', ' ', '11')")
            .run();
        Query(window.db(), "UPDATE recipe_2 SET \"order\" = key_id").run();
        window.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
        window.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
        window.load();
    }

    /// Stock item, light and tool tip of each line.
    QStringList page_lines()
    {
        QStringList shown;
        for (const IngredientLine& line : window.main().recipe_page().lines())
            shown << QStringLiteral("%1|%2|%3")
                         .arg(line.Check1->property("Tag").toInt())
                         .arg(picture_of(*line.lite) - window.main().shared.color_index)
                         .arg(line.ingred->toolTip());
        return shown;
    }
};

} // namespace

/// What the main window shows after OK: the tree's order, the recipe page.
class tst_item_editor_shown : public QObject {
    Q_OBJECT
private slots:
    void item_renamed_and_moved_at_once_stands_at_its_new_name();
    void new_item_finds_its_place_in_a_folder_with_a_renamed_item_data();
    void new_item_finds_its_place_in_a_folder_with_a_renamed_item();
    void moved_item_finds_its_place_in_a_folder_with_a_renamed_item();
    void recipe_page_shows_the_links_that_the_file_has();
    void new_item_that_could_not_be_placed_is_handed_to_nobody();
    void rows_taken_off_leave_the_grid_and_the_links_are_repaired();
};

void tst_item_editor_shown::item_renamed_and_moved_at_once_stands_at_its_new_name()
{
    EditorCase test;
    for (const char* name : {"Apple pie", "Pretzel", "Zwieback"})
        test.window.add_item(QLatin1String(name), test.bakery);
    frmmain& main = test.window.load();
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Yeast"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    const QTreeWidgetItem* folder = main.stock_tree().category_node(test.bakery);
    QCOMPARE(names_in(*folder),
             QStringList({QStringLiteral("Apple pie"), QStringLiteral("Bread"), QStringLiteral("Pretzel"),
                          QStringLiteral("Yeast"), QStringLiteral("Zwieback")}));
    QCOMPARE(main.stock_tree().view().selected(), main.stock_tree().item_node(test.milk));
}

void tst_item_editor_shown::new_item_finds_its_place_in_a_folder_with_a_renamed_item_data()
{
    QTest::addColumn<QString>("sort");
    QTest::newRow("category view") << QStringLiteral("cat");
    QTest::newRow("alphabetic view") << QStringLiteral("alpha");
}

void tst_item_editor_shown::new_item_finds_its_place_in_a_folder_with_a_renamed_item()
{
    QFETCH(QString, sort);
    EditorCase test;
    const Key apples = test.window.add_item(QStringLiteral("Apple pie"), test.bakery);
    test.window.add_item(QStringLiteral("Croissant"), test.bakery);
    test.window.set_pref(QStringLiteral("sort"), sort);
    frmmain& main = test.window.load();
    const bool flat = sort == QLatin1String("alpha");
    QCOMPARE(main.shared.stock_alpha, flat);
    test.open(2, apples, [](EditorHands& hands) {
        hands.type_name(QStringLiteral("Zwieback"));
        hands.press_ok();
    });
    test.open(0, -1, [](EditorHands& hands) {
        hands.type_name(QStringLiteral("Donut"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    TreeView& tree = main.stock_tree().view();
    const QTreeWidgetItem& folder
        = flat ? *tree.invisibleRootItem() : *main.stock_tree().category_node(test.bakery);
    QStringList expected{QStringLiteral("Bread"), QStringLiteral("Croissant"), QStringLiteral("Donut")};
    if (flat)
        expected << QStringLiteral("Milk");
    expected << QStringLiteral("Zwieback");
    QCOMPARE(names_in(folder), expected);
    QTreeWidgetItem* node = tree.node(QStringLiteral("item0005"));
    QVERIFY(node);
    QCOMPARE(node->text(0), QStringLiteral("Donut"));
    QCOMPARE(tree.selected(), node);
    QVERIFY(!tree.text_rect(node).isNull());
}

void tst_item_editor_shown::moved_item_finds_its_place_in_a_folder_with_a_renamed_item()
{
    EditorCase test;
    const Key apples = test.window.add_item(QStringLiteral("Apple pie"), test.bakery);
    test.window.add_item(QStringLiteral("Croissant"), test.bakery);
    frmmain& main = test.window.load();
    test.open(2, apples, [](EditorHands& hands) {
        hands.type_name(QStringLiteral("Zwieback"));
        hands.press_ok();
    });
    test.open(2, test.milk, [](EditorHands& hands) {
        hands.choose_category(QStringLiteral("Bakery"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(names_in(*main.stock_tree().category_node(test.bakery)),
             QStringList({QStringLiteral("Bread"), QStringLiteral("Croissant"), QStringLiteral("Milk"),
                          QStringLiteral("Zwieback")}));
    QCOMPARE(main.stock_tree().view().selected(), main.stock_tree().item_node(test.milk));
}

void tst_item_editor_shown::recipe_page_shows_the_links_that_the_file_has()
{
    RecipeCase test;
    test.add_line(QStringLiteral("milks"), test.milk);
    test.add_line(QStringLiteral("milk "), test.milk);
    test.add_line(QStringLiteral("Milk"), test.milk);
    test.add_line(QStringLiteral("milk"), -1);
    test.add_line(QStringLiteral("milk"), test.bread);
    test.load();
    test.open(2, test.milk, [](EditorHands& hands) {
        hands.type_name(QStringLiteral("MILK"));
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(test.line_links(), QStringLiteral("-1,-1,1,1,2"));
    const QString unlinked = QStringLiteral("-1|171|Non-stock item");
    QCOMPARE(test.page_lines(),
             QStringList({unlinked, unlinked, QStringLiteral("1|175|Milk - Not listed :: Dairy category"),
                          QStringLiteral("1|175|milk - Not listed :: Dairy category"),
                          QStringLiteral("2|175|Bread - Not listed :: Bakery category")}));
}

void tst_item_editor_shown::new_item_that_could_not_be_placed_is_handed_to_nobody()
{
    EditorCase test;
    test.add_lists();
    frmmain& main = test.window.load();
    const LastPlaced placed(main.household());
    main.connection().db().exec("CREATE TEMP TRIGGER failing BEFORE INSERT ON tie WHEN new.list = 2"
                                " BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    test.open(0, -1, [](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.click_cell(0, GridColumn::light);
        hands.click_cell(1, GridColumn::light);
        hands.messages.expect(QStringLiteral("TarnWick"),
                              QStringLiteral("TarnWick has encountered an error\nand must shut down"));
        hands.press_ok();
        QCOMPARE(hands.messages.left(), 0);
        QCOMPARE(int(hands.request().item), -1);
    });
    QCOMPARE(int(placed.key()), -1);
    QCOMPARE(test.count("SELECT count(*) FROM items_1"), 2);
    QCOMPARE(test.count("SELECT count(*) FROM groc_1"), 0);
    QVERIFY(!main.stock_tree().item_node(3));
}

void tst_item_editor_shown::rows_taken_off_leave_the_grid_and_the_links_are_repaired()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.market, true, QStringLiteral("first"));
    test.window.add_row(test.milk, test.market, true, QStringLiteral("second"));
    const Key bread = test.window.add_row(test.bread, test.market, true);
    test.window.set_pref(QStringLiteral("alist"), QStringLiteral("2"));
    frmmain& main = test.window.load();
    GridModel& shown = main.list_pane().grid().rows();
    QCOMPARE(shown.rows(), 3);
    Query(test.window.db(), "INSERT INTO tie (key_id, item_id, groc_id, list) VALUES (99, 1, 99, 2)").run();
    test.open(2, test.milk, [](EditorHands& hands) {
        hands.click_cell(1, GridColumn::light);
        hands.click_cell(2, GridColumn::light);
        hands.press_ok();
        QVERIFY(!hands.dialog.isVisible());
    });
    QCOMPARE(shown.rows(), 1);
    QCOMPARE(shown.row(0).groc_key, bread);
    QCOMPARE(TreeView::tag(main.stock_tree().item_node(test.milk)), QStringLiteral("5"));
    QCOMPARE(status_text(main), QStringLiteral("Not listed :: Dairy category"));
    QCOMPARE(test.window.text("SELECT group_concat(groc_id) FROM tie"), QString::number(bread));
}

QTEST_MAIN(tst_item_editor_shown)
#include "tst_item_editor_shown.moc"
