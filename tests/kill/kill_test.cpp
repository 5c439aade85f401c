// kill_test HABIT [KILLS [SEED]]: kills a process in which a user who "fills" lists or "tidies" up works at the
// main window, at random moments, and looks after each kill whether the file holds every finished operation and the
// one under way wholly or not at all.

#include "kill/kill_model.h"
#include "kill/kill_user.h"

#include "app/desktop_environment.h"
#include "window/frmmain.h"
#include "data/keys.h"
#include "data/query.h"
#include "data/schema.h"
#include "data/runtime_error.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <map>
#include <unistd.h>

using namespace tarnwick;
using namespace tarnwick::kill;

namespace {

constexpr int stock_items = 60;
constexpr int latest_kill_ms = 220; ///< of one who fills lists
constexpr int latest_kill_tidying_ms = 700; ///< names are typed and questions answered
constexpr int start_timeout_ms = 30000;
constexpr int longest_life_ms = 60000;
constexpr const char* tidies = "tidies";

int work_until_killed(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    Environment environment = desktop_environment();
    environment.program_folder = arguments[2];
    environment.settings_file = arguments[2] + QStringLiteral("/settings.ini");
    frmmain main(environment);
    main.load();
    User user(main, arguments[5] == QLatin1String(tidies) ? Habit::tidies : Habit::fills, arguments[3].toUInt(),
              arguments[4]);
    QTimer::singleShot(0, &user, &User::work);
    QTimer::singleShot(longest_life_ms, qApp, [] { _exit(5); });
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}

/// The parent: the file's state as it must be, and the account of the kills.
class Killer {
public:
    Killer(Habit habit, quint32 seed)
        : habit_(habit)
        , random_(seed)
    {
    }

    bool prepare();
    void kill_once(int number);
    int report(int kills, qint64 ms) const;

private:
    void provide();
    bool start_and_kill(int number);
    void judge(int number);
    void fail(int number, const QString& text);
    QString database() const { return folder_.filePath(QStringLiteral("twdata/groc.mdb")); }
    QString log() const { return folder_.filePath(QStringLiteral("log")); }

    const Habit habit_;
    QTemporaryDir folder_;
    QRandomGenerator random_;
    State expected_;
    int passed_ = 0;
    int failed_ = 0;
    int done_ = 0;
    int whole_ = 0;
    int not_at_all_ = 0;
    std::map<QString, int> under_way_; ///< how many kills met an operation of a kind
};

bool Killer::prepare()
{
    Settings settings(folder_.filePath(QStringLiteral("settings.ini")));
    settings.set_reg();
    if (habit_ == Habit::fills)
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

/// What there is to tidy up: three lists, and a category of 50 items that stand on each of them and on some lines
/// of recipes. What is left of an earlier one stays beside it, up to a measure.
void Killer::provide()
{
    constexpr int lists = 3;
    constexpr int items = 50;
    constexpr int too_many_rows = 2000;
    Connection connection;
    connection.open(database());
    Transaction transaction(connection);
    if (expected_.rows.size() > too_many_rows) {
        Query(connection, "DELETE FROM groc_1").run();
        Query(connection, "DELETE FROM tie").run();
        Query(connection, "UPDATE items_1 SET status = 5").run();
    }
    for (int list = 1; list <= lists; ++list)
        Query(connection, "INSERT OR IGNORE INTO list_name (key_id, list_name) VALUES (?, ?)", list,
              QStringLiteral("List %1").arg(list))
            .run();
    const Key category = get_node(connection, Table::cat);
    Query(connection, "INSERT INTO cat (key_id, cat_desc, expand) VALUES (?, ?, ?)", category,
          QStringLiteral("Many %1").arg(random_.generate()), random_.bounded(2) == 1)
        .run();
    for (int i = 0; i < items; ++i) {
        const Key item = get_node(connection, Table::items_1);
        const QString name = QStringLiteral("item %1 of %2").arg(i).arg(category);
        int marks = 0;
        for (int list = 1; list <= lists; ++list) {
            const bool to_get = random_.bounded(2) == 1;
            marks += to_get ? 1 : 0;
            const Key row = get_node(connection, Table::groc_1);
            Query(connection, "INSERT INTO groc_1 (key_id, item, to_get) VALUES (?, ?, ?)", row, name, to_get)
                .run();
            Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)",
                  get_node(connection, Table::tie), row, item, list)
                .run();
        }
        Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, ?, ?, ?)", item, name,
              category, std::min(6 + marks, 8))
            .run();
        if (i % 5 == 0)
            Query(connection, "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item) VALUES (?, 1, ?, ?)",
                  get_node(connection, Table::recipe_2), item, name)
                .run();
    }
    transaction.commit();
    QStringList faults;
    expected_ = read_state(connection, faults);
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
    const int list = expected_.lists.empty() ? -1 : expected_.lists.rbegin()->first;
    Settings(folder_.filePath(QStringLiteral("settings.ini")))
        .set_pref(QStringLiteral("alist"), QString::number(list));
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--child"), folder_.path(), QString::number(random_.generate()), log(),
                 habit_ == Habit::tidies ? QLatin1String(tidies) : QString()});
    QByteArray output;
    while (!output.contains("ready") && child.waitForReadyRead(start_timeout_ms))
        output += child.readAllStandardOutput();
    if (!output.contains("ready")) {
        fail(number, QStringLiteral("the window did not start"));
        return false;
    }
    usleep(static_cast<useconds_t>(
        random_.bounded(1000 * (habit_ == Habit::tidies ? latest_kill_tidying_ms : latest_kill_ms))));
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
    if (open_operation) {
        ++(verdict == 1 ? whole_ : not_at_all_);
        ++under_way_[kind_name(open_operation->kind)];
    }
    ++passed_;
}

void Killer::kill_once(int number)
{
    try {
        if (habit_ == Habit::tidies)
            provide();
        if (!start_and_kill(number))
            return;
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
    for (const auto& [kind, count] : under_way_)
        std::printf("  %d in %s\n", count, qPrintable(kind));
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
    if (argc == 6 && qstrcmp(argv[1], "--child") == 0)
        return work_until_killed(argc, argv);
    QCoreApplication application(argc, argv);
    const Habit habit = argc > 1 && qstrcmp(argv[1], tidies) == 0 ? Habit::tidies : Habit::fills;
    const int kills = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 200;
    const quint32 seed
        = argc > 3 ? QString::fromLocal8Bit(argv[3]).toUInt() : QRandomGenerator::system()->generate();
    std::printf("seed %u\n", seed);
    Killer killer(habit, seed);
    if (!killer.prepare())
        return 1;
    QElapsedTimer clock;
    clock.start();
    for (int number = 1; number <= kills; ++number)
        killer.kill_once(number);
    return killer.report(kills, clock.elapsed());
}
