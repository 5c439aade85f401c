#include "widgets/second_click.h"

#include <QApplication>
#include <QEvent>

namespace tarnwick {

SecondClick::SecondClick(QObject* parent)
    : QObject(parent)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &SecondClick::time_out);
}

void SecondClick::start()
{
    timer_.start(QApplication::doubleClickInterval());
    qApp->installEventFilter(this);
}

void SecondClick::stop()
{
    timer_.stop();
    qApp->removeEventFilter(this);
}

void SecondClick::time_out()
{
    stop();
    if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget())
        emit came();
}

bool SecondClick::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
        stop();
        break;
    default:
        break;
    }
    return false;
}

} // namespace tarnwick
