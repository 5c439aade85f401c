#include "data/connection.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "data/schema.h"
#include "support/error_number.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace tarnwick;

namespace {

constexpr int patience_ms = 200;

/// A database that another program has locked, and a connection that notes what it shows and asks.
class LockedCase {
public:
    LockedCase()
        : path(folder.filePath(QStringLiteral("groc.mdb")))
    {
        QVERIFY(make_database(path));
        LockedFile locked;
        locked.wait_ms = patience_ms;
        locked.show_waiting = [this](bool waits) { shown.push_back(waits); };
        locked.ask_to_wait = [this](const QString& asked_for) {
            ++asked;
            asked_path = asked_for;
            return ask();
        };
        connection.set_locked_file(std::move(locked));
        connection.open(path);
        other = std::make_unique<SQLite::Database>(path.toStdString(), SQLite::OPEN_READWRITE);
        other->exec("BEGIN EXCLUSIVE");
    }

    /// One read, or one operation that writes.
    void work(bool writes)
    {
        if (!writes) {
            Query read(connection, "SELECT count(*) FROM cat");
            read.next();
            return;
        }
        Transaction operation(connection);
        Query(connection, "INSERT INTO list_name (key_id, list_name) VALUES (1, 'Weekly')").run();
        operation.commit();
    }

    QTemporaryDir folder;
    QString path;
    Connection connection;
    std::unique_ptr<SQLite::Database> other;
    std::vector<bool> shown;
    int asked = 0;
    QString asked_path;
    std::function<bool()> ask = [] { return false; };
};

void add_the_kinds()
{
    QTest::addColumn<bool>("writes");
    QTest::newRow("a read") << false;
    QTest::newRow("an operation") << true;
}

} // namespace

/// What the connection does while another program keeps the file locked.
class tst_locked_file : public QObject {
    Q_OBJECT
private slots:
    void a_lock_that_goes_in_time_is_waited_for_without_a_question_data() { add_the_kinds(); }
    void a_lock_that_goes_in_time_is_waited_for_without_a_question();
    void after_the_patience_it_is_asked_and_yes_waits_again_data() { add_the_kinds(); }
    void after_the_patience_it_is_asked_and_yes_waits_again();
    void no_is_the_error_of_a_locked_file_data() { add_the_kinds(); }
    void no_is_the_error_of_a_locked_file();
    void an_open_file_shows_and_asks_nothing();
};

void tst_locked_file::a_lock_that_goes_in_time_is_waited_for_without_a_question()
{
    QFETCH(bool, writes);
    LockedCase c;
    std::thread unlocker([&c] {
        std::this_thread::sleep_for(std::chrono::milliseconds(patience_ms / 4));
        c.other->exec("COMMIT");
    });
    c.work(writes);
    unlocker.join();
    QCOMPARE(c.shown, (std::vector<bool>{true, false}));
    QCOMPARE(c.asked, 0);
}

void tst_locked_file::after_the_patience_it_is_asked_and_yes_waits_again()
{
    QFETCH(bool, writes);
    LockedCase c;
    c.ask = [&c] {
        if (c.asked == 2)
            c.other->exec("COMMIT");
        return true;
    };
    QElapsedTimer waited;
    waited.start();
    c.work(writes);
    QVERIFY(waited.elapsed() >= 2 * patience_ms);
    QCOMPARE(c.asked, 2);
    QCOMPARE(c.asked_path, c.path);
    QCOMPARE(c.shown, (std::vector<bool>{true, false, true, false}));
}

void tst_locked_file::no_is_the_error_of_a_locked_file()
{
    QFETCH(bool, writes);
    LockedCase c;
    QCOMPARE(error_number([&] { c.work(writes); }), SQLITE_BUSY);
    QCOMPARE(c.asked, 1);
    QCOMPARE(c.shown, (std::vector<bool>{true, false}));
    c.other->exec("COMMIT");
    c.work(true);
    QCOMPARE(c.asked, 1);
}

void tst_locked_file::an_open_file_shows_and_asks_nothing()
{
    LockedCase c;
    c.other->exec("COMMIT");
    c.work(false);
    c.work(true);
    QVERIFY(c.shown.empty());
    QCOMPARE(c.asked, 0);
}

QTEST_GUILESS_MAIN(tst_locked_file)
#include "tst_locked_file.moc"
