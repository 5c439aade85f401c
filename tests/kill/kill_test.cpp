// kill_test [KILLS [SEED]]: kills a process in which a user works at the main window, at random moments, and looks
// after each kill whether the file holds every finished operation and the one under way wholly or not at all.

#include "kill/kill_model.h"
#include "kill/kill_user.h"

#include "app/desktop_environment.h"
#include "window/frmmain.h"
#include "data/query.h"
#include "data/schema.h"
#include "data/runtime_error.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

using namespace tarnwick;
using namespace tarnwick::kill;

namespace {

constexpr int stock_items = 60;
constexpr int latest_kill_ms = 220;
constexpr int start_timeout_ms = 30000;
constexpr int longest_life_ms = 60000;

int work_until_killed(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    Environment environment = desktop_environment();
    environment.program_folder = arguments[2];
    environment.settings_file = arguments[2] + QStringLiteral("/settings.ini");
    frmmain main(environment);
    main.load();
    User user(main, arguments[3].toUInt(), arguments[4]);
    QTimer::singleShot(0, &user, &User::work);
    QTimer::singleShot(longest_life_ms, qApp, [] { _exit(5); });
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}

/// The parent: the file's state as it must be, and the account of the kills.
class Killer {
public:
    explicit Killer(quint32 seed)
        : random_(seed)
    {
    }

    bool prepare();
    void kill_once(int number);
    int report(int kills, qint64 ms) const;

private:
    bool start_and_kill(int number);
    void judge(int number);
    void fail(int number, const QString& text);
    QString database() const { return folder_.filePath(QStringLiteral("twdata/groc.mdb")); }
    QString log() const { return folder_.filePath(QStringLiteral("log")); }

    QTemporaryDir folder_;
    QRandomGenerator random_;
    State expected_;
    int passed_ = 0;
    int failed_ = 0;
    int done_ = 0;
    int whole_ = 0;
    int not_at_all_ = 0;
};

bool Killer::prepare()
{
    Settings settings(folder_.filePath(QStringLiteral("settings.ini")));
    settings.set_reg();
    settings.set_pref(QStringLiteral("sort"), QStringLiteral("alpha"));
    settings.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    settings.set_pref(QStringLiteral("fwidth"), QStringLiteral("15000"));
    settings.set_pref(QStringLiteral("fheight"), QStringLiteral("9000"));
    make_database(database());
    Connection connection;
    connection.open(database());
    Transaction transaction(connection);
    for (int key = 1; key <= stock_items; ++key)
        Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, ?, 0, 5)", key,
              QStringLiteral("item %1").arg(key, 2, 10, QLatin1Char('0')))
            .run();
    Query(connection, "INSERT INTO list_name (key_id, list_name, active) VALUES (1, 'First', 1)").run();
    transaction.commit();
    QStringList faults;
    expected_ = read_state(connection, faults);
    return faults.isEmpty();
}

void Killer::fail(int number, const QString& text)
{
    ++failed_;
    std::printf("kill %d: %s\n", number, qPrintable(text));
}

/// Which list the window opens with; the setting says "1" after a deletion whatever lists there are.
bool Killer::start_and_kill(int number)
{
    QFile::remove(log());
    const int list = expected_.lists.empty() ? -1 : *expected_.lists.rbegin();
    Settings(folder_.filePath(QStringLiteral("settings.ini")))
        .set_pref(QStringLiteral("alist"), QString::number(list));
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--child"), folder_.path(), QString::number(random_.generate()), log()});
    QByteArray output;
    while (!output.contains("ready") && child.waitForReadyRead(start_timeout_ms))
        output += child.readAllStandardOutput();
    if (!output.contains("ready")) {
        fail(number, QStringLiteral("the window did not start"));
        return false;
    }
    usleep(static_cast<useconds_t>(random_.bounded(latest_kill_ms * 1000)));
    child.kill();
    child.waitForFinished(start_timeout_ms);
    if (child.exitStatus() != QProcess::CrashExit) {
        QFile file(log());
        const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        fail(number, QStringLiteral("ended by itself: ") + QString::fromUtf8(text.right(200)));
        return false;
    }
    return true;
}

void Killer::judge(int number)
{
    QFile file(log());
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    std::optional<Operation> open_operation;
    State state = expected_;
    for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(QLatin1String("done ")) && open_operation) {
            open_operation->key = line.section(u' ', 1).toInt();
            apply(state, *open_operation);
            open_operation.reset();
            ++done_;
        } else {
            open_operation = read_begin_line(line);
        }
    }
    Connection connection;
    connection.open(database());
    QStringList faults;
    const State found = read_state(connection, faults);
    expected_ = found;
    if (!faults.isEmpty()) {
        fail(number, faults.join(QStringLiteral("; ")));
        return;
    }
    const int verdict = open_operation ? held(state, *open_operation, found) : found == state ? 0 : -1;
    if (verdict < 0) {
        fail(number,
             (open_operation ? begin_line(*open_operation) : QStringLiteral("nothing under way"))
                 + QStringLiteral(": ") + difference(state, found));
        return;
    }
    if (open_operation)
        ++(verdict == 1 ? whole_ : not_at_all_);
    ++passed_;
}

void Killer::kill_once(int number)
{
    if (!start_and_kill(number))
        return;
    try {
        judge(number);
    } catch (...) {
        const runtime_error error = current_error();
        fail(number, QStringLiteral("the file does not open: %1 %2").arg(error.number()).arg(error.description()));
    }
}

int Killer::report(int kills, qint64 ms) const
{
    std::printf(
        "%d kills in %lld s: %d operations finished; under way %d, of them %d wholly in the file and %d not "
        "at all\n",
        kills, static_cast<long long>(ms / 1000), done_, whole_ + not_at_all_, whole_, not_at_all_);
    // A run in which no kill met an operation has shown nothing.
    const bool met = whole_ + not_at_all_ >= kills / 8 && done_ >= kills;
    if (!met)
        std::printf("too few kills met an operation under way\n");
    std::printf("%d passed, %d failed\n", passed_, failed_ + (met ? 0 : 1));
    return failed_ == 0 && met ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], "--child") == 0)
        return work_until_killed(argc, argv);
    QCoreApplication application(argc, argv);
    const int kills = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 200;
    const quint32 seed
        = argc > 2 ? QString::fromLocal8Bit(argv[2]).toUInt() : QRandomGenerator::system()->generate();
    std::printf("seed %u\n", seed);
    Killer killer(seed);
    if (!killer.prepare())
        return 1;
    QElapsedTimer clock;
    clock.start();
    for (int number = 1; number <= kills; ++number)
        killer.kill_once(number);
    return killer.report(kills, clock.elapsed());
}
