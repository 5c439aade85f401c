#include "data/query.h"
#include "household/category_store.h"
#include "household/stock_keeping.h"
#include "household/stock_store.h"
#include "support/table_dump.h"
#include "support/test_window.h"

#include <QTest>

#include <algorithm>

using namespace tarnwick;

namespace {

/// A household with two categories, an item on two lists, one on none, and a recipe that needs them.
struct Kitchen : TestWindow {
    Key dairy = add_category(QStringLiteral("Dairy"));
    Key bakery = add_category(QStringLiteral("Bakery"));
    Key milk = add_item(QStringLiteral("Milk"), dairy);
    Key cream = add_item(QStringLiteral("Cream"), dairy);
    Key bread = add_item(QStringLiteral("Bread"), bakery);
    Key shop = add_list(QStringLiteral("Shop"));
    Key market = add_list(QStringLiteral("Market"));
    Key milk_shop = add_row(milk, shop, true);
    Key milk_market = add_row(milk, market, false);
    Key bread_shop = add_row(bread, shop, true);

    Kitchen()
    {
        line(1, QStringLiteral("milk"), milk);
        line(2, QStringLiteral("cream"), cream);
        line(3, QStringLiteral("bread"), bread);
        line(4, QStringLiteral("oat drink"), -1);
    }
    void line(Key key, const QString& name, Key item)
    {
        Query(db(),
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " VALUES (?, 1, ?, ?, ' ', ' ', ' ', ?)",
              key, item, name, key)
            .run();
    }
    QString refs()
    {
        return text("SELECT group_concat(item_ref, ' ') FROM (SELECT item_ref FROM recipe_2 ORDER BY key_id)");
    }
    QString refs_of(std::initializer_list<int> keys)
    {
        QStringList texts;
        for (const int key : keys)
            texts.append(QString::number(key));
        return texts.join(u' ');
    }
};

} // namespace

class tst_stock_keeping : public QObject {
    Q_OBJECT
private slots:
    void lists_of_an_item_come_in_the_order_of_placing();
    void contents_of_a_category_count_items_and_those_on_lists_once();
    void a_deleted_item_takes_rows_and_links_and_leaves_recipe_lines_as_non_stock();
    void a_deleted_category_takes_its_items_and_no_others();
    void other_and_categories_that_are_gone_are_not_deleted();
    void an_item_that_is_gone_is_not_deleted();
    void links_that_point_at_nothing_go_with_a_deletion();
    void a_renamed_item_renames_its_rows_loses_its_lines_and_finds_those_of_the_new_name();
    void signs_of_patterns_in_a_name_stand_for_themselves();
    void an_item_is_moved_once_and_only_to_a_category_that_exists();
    void categories_are_compared_by_their_very_names_in_any_case();
    void nothing_is_written_when_a_step_fails();
    void names_of_10000_characters_and_odd_signs_are_kept();
    void keys_of_every_size_are_told_apart();
};

void tst_stock_keeping::lists_of_an_item_come_in_the_order_of_placing()
{
    Kitchen k;
    QCOMPARE(lists_with_item(k.db(), k.milk),
             (std::vector<QString>{QStringLiteral("Shop"), QStringLiteral("Market")}));
    std::vector<Key> lists;
    for (const TiedRow& row : clickable_rows(k.db(), k.milk))
        lists.push_back(row.list_key);
    QCOMPARE(lists, (std::vector<Key>{k.shop, k.market}));
    QVERIFY(lists_with_item(k.db(), k.cream).empty());
}

void tst_stock_keeping::contents_of_a_category_count_items_and_those_on_lists_once()
{
    Kitchen k;
    const auto contents = contents_of(k.db(), k.dairy);
    QVERIFY(contents);
    QCOMPARE(contents->name, QStringLiteral("Dairy"));
    QCOMPARE(contents->items, 2);
    QCOMPARE(contents->listed, 1);
    QVERIFY(!contents_of(k.db(), 99));
}

void tst_stock_keeping::a_deleted_item_takes_rows_and_links_and_leaves_recipe_lines_as_non_stock()
{
    Kitchen k;
    const auto gone = delete_item_record(k.db(), k.milk);
    QVERIFY(gone);
    QCOMPARE(gone->items, std::vector<Key>{k.milk});
    QCOMPARE(gone->rows, (std::vector<Key>{k.milk_shop, k.milk_market}));
    QVERIFY(!gone->category);
    QCOMPARE(k.number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(k.number("SELECT count(*) FROM tie"), 1);
    QCOMPARE(k.number("SELECT count(*) FROM items_1"), 2);
    QCOMPARE(k.refs(), k.refs_of({-1, k.cream, k.bread, -1}));
    QCOMPARE(k.text("SELECT item FROM recipe_2 WHERE key_id = 1"), QStringLiteral("milk"));
}

void tst_stock_keeping::a_deleted_category_takes_its_items_and_no_others()
{
    Kitchen k;
    const auto gone = delete_category_record(k.db(), k.dairy);
    QVERIFY(gone);
    QCOMPARE(gone->items.size(), 2U);
    QCOMPARE(gone->rows.size(), 2U);
    QCOMPARE(gone->category, std::optional<Key>(k.dairy));
    QCOMPARE(k.number("SELECT count(*) FROM cat WHERE cat_desc = 'Dairy'"), 0);
    QCOMPARE(k.text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Bread"));
    QCOMPARE(k.text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Bread"));
    QCOMPARE(k.refs(), k.refs_of({-1, -1, k.bread, -1}));
}

void tst_stock_keeping::other_and_categories_that_are_gone_are_not_deleted()
{
    Kitchen k;
    const QStringList before = table_dump(k.db());
    QVERIFY(!delete_category_record(k.db(), 0));
    QVERIFY(!delete_category_record(k.db(), 99));
    QCOMPARE(table_dump(k.db()), before);
}

void tst_stock_keeping::an_item_that_is_gone_is_not_deleted()
{
    Kitchen k;
    const QStringList before = table_dump(k.db());
    QVERIFY(!delete_item_record(k.db(), 99));
    QVERIFY(!rename_item_record(k.db(), 99, QStringLiteral("Tea")));
    QVERIFY(!rename_category_record(k.db(), 99, QStringLiteral("Tea")));
    QCOMPARE(table_dump(k.db()), before);
}

void tst_stock_keeping::links_that_point_at_nothing_go_with_a_deletion()
{
    Kitchen k;
    Query(k.db(), "INSERT INTO tie (key_id, groc_id, list, item_id) VALUES (50, 0, ?, ?)", k.shop, k.bread).run();
    Query(k.db(), "INSERT INTO tie (key_id, groc_id, list, item_id) VALUES (51, ?, ?, 999)", k.bread_shop, k.shop)
        .run();
    QVERIFY(delete_item_record(k.db(), k.milk));
    QCOMPARE(k.number("SELECT count(*) FROM tie WHERE key_id IN (50, 51)"), 0);
    QCOMPARE(k.number("SELECT count(*) FROM tie"), 1);
}

void tst_stock_keeping::a_renamed_item_renames_its_rows_loses_its_lines_and_finds_those_of_the_new_name()
{
    Kitchen k;
    QVERIFY(rename_item_record(k.db(), k.milk, QStringLiteral("Oat Drink")));
    QCOMPARE(k.text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Oat Drink"));
    QCOMPARE(k.number("SELECT count(*) FROM groc_1 WHERE item = 'Oat Drink'"), 2);
    QCOMPARE(k.refs(), k.refs_of({-1, k.cream, k.bread, k.milk}));
}

void tst_stock_keeping::signs_of_patterns_in_a_name_stand_for_themselves()
{
    Kitchen k;
    k.line(5, QStringLiteral("50% juice"), -1);
    k.line(6, QStringLiteral("500 juice"), -1);
    k.line(7, QStringLiteral("a\\b"), -1);
    QVERIFY(rename_item_record(k.db(), k.milk, QStringLiteral("50% JUICE")));
    QCOMPARE(k.number("SELECT item_ref FROM recipe_2 WHERE key_id = 5"), int(k.milk));
    QCOMPARE(k.number("SELECT item_ref FROM recipe_2 WHERE key_id = 6"), -1);
    QVERIFY(rename_item_record(k.db(), k.bread, QStringLiteral("A\\B")));
    QCOMPARE(k.number("SELECT item_ref FROM recipe_2 WHERE key_id = 7"), int(k.bread));
    QVERIFY(!category_name_taken(k.db(), QStringLiteral("D_iry")));
    QVERIFY(!category_name_taken(k.db(), QStringLiteral("%")));
}

void tst_stock_keeping::an_item_is_moved_once_and_only_to_a_category_that_exists()
{
    Kitchen k;
    QCOMPARE(move_item_record(k.db(), k.milk, k.bakery), Moved::yes);
    QCOMPARE(move_item_record(k.db(), k.milk, k.bakery), Moved::was_there);
    QCOMPARE(move_item_record(k.db(), k.milk, 99), Moved::no_category);
    QCOMPARE(move_item_record(k.db(), 99, k.bakery), Moved::no_item);
    QCOMPARE(category_of(k.db(), k.milk), std::optional(k.bakery));
    QCOMPARE(category_of(k.db(), 99), std::nullopt);
    QCOMPARE(move_item_record(k.db(), k.milk, 0), Moved::yes);
    QCOMPARE(k.number("SELECT cat FROM items_1 WHERE key_id = 1"), 0);
}

void tst_stock_keeping::categories_are_compared_by_their_very_names_in_any_case()
{
    Kitchen k;
    QVERIFY(category_name_taken(k.db(), QStringLiteral("DAIRY")));
    QVERIFY(!category_name_taken(k.db(), QStringLiteral("Dair")));
    QVERIFY(rename_category_record(k.db(), k.dairy, QStringLiteral("Milk\nand more 50%")));
    QVERIFY(category_name_taken(k.db(), QStringLiteral("milk and more 50%")));
    QVERIFY(!category_name_taken(k.db(), QStringLiteral("milk and more 500")));
    QVERIFY(!rename_category_record(k.db(), 0, QStringLiteral("Rest")));
}

void tst_stock_keeping::nothing_is_written_when_a_step_fails()
{
    Kitchen k;
    Query(
        k.db(),
        "CREATE TRIGGER stop BEFORE DELETE ON items_1 WHEN OLD.item = 'Cream' BEGIN SELECT raise(ABORT, 'no'); END")
        .run();
    const QStringList before = table_dump(k.db());
    QVERIFY_EXCEPTION_THROWN(delete_category_record(k.db(), k.dairy), std::exception);
    QCOMPARE(table_dump(k.db()), before);
}

void tst_stock_keeping::names_of_10000_characters_and_odd_signs_are_kept()
{
    Kitchen k;
    for (const QString& name :
         {QString(10000, u'x'), QStringLiteral("Bo\"b' %_ \U0001F95A é"), QStringLiteral("a;b--")}) {
        QVERIFY(rename_item_record(k.db(), k.milk, name));
        QCOMPARE(k.text("SELECT item FROM items_1 WHERE key_id = 1"), name);
        QCOMPARE(k.text("SELECT item FROM groc_1 WHERE key_id = 1"), name);
    }
}

void tst_stock_keeping::keys_of_every_size_are_told_apart()
{
    for (const int key : {9999, 10000, 32767}) {
        Kitchen k;
        const Key big = Key(key);
        Query(k.db(), "UPDATE items_1 SET key_id = ?, cat = ? WHERE key_id = ?", big, big, k.milk).run();
        Query(k.db(), "UPDATE cat SET key_id = ? WHERE key_id = ?", big, k.dairy).run();
        for (const char* link : {"UPDATE tie SET item_id = ? WHERE item_id = ?",
                                 "UPDATE recipe_2 SET item_ref = ? WHERE item_ref = ?"})
            Query(k.db(), link, big, k.milk).run();
        QVERIFY(rename_item_record(k.db(), big, QStringLiteral("Oat drink")));
        QCOMPARE(k.refs(), k.refs_of({-1, k.cream, k.bread, key}));
        QVERIFY(rename_category_record(k.db(), big, QStringLiteral("Drinks")));
        QCOMPARE(move_item_record(k.db(), k.bread, big), Moved::yes);
        QCOMPARE(k.text("SELECT cat_desc FROM cat WHERE key_id = 0"), QStringLiteral("OTHER"));
        const auto gone = delete_category_record(k.db(), big);
        QVERIFY(gone);
        QCOMPARE(gone->items, (std::vector<Key>{k.bread, big}));
        QCOMPARE(k.text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Cream"));
        QCOMPARE(k.number("SELECT count(*) FROM tie"), 0);
    }
}

QTEST_MAIN(tst_stock_keeping)
#include "tst_stock_keeping.moc"
