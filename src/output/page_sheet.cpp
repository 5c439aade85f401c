#include "output/page_sheet.h"

#include "output/page_painter.h"

#include <QPainter>

namespace tarnwick {

void PageSheet::set_page(const Page& page)
{
    page_ = page;
    setProperty("page", page_as_maps(page));
    resize(page.size);
    update();
}

void PageSheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paint_page(painter, page_);
}

} // namespace tarnwick
