#include "app/end_signals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {
namespace {

volatile std::sig_atomic_t told_pipe = -1;

void tell(int)
{
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(static_cast<int>(told_pipe), &byte, 1);
    errno = before;
}

} // namespace

EndSignals::EndSignals(const std::function<void()>& end)
{
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    told_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(told_.get(), &QSocketNotifier::activated, told_.get(), [this, end] {
        char byte = 0;
        if (::read(pipe_[0], &byte, 1) == 1)
            end();
    });
    told_pipe = pipe_[1];
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction now { };
        ::sigaction(signal, nullptr, &now);
        if (now.sa_handler == SIG_IGN)
            continue; // whoever started the program wants it so
        struct sigaction own { };
        own.sa_handler = tell;
        own.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
        ::sigaction(signal, &own, nullptr);
    }
}

EndSignals::~EndSignals()
{
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction now { };
        ::sigaction(signal, nullptr, &now);
        if (now.sa_handler == tell)
            std::signal(signal, SIG_DFL);
    }
    told_pipe = -1;
    for (const int end : pipe_)
        if (end >= 0)
            ::close(end);
}

} // namespace tarnwick
