#include "data/settings.h"
#include "probe/real_program.h"
#include "support/file_bytes.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/stat.h>

using namespace tarnwick;

/// The real executable, copied to a folder of its own and started as a process. A plugin prints its windows.
class tst_process : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init() { renew(); }

    void runs_from_the_folder_it_was_copied_to();
    void a_second_start_says_so_and_touches_nothing();
    void a_second_start_reads_neither_settings_nor_database();
    void a_start_after_a_killed_one_is_no_second_start();
    void a_start_on_a_dead_lock_file_of_another_host_is_no_second_start();
    void a_lock_that_is_no_file_shows_the_message_at_once();
    void a_placing_that_fails_ends_with_a_failure_and_its_cause_on_the_standard_error();
    void a_missing_database_shows_the_message_and_makes_none();
    void a_damaged_database_shows_the_message_and_is_left_alone();
    void a_setting_that_is_no_text_shows_the_message();
    void a_read_only_store_of_settings_shows_the_message();
    void settings_that_cannot_be_parsed_are_set_aside_and_told_once();
    void settings_that_are_a_fifo_show_the_message_at_once();
    void a_dead_lock_on_the_settings_does_not_hold_up_the_start();
    void the_probe_obeys_only_the_verbs_it_knows();
    void settings_lost_after_the_start_end_the_program_with_one_message_data();
    void settings_lost_after_the_start_end_the_program_with_one_message();
    void a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start_data();
    void a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start();
    void a_rescue_that_is_not_wanted_is_kept_and_not_offered_again();
    void a_locked_database_is_waited_for_as_often_as_wanted();
    void a_locked_database_at_the_start_is_waited_for();
    void an_edited_recipe_is_stored_before_any_setting_is_written();
    void an_end_by_the_system_stores_what_was_typed_data();
    void an_end_by_the_system_stores_what_was_typed();
    void an_ignored_signal_stays_ignored();

private:
    /// A process on the page of a recipe "Soup" whose title has got an unsaved "s" in front; null when it does not
    /// get there.
    std::unique_ptr<QProcess> start_with_edited_recipe();
    /// From here on the settings can be neither read nor written.
    bool lose_settings() const;
    QString recipe_name() const;
    QString locked_message() const;
};

std::unique_ptr<QProcess> tst_process::start_with_edited_recipe()
{
    SQLite::Database(database().toStdString(), SQLite::OPEN_READWRITE)
        .exec("INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Soup', 'Stir.', '11')");
    Settings prefs(settings());
    prefs.set_reg();
    prefs.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    prefs.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    auto process = start_listening();
    if (!process)
        return nullptr;
    tell(*process, "type title s");
    return wait_for(*process, "line sSoup") ? std::move(process) : nullptr;
}

bool tst_process::lose_settings() const
{
    const QString folder = QFileInfo(settings()).path();
    QFile blocker(folder);
    return QDir(folder).removeRecursively() && blocker.open(QIODevice::WriteOnly);
}

QString tst_process::recipe_name() const
{
    SQLite::Database file(database().toStdString());
    return QString::fromStdString(file.execAndGet("SELECT r_name FROM recipe_1").getString());
}

QString tst_process::locked_message() const
{
    return QStringLiteral("message TarnWick: Another program is using the database|(%1)||Close it there and choose "
                          "Retry.|Cancel ends TarnWick.")
        .arg(database());
}

void tst_process::runs_from_the_folder_it_was_copied_to()
{
    const auto process = start(Probe::closes);
    QCOMPARE(lines_of(*process), QStringList(QStringLiteral("window frmmain")));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    QVERIFY(bytes_of(settings()).contains("prefs\\load=load"));
    QVERIFY(!files().contains(QStringLiteral("groc.lock")));
}

void tst_process::a_second_start_says_so_and_touches_nothing()
{
    const auto first = start(Probe::watches);
    QVERIFY(wait_for(*first, main_window));
    const QByteArray before = bytes_of(database());
    const QStringList files_before = files();

    // The settings of the second start lie elsewhere, where the first does not write.
    const auto second = start(Probe::closes, QStringLiteral("other"));
    QCOMPARE(
        lines_of(*second),
        QStringList(QStringLiteral("message TarnWick: A previous instance of TarnWick|is already running||(%1)")
                        .arg(QFileInfo(database()).path())));
    QCOMPARE(second->exitStatus(), QProcess::NormalExit);

    QVERIFY(!QFile::exists(path(QStringLiteral("other"))));
    QCOMPARE(bytes_of(database()), before);
    QCOMPARE(files(), files_before);
    QCOMPARE(first->state(), QProcess::Running);
    first->kill();
    QVERIFY(first->waitForFinished(patience_ms));
}

void tst_process::a_second_start_reads_neither_settings_nor_database()
{
    const auto first = start(Probe::watches);
    QVERIFY(wait_for(*first, main_window));
    // To read the first of the settings, or to look for the database, would be an error of its own.
    QVERIFY(QDir().mkpath(path(QStringLiteral("other/tarnwick"))));
    QFile file(path(QStringLiteral("other/tarnwick/settings.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[trnwck]\nprefs\\load=load\nprefs\\clean=0, 1\n");
    file.close();
    QVERIFY(QFile::rename(database(), path(QStringLiteral("elsewhere.mdb"))));

    const auto second = start(Probe::closes, QStringLiteral("other"));
    QCOMPARE(
        lines_of(*second),
        QStringList(QStringLiteral("message TarnWick: A previous instance of TarnWick|is already running||(%1)")
                        .arg(QFileInfo(database()).path())));
    QCOMPARE(second->exitCode(), 0);
    first->kill();
    QVERIFY(first->waitForFinished(patience_ms));
}

void tst_process::a_start_after_a_killed_one_is_no_second_start()
{
    const auto first = start(Probe::watches);
    QVERIFY(wait_for(*first, main_window));
    first->kill();
    QVERIFY(first->waitForFinished(patience_ms));
    QVERIFY(files().contains(QStringLiteral("groc.lock")));

    const auto second = start(Probe::closes);
    QCOMPARE(lines_of(*second), QStringList(QStringLiteral("window frmmain")));
    QCOMPARE(second->exitCode(), 0);
}

void tst_process::a_start_on_a_dead_lock_file_of_another_host_is_no_second_start()
{
    QFile lock(path(QStringLiteral("app/twdata/groc.lock")));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("1\ntarnwick\nelsewhere\n0123456789abcdef\n\n");
    lock.close();
    QVERIFY(lock.setPermissions(QFileDevice::ReadOwner));
    const auto process = start(Probe::closes);
    QCOMPARE(lines_of(*process), QStringList(QStringLiteral("window frmmain")));
    QCOMPARE(process->exitCode(), 0);
}

void tst_process::a_lock_that_is_no_file_shows_the_message_at_once()
{
    const QString lock = path(QStringLiteral("app/twdata/groc.lock"));
    QCOMPARE(::mkfifo(QFile::encodeName(lock).constData(), 0666), 0);
    const auto process = start(Probe::closes);
    QCOMPARE(lines_of(*process),
             QStringList(QStringLiteral("message TarnWick: TarnWick encountered an error|And must shut down||"
                                        "Error 75: The lock file is no file|(%1)")
                             .arg(lock)));
    QVERIFY(process->exitCode() != 0);
}

void tst_process::a_placing_that_fails_ends_with_a_failure_and_its_cause_on_the_standard_error()
{
    SQLite::Database(database().toStdString(), SQLite::OPEN_READWRITE)
        .exec("INSERT INTO cat (key_id, cat_desc, expand) VALUES (1, 'Dairy', 1);"
              "INSERT INTO items_1 (key_id, item, cat, status, to_get, qty, desc) VALUES (1, 'Milk', 1, 5, 0, 0, ' "
              "');"
              "INSERT INTO list_name (key_id, list_name, active) VALUES (1, 'Weekly', 0);"
              "CREATE TRIGGER refuse BEFORE INSERT ON tie BEGIN SELECT RAISE(ABORT, 'refused by a test'); END");
    Settings prefs(settings());
    prefs.set_reg();
    prefs.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
    const auto process = start_listening();
    QVERIFY(process);
    QVERIFY(!ask(*process, "choose item0001").isNull());
    tell(*process, "do mnu_edit_stock_to_list");
    QCOMPARE(lines_of(*process),
             QStringList(QStringLiteral("message TarnWick: TarnWick has encountered an error|"
                                        "and must shut down")));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QVERIFY(process->exitCode() != 0);
    QVERIFY(errors_of(*process).contains("refused by a test"));
    SQLite::Database file(database().toStdString());
    QCOMPARE(file.execAndGet("SELECT count(*) FROM groc_1").getInt(), 0);
}

void tst_process::a_missing_database_shows_the_message_and_makes_none()
{
    QVERIFY(QFile::remove(database()));
    const auto process = start(Probe::closes);
    QCOMPARE(lines_of(*process),
             QStringList(QStringLiteral("message TarnWick: TarnWick encountered an error|And must shut down||"
                                        "Error 14: The database file is missing|(%1)")
                             .arg(database())));
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(files(), QStringList());
}

void tst_process::a_damaged_database_shows_the_message_and_is_left_alone()
{
    QByteArray damaged = bytes_of(database());
    for (qsizetype i = 4096; i < 4104; ++i)
        damaged[i] = static_cast<char>(~damaged[i]);
    QFile file(database());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();
    {
        const auto closing = start(Probe::closes);
        const QStringList lines = lines_of(*closing);
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines[0].startsWith(QStringLiteral("message TarnWick: TarnWick encountered an error|"
                                                    "And must shut down||Error 11: ")),
                 qPrintable(lines[0]));
        QVERIFY(closing->exitCode() != 0);
    }
    QCOMPARE(bytes_of(database()), damaged);
    QCOMPARE(files(), QStringList(QStringLiteral("groc.mdb")));
}

void tst_process::a_setting_that_is_no_text_shows_the_message()
{
    QVERIFY(QDir().mkpath(QFileInfo(settings()).path()));
    QFile file(settings());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[trnwck]\nprefs\\load=load\nprefs\\font=9, 10\n");
    file.close();
    const QByteArray before = bytes_of(settings());
    const auto process = start(Probe::closes);
    const int number = static_cast<int>(0x800407D0U) + QMetaType::QStringList;
    QCOMPARE(lines_of(*process),
             QStringList(QStringLiteral("message TarnWick: TarnWick encountered an error|And must shut down||"
                                        "Error %1: Registry data not a string")
                             .arg(number)));
    QCOMPARE(bytes_of(settings()), before);
}

void tst_process::a_read_only_store_of_settings_shows_the_message()
{
    QFile blocker(path(QStringLiteral("config")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const QByteArray before = bytes_of(database());
    const auto process = start(Probe::closes);
    const QStringList lines = lines_of(*process);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].endsWith(QStringLiteral("Could not open/create registry section|(%1)").arg(settings())),
             qPrintable(lines[0]));
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(bytes_of(database()), before);
}

void tst_process::settings_that_cannot_be_parsed_are_set_aside_and_told_once()
{
    QVERIFY(QDir().mkpath(QFileInfo(settings()).path()));
    QFile file(settings());
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray garbage(300, '\0');
    file.write(garbage);
    file.close();
    const auto first = start(Probe::closes);
    QCOMPARE(
        lines_of(*first),
        QStringList({QStringLiteral("message TarnWick: The settings file could not be read and was set aside as|"
                                    "(%1.damaged)||TarnWick starts with the default settings.")
                         .arg(settings()),
                     QString::fromLatin1(main_window)}));
    QCOMPARE(first->exitCode(), 0);
    QCOMPARE(bytes_of(settings() + QStringLiteral(".damaged")), garbage);
    const auto second = start(Probe::closes);
    QCOMPARE(lines_of(*second), QStringList(QString::fromLatin1(main_window)));
    QCOMPARE(second->exitCode(), 0);
}

void tst_process::settings_that_are_a_fifo_show_the_message_at_once()
{
    QVERIFY(QDir().mkpath(QFileInfo(settings()).path()));
    QCOMPARE(::mkfifo(QFile::encodeName(settings()).constData(), 0666), 0);
    const auto process = start(Probe::closes);
    const QStringList lines = lines_of(*process);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].endsWith(QStringLiteral("is taken by what is no file|(%1)").arg(settings())),
             qPrintable(lines[0]));
    QVERIFY(process->exitCode() != 0);
}

void tst_process::a_dead_lock_on_the_settings_does_not_hold_up_the_start()
{
    QVERIFY(QDir().mkpath(QFileInfo(settings()).path()));
    QFile lock(settings() + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("1\ntarnwick\nelsewhere\n0123456789abcdef\n\n");
    lock.close();
    QElapsedTimer waited;
    waited.start();
    const auto process = start(Probe::closes);
    QCOMPARE(lines_of(*process), QStringList(QString::fromLatin1(main_window)));
    QVERIFY2(!waited.hasExpired(20000), "the 30 s of the library");
    QVERIFY(bytes_of(settings()).contains("prefs\\load=load"));
}

void tst_process::the_probe_obeys_only_the_verbs_it_knows()
{
    const auto process = start(Probe::listens);
    QVERIFY(wait_for(*process, main_window));
    for (const QByteArray command : {"type mnu_view_rcp", "undo mnu_view_rcp", "do title"}) {
        tell(*process, command);
        QVERIFY2(wait_for(*process, "cannot " + command), command.constData());
    }
    tell(*process, "close");
    QCOMPARE(lines_of(*process), QStringList());
    QCOMPARE(process->exitCode(), 0);
}

void tst_process::settings_lost_after_the_start_end_the_program_with_one_message_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("view switch") << QByteArray("do mnu_view_rcp");
    QTest::newRow("close") << QByteArray("close");
}

void tst_process::settings_lost_after_the_start_end_the_program_with_one_message()
{
    QFETCH(QByteArray, command);
    const auto process = start(Probe::listens);
    QVERIFY(wait_for(*process, main_window));
    tell(*process, "ready");
    QVERIFY(wait_for(*process, "ready"));
    QVERIFY(lose_settings());
    tell(*process, command);
    const int number = static_cast<int>(0x800407D0U) + 1;
    QCOMPARE(lines_of(*process),
             QStringList(QStringLiteral("message TarnWick: Run-time error '%1':||"
                                        "Could not open/create registry section|(%2)")
                             .arg(number)
                             .arg(settings())));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QVERIFY(process->exitCode() != 0);
}

void tst_process::a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("view switch") << QByteArray("do mnu_view_shoplist");
    QTest::newRow("close") << QByteArray("close");
}

void tst_process::a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start()
{
    QFETCH(QByteArray, command);
    qputenv("PROBE_ANSWERS", "Cancel");
    const auto process = start_with_edited_recipe();
    qunsetenv("PROBE_ANSWERS");
    QVERIFY(process);
    {
        SQLite::Database other(database().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        QElapsedTimer waited;
        waited.start();
        tell(*process, command);
        QCOMPARE(lines_of(*process),
                 QStringList({locked_message(),
                              QStringLiteral("message TarnWick: Run-time error '5':||database is locked")}));
        QVERIFY(waited.elapsed() >= 9000);
    }
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(recipe_name(), QStringLiteral("Soup"));
    QVERIFY(files().contains(QStringLiteral("rescue.json")));

    qputenv("PROBE_ANSWERS", "Yes");
    const QStringList next = lines_of(*start(Probe::closes));
    QCOMPARE(next.size(), 2);
    QVERIFY2(next[0].startsWith(QStringLiteral("message TarnWick: TarnWick was ended before this was "
                                               "stored:||Recipe \"sSoup\": name and instructions||")),
             qPrintable(next[0]));
    QCOMPARE(recipe_name(), QStringLiteral("sSoup"));
    QVERIFY(!files().contains(QStringLiteral("rescue.json")));
    QCOMPARE(lines_of(*start(Probe::closes)), QStringList(QLatin1String(main_window)));
    qunsetenv("PROBE_ANSWERS");
}

void tst_process::a_rescue_that_is_not_wanted_is_kept_and_not_offered_again()
{
    QFile file(QFileInfo(database()).path() + QStringLiteral("/rescue.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"recipe": 1, "typed": {"name": "sSoup", "body": "Stir."}})");
    file.close();
    qputenv("PROBE_ANSWERS", "No");
    QCOMPARE(lines_of(*start(Probe::closes)).size(), 2);
    qunsetenv("PROBE_ANSWERS");
    QVERIFY(files().contains(QStringLiteral("rescue.kept")));
    QCOMPARE(lines_of(*start(Probe::closes)), QStringList(QLatin1String(main_window)));
}

void tst_process::a_locked_database_is_waited_for_as_often_as_wanted()
{
    qputenv("PROBE_ANSWERS", "Retry,Cancel");
    const auto process = start_with_edited_recipe();
    qunsetenv("PROBE_ANSWERS");
    QVERIFY(process);
    {
        SQLite::Database other(database().toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN; SELECT * FROM cat");
        SQLite::Statement reader(other, "SELECT * FROM cat");
        QVERIFY(reader.executeStep());
        tell(*process, "do mnu_view_shoplist");
        QVERIFY(wait_for(*process, "Another program is using the database"));
    }
    tell(*process, "ready");
    QVERIFY(wait_for(*process, "ready"));
    QCOMPARE(recipe_name(), QStringLiteral("sSoup"));
    tell(*process, "close");
    QCOMPARE(lines_of(*process), QStringList());
    QCOMPARE(process->exitCode(), 0);
}

void tst_process::a_locked_database_at_the_start_is_waited_for()
{
    SQLite::Database other(database().toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    qputenv("PROBE_ANSWERS", "Cancel");
    const auto process = start(Probe::closes);
    qunsetenv("PROBE_ANSWERS");
    const QStringList lines = lines_of(*process);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0], locked_message());
    QVERIFY2(
        lines[1].startsWith(QStringLiteral("message TarnWick: TarnWick encountered an error|And must shut down||"
                                           "Error 5: database is locked")),
        qPrintable(lines[1]));
    QVERIFY(process->exitCode() != 0);
}

void tst_process::an_edited_recipe_is_stored_before_any_setting_is_written()
{
    const auto process = start_with_edited_recipe();
    QVERIFY(process);
    QVERIFY(lose_settings());
    tell(*process, "do mnu_view_stock");
    const QStringList lines = lines_of(*process);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].endsWith(QStringLiteral("Could not open/create registry section|(%1)").arg(settings())),
             qPrintable(lines[0]));
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(recipe_name(), QStringLiteral("sSoup"));
    QVERIFY(!files().contains(QStringLiteral("rescue.json")));
}

void tst_process::an_end_by_the_system_stores_what_was_typed_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("log-out") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
    QTest::newRow("terminal interrupts") << SIGINT;
}

void tst_process::an_end_by_the_system_stores_what_was_typed()
{
    QFETCH(int, signal);
    const auto process = start_with_edited_recipe();
    QVERIFY(process);
    QCOMPARE(recipe_name(), QStringLiteral("Soup"));
    QCOMPARE(::kill(static_cast<pid_t>(process->processId()), signal), 0);
    QCOMPARE(lines_of(*process), QStringList());
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    QCOMPARE(recipe_name(), QStringLiteral("sSoup"));
    QVERIFY(!files().contains(QStringLiteral("groc.lock")));
}

void tst_process::an_ignored_signal_stays_ignored()
{
    std::signal(SIGHUP, SIG_IGN);
    const auto process = start_with_edited_recipe();
    std::signal(SIGHUP, SIG_DFL);
    QVERIFY(process);
    QCOMPARE(::kill(static_cast<pid_t>(process->processId()), SIGHUP), 0);
    tell(*process, "ready");
    QVERIFY(wait_for(*process, "ready"));
    tell(*process, "close");
    QCOMPARE(lines_of(*process), QStringList());
}

QTEST_GUILESS_MAIN(tst_process)
#include "tst_process.moc"
