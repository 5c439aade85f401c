#include "window/keyboard_asides.h"

#include "window/toolbar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

namespace tarnwick {
namespace {

/// The view of a box that goes with the edit in it; any other control is its own place.
QWidget* lasting_place(QWidget* widget)
{
    for (QWidget* part = widget; part; part = part->parentWidget())
        if (auto* view = qobject_cast<QAbstractItemView*>(part))
            return view;
    return widget;
}

} // namespace

KeyboardAsides::KeyboardAsides(Toolbar& toolbar, QWidget& separator, QWidget& window)
    : QObject(&window)
    , toolbar_(toolbar)
    , separator_(separator)
    , window_(window)
{
    connect(new QShortcut(QKeySequence(Qt::Key_F10), &window_), &QShortcut::activated, this,
            &KeyboardAsides::go_to_toolbar);
    connect(new QShortcut(QKeySequence(Qt::Key_F8), &window_), &QShortcut::activated, this,
            [this] { separator_.setFocus(Qt::OtherFocusReason); });
    connect(qApp, &QApplication::focusChanged, this, &KeyboardAsides::follow);
    for (QToolButton* button : toolbar_.widget().findChildren<QToolButton*>())
        button->installEventFilter(this);
    separator_.installEventFilter(this);
}

bool KeyboardAsides::is_aside(const QWidget* widget) const
{
    return widget && (widget == &separator_ || toolbar_.widget().isAncestorOf(widget));
}

bool KeyboardAsides::have_keyboard() const
{
    return is_aside(window_.focusWidget());
}

QWidget* KeyboardAsides::place_before() const
{
    return before_ && before_->isVisible() && before_->isEnabled() ? before_ : nullptr;
}

void KeyboardAsides::go_to_toolbar()
{
    if (const auto buttons = toolbar_.usable_buttons(); !buttons.empty())
        buttons.front()->setFocus(Qt::OtherFocusReason);
}

/// The menu bar has the keyboard for a while only and gives it back.
void KeyboardAsides::follow(QWidget* old, QWidget* now)
{
    const auto counts = [this](const QWidget* widget) {
        return widget && widget->window() == &window_ && !is_aside(widget)
            && !qobject_cast<const QMenuBar*>(widget);
    };
    if (is_aside(now) && counts(old))
        before_ = lasting_place(old);
    else if (counts(now))
        before_.clear();
}

bool KeyboardAsides::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Escape) {
        emit back_wanted();
        return true;
    }
    auto* button = qobject_cast<QToolButton*>(watched);
    return button && toolbar_key(*button, key);
}

/// Whether the key was the toolbar's.
bool KeyboardAsides::toolbar_key(QToolButton& button, const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event.isAutoRepeat())
            button.click();
        return true;
    case Qt::Key_Down:
        if (QMenu* list = button.menu())
            list->popup(button.mapToGlobal(button.rect().bottomLeft()));
        return true;
    case Qt::Key_Up:
        return true; // the button would go on to another
    default:
        return go_along(button, event.key());
    }
}

bool KeyboardAsides::go_along(const QToolButton& button, int key)
{
    const auto buttons = toolbar_.usable_buttons();
    const auto here = std::find(buttons.begin(), buttons.end(), &button);
    if (here == buttons.end())
        return false;
    const auto count = buttons.size();
    const auto place = static_cast<size_t>(here - buttons.begin());
    if (key == Qt::Key_Right)
        buttons[(place + 1) % count]->setFocus(Qt::OtherFocusReason);
    else if (key == Qt::Key_Left)
        buttons[(place + count - 1) % count]->setFocus(Qt::OtherFocusReason);
    else if (key == Qt::Key_Home)
        buttons.front()->setFocus(Qt::OtherFocusReason);
    else if (key == Qt::Key_End)
        buttons.back()->setFocus(Qt::OtherFocusReason);
    else
        return false;
    return true;
}

} // namespace tarnwick
