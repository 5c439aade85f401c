#include "widgets/separator.h"

#include "widgets/drawn_controls.h"
#include "widgets/frame_lines.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int shadow_width = 4;
constexpr int shadow_top = 40;
constexpr int shadow_less_height = 45;
constexpr int right_room = 383; ///< the drag ends where the shadow is this far from the right edge
constexpr int move_room = 3500 / 15; ///< the shadow moves while this much is left at its right
constexpr int key_step = 10;

} // namespace

Separator::Separator(QWidget* area)
    : QFrame(area)
    , frame2_(new QFrame(area))
{
    set_drawn_control(*this, DrawnControl::separator);
    setObjectName(QStringLiteral("Frame1"));
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(QStringLiteral("Separator"));
    frame2_->setObjectName(QStringLiteral("frame2"));
    frame2_->setAutoFillBackground(true);
    frame2_->setBackgroundRole(QPalette::Dark);
    frame2_->hide();
}

void Separator::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    dragging_ = true;
    press_x_ = static_cast<int>(event->globalPosition().x());
    press_left_ = x();
    frame2_->setGeometry(press_left_, shadow_top, shadow_width, parentWidget()->height() - shadow_less_height);
    frame2_->raise();
    frame2_->show();
}

void Separator::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragging_)
        return;
    const int room = parentWidget()->width();
    const int left = press_left_ + static_cast<int>(event->globalPosition().x()) - press_x_;
    if (left + move_room <= room)
        frame2_->move(std::max(left, std::min(left_limit, press_left_)), frame2_->y());
    if (left + right_room < room)
        return;
    end_drag();
    emit limit_reached();
}

void Separator::mouseReleaseEvent(QMouseEvent* event)
{
    if (!dragging_ || event->button() != Qt::LeftButton)
        return;
    end_drag();
    emit moved(static_cast<int>(event->globalPosition().x()) - press_x_);
}

void Separator::end_drag()
{
    dragging_ = false;
    frame2_->hide();
}

void Separator::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left)
        emit stepped(-key_step);
    else if (event->key() == Qt::Key_Right)
        emit stepped(key_step);
    else
        QFrame::keyPressEvent(event);
}

void Separator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int grip = 24;
    const QRect bar(width() / 2 - 1, (height() - grip) / 2, 2, grip);
    painter.fillRect(bar, hasFocus() ? palette().color(QPalette::Highlight) : line_color(palette()));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void Separator::focusInEvent(QFocusEvent*)
{
    update();
}

void Separator::focusOutEvent(QFocusEvent*)
{
    update();
}

} // namespace tarnwick
