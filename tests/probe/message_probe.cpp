// A plugin that Qt loads into the real program by QT_QPA_GENERIC_PLUGINS=message_probe. It prints what windows come
// up, one line each, and answers every message box with its first button. With the environment variable
// PROBE_CLOSES it closes the main window. With PROBE_LISTENS it is the user's hands: it takes one command a line
// from the standard input, once the main window stands. "close" closes the window; "ready" is printed back;
// "do ACTION" triggers an enabled action by its object name; "type NAME TEXT" types into a visible line of text and
// prints what it then holds. A command that it does not know or cannot do comes back behind "cannot".

#include <QAction>
#include <QCoreApplication>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <cstdio>
#include <unistd.h>

namespace {

class Probe : public QObject {
public:
    Probe() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (auto* box = qobject_cast<QMessageBox*>(watched))
                QTimer::singleShot(0, box, [box] { answer(*box); });
            else if (auto* window = qobject_cast<QMainWindow*>(watched))
                QTimer::singleShot(0, window, [this, window] { seen(*window); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void print(const QString& line)
    {
        std::puts(qPrintable(line));
        std::fflush(stdout);
    }

    static void answer(QMessageBox& box)
    {
        print(QStringLiteral("message %1: %2").arg(box.windowTitle(), box.text().replace(u'\n', u'|')));
        if (!box.buttons().isEmpty())
            box.buttons().first()->click();
    }

    void seen(QMainWindow& window)
    {
        print(QStringLiteral("window ") + window.objectName());
        if (qEnvironmentVariableIsSet("PROBE_CLOSES"))
            window.close();
        if (!qEnvironmentVariableIsSet("PROBE_LISTENS") || listener_)
            return;
        window.activateWindow();
        listener_ = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
        connect(listener_, &QSocketNotifier::activated, &window, [this, &window] { listen(window); });
    }

    void listen(QMainWindow& window)
    {
        std::array<char, 512> buffer{};
        const auto count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count <= 0) {
            listener_->setEnabled(false);
            return;
        }
        heard_.append(buffer.data(), count);
        for (qsizetype end = 0; (end = heard_.indexOf('\n')) >= 0;) {
            const QString command = QString::fromUtf8(heard_.left(end));
            heard_.remove(0, end + 1);
            obey(window, command);
        }
    }

    static void obey(QMainWindow& window, const QString& command)
    {
        const QString verb = command.section(u' ', 0, 0);
        const QString name = command.section(u' ', 1, 1);
        auto* action = verb == QLatin1String("do") ? window.findChild<QAction*>(name) : nullptr;
        auto* line = verb == QLatin1String("type") ? window.findChild<QLineEdit*>(name) : nullptr;
        if (command == QLatin1String("close")) {
            window.close();
        } else if (command == QLatin1String("ready")) {
            print(command);
        } else if (action && action->isEnabled()) {
            action->trigger();
        } else if (line && line->isVisible()) {
            line->setFocus();
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, command.section(u' ', 2));
            QCoreApplication::sendEvent(line, &press);
            print(QStringLiteral("line ") + line->text());
        } else {
            print(QStringLiteral("cannot ") + command);
        }
    }

    QSocketNotifier* listener_ = nullptr;
    QByteArray heard_;
};

} // namespace

class MessageProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "message_probe.json")
public:
    QObject* create(const QString&, const QString&) override { return new Probe; }
};

#include "message_probe.moc"
