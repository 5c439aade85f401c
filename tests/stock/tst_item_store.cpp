#include "household/item_store.h"

#include "data/query.h"
#include "household/status.h"
#include "support/test_window.h"

#include <SQLiteCpp/Exception.h>

#include <QTest>

using namespace tarnwick;

class tst_item_store : public QObject {
    Q_OBJECT
private slots:
    void lists_of_gives_each_list_with_its_rows_in_order();
    void lists_of_a_new_item_are_all_empty();
    void rows_of_one_query_equal_those_of_a_query_per_list();
    void categories_by_name_without_other();
    void item_and_line_look_ups();
    void name_in_use_ignores_case_and_takes_patterns();
    void row_on_list_is_the_first_or_minus_one();
    void add_item_writes_all_fields_and_fills_gaps();
    void change_row_writes_blanks_for_empty_texts();
    void coupon_off_keeps_its_date();
    void change_of_a_vanished_row_is_no_error();
    void complete_row_touches_only_what_is_given();
    void rename_reaches_all_lists_and_no_other_item();
    void links_follow_names();
    void odd_texts_come_back_unharmed_data();
    void odd_texts_come_back_unharmed();
    void a_failing_write_takes_the_transaction_back();

private:
    static void line(TestWindow& window, int key, Key item, const char* name)
    {
        Query(window.db(), "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item) VALUES (?, 1, ?, ?)", key, item,
              QString(QLatin1String(name)))
            .run();
    }
};

void tst_item_store::lists_of_gives_each_list_with_its_rows_in_order()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    const Key other = window.add_item(QStringLiteral("Bread"), 0);
    const Key first = window.add_list(QStringLiteral("Zebra"));
    const Key second = window.add_list(QStringLiteral("Apple"));
    const Key third = window.add_list(QStringLiteral("Mango"));
    const Key a = window.add_row(item, third, true, QStringLiteral("a"), QStringLiteral("1"), QStringLiteral("7"));
    const Key b = window.add_row(item, first, false, QStringLiteral("b"));
    const Key c = window.add_row(item, third, false, QStringLiteral("c"));
    window.add_row(other, second, true);
    window.add_row(item, 99, true); // its list is gone
    Query(window.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-05-06' WHERE key_id = ?", a).run();

    const auto lists = ItemStore(window.db()).lists_of(item);
    QCOMPARE(lists.size(), size_t(3));
    QCOMPARE(lists[0].list_name, QStringLiteral("Zebra"));
    QCOMPARE(lists[0].list_key, first);
    QCOMPARE(lists[0].rows.size(), size_t(1));
    QCOMPARE(lists[0].rows[0].groc_key, b);
    QVERIFY(!lists[0].rows[0].to_get);
    QVERIFY(lists[1].rows.empty());
    QCOMPARE(lists[2].rows.size(), size_t(2));
    const EditedRow& row = lists[2].rows[0];
    QCOMPARE(row.groc_key, a);
    QVERIFY(row.to_get);
    QVERIFY(row.cpn);
    QCOMPARE(row.desc, QStringLiteral("a"));
    QCOMPARE(row.qty, QStringLiteral("1"));
    QCOMPARE(row.aisle, QStringLiteral("7"));
    QCOMPARE(row.created, QDate(2026, 5, 6));
    QCOMPARE(lists[2].rows[1].groc_key, c);
}

void tst_item_store::lists_of_a_new_item_are_all_empty()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    window.add_row(window.add_item(QStringLiteral("Milk"), 0), list, true);
    const auto lists = ItemStore(window.db()).lists_of(-1);
    QCOMPARE(lists.size(), size_t(1));
    QVERIFY(lists[0].rows.empty());
}

void tst_item_store::rows_of_one_query_equal_those_of_a_query_per_list()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    for (int i = 0; i < 5; ++i)
        window.add_list(QStringLiteral("List %1").arg(i));
    for (const int list : {3, 1, 5, 3, 1, 3})
        window.add_row(item, static_cast<Key>(list), list == 3);
    for (const ListOfItem& list : ItemStore(window.db()).lists_of(item)) {
        Query alone(window.db(),
                    "SELECT g1.key_id FROM groc_1 g1, tie t WHERE g1.key_id = t.groc_id AND t.item_id = ?"
                    " AND t.list = ?",
                    item, list.list_key);
        std::vector<Key> keys;
        while (alone.next())
            keys.push_back(alone.key(0));
        QCOMPARE(list.rows.size(), keys.size());
        for (size_t i = 0; i < keys.size(); ++i)
            QCOMPARE(list.rows[i].groc_key, keys[i]);
    }
}

void tst_item_store::categories_by_name_without_other()
{
    TestWindow window;
    window.add_category(QStringLiteral("Meat"));
    window.add_category(QStringLiteral("bakery"));
    const auto entries = ItemStore(window.db()).categories();
    QCOMPARE(entries.size(), size_t(2));
    QCOMPARE(entries[0].name, QStringLiteral("bakery"));
    QCOMPARE(int(entries[0].key), 2);
    QCOMPARE(entries[1].name, QStringLiteral("Meat"));
}

void tst_item_store::item_and_line_look_ups()
{
    TestWindow window;
    const Key category = window.add_category(QStringLiteral("Dairy"));
    const Key item = window.add_item(QStringLiteral("Milk"), category);
    line(window, 1, item, "Warm milk");
    line(window, 2, -1, "Salt");
    ItemStore store(window.db());
    QCOMPARE(store.item(item)->name, QStringLiteral("Milk"));
    QCOMPARE(store.item(item)->category, category);
    QVERIFY(!store.item(50));
    QCOMPARE(store.item_of_line(1)->key, item);
    QVERIFY(!store.item_of_line(2));
    QCOMPARE(*store.line_name(2), QStringLiteral("Salt"));
    QVERIFY(!store.line_name(3));
}

void tst_item_store::name_in_use_ignores_case_and_takes_patterns()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Crème"), 0);
    ItemStore store(window.db());
    QVERIFY(store.name_in_use(QStringLiteral("CRÈME"), -1));
    QVERIFY(!store.name_in_use(QStringLiteral("CRÈME"), item));
    QVERIFY(store.name_in_use(QStringLiteral("cr%"), -1));
    QVERIFY(store.name_in_use(QStringLiteral("cr_me"), -1));
    QVERIFY(!store.name_in_use(QStringLiteral("creme"), -1));
    QVERIFY(!store.name_in_use(QStringLiteral("' OR 1 = 1 --"), -1));
}

void tst_item_store::row_on_list_is_the_first_or_minus_one()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    const Key list = window.add_list(QStringLiteral("Weekly"));
    ItemStore store(window.db());
    QCOMPARE(int(store.row_on_list(item, list)), -1);
    const Key first = window.add_row(item, list, true);
    window.add_row(item, list, true);
    QCOMPARE(store.row_on_list(item, list), first);
    QCOMPARE(int(store.row_on_list(item, 0)), -1);
}

void tst_item_store::add_item_writes_all_fields_and_fills_gaps()
{
    TestWindow window;
    for (const int key : {1, 3, 4})
        Query(window.db(), "INSERT INTO items_1 (key_id, item) VALUES (?, 'x')", key).run();
    const Key key = ItemStore(window.db()).add_item(QStringLiteral("Milk"), 7, window.date);
    QCOMPARE(int(key), 2);
    QCOMPARE(window.text("SELECT item || '|' || cat || '|' || status || '|' || to_get || '|' || qty || '|' || desc"
                         " || '|' || modified || '|' || created FROM items_1 WHERE key_id = 2"),
             QStringLiteral("Milk|7|5|0|0| |2026-03-14|2026-03-14"));
}

void tst_item_store::change_row_writes_blanks_for_empty_texts()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    const Key row = window.add_row(item, 1, false, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    const Key other = window.add_row(item, 2, false, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    RowChange change;
    change.groc_key = row;
    change.to_get = true;
    change.cpn = true;
    change.created = QDate(2027, 1, 2);
    ItemStore(window.db()).change_row(change);
    const char* all = "SELECT desc || '|' || qty || '|' || aisle || '|' || to_get || '|' || cpn || '|' || created"
                      " FROM groc_1 ORDER BY key_id";
    QCOMPARE(window.text(all), QStringLiteral(" | | |1|1|2027-01-02"));
    QCOMPARE(window.text("SELECT desc || qty || aisle || to_get || cpn FROM groc_1 WHERE key_id = 2"),
             QStringLiteral("abc00"));
    QCOMPARE(int(other), 2);
}

void tst_item_store::coupon_off_keeps_its_date()
{
    TestWindow window;
    const Key row = window.add_row(window.add_item(QStringLiteral("Milk"), 0), 1, false);
    Query(window.db(), "UPDATE groc_1 SET cpn = 1, created = '2026-12-24' WHERE key_id = ?", row).run();
    RowChange change;
    change.groc_key = row;
    change.created = QDate(2030, 1, 1); // no part of a row without a coupon
    ItemStore store(window.db());
    store.change_row(change);
    QCOMPARE(window.text("SELECT cpn || created FROM groc_1"), QStringLiteral("02026-12-24"));
    QCOMPARE(store.expiry(row), QDate(2026, 12, 24));
    change.cpn = true;
    change.created = {};
    store.change_row(change);
    QCOMPARE(window.text("SELECT cpn || created FROM groc_1"), QStringLiteral("12026-12-24"));
}

void tst_item_store::change_of_a_vanished_row_is_no_error()
{
    TestWindow window;
    RowChange change;
    change.groc_key = 5;
    ItemStore(window.db()).change_row(change);
    QCOMPARE(window.number("SELECT count(*) FROM groc_1"), 0);
}

void tst_item_store::complete_row_touches_only_what_is_given()
{
    TestWindow window;
    const Key row = window.add_row(window.add_item(QStringLiteral("Milk"), 0), 1, true, QStringLiteral("d"),
                                   QStringLiteral("2"));
    ItemStore store(window.db());
    store.complete_row(row, QStringLiteral("2 lb"), {});
    QCOMPARE(window.text("SELECT qty || '|' || cpn || '|' || created FROM groc_1"),
             QStringLiteral("2 lb|0|2026-03-14"));
    store.complete_row(row, {}, QDate(2026, 8, 9));
    QCOMPARE(window.text("SELECT qty || '|' || cpn || '|' || created FROM groc_1"),
             QStringLiteral("2 lb|1|2026-08-09"));
}

void tst_item_store::rename_reaches_all_lists_and_no_other_item()
{
    TestWindow window;
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    const Key bread = window.add_item(QStringLiteral("Bread"), 0);
    window.add_row(milk, 1, true);
    window.add_row(bread, 1, true);
    window.add_row(milk, 2, true);
    window.date = QDate(2026, 3, 20);
    ItemStore(window.db()).rename_item(milk, QStringLiteral("Cream"), window.date);
    QCOMPARE(window.text("SELECT group_concat(item) FROM groc_1"), QStringLiteral("Cream,Bread,Cream"));
    QCOMPARE(window.text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Cream,Bread"));
    QCOMPARE(window.text("SELECT modified || created FROM items_1 WHERE key_id = 1"),
             QStringLiteral("2026-03-202026-03-14"));
}

void tst_item_store::links_follow_names()
{
    TestWindow window;
    const Key milk = window.add_item(QStringLiteral("Milk"), 0);
    line(window, 1, milk, "Milk");
    line(window, 2, milk, "Warm milk");
    line(window, 3, -1, "CREAM");
    line(window, 4, -1, "Salt");
    line(window, 5, 77, "Cream");
    ItemStore store(window.db());
    store.unlink_lines(milk);
    store.link_lines(QStringLiteral("Cream"), milk);
    QCOMPARE(window.text("SELECT group_concat(item_ref) FROM (SELECT item_ref FROM recipe_2 ORDER BY key_id)"),
             QStringLiteral("-1,-1,1,-1,77"));
    store.link_line(4, milk);
    store.link_line(-1, milk);
    QCOMPARE(window.text("SELECT group_concat(item_ref) FROM (SELECT item_ref FROM recipe_2 ORDER BY key_id)"),
             QStringLiteral("-1,-1,1,1,77"));
    QCOMPARE(window.text("SELECT group_concat(item) FROM recipe_2"),
             QStringLiteral("Milk,Warm milk,CREAM,Salt,Cream"));
}

void tst_item_store::odd_texts_come_back_unharmed_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes") << QStringLiteral("a \"b\" 'c' `d`; DROP TABLE cat --");
    QTest::newRow("patterns") << QStringLiteral("100% _x_");
    QTest::newRow("emoji") << QStringLiteral("🥛 crème Ж 牛奶");
    QTest::newRow("10,000 characters") << QString(10000, u'x');
}

void tst_item_store::odd_texts_come_back_unharmed()
{
    QFETCH(QString, text);
    TestWindow window;
    ItemStore store(window.db());
    const Key item = store.add_item(text, 0, window.date);
    QCOMPARE(store.item(item)->name, text);
    QVERIFY(store.name_in_use(text, -1));
    const Key list = window.add_list(text);
    const Key row = window.add_row(item, list, true);
    RowChange change;
    change.groc_key = row;
    change.desc = change.qty = change.aisle = text;
    store.change_row(change);
    const auto lists = store.lists_of(item);
    QCOMPARE(lists[0].list_name, text);
    QCOMPARE(lists[0].rows[0].desc, text);
    QCOMPARE(lists[0].rows[0].qty, text);
    QCOMPARE(lists[0].rows[0].aisle, text);
    store.rename_item(item, text + text, window.date);
    QCOMPARE(window.text("SELECT item FROM groc_1"), text + text);
}

void tst_item_store::a_failing_write_takes_the_transaction_back()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    window.add_row(item, 1, true);
    Query(window.db(),
          "CREATE TEMP TRIGGER no_rows BEFORE UPDATE ON groc_1 BEGIN SELECT RAISE(ABORT, 'disk full'); END")
        .run();
    const auto rename = [&] {
        Transaction transaction(window.db());
        ItemStore(window.db()).rename_item(item, QStringLiteral("Cream"), window.date);
        transaction.commit();
    };
    QVERIFY_EXCEPTION_THROWN(rename(), SQLite::Exception);
    QCOMPARE(window.text("SELECT item FROM items_1"), QStringLiteral("Milk"));
}

QTEST_MAIN(tst_item_store)
#include "tst_item_store.moc"
