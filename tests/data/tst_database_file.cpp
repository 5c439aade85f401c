#include "data/connection.h"
#include "data/opening.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "data/schema.h"
#include "support/child_process.h"
#include "support/file_bytes.h"
#include "support/table_dump.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <random>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace tarnwick;

namespace {

/// What SQLite itself says of a whole file; it may be changed by this.
bool is_sound(const QString& path)
{
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
        return database.execAndGet("PRAGMA integrity_check").getString() == "ok";
    } catch (const SQLite::Exception&) {
        return false;
    }
}

/// Something in a path that is no regular file.
void plant(const QByteArray& kind, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    if (kind == "folder") {
        QVERIFY(QDir().mkpath(path));
    } else if (kind == "pipe") {
        QCOMPARE(mkfifo(name.constData(), 0600), 0);
    } else if (kind == "device") {
        QCOMPARE(symlink("/dev/zero", name.constData()), 0);
    } else {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        QVERIFY(static_cast<size_t>(name.size()) < sizeof address.sun_path);
        qstrcpy(address.sun_path, name.constData());
        const int end = socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(bind(end, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        ::close(end);
    }
}

void add_kinds()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char* kind : {"folder", "pipe", "socket", "device"})
        QTest::newRow(kind) << QByteArray(kind);
}

} // namespace

/// What a start makes of the database file and the journal beside it.
class tst_database_file : public QObject {
    Q_OBJECT
private slots:
    void init();

    void what_is_no_file_is_refused_at_once_data();
    void what_is_no_file_is_refused_at_once();
    void a_journal_that_is_no_file_is_refused_at_once_data();
    void a_journal_that_is_no_file_is_refused_at_once();
    void a_folder_that_cannot_be_entered_is_not_a_missing_file();
    void a_damaged_index_is_refused();
    void every_flipped_bit_that_can_be_found_is_refused_and_left_untouched();
    void a_missing_table_or_column_is_refused_data();
    void a_missing_table_or_column_is_refused();
    void tables_made_in_other_words_are_as_good();
    void a_damaged_file_beside_a_journal_is_left_untouched_with_it();
    void a_backup_copied_beside_a_journal_is_told_and_left_untouched_with_it();
    void a_journal_of_another_file_is_told();
    void a_sound_file_with_its_journal_is_recovered();
    void a_normal_start_makes_no_copy();
    void a_file_with_a_log_beside_it_is_taken_over();

    void a_file_of_version_1_opens_with_all_its_rows();
    void an_upgraded_file_is_like_a_new_one_and_not_written_again();
    void a_step_that_fails_leaves_the_old_file();

private:
    QString path() const { return folder_->filePath(QStringLiteral("twdata/groc.mdb")); }
    QString journal() const { return path() + QStringLiteral("-journal"); }
    QString folder() const { return folder_->filePath(QStringLiteral("twdata")); }
    QStringList files() const
    {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    void fill(int items);
    void interrupt(const char* sql);
    void check_refused(const QString& expected);

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_database_file::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    QVERIFY(make_database(path()));
}

/// Stock items, each on a list and in a recipe.
void tst_database_file::fill(int items)
{
    Connection connection;
    connection.open(path());
    Transaction transaction(connection);
    for (int key = 1; key <= items; ++key) {
        Query(connection, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", key,
              QStringLiteral("item number %1").arg(key))
            .run();
        Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, 1)", key, key, key)
            .run();
        Query(connection, "INSERT INTO recipe_2 (key_id, r_ref, item_ref) VALUES (?, 1, ?)", key, key).run();
    }
    transaction.commit();
}

/// Another process dies with a part of its changes in the file, its first page among them, and the journal beside
/// it.
void tst_database_file::interrupt(const char* sql)
{
    const QString done = in_child_process([this, sql] {
        auto* other = new SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE);
        other->exec("PRAGMA cache_size = 2; PRAGMA journal_mode = TRUNCATE; BEGIN IMMEDIATE;"
                    "PRAGMA user_version = 1");
        other->exec(sql);
        return QStringLiteral("done");
    });
    QCOMPARE(done, QStringLiteral("done"));
    QVERIFY(QFile(journal()).size() > 0);
}

/// The file as it lies is refused with this verdict, and neither it, its journal nor its folder changes.
void tst_database_file::check_refused(const QString& expected)
{
    const QByteArray before = bytes_of(path());
    const QByteArray journal_before = bytes_of(journal());
    const QStringList files_before = files();
    const QString given = verdict(path());
    QVERIFY2(given.startsWith(expected), qPrintable(given));
    QCOMPARE(bytes_of(path()), before);
    QCOMPARE(bytes_of(journal()), journal_before);
    QCOMPARE(files(), files_before);
}

void tst_database_file::what_is_no_file_is_refused_at_once_data()
{
    add_kinds();
}

void tst_database_file::what_is_no_file_is_refused_at_once()
{
    QFETCH(QByteArray, kind);
    QVERIFY(QFile::remove(path()));
    plant(kind, path());
    QCOMPARE(verdict(path()),
             QStringLiteral("14: The database is no file but a %1\n(%2)").arg(QString::fromLatin1(kind), path()));
}

void tst_database_file::a_journal_that_is_no_file_is_refused_at_once_data()
{
    add_kinds();
}

void tst_database_file::a_journal_that_is_no_file_is_refused_at_once()
{
    QFETCH(QByteArray, kind);
    plant(kind, journal());
    const QString told = kind == "device" ? QStringLiteral("link") : QString::fromLatin1(kind);
    const QByteArray before = bytes_of(path());
    QCOMPARE(verdict(path()),
             QStringLiteral("14: The journal of the database is no file but a %1\n(%2)").arg(told, journal()));
    QCOMPARE(bytes_of(path()), before);
}

void tst_database_file::a_folder_that_cannot_be_entered_is_not_a_missing_file()
{
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7755));
    QFile::setPermissions(folder(), QFile::Permissions(0x7700));
    const QString given = as_nobody([this] { return verdict(path()); });
    QVERIFY2(given.startsWith(QStringLiteral("14: The database file cannot be reached: Permission denied")),
             qPrintable(given));
}

void tst_database_file::a_damaged_index_is_refused()
{
    fill(100);
    int page = 0;
    {
        SQLite::Database plain(path().toStdString());
        page = plain.execAndGet("SELECT rootpage FROM sqlite_master WHERE name = 'tie_item_id'").getInt();
    }
    QByteArray damaged = bytes_of(path());
    // The last byte of the page belongs to the first entry: another row than the table's.
    const qsizetype last = qsizetype{4096} * page - 1;
    damaged[last] = static_cast<char>(damaged[last] ^ 0x40);
    write_bytes(path(), damaged);
    check_refused(QStringLiteral("11: The database file is damaged: "));
}

void tst_database_file::every_flipped_bit_that_can_be_found_is_refused_and_left_untouched()
{
    fill(150);
    const QByteArray whole = bytes_of(path());
    const QString other = folder_->filePath(QStringLiteral("other.mdb"));
    constexpr int flips = 300;
    std::mt19937 random(20260314);
    std::uniform_int_distribution<qsizetype> any_bit(0, whole.size() * 8 - 1);
    int refused = 0;
    for (int i = 0; i < flips; ++i) {
        const qsizetype bit = any_bit(random);
        QByteArray flipped = whole;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
        QFile::remove(journal());
        write_bytes(path(), flipped);
        write_bytes(other, flipped);
        const QString given = verdict(path());
        const QString place = QStringLiteral("bit %1: %2").arg(bit).arg(given);
        if (given != QLatin1String("opened")) {
            ++refused;
            QVERIFY2(bytes_of(path()) == flipped, qPrintable(place));
            QVERIFY2(files() == QStringList(QStringLiteral("groc.mdb")), qPrintable(place));
            continue;
        }
        QVERIFY2(is_sound(other), qPrintable(place));
        Connection connection;
        connection.open(path());
        QVERIFY2(table_dump(connection).size() == 451, qPrintable(place));
    }
    QVERIFY2(refused > flips / 20, qPrintable(QString::number(refused)));
}

void tst_database_file::a_missing_table_or_column_is_refused_data()
{
    QTest::addColumn<QByteArray>("sql");
    QTest::addColumn<QString>("expected");
    QTest::newRow("table") << QByteArray("DROP TABLE recipe_1")
                           << QStringLiteral("11: The column key_id of the table recipe_1 is missing");
    QTest::newRow("column") << QByteArray("ALTER TABLE groc_1 DROP COLUMN aisle")
                            << QStringLiteral("11: The column aisle of the table groc_1 is missing");
    QTest::newRow("renamed column") << QByteArray("ALTER TABLE cat RENAME COLUMN cat_desc TO name")
                                    << QStringLiteral("11: The column cat_desc of the table cat is missing");
    QTest::newRow("a view in its place")
        << QByteArray("ALTER TABLE tie RENAME TO tied; CREATE VIEW tie AS SELECT * FROM tied")
        << QStringLiteral("11: The column key_id of the table tie is missing");
    QTest::newRow("another order of names")
        << QByteArray(
               "ALTER TABLE cat DROP COLUMN cat_desc; ALTER TABLE cat ADD COLUMN cat_desc TEXT COLLATE RTRIM")
        << QStringLiteral("11: The column cat_desc of the table cat is not as it should be");
}

void tst_database_file::a_missing_table_or_column_is_refused()
{
    QFETCH(QByteArray, sql);
    QFETCH(QString, expected);
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).exec(sql.constData());
    check_refused(expected);
}

void tst_database_file::tables_made_in_other_words_are_as_good()
{
    SQLite::Database database(path().toStdString(), SQLite::OPEN_READWRITE);
    const auto words = [&database] {
        return database.execAndGet("SELECT sql FROM sqlite_master WHERE name = 'cat'").getString();
    };
    const std::string made = words();
    database.exec("ALTER TABLE cat RENAME TO other; ALTER TABLE other RENAME TO cat");
    QVERIFY(words() != made);
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
}

void tst_database_file::a_damaged_file_beside_a_journal_is_left_untouched_with_it()
{
    fill(2000);
    interrupt("UPDATE items_1 SET item = 'lost ' || item WHERE key_id < 500");
    QByteArray damaged = bytes_of(path());
    for (qsizetype page = 20; page < damaged.size() / 4096; page += 2)
        damaged[page * 4096] = static_cast<char>(~damaged[page * 4096]);
    write_bytes(path(), damaged);
    check_refused(QStringLiteral("11: The database file is damaged: "));
}

void tst_database_file::a_backup_copied_beside_a_journal_is_told_and_left_untouched_with_it()
{
    fill(2000);
    const QByteArray backup = bytes_of(path());
    for (const char* item : {"first", "second"}) {
        Connection connection;
        connection.open(path());
        Query(connection, "UPDATE items_1 SET item = ? WHERE key_id = 700", QString::fromLatin1(item)).run();
    }
    interrupt("UPDATE items_1 SET item = 'lost ' || item");
    write_bytes(path(), backup);
    check_refused(QStringLiteral("11: The journal beside the database belongs to another copy of it."));
    QVERIFY(QFile::rename(journal(), folder_->filePath(QStringLiteral("elsewhere"))));
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
}

void tst_database_file::a_journal_of_another_file_is_told()
{
    fill(2000);
    const QByteArray backup = bytes_of(path());
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).exec("DELETE FROM items_1; VACUUM");
    // No first page in this one: the file alone can tell.
    const QString done = in_child_process([this] {
        auto* other = new SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE);
        other->exec("PRAGMA cache_size = 2; PRAGMA journal_mode = TRUNCATE; BEGIN IMMEDIATE;"
                    "UPDATE recipe_2 SET \"order\" = 1");
        return QStringLiteral("done");
    });
    QCOMPARE(done, QStringLiteral("done"));
    write_bytes(path(), backup);
    check_refused(QStringLiteral("11: The journal beside the database is damaged or belongs to another file."));
}

void tst_database_file::a_sound_file_with_its_journal_is_recovered()
{
    fill(2000);
    interrupt("UPDATE items_1 SET item = 'lost ' || item");
    Connection connection;
    connection.open(path());
    Query lost(connection, "SELECT count(*), sum(item LIKE 'lost%') FROM items_1");
    QVERIFY(lost.next());
    QCOMPARE(lost.number(0), 2000);
    QCOMPARE(lost.number(1), 0);
    QCOMPARE(QFile(journal()).size(), 0);
}

void tst_database_file::a_normal_start_makes_no_copy()
{
    // A temporary folder that does not exist fails every copy; the one beside the file cannot be missed.
    qputenv("TMPDIR", QFile::encodeName(folder_->filePath(QStringLiteral("none"))));
    struct stat before { };
    QCOMPARE(::stat(QFile::encodeName(folder()).constData(), &before), 0);
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
    struct stat after { };
    QCOMPARE(::stat(QFile::encodeName(folder()).constData(), &after), 0);
    qunsetenv("TMPDIR");
    QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    QCOMPARE(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
}

void tst_database_file::a_file_with_a_log_beside_it_is_taken_over()
{
    const QString done = in_child_process([this] {
        auto* other = new SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE);
        other->exec("PRAGMA journal_mode = WAL; INSERT INTO items_1 (key_id, item, cat) VALUES (1, 'milk', 0)");
        return QStringLiteral("done");
    });
    QCOMPARE(done, QStringLiteral("done"));
    QVERIFY(files().contains(QStringLiteral("groc.mdb-wal")));
    {
        Connection connection;
        connection.open(path());
        QVERIFY(Query(connection, "SELECT key_id FROM items_1 WHERE item = 'milk'").next());
    }
    QVERIFY(!files().contains(QStringLiteral("groc.mdb-wal")));
}

void tst_database_file::a_file_of_version_1_opens_with_all_its_rows()
{
    QVERIFY(QFile::remove(path()));
    QVERIFY(QFile::copy(QStringLiteral(TEST_DATA_DIR "/version_1.mdb"), path()));
    Connection connection;
    connection.open(path());
    QCOMPARE(table_dump(connection),
             QStringList({QStringLiteral("cat|0|OTHER|0"), QStringLiteral("cat|1|Dairy|1"),
                          QStringLiteral("cat|2|Fruit and more|0"),
                          QStringLiteral("items_1|1|Oat milk|1|7|1|0| |2026-03-14|2026-03-14"),
                          QStringLiteral("items_1|2|Crème fraîche|1|5|0|0| |2026-03-14|2026-03-14"),
                          QStringLiteral("items_1|5|Apples red|2|6|0|0| |2026-03-14|2026-03-14"),
                          QStringLiteral("groc_1|1|Oat milk|for the porridge|2| |1|1|2026-04-01|2026-03-14|0|0"),
                          QStringLiteral("groc_1|2|Apples red| | |4|0|0|2026-03-14|2026-03-14|0|0"),
                          QStringLiteral("groc_1|3|Oat milk| |12 l| |0|0||2026-03-14|0|0"),
                          QStringLiteral("tie|1|1|1|1"), QStringLiteral("tie|2|2|5|1"),
                          QStringLiteral("tie|3|3|1|3"), QStringLiteral("list_name|1|Weekly|1|2026-03-14"),
                          QStringLiteral("list_name|3|Party list|0|2026-03-14"),
                          QStringLiteral("recipe_1|1|Porridge|Stir.\r\nServe.|01"),
                          QStringLiteral("recipe_1|2|Apple cake|Bake.|13"),
                          QStringLiteral("recipe_2|1|1|1|Oat milk|1/2|cup| |0"),
                          QStringLiteral("recipe_2|2|1|-1|salt|1| |a pinch only|1"),
                          QStringLiteral("recipe_2|4|2|5|Apples red| | | |0")}));
}

void tst_database_file::an_upgraded_file_is_like_a_new_one_and_not_written_again()
{
    const auto layout = [this] {
        SQLite::Database plain(path().toStdString());
        SQLite::Statement rows(plain,
                               "SELECT type || ' ' || name || ' ' || tbl_name FROM sqlite_master ORDER BY 1");
        QStringList lines(QString::fromStdString(plain.execAndGet("PRAGMA user_version").getString()));
        while (rows.executeStep())
            lines += QString::fromStdString(rows.getColumn(0).getString());
        return lines;
    };
    const QStringList fresh = layout();
    QCOMPARE(fresh.first(), QString::number(schema_version));
    QVERIFY(QFile::remove(path()));
    QVERIFY(QFile::copy(QStringLiteral(TEST_DATA_DIR "/version_1.mdb"), path()));
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).exec("DROP INDEX tie_list");
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
    QCOMPARE(layout(), fresh);
    const QByteArray upgraded = bytes_of(path());
    QCOMPARE(verdict(path()), QStringLiteral("opened"));
    QCOMPARE(bytes_of(path()), upgraded);
}

void tst_database_file::a_step_that_fails_leaves_the_old_file()
{
    QVERIFY(QFile::remove(path()));
    QVERIFY(QFile::copy(QStringLiteral(TEST_DATA_DIR "/version_1.mdb"), path()));
    SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE)
        .exec("CREATE TRIGGER planted BEFORE UPDATE ON recipe_2 BEGIN SELECT raise(ABORT, 'planted'); END");
    const QByteArray before = bytes_of(path());
    QVERIFY(verdict(path()).startsWith(QStringLiteral("19: planted")));
    QCOMPARE(bytes_of(path()), before);
    QVERIFY(bytes_of(journal()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_database_file)
#include "tst_database_file.moc"
