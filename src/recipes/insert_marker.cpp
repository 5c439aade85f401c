#include "recipes/insert_marker.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace tarnwick {
namespace {

constexpr int marker_height = 9; ///< of the arrow heads at its ends
constexpr int bar_height = 3;

} // namespace

InsertMarker::InsertMarker(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("insert_ingred"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void InsertMarker::show_at(int left, int middle, int width, const QRect& bounds)
{
    const int lowest = std::max(bounds.top(), bounds.bottom() + 1 - marker_height);
    const int top = std::clamp(middle - marker_height / 2, bounds.top(), lowest);
    setGeometry(left, top, std::max(width, 1), marker_height);
    raise();
    show();
}

void InsertMarker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    const qreal middle = height() / 2.0;
    const qreal right = width();
    painter.drawRect(QRectF(0, middle - bar_height / 2.0, right, bar_height));
    painter.drawPolygon(QPolygonF({{0, 0}, {middle, middle}, {0, qreal(height())}}));
    painter.drawPolygon(QPolygonF({{right, 0}, {right - middle, middle}, {right, qreal(height())}}));
}

} // namespace tarnwick
