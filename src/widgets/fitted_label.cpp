#include "widgets/fitted_label.h"

#include <QPainter>

namespace tarnwick {

void FittedLabel::paintEvent(QPaintEvent*)
{
    const QRect room = contentsRect();
    const FittedText shown = fit_text(text(), font(), room.width(), narrowest_);
    QPainter painter(this);
    painter.setFont(shown.font);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, shown.text);
}

} // namespace tarnwick
