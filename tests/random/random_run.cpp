#include "random/random_run.h"

#include "random/oracle.h"

#include "support/test_window.h"

#include <QApplication>
#include <QTest>

#include <numeric>

namespace tarnwick::random_use {
namespace {

constexpr int faults_told = 12;

const Act& choose(User& user, std::span<const Act> acts)
{
    const int sum
        = std::accumulate(acts.begin(), acts.end(), 0, [](int n, const Act& act) { return n + act.weight; });
    int dice = user.below(sum);
    for (const Act& act : acts)
        if ((dice -= act.weight) < 0)
            return act;
    return acts.back();
}

/// Returns the name of the act that found an occasion; empty when none did.
QString take_step(User& user, std::span<const Act> acts)
{
    for (int tries = 0; tries < 50; ++tries)
        if (const Act& act = choose(user, acts); act.act(user))
            return QString::fromLatin1(act.name);
    return {};
}

QStringList never_done(std::span<const Act> acts, const QSet<QString>& done)
{
    QStringList missing;
    for (const Act& act : acts)
        if (!done.contains(QLatin1String(act.name)))
            missing += QString::fromLatin1(act.name);
    return missing;
}

} // namespace

void run(TestWindow& window, std::span<const Act> acts, quint32 seed, int steps)
{
    seed = qEnvironmentVariableIsSet("RANDOM_SEED") ? qEnvironmentVariable("RANDOM_SEED").toUInt() : seed;
    steps = qEnvironmentVariableIsSet("RANDOM_STEPS") ? qEnvironmentVariableIntValue("RANDOM_STEPS") : steps;
    window.main().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window.main()));
    User user(window, seed);
    Oracle oracle(window);
    QSet<QString> done;
    for (int step = 1; step <= steps; ++step) {
        user.note(QStringLiteral("-- %1").arg(step));
        const QString act = take_step(user, acts);
        done.insert(act);
        user.settle();
        const QStringList faults = user.take_faults() + oracle.check(act == QLatin1String("scroll"));
        if (faults.isEmpty())
            continue;
        const QString account = QStringLiteral("RANDOM_SEED=%1 RANDOM_STEPS=%2 %3\n%4\n%5")
                                    .arg(seed)
                                    .arg(step)
                                    .arg(QApplication::applicationFilePath(), user.trail().join(u'\n'),
                                         faults.mid(0, faults_told).join(u'\n'));
        QFAIL(qPrintable(account));
    }
    constexpr int enough = 1000; // steps after which every act has found its occasion
    if (steps >= enough)
        QCOMPARE(never_done(acts, done).join(u' '), QString());
}

} // namespace tarnwick::random_use
