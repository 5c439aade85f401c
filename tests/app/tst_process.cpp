#include "data/settings.h"
#include "probe/real_program.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <memory>

using namespace tarnwick;

namespace {

QByteArray bytes_of(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

} // namespace

/// The real executable, copied to a folder of its own and started as a process. A plugin prints its windows.
class tst_process : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init() { renew(); }

    void runs_from_the_folder_it_was_copied_to();
    void a_second_start_says_so_and_touches_nothing();
    void a_second_start_reads_neither_settings_nor_database();
    void a_start_after_a_killed_one_is_no_second_start();
    void a_missing_database_shows_the_message_and_makes_none();
    void a_damaged_database_shows_the_message_and_is_left_alone();
    void a_setting_that_is_no_text_shows_the_message();
    void a_read_only_store_of_settings_shows_the_message();
    void the_probe_obeys_only_the_verbs_it_knows();
    void settings_lost_after_the_start_end_the_program_with_one_message_data();
    void settings_lost_after_the_start_end_the_program_with_one_message();
    void a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start_data();
    void a_recipe_that_cannot_be_saved_is_rescued_and_put_back_at_the_next_start();
    void a_rescue_that_is_not_wanted_is_kept_and_not_offered_again();
    void a_locked_database_is_waited_for_as_often_as_wanted();
    void a_locked_database_at_the_start_is_waited_for();
    void an_edited_recipe_is_stored_before_any_setting_is_written();

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
    QCOMPARE(lines_of(*second),
             QStringList(QStringLiteral("message TarnWick: A previous instance of TarnWick|is already running")));
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
    QCOMPARE(lines_of(*second),
             QStringList(QStringLiteral("message TarnWick: A previous instance of TarnWick|is already running")));
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
    QVERIFY2(lines[0].endsWith(QStringLiteral("Could not open/create registry section")), qPrintable(lines[0]));
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(bytes_of(database()), before);
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
                                        "Could not open/create registry section")
                             .arg(number)));
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
    QVERIFY2(next[0].startsWith(QStringLiteral("message TarnWick: TarnWick was ended by an error before this was "
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
    QVERIFY(process->exitCode() != 0);
    QCOMPARE(recipe_name(), QStringLiteral("sSoup"));
    QVERIFY(!files().contains(QStringLiteral("rescue.json")));
}

QTEST_GUILESS_MAIN(tst_process)
#include "tst_process.moc"
