// A plugin that Qt loads into the real program by QT_QPA_GENERIC_PLUGINS=message_probe. It prints what windows come
// up, one line each, answers every message box with its first button, and closes the main window when the
// environment variable PROBE_CLOSES is set.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <cstdio>

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
                QTimer::singleShot(0, window, [window] { seen(*window); });
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

    static void seen(QMainWindow& window)
    {
        print(QStringLiteral("window ") + window.objectName());
        if (qEnvironmentVariableIsSet("PROBE_CLOSES"))
            window.close();
    }
};

} // namespace

class MessageProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "message_probe.json")
public:
    QObject* create(const QString&, const QString&) override { return new Probe; }
};

#include "message_probe.moc"
