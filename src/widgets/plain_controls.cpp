#include "widgets/plain_controls.h"

#include "widgets/contrast.h"
#include "widgets/frame_lines.h"

#include <QPainter>
#include <QStyleOption>

namespace tarnwick {
namespace {

constexpr int focus_thickness = 2;

/// The ground of what can be pressed: lighter than its window, and a shade darker while it is held.
QColor raised_ground(const QStyleOption& option)
{
    constexpr double lighter_on_light = 0.7;
    constexpr double lighter_on_dark = 0.1;
    constexpr double hovered = 0.1;
    constexpr double held = 0.12;
    const QColor window = option.palette.color(QPalette::Window);
    const bool on_dark = luminance(window) < 0.5;
    const QColor ground = blend(window, Qt::white, on_dark ? lighter_on_dark : lighter_on_light);
    if (!(option.state & QStyle::State_Enabled))
        return blend(window, ground, 0.5);
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return blend(ground, option.palette.color(QPalette::WindowText), held);
    if (option.state & QStyle::State_MouseOver)
        return blend(ground, focus_color(option.palette), hovered);
    return ground;
}

/// The colour of focus marks, made to stand out from the window and from the ground inside the line alike.
QColor mark_color(const QPalette& colors, const QColor& ground)
{
    return clear_of(ground, focus_color(colors), visible_shape);
}

/// Draws a control with the line that its state asks for.
void draw_control(const QStyleOption& option, QPainter& painter, const QColor& ground, bool is_default = false)
{
    constexpr double line = 0.4;
    constexpr double faint = 0.2;
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool focused = enabled && option.state & QStyle::State_HasFocus;
    const QPalette& colors = option.palette;
    const bool marked = focused || (enabled && is_default);
    const QColor ink = marked
        ? mark_color(colors, ground)
        : blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), enabled ? line : faint);
    draw_rounded(painter, option.rect, ground, ink, focused ? focus_thickness : 1);
}

} // namespace

void draw_rounded(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& line, int thickness)
{
    constexpr int radius = 3;
    const QRect place = in_device_pixels(painter, rect);
    const int width = line_width(painter, thickness);
    const qreal middle = width / 2.0;
    const qreal bend = radius * line_width(painter) - middle;
    painter.save();
    painter.setTransform(painter.deviceTransform().inverted(), true);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, width));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(place).adjusted(middle, middle, -middle, -middle), bend, bend);
    painter.restore();
}

void draw_button(const QStyleOption& option, QPainter& painter)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool is_default = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
    draw_control(option, painter, raised_ground(option), is_default);
}

void draw_combo_box(const QStyleOptionComboBox& option, const QRect& arrow, QPainter& painter)
{
    constexpr qreal half_width = 3.5;
    constexpr qreal half_height = 1.75;
    constexpr qreal stroke = 1.4;
    constexpr double strong = 0.75;
    draw_control(option, painter, raised_ground(option));
    const QPalette& colors = option.palette;
    const QColor ink = blend(colors.color(QPalette::Window), colors.color(QPalette::ButtonText),
                             option.state & QStyle::State_Enabled ? strong : strong / 2);
    const QPointF middle = QRectF(arrow).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({middle + QPointF(-half_width, -half_height), middle + QPointF(0, half_height),
                                    middle + QPointF(half_width, -half_height)}));
    painter.restore();
}

void draw_line_edit(const QStyleOptionFrame& option, QPainter& painter)
{
    draw_control(option, painter, option.palette.color(QPalette::Base));
}

} // namespace tarnwick
