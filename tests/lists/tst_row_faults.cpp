#include "lists/editing_window.h"

#include "data/runtime_error.h"
#include "lists/placing.h"
#include "support/message_script.h"
#include "support/error_number.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QTest>

using namespace tarnwick;

/// The database refuses in the middle of an edit: the error goes its way, and the file keeps what was written.
class tst_row_faults : public QObject {
    Q_OBJECT

private slots:
    void init() { window_ = std::make_unique<EditingWindow>(); }
    void a_full_disk_keeps_what_was_written_before();
    void a_file_turned_read_only_keeps_what_was_written_before();
    void a_failed_placing_leaves_list_and_item_as_they_were();

private:
    EditingWindow& w() { return *window_; }
    SQLite::Database& file() { return w().main().connection().db(); }

    /// Asserts on the file as the next start finds it.
    void check_file(const QString& description);

    std::unique_ptr<EditingWindow> window_;
};

void tst_row_faults::check_file(const QString& description)
{
    w().main().connection().close();
    Connection next;
    next.open(w().database());
    Query row(next, "SELECT g.desc, (SELECT count(*) FROM tie t WHERE t.groc_id = g.key_id) FROM groc_1 g");
    QVERIFY(row.next());
    QCOMPARE(row.text(0), description);
    QCOMPARE(row.number(1), 1);
    QVERIFY(!row.next());
}

void tst_row_faults::a_full_disk_keeps_what_was_written_before()
{
    w().row(QStringLiteral("Milk"));
    w().open();
    w().open_row(0);
    w().type_into("desc_brdr", QStringLiteral("cold"));
    const int pages = file().execAndGet("PRAGMA page_count").getInt();
    file().exec("PRAGMA max_page_count = " + std::to_string(pages));
    QCOMPARE(error_number([this] { w().box("desc_brdr").setText(QString(30000, u'x')); }), SQLITE_FULL);
    check_file(QStringLiteral("cold"));
}

void tst_row_faults::a_file_turned_read_only_keeps_what_was_written_before()
{
    w().row(QStringLiteral("Milk"));
    w().open();
    w().open_row(0);
    w().type_into("desc_brdr", QStringLiteral("cold"));
    file().exec("PRAGMA query_only = 1");
    QCOMPARE(error_number([this] { w().box("desc_brdr").setText(QStringLiteral("warm")); }), SQLITE_READONLY);
    check_file(QStringLiteral("cold"));
}

void tst_row_faults::a_failed_placing_leaves_list_and_item_as_they_were()
{
    w().row(QStringLiteral("Milk"), QStringLiteral("cold"));
    const Key bread = w().add_item(QStringLiteral("Bread"), 0);
    w().open();
    file().exec("PRAGMA query_only = 1");
    MessageScript script;
    script.expect(QStringLiteral("TarnWick"),
                  QStringLiteral("TarnWick has encountered an error\nand must shut down"));
    w().main().placing().stock_to_list(bread);
    QCOMPARE(w().ends, 1);
    QCOMPARE(w().number("SELECT status FROM items_1 WHERE item = 'Bread'"), 5);
    check_file(QStringLiteral("cold"));
}

QTEST_MAIN(tst_row_faults)
#include "tst_row_faults.moc"
