#include "data/connection.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "data/schema.h"
#include "household/early_reading.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace tarnwick;

namespace {

QStringList names(const std::vector<CatalogueItem>& items)
{
    QStringList found;
    for (const CatalogueItem& item : items)
        found << item.name;
    return found;
}

int threads_of_this_process()
{
    return static_cast<int>(
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

} // namespace

/// What is read before the main thread opens the file is taken over only where it is what the main thread would
/// read.
class tst_early_reading : public QObject {
    Q_OBJECT
private slots:
    void init();
    void a_sound_file_is_read_in_name_order();
    void the_items_are_given_once();
    void a_change_after_the_reading_makes_it_worthless();
    void a_file_put_in_its_place_makes_it_worthless();
    void a_file_changed_after_the_check_is_checked_again();
    void a_file_found_sound_is_not_checked_again();
    void a_damaged_file_is_left_to_the_one_who_opens_it();
    void a_missing_file_is_left_to_the_one_who_opens_it();
    void a_pipe_is_left_to_the_one_who_opens_it();
    void a_locked_file_is_not_waited_for();
    void a_file_with_an_unfinished_change_is_not_touched();
    void a_number_beyond_the_keys_is_left_to_the_one_who_opens_it();
    void an_older_version_is_brought_up_by_the_one_who_opens_it();
    void no_thread_is_left();

private:
    QString path() const { return folder_->filePath(QStringLiteral("groc.mdb")); }
    void write(const char* sql) const { SQLite::Database(path().toStdString(), SQLite::OPEN_READWRITE).exec(sql); }
    void damage() const
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(4096));
        QCOMPARE(file.write(QByteArray(4096, '\x5a')), 4096);
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_early_reading::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    make_database(path());
    write("INSERT INTO items_1 (key_id, item, cat, status) VALUES (1, 'milk', 0, 5), (2, 'Butter ', 0, 6),"
          " (3, 'apples', 0, 7)");
}

void tst_early_reading::a_sound_file_is_read_in_name_order()
{
    EarlyReading early(path());
    QCOMPARE(early.sound_state(), file_state(path()));
    const auto items = early.take_items();
    QVERIFY(items);
    QCOMPARE(names(*items),
             QStringList({QStringLiteral("apples"), QStringLiteral("Butter"), QStringLiteral("milk")}));
    QCOMPARE(items->at(1).key, Key(2));
    QCOMPARE(items->at(1).status, 6);
}

void tst_early_reading::the_items_are_given_once()
{
    EarlyReading early(path());
    QVERIFY(early.take_items());
    QVERIFY(!early.take_items());
}

void tst_early_reading::a_change_after_the_reading_makes_it_worthless()
{
    EarlyReading early(path());
    QVERIFY(early.sound_state());
    write("UPDATE items_1 SET item = 'oat milk' WHERE key_id = 1");
    QVERIFY(!early.take_items());
}

void tst_early_reading::a_file_put_in_its_place_makes_it_worthless()
{
    const QString other = folder_->filePath(QStringLiteral("other"));
    QVERIFY(QFile::copy(path(), other));
    EarlyReading early(path());
    QVERIFY(early.sound_state());
    QVERIFY(QFile::remove(path()) && QFile::rename(other, path()));
    QVERIFY(!early.take_items());
}

void tst_early_reading::a_file_changed_after_the_check_is_checked_again()
{
    EarlyReading early(path());
    const auto sound = early.sound_state();
    QVERIFY(sound);
    damage();
    Connection connection;
    QVERIFY_EXCEPTION_THROWN(connection.open(path(), sound), runtime_error);
    QVERIFY(!early.take_items());
}

/// A damage that leaves no trace in the state is only found by the check, which tells that there was none.
void tst_early_reading::a_file_found_sound_is_not_checked_again()
{
    damage();
    Connection connection;
    QVERIFY_EXCEPTION_THROWN(connection.open(path()), runtime_error);
    connection.open(path(), file_state(path()));
    QVERIFY(connection.is_open());
}

void tst_early_reading::a_damaged_file_is_left_to_the_one_who_opens_it()
{
    damage();
    const auto before = file_state(path());
    EarlyReading early(path());
    QVERIFY(!early.sound_state());
    QVERIFY(!early.take_items());
    QCOMPARE(file_state(path()), before);
}

void tst_early_reading::a_missing_file_is_left_to_the_one_who_opens_it()
{
    QVERIFY(QFile::remove(path()));
    EarlyReading early(path());
    QVERIFY(!early.sound_state());
    QVERIFY(!early.take_items());
    QVERIFY(!QFile::exists(path()));
}

void tst_early_reading::a_pipe_is_left_to_the_one_who_opens_it()
{
    QVERIFY(QFile::remove(path()));
    QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EarlyReading early(path());
    QVERIFY(!early.sound_state());
}

void tst_early_reading::a_locked_file_is_not_waited_for()
{
    SQLite::Database other(path().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    EarlyReading early(path());
    QVERIFY(!early.sound_state());
    QVERIFY(!early.take_items());
}

void tst_early_reading::a_file_with_an_unfinished_change_is_not_touched()
{
    QFile journal(path() + QStringLiteral("-journal"));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write(QByteArray("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8) + QByteArray(504, 'x'));
    journal.close();
    EarlyReading early(path());
    QVERIFY(!early.sound_state());
    QVERIFY(!early.take_items());
    QCOMPARE(journal.size(), 512);
}

void tst_early_reading::a_number_beyond_the_keys_is_left_to_the_one_who_opens_it()
{
    write("INSERT INTO items_1 (key_id, item, cat, status) VALUES (40000, 'far', 0, 5)");
    EarlyReading early(path());
    QVERIFY(!early.take_items());
}

void tst_early_reading::an_older_version_is_brought_up_by_the_one_who_opens_it()
{
    QVERIFY(QFile::remove(path()));
    QVERIFY(QFile::copy(QStringLiteral(TEST_DATA_DIR "/version_1.mdb"), path()));
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner));
    EarlyReading early(path());
    Connection connection;
    connection.open(path(), early.sound_state());
    QVERIFY(!early.take_items());
}

void tst_early_reading::no_thread_is_left()
{
    const int before = threads_of_this_process();
    {
        const EarlyReading unused(path());
    }
    EarlyReading used(path());
    used.take_items();
    QCOMPARE(threads_of_this_process(), before);
}

QTEST_APPLESS_MAIN(tst_early_reading)
#include "tst_early_reading.moc"
