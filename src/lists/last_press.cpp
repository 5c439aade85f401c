#include "lists/last_press.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace tarnwick {

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

bool LastPress::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
        pressed_ = watched;
    return false;
}

} // namespace tarnwick
