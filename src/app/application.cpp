#include "app/application.h"

#include "window/frmmain.h"
#include "window/rescuer.h"
#include "widgets/message_box.h"

#include <QIcon>
#include <QProxyStyle>

#include <cstdlib>

namespace tarnwick {

namespace {

/// Fusion with plain words on the buttons of message boxes.
class PlainButtons : public QProxyStyle {
public:
    PlainButtons()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("tarnwick"));
    setDesktopFileName(QStringLiteral("tarnwick"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/tarnwick.svg")));
    setStyle(new PlainButtons);
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
        main_->shared.ending = true;
        rescue_typed(*main_);
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
