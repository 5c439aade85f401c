// A plugin that Qt loads into the real program by QT_QPA_GENERIC_PLUGINS=message_probe. It prints what windows come
// up, one line each, and answers every message box with its first button, but with PROBE_LEAVES_MESSAGES, which
// leaves them to a real mouse and keyboard, and with PROBE_ANSWERS, the names of the buttons for the first boxes,
// with commas between. With PROBE_CLOSES it closes the main window. With PROBE_LISTENS it takes one line at a time
// from the standard input, once the main window stands. Its hands:
//   close             closes the main window
//   ready             is printed back
//   do ACTION         triggers an enabled action by its object name
//   open ACTION       the same from the event loop, which then goes on under the dialog that the action opens
//   type NAME TEXT    types into a visible line of text and prints what it then holds
//   under NAME        the windows that come up from now on come with this button under the pointer; with the one
//   that
//                     refuses, or their first, where they have none of this name
// Its eyes, answered behind "= ":
//   where NAME        x y width height on the screen of a visible widget
//   node KEY          the same for the text of a tree node in view
//   choose KEY        the same, after a click there by a mouse of its own
//   get NAME PROPERTY the property of a widget as text
//   entry NAME        the same for an entry of an open menu
//   focus             the object name of the widget that has the keyboard
//   sizes             every size in which the main window has been seen on the screen, each once
//   told              what the X server has told of the windows of the program: "NAME map", "NAME unmap" and "NAME
//                     WIDTHxHEIGHT" or, with its place on the screen, "NAME WIDTHxHEIGHT+X+Y", with commas between
// What it does not know or cannot do comes back behind "cannot".

#include <QAbstractNativeEventFilter>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGenericPlugin>
#include <QHash>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWindow>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <unistd.h>

namespace {

/// What the X server tells of windows coming, going, and changing their size or place.
class ServerWatch : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr*) override
    {
        if (kind == QByteArrayLiteral("xcb_generic_event_t"))
            hear(static_cast<const uchar*>(message));
        return false;
    }
    QString told() const { return told_.join(u','); }

private:
    /// Events of the X protocol: 32 bytes each in the order of the machine, with fields at fixed places.
    void hear(const uchar* event)
    {
        constexpr int unmap = 18;
        constexpr int map = 19;
        constexpr int configure = 22;
        constexpr uchar sent = 0x80; // by the window manager, with the place on the screen
        const auto number = [event](int at) { return qFromUnaligned<quint16>(event + at); };
        const int type = event[0] & ~sent;
        if (type != unmap && type != map && type != configure)
            return;
        const QString name = name_of(qFromUnaligned<quint32>(event + 8));
        QString what = type == map ? QStringLiteral("map") : QStringLiteral("unmap");
        if (type == configure) {
            what = QStringLiteral("%1x%2").arg(number(20)).arg(number(22));
            if (event[0] & sent)
                what += QStringLiteral("+%1+%2").arg(qint16(number(16))).arg(qint16(number(18)));
        }
        if (!name.isEmpty())
            told_.append(name + u' ' + what);
    }

    /// A window may be gone from the program by the time the server tells that it is unmapped.
    QString name_of(quint32 id)
    {
        for (const QWindow* window : QGuiApplication::allWindows()) {
            if (window->handle() && window->winId() == id)
                names_[id] = window->objectName();
        }
        return names_.value(id);
    }

    QHash<quint32, QString> names_;
    QStringList told_;
};

class Probe : public QObject {
public:
    Probe()
    {
        qApp->installEventFilter(this);
        qApp->installNativeEventFilter(&server_);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (auto* dialog = qobject_cast<QDialog*>(watched); dialog && !under_.isEmpty())
                put_under_pointer(*dialog);
            if (auto* box = qobject_cast<QMessageBox*>(watched))
                QTimer::singleShot(0, box, [box] { answer(*box); });
            else if (auto* window = qobject_cast<QMainWindow*>(watched))
                QTimer::singleShot(0, window, [this, window] { seen(*window); });
        }
        if (event->type() == QEvent::Expose || event->type() == QEvent::Resize)
            note_size(watched);
        return QObject::eventFilter(watched, event);
    }

private:
    /// As window managers do that have ideas of their own about places.
    void put_under_pointer(QDialog& dialog) const
    {
        QWidget* button = dialog.findChild<QWidget*>(under_);
        if (!button)
            button = refusing_button(dialog);
        if (!button)
            button = dialog.findChild<QPushButton*>();
        if (!button)
            return;
        dialog.resize(dialog.size().expandedTo(dialog.sizeHint()));
        if (dialog.layout())
            dialog.layout()->activate();
        // The frame is not known before the window manager has drawn it, and not counted then.
        dialog.move(QCursor::pos() - button->mapTo(&dialog, button->rect().center()));
    }

    static QWidget* refusing_button(const QDialog& dialog)
    {
        if (const auto* row = dialog.findChild<QDialogButtonBox*>())
            for (const auto which : {QDialogButtonBox::Cancel, QDialogButtonBox::No})
                if (QWidget* button = row->button(which))
                    return button;
        return nullptr;
    }

    static QString entry_place(const QString& name)
    {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return {};
        for (QAction* action : menu->actions())
            if (action->objectName() == name)
                return place_of(*menu, menu->actionGeometry(action));
        return {};
    }

    /// The main window's own, however its native window came by it.
    void note_size(QObject* watched)
    {
        const auto* window = qobject_cast<QWindow*>(watched);
        if (!window || !window->isExposed() || window->objectName() != QLatin1String("frmmainWindow"))
            return;
        const QString size = QStringLiteral("%1x%2").arg(window->width()).arg(window->height());
        if (!sizes_.contains(size))
            sizes_.append(size);
    }

    static void print(const QString& line)
    {
        std::puts(qPrintable(line));
        std::fflush(stdout);
    }

    static void answer(QMessageBox& box)
    {
        print(QStringLiteral("message %1: %2").arg(box.windowTitle(), box.text().replace(u'\n', u'|')));
        if (box.buttons().isEmpty() || qEnvironmentVariableIsSet("PROBE_LEAVES_MESSAGES"))
            return;
        static QStringList wanted = qEnvironmentVariable("PROBE_ANSWERS").split(u',', Qt::SkipEmptyParts);
        const QString answer = wanted.isEmpty() ? QString() : wanted.takeFirst();
        for (QAbstractButton* button : box.buttons()) {
            if (button->text().remove(u'&') == answer)
                return button->click();
        }
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

    static QWidget* widget(const QString& name)
    {
        const QWidgetList all = QApplication::allWidgets();
        const auto found = std::find_if(all.begin(), all.end(), [&name](const QWidget* one) {
            return one->isVisible() && one->objectName() == name;
        });
        return found == all.end() ? nullptr : *found;
    }

    static QString place_of(const QWidget& widget, const QRect& part)
    {
        const QPoint corner = widget.mapToGlobal(part.topLeft());
        return QStringLiteral("%1 %2 %3 %4").arg(corner.x()).arg(corner.y()).arg(part.width()).arg(part.height());
    }

    /// The tree that shows a node, and where its text is in the viewport.
    static std::pair<QTreeWidget*, QRect> node_in_view(const QString& key)
    {
        for (QWidget* one : QApplication::allWidgets()) {
            auto* tree = qobject_cast<QTreeWidget*>(one);
            if (!tree || !tree->isVisible())
                continue;
            for (QTreeWidgetItemIterator node(tree); *node; ++node) {
                if ((*node)->data(0, Qt::UserRole).toString() != key)
                    continue;
                const int text = tree->fontMetrics().horizontalAdvance((*node)->text(0));
                const int row = tree->sizeHintForIndex(tree->indexFromItem(*node)).width();
                const QRect label = tree->visualItemRect(*node).adjusted(row - text - 2, 0, 0, 0);
                const QRect shown = label & tree->viewport()->rect();
                if (!shown.isEmpty())
                    return {tree, QRect(shown.topLeft(), QSize(std::min(text, shown.width()), shown.height()))};
            }
        }
        return {nullptr, QRect()};
    }

    static void click(QWidget& widget, const QPointF& place)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool down = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                              down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&widget, &event);
        }
    }

    /// The answer to a question; a null text when it is none or has no answer.
    QString answer_to(const QString& command) const
    {
        const QString verb = command.section(u' ', 0, 0);
        const QString name = command.section(u' ', 1, 1);
        const QWidget* named = widget(name);
        if (verb == QLatin1String("where") && named)
            return place_of(*named, named->rect());
        if (verb == QLatin1String("node") || verb == QLatin1String("choose")) {
            const auto [tree, text] = node_in_view(name);
            if (tree && verb == QLatin1String("choose"))
                click(*tree->viewport(), text.center());
            return tree ? place_of(*tree->viewport(), text) : QString();
        }
        if (verb == QLatin1String("entry"))
            return entry_place(name);
        if (verb == QLatin1String("get") && named)
            return named->property(command.section(u' ', 2, 2).toLatin1().constData()).toString();
        if (verb == QLatin1String("focus") && QApplication::focusWidget())
            return QApplication::focusWidget()->objectName();
        if (verb == QLatin1String("told"))
            return server_.told();
        return verb == QLatin1String("sizes") ? sizes_.join(u' ') : QString();
    }

    void obey(QMainWindow& window, const QString& command)
    {
        if (const QString answer = answer_to(command); !answer.isNull()) {
            print(QStringLiteral("= ") + answer);
            return;
        }
        const QString verb = command.section(u' ', 0, 0);
        const QString name = command.section(u' ', 1, 1);
        const bool opens = verb == QLatin1String("open");
        auto* action = opens || verb == QLatin1String("do") ? window.findChild<QAction*>(name) : nullptr;
        auto* line = verb == QLatin1String("type") ? window.findChild<QLineEdit*>(name) : nullptr;
        if (command == QLatin1String("close")) {
            window.close();
        } else if (verb == QLatin1String("under")) {
            under_ = name;
        } else if (command == QLatin1String("ready")) {
            print(command);
        } else if (action && action->isEnabled() && opens) {
            QTimer::singleShot(0, action, &QAction::trigger);
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

    ServerWatch server_;
    QSocketNotifier* listener_ = nullptr;
    QByteArray heard_;
    QStringList sizes_;
    QString under_; ///< the button that the pointer is to meet
};

} // namespace

class MessageProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "message_probe.json")
public:
    QObject* create(const QString&, const QString&) override { return new Probe; }
};

#include "message_probe.moc"
