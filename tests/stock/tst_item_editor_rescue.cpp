#include "household/rescue.h"
#include "stock/item_editor_fixture.h"
#include "window/rescuer.h"

using namespace tarnwick;

/// What stands in the item editor when an error ends the program.
class tst_item_editor_rescue : public QObject {
    Q_OBJECT
private slots:
    void a_new_item_is_rescued_with_the_texts_of_its_rows();
    void a_changed_item_is_rescued();
    void an_editor_in_which_nothing_was_typed_is_no_rescue_data();
    void an_editor_in_which_nothing_was_typed_is_no_rescue();
    void a_cancelled_or_stored_editor_is_no_rescue();
};

namespace {

std::optional<Rescue> rescued(EditorCase& test)
{
    frmmain& main = test.window.main();
    rescue_typed(main.recipe_page(), main.list_pane(), test.window.database());
    const QStringList files = rescue_files(test.window.database());
    return files.isEmpty() ? std::nullopt : read_rescue(files.first());
}

} // namespace

void tst_item_editor_rescue::a_new_item_is_rescued_with_the_texts_of_its_rows()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    std::optional<Rescue> rescue;
    test.open(0, -1, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Soap"));
        hands.choose_category(QStringLiteral("Bakery"));
        hands.click_cell(1, GridColumn::check);
        hands.type_cell(1, "desc_brdr", QStringLiteral("the green one"));
        rescue = rescued(test);
    });
    QVERIFY(rescue && rescue->item);
    QCOMPARE(test.count("SELECT count(*) FROM items_1 WHERE item = 'Soap'"), 0);
    QVERIFY(put_back(test.window.db(), *rescue));
    QCOMPARE(test.count("SELECT cat FROM items_1 WHERE item = 'Soap'"), int(test.bakery));
    QCOMPARE(test.list_rows(), QStringLiteral("%1:the green one:0: :1:0").arg(test.market));
}

void tst_item_editor_rescue::a_changed_item_is_rescued()
{
    EditorCase test;
    test.add_lists();
    test.window.add_row(test.milk, test.weekly, true, QStringLiteral("cold"));
    test.window.load();
    std::optional<Rescue> rescue;
    test.open(2, test.milk, [&](EditorHands& hands) {
        hands.type_name(QStringLiteral("Oat milk"));
        hands.type_cell(0, "desc_brdr", QStringLiteral("warm"));
        rescue = rescued(test);
    });
    QVERIFY(rescue && rescue->item);
    QVERIFY(put_back(test.window.db(), *rescue));
    QCOMPARE(test.window.text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Oat milk,Bread"));
    QCOMPARE(test.window.text("SELECT desc FROM groc_1"), QStringLiteral("warm"));
}

void tst_item_editor_rescue::an_editor_in_which_nothing_was_typed_is_no_rescue_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("a new item") << 0;
    QTest::newRow("a proposed placing") << 1;
    QTest::newRow("an item") << 2;
}

void tst_item_editor_rescue::an_editor_in_which_nothing_was_typed_is_no_rescue()
{
    QFETCH(int, mode);
    EditorCase test;
    test.add_lists();
    test.marked_list = test.weekly;
    test.window.load();
    test.open(mode, mode == 0 ? Key(-1) : test.milk, [&](EditorHands&) { QVERIFY(!rescued(test)); });
}

void tst_item_editor_rescue::a_cancelled_or_stored_editor_is_no_rescue()
{
    EditorCase test;
    test.add_lists();
    test.window.load();
    for (const bool stored : {true, false}) {
        test.open(2, test.milk, [&](EditorHands& hands) {
            hands.type_cell(0, "desc_brdr", QStringLiteral("warm"));
            hands.click_cell(0, GridColumn::check);
            stored ? hands.press_ok() : hands.press_cancel();
            QVERIFY(!hands.dialog.isVisible());
        });
        QVERIFY(!rescued(test));
    }
}

QTEST_MAIN(tst_item_editor_rescue)
#include "tst_item_editor_rescue.moc"
