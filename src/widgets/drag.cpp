#include "widgets/drag.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tarnwick {
namespace {

constexpr QPoint beside_pointer(12, 14); ///< the label's place, so that it never lies under the pointer
constexpr int widest_caption = 320;
constexpr int edge_height = 18; ///< pixels along a target's upper and lower edge that scroll it
constexpr int edge_interval_ms = 60;
constexpr int edge_patience = 4; ///< ticks at an edge before it scrolls: a pointer that passes through does not

/// An ingredient line bears its own sign, and has no place but the page.
Qt::CursorShape pointer_of(DragKind kind, DragSign sign)
{
    if (sign == DragSign::refused)
        return Qt::ForbiddenCursor;
    return kind == DragKind::ingredient_line ? Qt::SizeHorCursor : Qt::ArrowCursor;
}

} // namespace

Drag::Drag(QWidget& form)
    : QObject(&form)
    , form_(form)
    , drag_label_tree_(make_label(QStringLiteral("drag_label_tree")))
    , drag_label_ingred_(make_label(QStringLiteral("drag_label_ingred")))
    , edge_timer_(new QTimer(this))
{
    edge_timer_->setInterval(edge_interval_ms);
    connect(edge_timer_, &QTimer::timeout, this, &Drag::scroll_at_edge);
}

Drag::~Drag()
{
    if (running())
        stop();
}

QLabel* Drag::make_label(const QString& name)
{
    auto* label = new QLabel(&form_, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    label->setObjectName(name);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setAttribute(Qt::WA_ShowWithoutActivating);
    label->setTextFormat(Qt::PlainText);
    label->setFrameStyle(QFrame::Box | QFrame::Plain);
    label->setMargin(3);
    label->hide();
    return label;
}

bool Drag::is_drag(QPoint moved)
{
    return std::abs(moved.x()) >= least_distance || std::abs(moved.y()) >= least_distance;
}

void Drag::add_target(QWidget& widget, DragTarget& target)
{
    std::erase_if(places_, [](const Place& place) { return !place.widget; });
    places_.push_back({&widget, &target});
}

QLabel& Drag::label() const
{
    return payload_.kind == DragKind::ingredient_line ? *drag_label_ingred_ : *drag_label_tree_;
}

void Drag::begin(DragSource& source, const DragPayload& payload, QPoint global)
{
    if (running())
        return;
    source_ = &source;
    payload_ = payload;
    edge_rest_ = 0;
    source.drag_begun();
    qApp->installEventFilter(this);
    QApplication::setOverrideCursor(pointer_of(payload_.kind, DragSign::plain));
    edge_timer_->start();
    fill_label();
    move_to(global);
}

void Drag::fill_label()
{
    QLabel& shown = label();
    shown.setFont(source_->drag_font());
    shown.setText(shown.fontMetrics().elidedText(payload_.caption, Qt::ElideRight, widest_caption));
    shown.adjustSize();
}

void Drag::cancel()
{
    if (!running())
        return;
    DragSource& source = *source_;
    stop();
    source.drag_ended(DragEnd::cancelled);
}

/// Takes down all that a running drag has put up.
void Drag::stop()
{
    qApp->removeEventFilter(this);
    edge_timer_->stop();
    enter({});
    source_ = nullptr;
    QApplication::restoreOverrideCursor();
    label().hide();
}

/// The window of a target at a point of the screen; none where another window lies above. The order of windows is
/// known on the screen only: beyond its edges any window lies above the form.
QWidget* Drag::window_at(QPoint global) const
{
    const bool on_screen = QGuiApplication::screenAt(global) != nullptr;
    const QWindow* top = on_screen ? QGuiApplication::topLevelAt(global) : nullptr;
    QWidget* found = nullptr;
    for (const Place& place : places_) {
        QWidget* window = place.widget ? place.widget->window() : nullptr;
        if (!window || !window->isVisible())
            continue;
        const bool here = on_screen ? window->windowHandle() == top : window->geometry().contains(global);
        if (here && (!found || window != &form_))
            found = window;
    }
    return found;
}

Drag::Place Drag::place_at(QPoint global) const
{
    QWidget* window = window_at(global);
    if (!window)
        return {};
    QWidget* child = window->childAt(window->mapFromGlobal(global));
    for (const QWidget* widget = child ? child : window; widget; widget = widget->parentWidget()) {
        const auto found = std::find_if(places_.begin(), places_.end(),
                                        [widget](const Place& place) { return place.widget == widget; });
        if (found != places_.end())
            return *found;
        if (widget->isWindow())
            break;
    }
    return {};
}

DragSign Drag::sign_at(const Place& place, QPoint global) const
{
    if (place.widget)
        return place.target->drag_over(payload_, place.widget->mapFromGlobal(global));
    return payload_.kind == DragKind::ingredient_line ? DragSign::refused : DragSign::plain;
}

void Drag::move_to(QPoint global)
{
    pointer_ = global;
    const Place place = place_at(global);
    enter(place);
    const DragSign sign = sign_at(place, global);
    if (sign == DragSign::given_up) {
        cancel();
        return;
    }
    show_sign(sign);
    label().move(global + beside_pointer);
    label().show();
}

void Drag::enter(const Place& place)
{
    if (place.widget == over_.widget)
        return;
    const Place left = std::exchange(over_, place);
    if (left.widget)
        left.target->drag_left(payload_);
}

void Drag::show_sign(DragSign sign)
{
    const Qt::CursorShape shape = pointer_of(payload_.kind, sign);
    if (const QCursor* shown = QApplication::overrideCursor(); shown && shown->shape() != shape)
        QApplication::changeOverrideCursor(shape);
}

void Drag::release(QPoint global)
{
    const Place place = place_at(global);
    enter(place);
    const DragSign sign = sign_at(place, global);
    const DragPayload payload = payload_;
    DragSource& source = *source_;
    stop();
    source.drag_ended(DragEnd::released);
    if (place.widget && sign == DragSign::plain)
        place.target->drop(payload, place.widget->mapFromGlobal(global));
}

void Drag::scroll_at_edge()
{
    int direction = 0;
    if (over_.widget) {
        const QPoint position = over_.widget->mapFromGlobal(pointer_);
        direction = position.y() < edge_height ? -1 : position.y() >= over_.widget->height() - edge_height ? 1 : 0;
    }
    edge_rest_ = direction * edge_rest_ < 0 || direction == 0 ? direction : edge_rest_ + direction;
    if (std::abs(edge_rest_) < edge_patience)
        return;
    over_.target->scroll_towards(direction);
    move_to(pointer_);
}

bool Drag::eventFilter(QObject* watched, QEvent* event)
{
    if (!running() || !watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.buttons().testFlag(Qt::LeftButton))
            move_to(mouse.globalPosition().toPoint());
        else
            cancel();
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.button() == Qt::LeftButton)
            release(mouse.globalPosition().toPoint());
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent&>(*event).button() != Qt::LeftButton)
            return true;
        cancel(); // The release was never seen.
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent&>(*event).key() != Qt::Key_Escape)
            return false;
        event->accept();
        if (event->type() == QEvent::KeyPress)
            cancel();
        return true;
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
    case QEvent::Hide:
        if (watched == &form_)
            cancel();
        return false;
    default:
        return false;
    }
}

} // namespace tarnwick
