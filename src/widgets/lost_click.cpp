#include "widgets/lost_click.h"

#include <QCoreApplication>
#include <QEvent>

namespace tarnwick {

void LostClick::start()
{
    awaited_ = Awaited::press;
    qApp->installEventFilter(this);
}

bool LostClick::eventFilter(QObject* watched, QEvent* event)
{
    const bool press = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!watched->isWidgetType() || (!press && !release))
        return false;
    if (press && awaited_ == Awaited::press) {
        awaited_ = Awaited::release;
        return true;
    }
    awaited_ = Awaited::nothing;
    qApp->removeEventFilter(this);
    return release;
}

} // namespace tarnwick
