#include "probe/real_program.h"

#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cstdio>

namespace tarnwick {

void RealProgram::renew()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(path(QStringLiteral("app/twdata"))));
    QVERIFY(QFile::copy(QStringLiteral(TARNWICK_PROGRAM), program()));
    QVERIFY(make_database(database()));
}

std::unique_ptr<QProcess> RealProgram::start(Probe probe, const QString& config) const
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!environment.contains(QStringLiteral("QT_QPA_PLATFORM")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(config));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PROBE_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("message_probe"));
    if (probe == Probe::closes)
        environment.insert(QStringLiteral("PROBE_CLOSES"), QStringLiteral("1"));
    if (probe == Probe::listens || probe == Probe::leaves_messages)
        environment.insert(QStringLiteral("PROBE_LISTENS"), QStringLiteral("1"));
    if (probe == Probe::leaves_messages)
        environment.insert(QStringLiteral("PROBE_LEAVES_MESSAGES"), QStringLiteral("1"));
    process->setProcessEnvironment(environment);
    QObject::connect(process.get(), &QProcess::readyReadStandardError, process.get(), [one = process.get()] {
        const QByteArray said = one->readAllStandardError();
        one->setProperty("errors", errors_of(*one) + said);
        std::fputs(said.constData(), stderr);
    });
    process->start(program(), QStringList());
    return process;
}

QStringList RealProgram::lines_of(QProcess& process)
{
    if (!process.waitForFinished(patience_ms)) {
        process.kill();
        process.waitForFinished();
        return {QStringLiteral("(did not end)")};
    }
    return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

QByteArray RealProgram::errors_of(const QProcess& process)
{
    return process.property("errors").toByteArray();
}

bool RealProgram::wait_for(QProcess& process, const QByteArray& line)
{
    QByteArray output;
    while (!output.contains(line) && process.waitForReadyRead(patience_ms))
        output += process.readAllStandardOutput();
    return output.contains(line);
}

void RealProgram::tell(QProcess& process, const QByteArray& command)
{
    process.write(command + '\n');
    QVERIFY(process.waitForBytesWritten(patience_ms));
}

QString RealProgram::ask(QProcess& process, const QByteArray& question)
{
    tell(process, question);
    for (;;) {
        if (!process.canReadLine() && !process.waitForReadyRead(patience_ms))
            return {};
        while (process.canReadLine()) {
            const QString line = QString::fromUtf8(process.readLine()).chopped(1);
            if (line.startsWith(QLatin1String("= ")))
                return line.mid(2);
            if (line == QStringLiteral("cannot ") + QString::fromUtf8(question))
                return {};
        }
    }
}

std::unique_ptr<QProcess> RealProgram::start_listening(Probe probe) const
{
    auto process = start(probe);
    return wait_for(*process, main_window) ? std::move(process) : nullptr;
}

QString RealProgram::xdotool(const QStringList& arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(patience_ms) || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0)
        return {};
    return QStringLiteral("") + QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

bool RealProgram::click(QProcess& process, const QByteArray& question, int button)
{
    const QStringList place = ask(process, question).split(u' ');
    if (place.size() != 4)
        return false;
    const auto middle = [&place](int from, int length) {
        return QString::number(place[from].toInt() + place[length].toInt() / 2);
    };
    return !xdotool({QStringLiteral("mousemove"), middle(0, 2), middle(1, 3), QStringLiteral("click"),
                     QString::number(button)})
                .isNull();
}

QStringList RealProgram::files() const
{
    return QDir(path(QStringLiteral("app/twdata"))).entryList(QDir::Files);
}

} // namespace tarnwick
