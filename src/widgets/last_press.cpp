#include "widgets/last_press.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace tarnwick {
namespace {

constexpr const char* requires_first_press = "requires_first_press";

const QWidget* widget_at(const QWindow& window, QPoint position)
{
    const QWidget* top = QWidget::find(window.winId());
    return top ? top->childAt(position) : nullptr;
}

} // namespace

LastPress::LastPress(QObject* application)
    : QObject(application)
{
    application->installEventFilter(this);
}

LastPress* LastPress::follower()
{
    return qApp->findChild<LastPress*>(QString(), Qt::FindDirectChildrenOnly);
}

void LastPress::follow()
{
    if (!follower())
        new LastPress(qApp);
}

bool LastPress::was_on(const QWidget& widget)
{
    const LastPress* last = follower();
    return last && last->pressed_ == &widget;
}

void LastPress::require_on(QWidget& widget)
{
    follow();
    widget.setProperty(requires_first_press, true);
}

void LastPress::forget(const QWidget& widget)
{
    LastPress* last = follower();
    if (last && last->pressed_ == &widget)
        last->pressed_.clear();
}

bool LastPress::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
        pressed_ = watched;
    return watched->isWindowType() && is_lost(static_cast<QWindow&>(*watched), *event);
}

/// A menu closes under the first press, and what lies under it in its own window is then free for the second.
bool LastPress::is_in_another_window(const QWidget& widget) const
{
    const auto* first = qobject_cast<const QWidget*>(pressed_.data());
    const QWidget* now = widget.window();
    if (now->windowType() == Qt::Popup || (first && first->window() == now))
        return false;
    const QWidget* owner = first ? first->window() : nullptr;
    while (owner && owner->windowType() == Qt::Popup)
        owner = owner->parentWidget() ? owner->parentWidget()->window() : nullptr;
    return now->isModal() || (owner && owner != now);
}

// The window hears of a press before the press gives a widget the focus.
bool LastPress::is_lost(const QWindow& window, const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        loses_release_ = false;
        return false;
    case QEvent::MouseButtonDblClick: {
        const QPoint position = static_cast<const QMouseEvent&>(event).position().toPoint();
        const QWidget* widget = widget_at(window, position);
        loses_release_ = widget
            && (is_in_another_window(*widget)
                || (widget->property(requires_first_press).toBool() && !was_on(*widget)));
        return loses_release_;
    }
    case QEvent::MouseButtonRelease:
        return std::exchange(loses_release_, false);
    default:
        return false;
    }
}

} // namespace tarnwick
