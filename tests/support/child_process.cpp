#include "support/child_process.h"

#include <QByteArray>

#include <array>
#include <exception>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarnwick {
namespace {

constexpr unsigned nobody = 65534;

bool give_up_root()
{
    return geteuid() != 0
        || (setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, nobody) == 0
            && setresuid(nobody, nobody, nobody) == 0);
}

/// What the function gives; an exception must not unwind into the test runner's copy in the child.
QString result_of(const std::function<QString()>& function)
{
    try {
        return function();
    } catch (const std::exception& error) {
        return QStringLiteral("exception: ") + QString::fromUtf8(error.what());
    }
}

} // namespace

QString in_child_process(const std::function<QString()>& function)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return QStringLiteral("no pipe");
    const pid_t child = fork();
    if (child < 0)
        return QStringLiteral("no child process");
    if (child == 0) {
        ::close(ends[0]);
        const QByteArray text = result_of(function).toUtf8();
        const bool written = ::write(ends[1], text.constData(), static_cast<size_t>(text.size())) == text.size();
        _exit(written ? 0 : 1);
    }
    ::close(ends[1]);
    QByteArray text;
    std::array<char, 512> buffer{};
    for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), count);
    ::close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return QStringLiteral("the child process failed");
    return QString::fromUtf8(text);
}

QString as_nobody(const std::function<QString()>& function)
{
    return in_child_process(
        [&function] { return give_up_root() ? function() : QStringLiteral("root's rights stay"); });
}

} // namespace tarnwick
