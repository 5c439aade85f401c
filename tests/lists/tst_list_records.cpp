#include "household/lists_store.h"
#include "support/table_dump.h"
#include "support/test_window.h"

#include <QTest>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace tarnwick;

class tst_list_records : public QObject {
    Q_OBJECT
private slots:
    void new_list_takes_over_the_active_mark();
    void only_the_first_of_several_active_marks_is_cleared();
    void failure_while_making_a_list_changes_nothing();
    void name_is_a_pattern_in_the_duplicate_test();
    void failure_while_deleting_changes_nothing();
};

void tst_list_records::new_list_takes_over_the_active_mark()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.db().db().exec("UPDATE list_name SET active = 1");
    const Key key = insert_list(window.db(), QStringLiteral("Camping"), window.date);
    QCOMPARE(int(key), 2);
    QCOMPARE(window.text("SELECT group_concat(list_name || active || modified) FROM list_name"),
             QStringLiteral("Weekly02026-03-14,Camping12026-03-14"));
}

void tst_list_records::only_the_first_of_several_active_marks_is_cleared()
{
    TestWindow window;
    for (const char* name : {"A", "B", "C"})
        window.add_list(QString::fromLatin1(name));
    window.db().db().exec("UPDATE list_name SET active = 1 WHERE key_id > 1");
    insert_list(window.db(), QStringLiteral("D"), window.date);
    QCOMPARE(window.text("SELECT group_concat(list_name || active) FROM list_name"), QStringLiteral("A0,B0,C1,D1"));
}

void tst_list_records::failure_while_making_a_list_changes_nothing()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    window.db().db().exec("UPDATE list_name SET active = 1;"
                          "CREATE TEMP TRIGGER refuse BEFORE INSERT ON main.list_name"
                          " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const QStringList before = table_dump(window.db());
    QVERIFY_EXCEPTION_THROWN(insert_list(window.db(), QStringLiteral("Camping"), window.date), SQLite::Exception);
    QCOMPARE(table_dump(window.db()), before);
}

void tst_list_records::name_is_a_pattern_in_the_duplicate_test()
{
    TestWindow window;
    window.add_list(QStringLiteral("Weekly"));
    QVERIFY(list_name_taken(window.db(), QStringLiteral("W%")));
    QVERIFY(list_name_taken(window.db(), QStringLiteral("Week_y")));
    QVERIFY(!list_name_taken(window.db(), QStringLiteral("Week_ly")));
    QVERIFY(!list_name_taken(window.db(), QStringLiteral("Week")));
    window.db().db().exec("UPDATE list_name SET list_name = '100%'");
    QVERIFY(!list_name_taken(window.db(), QStringLiteral("100 grams")));
}

void tst_list_records::failure_while_deleting_changes_nothing()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    for (int i = 0; i < 5; ++i)
        window.add_row(window.add_item(QStringLiteral("Item %1").arg(i), 0, 7), list, true);
    window.db().db().exec("CREATE TEMP TRIGGER refuse BEFORE DELETE ON main.list_name"
                          " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const QStringList before = table_dump(window.db());
    QVERIFY_EXCEPTION_THROWN(delete_list(window.db(), list), SQLite::Exception);
    QCOMPARE(table_dump(window.db()), before);
}

QTEST_MAIN(tst_list_records)
#include "tst_list_records.moc"
