#include "app/application.h"

#include "window/frmmain.h"
#include "widgets/message_box.h"
#include "widgets/plain_style.h"

#include <QIcon>

#include <cstdlib>

namespace tarnwick {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("tarnwick"));
    setDesktopFileName(QStringLiteral("tarnwick"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/tarnwick.svg")));
    setStyle(new PlainStyle);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (ending_ || (main_ && main_->shared.ending))
            return false;
        ending_ = true;
        const runtime_error error = current_error();
        if (!main_)
            end_with_start_message(error);
        main_->begin_ending();
        end_with_runtime_message(error);
    }
}

void end_with_start_message(const runtime_error& error)
{
    print_cause(error);
    msg_box(nullptr,
            QStringLiteral("TarnWick encountered an error\nAnd must shut down\n\nError %1: %2")
                .arg(error.number())
                .arg(error.description()),
            box::ok, QStringLiteral("TarnWick"));
    std::_Exit(EXIT_FAILURE);
}

void end_with_runtime_message(const runtime_error& error)
{
    print_cause(error);
    msg_box(nullptr, QStringLiteral("Run-time error '%1':\n\n%2").arg(error.number()).arg(error.description()),
            box::stop, QStringLiteral("TarnWick"));
    std::_Exit(EXIT_FAILURE);
}

} // namespace tarnwick
