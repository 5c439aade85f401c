#include "data/integrity.h"
#include "data/query.h"
#include "lists/clearing.h"
#include "support/message_script.h"
#include "support/table_dump.h"
#include "support/test_window.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace tarnwick;

namespace {

/// Counts the warnings that stand on the splash whenever it is painted.
class SplashWatch : public QObject {
public:
    SplashWatch() { qApp->installEventFilter(this); }

    int paints = 0;
    QStringList warnings;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->objectName() == QLatin1String("frmSplash")) {
            ++paints;
            warnings.clear();
            for (int i = 0; i < 3; ++i) {
                const auto* label = watched->findChild<QLabel*>(QStringLiteral("lblWarning(%1)").arg(i));
                if (label->isVisible())
                    warnings += label->text();
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

void tie(TestWindow& window, int key, int groc, int item, int list)
{
    Query(window.db(), "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)", key, groc, item,
          list)
        .run();
}

} // namespace

class tst_integrity : public QObject {
    Q_OBJECT
private slots:
    void consistent_database_is_left_as_it_is();
    void links_to_a_missing_item_or_row_go();
    void link_with_groc_id_0_goes();
    void links_to_a_missing_list_stay();
    void nothing_else_is_repaired();
    void failure_in_the_second_pass_takes_the_first_back();
    void clearing_a_list_ends_with_the_check_data();
    void clearing_a_list_ends_with_the_check();
    void removing_a_row_ends_with_the_check();
    void clean_1_shows_all_warnings_at_every_start_and_leaves_the_data();
    void other_values_of_clean_show_no_warning_data();
    void other_values_of_clean_show_no_warning();
};

void tst_integrity::consistent_database_is_left_as_it_is()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    for (int i = 0; i < 20; ++i)
        window.add_row(window.add_item(QStringLiteral("Item %1").arg(i), 0), list, i % 2 == 0);
    const QStringList before = table_dump(window.db());
    QVERIFY(before.size() > 60);
    data_integrity_check(window.db());
    QCOMPARE(table_dump(window.db()), before);
}

void tst_integrity::links_to_a_missing_item_or_row_go()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("Weekly"));
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    const Key row = window.add_row(item, list, true);
    const QStringList sound = table_dump(window.db());
    tie(window, 50, row, 999, list);
    tie(window, 51, row, 998, list);
    tie(window, 52, 777, item, list);
    tie(window, 53, 776, 998, list);
    data_integrity_check(window.db());
    QCOMPARE(table_dump(window.db()), sound);
}

void tst_integrity::link_with_groc_id_0_goes()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    tie(window, 1, 0, item, 1);
    data_integrity_check(window.db());
    QCOMPARE(window.number("SELECT count(*) FROM tie"), 0);
}

void tst_integrity::links_to_a_missing_list_stay()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    window.add_row(item, 444, true);
    data_integrity_check(window.db());
    QCOMPARE(window.number("SELECT count(*) FROM tie WHERE list = 444"), 1);
}

void tst_integrity::nothing_else_is_repaired()
{
    TestWindow window;
    window.add_item(QStringLiteral("Milk"), 77, 8);
    window.db().db().exec("INSERT INTO groc_1 (key_id, item) VALUES (9, 'Unlinked')");
    window.db().db().exec("INSERT INTO recipe_2 (key_id, r_ref, item_ref, item) VALUES (1, 5, 66, 'Flour')");
    const QStringList before = table_dump(window.db());
    data_integrity_check(window.db());
    QCOMPARE(table_dump(window.db()), before);
}

void tst_integrity::failure_in_the_second_pass_takes_the_first_back()
{
    TestWindow window;
    const Key item = window.add_item(QStringLiteral("Milk"), 0);
    const Key row = window.add_row(item, 1, true);
    tie(window, 50, row, 999, 1);
    tie(window, 51, 777, item, 1);
    window.db().db().exec("CREATE TEMP TRIGGER refuse BEFORE DELETE ON main.tie WHEN OLD.key_id = 51"
                          " BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const QStringList before = table_dump(window.db());
    QVERIFY_EXCEPTION_THROWN(data_integrity_check(window.db()), SQLite::Exception);
    QCOMPARE(table_dump(window.db()), before);
}

namespace {

/// A window on a list with a row to buy and one not, and links to a missing item and a missing row.
class LooseLinks : public TestWindow {
public:
    LooseLinks()
    {
        const Key list = add_list(QStringLiteral("Weekly"));
        row = add_row(add_item(QStringLiteral("Milk"), 0), list, true);
        add_row(add_item(QStringLiteral("Bread"), 0), list, false);
        tie(*this, 50, row, 999, 444);
        tie(*this, 51, 777, 1, 444);
        set_pref(QStringLiteral("alist"), QString::number(list));
        load();
    }
    int loose() { return number("SELECT count(*) FROM tie WHERE list = 444"); }
    int sound() { return number("SELECT count(*) FROM tie WHERE list <> 444"); }

    Key row = 0;
};

} // namespace

void tst_integrity::clearing_a_list_ends_with_the_check_data()
{
    QTest::addColumn<ClearMode>("mode");
    QTest::addColumn<int>("kept");
    QTest::newRow("uncheck") << ClearMode::uncheck << 2;
    QTest::newRow("delete unchecked") << ClearMode::delete_unchecked << 1;
    QTest::newRow("delete all") << ClearMode::delete_all << 0;
}

void tst_integrity::clearing_a_list_ends_with_the_check()
{
    QFETCH(ClearMode, mode);
    QFETCH(int, kept);
    LooseLinks window;
    QCOMPARE(window.loose(), 2);
    const MessageScript silent;
    window.main().clearing().clear_list(mode);
    QCOMPARE(window.loose(), 0);
    QCOMPARE(window.sound(), kept);
}

void tst_integrity::removing_a_row_ends_with_the_check()
{
    LooseLinks window;
    const MessageScript silent;
    window.main().clearing().groc_del(window.row);
    QCOMPARE(window.loose(), 0);
    QCOMPARE(window.sound(), 1);
}

void tst_integrity::clean_1_shows_all_warnings_at_every_start_and_leaves_the_data()
{
    TestWindow window;
    tie(window, 1, 555, 444, 0);
    window.set_pref(QStringLiteral("clean"), QStringLiteral("1"));
    const QStringList before = table_dump(window.db());
    for (int start = 0; start < 2; ++start) {
        SplashWatch watch;
        window.load();
        QVERIFY(watch.paints > 0);
        QCOMPARE(watch.warnings,
                 (QStringList{QStringLiteral("TarnWick encountered an error the last time it ran:"),
                              QStringLiteral("Running data integrity check  /"),
                              QStringLiteral("Fixing data integrity errors")}));
        QCOMPARE(window.pref(QStringLiteral("clean")), QStringLiteral("1"));
        QCOMPARE(table_dump(window.db()), before);
    }
}

void tst_integrity::other_values_of_clean_show_no_warning_data()
{
    QTest::addColumn<QString>("clean");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("2") << QStringLiteral("2");
    QTest::newRow("10") << QStringLiteral("10");
    QTest::newRow("a word") << QStringLiteral("crashed");
}

void tst_integrity::other_values_of_clean_show_no_warning()
{
    QFETCH(QString, clean);
    TestWindow window;
    window.set_pref(QStringLiteral("clean"), clean);
    SplashWatch watch;
    window.load();
    QVERIFY(watch.paints > 0);
    QCOMPARE(watch.warnings, QStringList());
}

QTEST_MAIN(tst_integrity)
#include "tst_integrity.moc"
