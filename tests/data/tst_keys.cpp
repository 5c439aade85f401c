#include "data/keys.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "support/test_window.h"
#include "support/error_number.h"

#include <QTest>

using namespace tarnwick;

class tst_keys : public QObject {
    Q_OBJECT
private slots:
    void get_node_is_the_same_in_every_table_data();
    void get_node_is_the_same_in_every_table();
    void get_node_data();
    void get_node();
    void key_past_32767_is_an_overflow();
};

void tst_keys::get_node_is_the_same_in_every_table_data()
{
    QTest::addColumn<Table>("table");
    QTest::newRow("cat") << Table::cat;
    QTest::newRow("items_1") << Table::items_1;
    QTest::newRow("groc_1") << Table::groc_1;
    QTest::newRow("tie") << Table::tie;
    QTest::newRow("list_name") << Table::list_name;
    QTest::newRow("recipe_1") << Table::recipe_1;
    QTest::newRow("recipe_2") << Table::recipe_2;
}

void tst_keys::get_node_is_the_same_in_every_table()
{
    QFETCH(Table, table);
    TestWindow window;
    const std::string insert = std::string("INSERT INTO ") + QTest::currentDataTag() + " (key_id) VALUES (?)";
    const auto next_after = [&](int key) {
        Query(window.db(), insert, key).run();
        return int(tarnwick::get_node(window.db(), table));
    };
    QCOMPARE(int(tarnwick::get_node(window.db(), table)), 1);
    QCOMPARE(next_after(-2), 1);
    QCOMPARE(next_after(2), 3);
    QCOMPARE(next_after(4), 1);
    QCOMPARE(next_after(1), 5);
    QCOMPARE(next_after(5), 3);
    QCOMPARE(next_after(3), 6);
}

void tst_keys::get_node_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("next");
    QTest::newRow("empty table gives 1") << QList<int>{} << 1;
    QTest::newRow("1 2 3 gives 4") << QList<int>{1, 2, 3} << 4;
    QTest::newRow("2 3 gives 1") << QList<int>{2, 3} << 1;
    QTest::newRow("single 2 gives 3") << QList<int>{2} << 3;
    QTest::newRow("1 2 5 gives 6") << QList<int>{1, 2, 5} << 6;
    QTest::newRow("1 3 4 gives 2") << QList<int>{1, 3, 4} << 2;
    QTest::newRow("keys below 1 are never seen") << QList<int>{-3, 0, 1, 3, 4} << 2;
    QTest::newRow("first of two gaps") << QList<int>{1, 2, 4, 6, 7, 8} << 3;
}

void tst_keys::get_node()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, next);
    TestWindow window;
    for (const int key : keys)
        Query(window.db(), "INSERT INTO groc_1 (key_id) VALUES (?)", key).run();
    QCOMPARE(int(tarnwick::get_node(window.db(), Table::groc_1)), next);
}

void tst_keys::key_past_32767_is_an_overflow()
{
    TestWindow window;
    Query(window.db(), "INSERT INTO tie (key_id) VALUES (32767)").run();
    QCOMPARE(error_number([&] { tarnwick::get_node(window.db(), Table::tie); }), int(runtime_error::overflow));
}

QTEST_MAIN(tst_keys)
#include "tst_keys.moc"
