#include "random/random_user.h"

#include "support/test_window.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace tarnwick::random_use {
namespace {

constexpr int trail_length = 30;

template <typename Child> QList<Child*> usable(const QWidget& parent)
{
    QList<Child*> found;
    for (Child* child : parent.findChildren<Child*>())
        if (child->isVisible() && child->isEnabled() && child->window() == &parent)
            found += child;
    return found;
}

QString label(const QWidget& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

} // namespace

User::User(TestWindow& window, quint32 seed)
    : window_(window)
    , random_(seed)
{
    qApp->installEventFilter(this);
}

User::~User() = default;

frmmain& User::main()
{
    return window_.main();
}

void User::note(const QString& what)
{
    trail_ += QString(2 * depth_, u' ') + what;
    if (trail_.size() > trail_length)
        trail_.removeFirst();
}

QStringList User::take_faults()
{
    return std::exchange(faults_, {});
}

QString User::text()
{
    static const QStringList texts{QStringLiteral("Milk"),
                                   QStringLiteral("eggs"),
                                   QStringLiteral("Oat flakes"),
                                   QStringLiteral("salt"),
                                   QStringLiteral("O'Brien"),
                                   QStringLiteral("\"best\" rice"),
                                   QStringLiteral("100%"),
                                   QStringLiteral("%"),
                                   QStringLiteral("a_b"),
                                   QStringLiteral("_"),
                                   QStringLiteral("Crème brûlée"),
                                   QStringLiteral("ÉCLAIRS"),
                                   QStringLiteral("🥕 roots"),
                                   QStringLiteral("Tea & biscuits"),
                                   QStringLiteral("<b>bold</b>"),
                                   QStringLiteral("two\nlines"),
                                   QStringLiteral("a\r\nb\tc"),
                                   QStringLiteral("\uFEFFmark"),
                                   QStringLiteral("  wide  "),
                                   QStringLiteral(" "),
                                   QString(),
                                   QStringLiteral("2"),
                                   QStringLiteral("1/2"),
                                   QStringLiteral("350°"),
                                   QString(70, u'x'),
                                   QString(40, u'W')};
    const QString chosen = texts[below(static_cast<int>(texts.size()))];
    return chance(40) ? chosen + QString::number(below(100)) : chosen;
}

QWidget* User::on_top(QWidget& widget, QPoint& point)
{
    QWidget* const top = widget.window();
    QWidget* const hit = top->childAt(widget.mapTo(top, point));
    if (!hit)
        return &widget;
    point = hit->mapFrom(top, widget.mapTo(top, point));
    return hit;
}

void User::click(QWidget& widget, QPoint point, Qt::MouseButton button)
{
    const QPointer<QWidget> target = on_top(widget, point);
    note(QStringLiteral("click %1 at %2,%3 button %4")
             .arg(label(*target))
             .arg(point.x())
             .arg(point.y())
             .arg(button));
    QTest::mousePress(target, button, {}, point);
    if (target)
        QTest::mouseRelease(target, button, {}, point);
}

void User::double_click(QWidget& widget, QPoint point)
{
    const QPointer<QWidget> target = on_top(widget, point);
    note(QStringLiteral("double click %1 at %2,%3").arg(label(*target)).arg(point.x()).arg(point.y()));
    QTest::mousePress(target, Qt::LeftButton, {}, point);
    if (target)
        QTest::mouseRelease(target, Qt::LeftButton, {}, point);
    if (target)
        QTest::mouseDClick(target, Qt::LeftButton, {}, point);
}

QWidget* User::keyboard()
{
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const window = modal ? modal : &main();
    return window->focusWidget() ? window->focusWidget() : window;
}

void User::press_key(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const target = keyboard();
    if (!target)
        return;
    note(QStringLiteral("key %1 on %2").arg(QKeySequence(key | int(modifiers)).toString(), label(*target)));
    QTest::keyClick(target, Qt::Key(key), modifiers);
}

void User::type(const QString& text)
{
    QWidget* const target = keyboard();
    if (!target)
        return;
    const bool pastes = text.contains(u'\n') || chance(15);
    note(QStringLiteral("%1 '%2' into %3")
             .arg(pastes ? QStringLiteral("paste") : QStringLiteral("type"), text, label(*target)));
    if (pastes) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
        return;
    }
    const QPointer<QWidget> box(target);
    for (const char32_t sign : text.toUcs4()) {
        if (!box)
            return;
        QTest::sendKeyEvent(QTest::Click, box, sign < 128 ? QTest::asciiToKey(char(sign)) : Qt::Key_unknown,
                            QString::fromUcs4(&sign, 1), {});
    }
}

void User::settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // A menu that has gone stays the active window of this platform.
    main().activateWindow();
    QApplication::processEvents();
}

bool User::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* dialog = qobject_cast<QDialog*>(watched)) {
            QTimer::singleShot(0, dialog, [this, dialog] {
                if (dialog->isVisible())
                    answer(*dialog);
            });
        } else if (auto* menu = qobject_cast<QMenu*>(watched)) {
            QTimer::singleShot(0, menu, [this, menu] {
                if (menu->isVisible())
                    choose(*menu);
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

void User::choose(QMenu& menu)
{
    QList<QAction*> offered;
    for (QAction* action : menu.actions())
        if (action->isVisible() && action->isEnabled() && !action->isSeparator() && !action->menu())
            offered += action;
    if (offered.isEmpty() || chance(15)) {
        menu.close();
        return;
    }
    QAction* const action = offered[below(static_cast<int>(offered.size()))];
    note(QStringLiteral("menu %1: %2").arg(menu.objectName(), action->text()));
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
}

void User::answer(QDialog& dialog)
{
    const QPointer<QDialog> open(&dialog);
    ++depth_;
    if (auto* message = qobject_cast<QMessageBox*>(&dialog)) {
        QAbstractButton* const button = message->buttons()[below(static_cast<int>(message->buttons().size()))];
        note(QStringLiteral("message '%1': %2").arg(QString(message->text()).replace(u'\n', u'|'), button->text()));
        const bool asks = message->buttons().size() > 1;
        if ((message->icon() == QMessageBox::Critical && !asks) || message->text().contains(QLatin1String("error")))
            faults_ += QStringLiteral("message '%1'").arg(message->text());
        QTest::mouseClick(button, Qt::LeftButton);
    } else {
        note(QStringLiteral("dialog %1").arg(label(dialog)));
        dialog.activateWindow();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        for (int tries = qobject_cast<QFileDialog*>(&dialog) ? 0 : 1 + below(8); tries > 0 && open; --tries)
            if (dialog.isVisible())
                use_a_control(dialog);
        const char* const button = chance(75) ? "Command1(0)" : "Command1(1)";
        auto* const wanted = open ? dialog.findChild<QAbstractButton*>(QString::fromLatin1(button)) : nullptr;
        if (wanted && wanted->isVisible() && wanted->isEnabled())
            click(*wanted, wanted->rect().center());
        if (open && dialog.isVisible())
            QTest::keyClick(&dialog, Qt::Key_Escape);
        if (open && dialog.isVisible())
            dialog.reject();
    }
    --depth_;
    if (open && open->isVisible())
        faults_ += QStringLiteral("%1 does not close").arg(label(*open));
}

void User::use_a_control(QDialog& dialog)
{
    const int kind = below(10);
    if (kind < 5) {
        if (const auto boxes = usable<QLineEdit>(dialog); !boxes.isEmpty()) {
            QLineEdit* const box = boxes[below(static_cast<int>(boxes.size()))];
            click(*box, box->rect().center());
            if (chance(60))
                press_key(Qt::Key_A, Qt::ControlModifier);
            type(text());
        }
    } else if (kind < 7) {
        if (const auto combos = usable<QComboBox>(dialog); !combos.isEmpty()) {
            combos.front()->setFocus();
            press_key(any_of(QList<int>{Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Home}));
        } else if (const auto options = usable<QRadioButton>(dialog); !options.isEmpty()) {
            QRadioButton* const option = options[below(static_cast<int>(options.size()))];
            click(*option, {option->height() / 2, option->height() / 2});
        }
    } else if (kind < 9) {
        const auto views = usable<QAbstractScrollArea>(dialog);
        if (!views.isEmpty()) {
            QWidget& area = *views[below(static_cast<int>(views.size()))]->viewport();
            click(area, {below(qMax(1, area.width())), below(qMax(1, qMin(area.height(), 120)))});
        }
    } else if (const auto buttons = usable<QAbstractButton>(dialog); !buttons.isEmpty()) {
        QAbstractButton* const button = buttons[below(static_cast<int>(buttons.size()))];
        click(*button, button->rect().center());
    }
}

} // namespace tarnwick::random_use
