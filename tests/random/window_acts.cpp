#include "random/acts.h"

#include "recipes/recipe_page.h"
#include "window/frmmain.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

namespace tarnwick::random_use {
namespace {

void gather(const QList<QAction*>& actions, QList<QAction*>& found)
{
    for (QAction* action : actions) {
        if (!action->isVisible() || !action->isEnabled() || action->isSeparator())
            continue;
        if (action->menu())
            gather(action->menu()->actions(), found);
        else if (action->objectName() != QLatin1String("mnu_list_exit"))
            found += action;
    }
}

} // namespace

bool type_text(User& user)
{
    static const QList<int> ends{Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down};
    const QWidget* const box = user.main().focusWidget();
    if (!box || !(qobject_cast<const QLineEdit*>(box) || qobject_cast<const QPlainTextEdit*>(box)))
        return false;
    if (user.chance(40))
        user.press_key(Qt::Key_A, Qt::ControlModifier);
    user.type(user.text());
    if (user.chance(60))
        user.press_key(user.any_of(ends));
    return true;
}

bool press_any_key(User& user)
{
    static const QList<int> plain{Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Escape,   Qt::Key_Up,
                                  Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Home,
                                  Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
                                  Qt::Key_Delete, Qt::Key_Space,  Qt::Key_F2,       Qt::Key_Backtab};
    static const QList<int> with_control{Qt::Key_Z, Qt::Key_Y, Qt::Key_V, Qt::Key_X, Qt::Key_A, Qt::Key_I};
    if (user.chance(70))
        user.press_key(user.any_of(plain));
    else
        user.press_key(user.any_of(with_control), Qt::ControlModifier);
    return true;
}

bool click_edit_button(User& user)
{
    QList<QWidget*> shown;
    for (QAbstractButton* button : user.main().findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled() && !qobject_cast<QToolButton*>(button)
            && !button->objectName().startsWith(QLatin1String("flt_btn")))
            shown += button;
    if (shown.isEmpty())
        return false;
    QWidget* const button = user.any_of(shown);
    user.click(*button, button->rect().center());
    return true;
}

bool choose_command(User& user)
{
    QList<QAction*> offered;
    gather(user.main().menuBar()->actions(), offered);
    QAction* const action = user.any_of(offered);
    user.note(QStringLiteral("command %1 '%2'").arg(action->objectName(), action->text()));
    action->trigger();
    return true;
}

bool click_toolbar(User& user)
{
    QList<QToolButton*> shown;
    for (int i = 1; i <= 18; ++i)
        if (auto* const button = user.main().findChild<QToolButton*>(QStringLiteral("Toolbar1(%1)").arg(i));
            button && button->isVisible() && button->isEnabled())
            shown += button;
    if (shown.isEmpty())
        return false;
    QToolButton* const button = user.any_of(shown);
    if (button->menu() && user.chance(40)) {
        user.note(QStringLiteral("drop-down of ") + button->objectName());
        button->showMenu();
        return true;
    }
    user.click(*button, {button->width() / 4, button->height() / 2});
    return true;
}

bool click_tab(User& user)
{
    QList<QTabBar*> strips;
    for (QTabBar* strip : user.main().findChildren<QTabBar*>())
        if (strip->isVisible())
            strips += strip;
    if (strips.isEmpty())
        return false;
    QTabBar* const strip = user.any_of(strips);
    user.click(*strip, strip->tabRect(user.below(strip->count())).center());
    return true;
}

bool resize_window(User& user)
{
    const QSize size(640 + user.below(560), 480 + user.below(320));
    user.note(QStringLiteral("size %1 x %2").arg(size.width()).arg(size.height()));
    user.main().resize(size);
    return true;
}

bool scroll(User& user)
{
    QList<QScrollBar*> bars;
    for (QScrollBar* bar : user.main().findChildren<QScrollBar*>())
        if (bar->isVisible() && bar->isEnabled() && bar->maximum() > bar->minimum())
            bars += bar;
    if (bars.isEmpty())
        return false;
    QScrollBar* const bar = user.any_of(bars);
    user.note(QStringLiteral("scroll"));
    bar->setValue(bar->minimum() + user.below(bar->maximum() - bar->minimum() + 1));
    return true;
}

} // namespace tarnwick::random_use
