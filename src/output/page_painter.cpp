#include "output/page_painter.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tarnwick {
namespace {

constexpr double form_dpi = 96;
constexpr double size_step = 0.5; // points
constexpr QColor ink(0x1c, 0x24, 0x2e);
constexpr QColor line_ink(0x8a, 0x94, 0xa0);

/// Type of a size whose pixels are the form's on any device. Without hinting it is as wide on paper as on the
/// screen.
QFont form_font(const PageThing& thing, double size, QPaintDevice* device)
{
    QFont font(QGuiApplication::font().family());
    font.setPointSizeF(size * form_dpi / device->logicalDpiY());
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setBold(thing.bold);
    font.setItalic(thing.italic);
    font.setStrikeOut(thing.strike);
    return {font, device};
}

/// A text of one row, in the middle of its box's height.
void paint_row(QPainter& painter, const PageThing& thing)
{
    const QString text = thing.text.simplified();
    if (text.isEmpty())
        return;
    const double least = thing.least_size > 0 ? thing.least_size : thing.size;
    double size = thing.size;
    QFont font = form_font(thing, size, painter.device());
    while (size > least && QFontMetricsF(font).horizontalAdvance(text) > thing.box.width())
        font = form_font(thing, size = std::max(size - size_step, least), painter.device());
    painter.setFont(font);
    const int across = thing.align == PageThing::Align::centre ? Qt::AlignHCenter : Qt::AlignLeft;
    painter.drawText(QRectF(thing.box), across | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, thing.box.width()));
}

/// Breaks a text into rows of a width, and returns its height.
double lay_out(QTextLayout& layout, double width)
{
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return height;
}

/// A text of many rows from the top of its box, in the largest type from its own down in which all of it has room.
void paint_rows(QPainter& painter, const PageThing& thing)
{
    constexpr double least = 2;
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QString text = thing.text;
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    for (double size = thing.size;; size -= size_step) {
        QTextLayout layout(text, form_font(thing, size, painter.device()), painter.device());
        layout.setTextOption(option);
        if (lay_out(layout, thing.box.width()) > thing.box.height() && size > least)
            continue;
        layout.draw(&painter, thing.box.topLeft());
        return;
    }
}

void paint_check(QPainter& painter, const PageThing& thing)
{
    constexpr double side = 11; // the tick is drawn for a box of this side
    painter.save();
    painter.setPen(QPen(ink, 1));
    painter.drawRect(QRectF(thing.box).adjusted(0.5, 0.5, -0.5, -0.5));
    if (thing.checked) {
        painter.translate(thing.box.topLeft());
        painter.scale(thing.box.width() / side, thing.box.height() / side);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({{2.8, 5.8}, {4.8, 7.9}, {8.4, 3.2}}));
    }
    painter.restore();
}

void paint_picture(QPainter& painter, const PageThing& thing)
{
    QSvgRenderer logotype(QStringLiteral(":/pictures/logotype.svg"));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    logotype.render(&painter, thing.box);
    painter.restore();
}

/// A line is the row or column of pixels that it begins in, so that it is sharp on the screen.
void paint_line(QPainter& painter, const PageThing& thing)
{
    const QLine line = thing.line;
    painter.fillRect(QRectF(line.x1(), line.y1(), line.dx() + 1, line.dy() + 1), line_ink);
}

void paint_thing(QPainter& painter, const PageThing& thing)
{
    switch (thing.kind) {
    case PageThing::Kind::text:
        painter.setPen(ink);
        thing.wraps ? paint_rows(painter, thing) : paint_row(painter, thing);
        break;
    case PageThing::Kind::check:
        paint_check(painter, thing);
        break;
    case PageThing::Kind::picture:
        paint_picture(painter, thing);
        break;
    case PageThing::Kind::line:
        paint_line(painter, thing);
        break;
    }
}

QVariantMap as_map(const PageThing& thing)
{
    QVariantMap map{{QStringLiteral("name"), thing.name}};
    if (thing.kind == PageThing::Kind::line) {
        map.insert(QStringLiteral("x1"), thing.line.x1());
        map.insert(QStringLiteral("y1"), thing.line.y1());
        map.insert(QStringLiteral("x2"), thing.line.x2());
        map.insert(QStringLiteral("y2"), thing.line.y2());
        return map;
    }
    map.insert(QStringLiteral("x"), thing.box.x());
    map.insert(QStringLiteral("y"), thing.box.y());
    map.insert(QStringLiteral("w"), thing.box.width());
    map.insert(QStringLiteral("h"), thing.box.height());
    map.insert(QStringLiteral("text"), thing.text);
    map.insert(QStringLiteral("size"), thing.size);
    map.insert(QStringLiteral("bold"), thing.bold);
    map.insert(QStringLiteral("italic"), thing.italic);
    map.insert(QStringLiteral("strike"), thing.strike);
    map.insert(QStringLiteral("align"), static_cast<int>(thing.align));
    if (thing.kind == PageThing::Kind::check)
        map.insert(QStringLiteral("checked"), thing.checked);
    return map;
}

} // namespace

void paint_page(QPainter& painter, const Page& page)
{
    painter.save();
    for (const PageThing& thing : page.things)
        paint_thing(painter, thing);
    painter.restore();
}

QVariantList page_as_maps(const Page& page)
{
    QVariantList maps;
    maps.reserve(static_cast<qsizetype>(page.things.size()));
    for (const PageThing& thing : page.things)
        maps.append(as_map(thing));
    return maps;
}

} // namespace tarnwick
