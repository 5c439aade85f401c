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

void take_step(User& user, std::span<const Act> acts)
{
    for (int tries = 0; tries < 50; ++tries)
        if (choose(user, acts).act(user))
            return;
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
    for (int step = 1; step <= steps; ++step) {
        user.note(QStringLiteral("-- %1").arg(step));
        take_step(user, acts);
        user.settle();
        const QStringList faults = user.take_faults() + oracle.check();
        if (faults.isEmpty())
            continue;
        const QString account = QStringLiteral("RANDOM_SEED=%1 RANDOM_STEPS=%2 %3\n%4\n%5")
                                    .arg(seed)
                                    .arg(step)
                                    .arg(QApplication::applicationFilePath(), user.trail().join(u'\n'),
                                         faults.mid(0, faults_told).join(u'\n'));
        QFAIL(qPrintable(account));
    }
}

} // namespace tarnwick::random_use
