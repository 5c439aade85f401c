#include "household/page.h"

namespace tarnwick {

PageThing page_text(const QString& name, QRect box, const QString& text, int size)
{
    PageThing thing;
    thing.name = name;
    thing.box = box;
    thing.text = text;
    thing.size = size;
    return thing;
}

PageThing page_picture(const QString& name, QRect box)
{
    PageThing thing;
    thing.kind = PageThing::Kind::picture;
    thing.name = name;
    thing.box = box;
    return thing;
}

PageThing page_check(const QString& name, QRect box, bool checked)
{
    PageThing thing;
    thing.kind = PageThing::Kind::check;
    thing.name = name;
    thing.box = box;
    thing.checked = checked;
    return thing;
}

PageThing page_line(const QString& name, QPoint from, QPoint to)
{
    PageThing thing;
    thing.kind = PageThing::Kind::line;
    thing.name = name;
    thing.line = {from, to};
    return thing;
}

QString element(const char* array, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

PageThing page_foot(int number, int count)
{
    constexpr int foot_top = page_form::height - 36;
    constexpr int foot_height = 16;
    constexpr int foot_size = 8;
    PageThing foot = page_text(QStringLiteral("page_foot"),
                               {page_form::left, foot_top, page_form::right - page_form::left, foot_height},
                               QStringLiteral("page %1 of %2").arg(number).arg(count), foot_size);
    foot.align = PageThing::Align::centre;
    return foot;
}

} // namespace tarnwick
