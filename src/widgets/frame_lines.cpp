#include "widgets/frame_lines.h"

#include "widgets/contrast.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <array>
#include <span>

namespace tarnwick {
namespace {

void fill(QPainter& painter, std::span<const QRect> device_rects, const QColor& color)
{
    const QTransform to_logical = painter.deviceTransform().inverted();
    for (const QRect& rect : device_rects)
        painter.fillRect(to_logical.mapRect(QRectF(rect)), color);
}

QRect lower_edge(const QRect& device_rect, int width)
{
    return {device_rect.left(), device_rect.bottom() + 1 - width, device_rect.width(), width};
}

} // namespace

QRect in_device_pixels(const QPainter& painter, const QRect& rect)
{
    const QRectF exact = painter.deviceTransform().mapRect(QRectF(rect));
    return {QPoint(qRound(exact.left()), qRound(exact.top())),
            QPoint(qRound(exact.right()) - 1, qRound(exact.bottom()) - 1)};
}

int line_width(const QPainter& painter, int thickness)
{
    return std::max(1, static_cast<int>(thickness * painter.deviceTransform().m11()));
}

QColor line_color(const QPalette& colors)
{
    constexpr double softness = 0.25;
    return blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), softness);
}

QColor focus_color(const QPalette& colors)
{
    return clear_of(colors.color(QPalette::Window), colors.color(QPalette::Highlight), visible_shape);
}

void draw_frame(QPainter& painter, const QRect& rect, const QColor& color, int thickness)
{
    const QRect outer = in_device_pixels(painter, rect);
    const int width = line_width(painter, thickness);
    const int right = outer.right() + 1 - width;
    const std::array edges = {QRect(outer.left(), outer.top(), outer.width(), width), lower_edge(outer, width),
                              QRect(outer.left(), outer.top(), width, outer.height()),
                              QRect(right, outer.top(), width, outer.height())};
    fill(painter, edges, color);
}

void draw_right_line(QPainter& painter, const QRect& rect, const QColor& color)
{
    const QRect outer = in_device_pixels(painter, rect);
    const int width = line_width(painter);
    fill(painter, std::array{QRect(outer.right() + 1 - width, outer.top(), width, outer.height())}, color);
}

void draw_lower_line(QPainter& painter, const QRect& rect, const QColor& color)
{
    fill(painter, std::array{lower_edge(in_device_pixels(painter, rect), line_width(painter))}, color);
}

} // namespace tarnwick
