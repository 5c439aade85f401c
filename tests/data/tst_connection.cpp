#include "data/connection.h"
#include "data/opening.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "data/schema.h"
#include "support/child_process.h"
#include "support/error_number.h"
#include "support/file_bytes.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tarnwick;

class tst_connection : public QObject {
    Q_OBJECT
private slots:
    void init();

    void an_own_file_opens();
    void a_missing_file_is_refused_and_not_made();
    void a_folder_in_its_place_is_refused();
    void a_foreign_file_is_refused_and_left_untouched_data();
    void a_foreign_file_is_refused_and_left_untouched();
    void the_mark_of_another_program_is_refused();
    void a_newer_file_is_refused();
    void a_damaged_page_is_refused_and_left_untouched();
    void a_file_cut_short_is_refused();
    void a_read_only_file_is_refused();
    void a_read_only_folder_is_refused();
    void an_unreadable_file_is_refused();
    void close_and_reopen();
    void use_of_a_closed_connection_is_an_error();

    void an_operation_without_commit_is_taken_back();
    void nested_operations_are_one();
    void a_failed_part_takes_the_whole_back();
    void an_unfinished_operation_of_another_process_is_rolled_back();
    void values_are_bound_whatever_they_hold();

private:
    QString path() const { return folder_->filePath(QStringLiteral("twdata/groc.mdb")); }
    QString folder() const { return folder_->filePath(QStringLiteral("twdata")); }
    void fill(int items);
    void check_refused(const QString& expected);

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_connection::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    QVERIFY(make_database(path()));
}

void tst_connection::fill(int items)
{
    Connection connection;
    connection.open(path());
    Transaction transaction(connection);
    for (int key = 1; key <= items; ++key)
        Query(connection, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", key,
              QStringLiteral("item number %1").arg(key))
            .run();
    transaction.commit();
}

/// The file as it lies is refused with this verdict, and neither it nor its folder changes.
void tst_connection::check_refused(const QString& expected)
{
    const QByteArray before = bytes_of(path());
    const QStringList files = QDir(folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    const QString given = verdict(path());
    QVERIFY2(given.startsWith(expected), qPrintable(given));
    QCOMPARE(bytes_of(path()), before);
    QCOMPARE(QDir(folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), files);
}

void tst_connection::an_own_file_opens()
{
    Connection connection;
    QVERIFY(!connection.is_open());
    connection.open(path());
    QVERIFY(connection.is_open());
    const auto pragma = [&connection](std::string_view sql) {
        Query query(connection, sql);
        return query.next() ? query.text(0) : QString();
    };
    QCOMPARE(pragma("PRAGMA journal_mode"), QStringLiteral("truncate"));
    QCOMPARE(pragma("PRAGMA synchronous"), QStringLiteral("2"));
}

void tst_connection::a_missing_file_is_refused_and_not_made()
{
    QVERIFY(QFile::remove(path()));
    QVERIFY(verdict(path()).startsWith(QStringLiteral("14: The database file is missing")));
    QVERIFY(!QFile::exists(path()));
    QVERIFY(QDir(folder()).removeRecursively());
    QVERIFY(verdict(path()).startsWith(QStringLiteral("14: ")));
    QVERIFY(!QDir(folder()).exists());
}

void tst_connection::a_folder_in_its_place_is_refused()
{
    QVERIFY(QFile::remove(path()));
    QVERIFY(QDir().mkpath(path()));
    QVERIFY(verdict(path()).startsWith(QStringLiteral("14: ")));
}

void tst_connection::a_foreign_file_is_refused_and_left_untouched_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("text") << QByteArray("milk\nbread\n").repeated(100);
    QTest::newRow("short text") << QByteArray("milk");
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("header alone") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("header and zeros") << QByteArray("SQLite format 3\0", 16) + QByteArray(8192, '\0');
}

void tst_connection::a_foreign_file_is_refused_and_left_untouched()
{
    QFETCH(QByteArray, content);
    write_bytes(path(), content);
    check_refused(QStringLiteral("26: "));
}

void tst_connection::the_mark_of_another_program_is_refused()
{
    for (const int mark : {0, 1, 0x5461726f}) {
        SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE)
            .exec("PRAGMA application_id = " + std::to_string(mark));
        check_refused(QStringLiteral("26: The database was not made by this program"));
    }
}

void tst_connection::a_newer_file_is_refused()
{
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE)
        .exec("PRAGMA user_version = " + std::to_string(schema_version + 1));
    check_refused(QStringLiteral("26: The database was made by a newer version of this program"));
}

void tst_connection::a_damaged_page_is_refused_and_left_untouched()
{
    fill(2000);
    const QByteArray whole = bytes_of(path());
    constexpr qsizetype page_size = 4096;
    constexpr qsizetype first_page_header = 100;
    constexpr qsizetype page_header = 8; // the head of a table's or index's page: kind, free space, cells
    QVERIFY(whole.size() > 10 * page_size);
    for (qsizetype page = 0; page < whole.size() / page_size; ++page) {
        QByteArray damaged = whole;
        const qsizetype start = page == 0 ? first_page_header : page * page_size;
        for (qsizetype i = start; i < start + page_header; ++i)
            damaged[i] = static_cast<char>(~damaged[i]);
        write_bytes(path(), damaged);
        check_refused(QStringLiteral("11: "));
    }
    write_bytes(path(), whole);
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
}

void tst_connection::a_file_cut_short_is_refused()
{
    fill(2000);
    const QByteArray whole = bytes_of(path());
    write_bytes(path(), whole.left(whole.size() / 2));
    check_refused(QStringLiteral("11: "));
}

void tst_connection::a_read_only_file_is_refused()
{
    const QByteArray before = bytes_of(path());
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(folder(), QFile::Permissions(0x7777));
    QFile::setPermissions(path(), QFile::Permissions(0x4444));
    const QString given = as_nobody([this] { return verdict(path()); });
    QCOMPARE(given.section(u'\n', 0, 0), QStringLiteral("8: The database file is read-only"));
    QCOMPARE(bytes_of(path()), before);
}

void tst_connection::a_read_only_folder_is_refused()
{
    const QByteArray before = bytes_of(path());
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(path(), QFile::Permissions(0x6666));
    QFile::setPermissions(folder(), QFile::Permissions(0x5555));
    const QString given = as_nobody([this] { return verdict(path()); });
    QFile::setPermissions(folder(), QFile::Permissions(0x7755));
    QCOMPARE(given.section(u'\n', 0, 0), QStringLiteral("8: The folder of the database is read-only"));
    QCOMPARE(bytes_of(path()), before);
}

void tst_connection::an_unreadable_file_is_refused()
{
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(folder(), QFile::Permissions(0x7755));
    QFile::setPermissions(path(), QFile::Permissions());
    const QString given = as_nobody([this] { return verdict(path()); });
    QVERIFY2(given.startsWith(QStringLiteral("14: The database file cannot be opened")), qPrintable(given));
}

void tst_connection::close_and_reopen()
{
    fill(3);
    Connection connection;
    connection.open(path());
    connection.close();
    QVERIFY(!connection.is_open());
    connection.close();
    connection.reopen();
    Query count(connection, "SELECT count(*) FROM items_1");
    QVERIFY(count.next());
    QCOMPARE(count.number(0), 3);
}

void tst_connection::use_of_a_closed_connection_is_an_error()
{
    Connection connection;
    QCOMPARE(error_number([&] { Query(connection, "SELECT 1"); }), SQLITE_MISUSE);
}

void tst_connection::an_operation_without_commit_is_taken_back()
{
    fill(3);
    Connection connection;
    connection.open(path());
    {
        const Transaction operation(connection);
        Query(connection, "DELETE FROM items_1").run();
    }
    Query count(connection, "SELECT count(*) FROM items_1");
    QVERIFY(count.next());
    QCOMPARE(count.number(0), 3);
}

void tst_connection::nested_operations_are_one()
{
    fill(3);
    Connection connection;
    connection.open(path());
    {
        Transaction outer(connection);
        {
            Transaction inner(connection);
            Query(connection, "DELETE FROM items_1 WHERE key_id = 1").run();
            inner.commit();
        }
        // The inner end writes nothing and leaves the file closed to others.
        QCOMPARE(in_child_process([this] {
                     SQLite::Database other(path().toStdString(), SQLite::OPEN_READWRITE);
                     return QString::number(other.tryExec("SELECT * FROM items_1"));
                 }),
                 QString::number(SQLITE_BUSY));
        outer.commit();
    }
    Query count(connection, "SELECT count(*) FROM items_1");
    QVERIFY(count.next());
    QCOMPARE(count.number(0), 2);
}

void tst_connection::a_failed_part_takes_the_whole_back()
{
    fill(3);
    Connection connection;
    connection.open(path());
    const auto half_an_operation = [&] {
        Transaction outer(connection);
        Query(connection, "DELETE FROM items_1 WHERE key_id = 1").run();
        {
            const Transaction inner(connection);
            Query(connection, "DELETE FROM items_1 WHERE key_id = 2").run();
        }
        outer.commit();
    };
    QCOMPARE(error_number(half_an_operation), SQLITE_ABORT);
    Query count(connection, "SELECT count(*) FROM items_1");
    QVERIFY(count.next());
    QCOMPARE(count.number(0), 3);
}

void tst_connection::an_unfinished_operation_of_another_process_is_rolled_back()
{
    fill(2000);
    // The other process dies with a part of its changes in the file and the journal beside it.
    const QString changed = in_child_process([this] {
        SQLite::Database other(path().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("PRAGMA cache_size = 2; PRAGMA journal_mode = TRUNCATE; BEGIN IMMEDIATE;"
                   "UPDATE items_1 SET item = 'lost ' || item");
        const int rows = other.getChanges();
        // No destructor may roll back: the process ends here as a power cut would end it.
        new SQLite::Database(std::move(other));
        return QString::number(rows);
    });
    QCOMPARE(changed, QStringLiteral("2000"));
    QVERIFY(QFile(path() + QStringLiteral("-journal")).size() > 0);

    Connection connection;
    connection.open(path());
    Query lost(connection, "SELECT count(*), sum(item LIKE 'lost%') FROM items_1");
    QVERIFY(lost.next());
    QCOMPARE(lost.number(0), 2000);
    QCOMPARE(lost.number(1), 0);
}

void tst_connection::values_are_bound_whatever_they_hold()
{
    Connection connection;
    connection.open(path());
    const QStringList names = {QStringLiteral("baker's"), QStringLiteral("'); DROP TABLE tie; --"),
                               QStringLiteral("a\"b"), QStringLiteral("🍎"), QStringLiteral("two\nlines")};
    int key = 0;
    for (const QString& name : names)
        Query(connection, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", ++key, name).run();
    for (const QString& name : names) {
        Query found(connection, "SELECT item FROM items_1 WHERE item = ?", name);
        QVERIFY(found.next());
        QCOMPARE(found.text(0), name);
    }
    Query tie(connection, "SELECT count(*) FROM tie");
    QVERIFY(tie.next());
}

QTEST_MAIN(tst_connection)
#include "tst_connection.moc"
