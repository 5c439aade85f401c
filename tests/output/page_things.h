#pragma once

#include "household/page.h"

#include <QStringList>

#include <algorithm>

namespace tarnwick {

/// The thing of this name on a page; null when it is not there.
inline const PageThing* find_thing(const Page& page, const QString& name)
{
    const auto found = std::find_if(page.things.begin(), page.things.end(),
                                    [&](const PageThing& thing) { return thing.name == name; });
    return found == page.things.end() ? nullptr : &*found;
}

inline bool has_thing(const Page& page, const QString& name)
{
    return find_thing(page, name) != nullptr;
}

/// The thing of this name; an empty one when it is not there.
inline PageThing thing(const Page& page, const QString& name)
{
    const PageThing* found = find_thing(page, name);
    return found ? *found : PageThing();
}

inline QString text_on(const Page& page, const QString& name)
{
    const PageThing* found = find_thing(page, name);
    return found ? found->text : QStringLiteral("(none)");
}

/// The texts of the slots of a page, `count` of them from slot `first`; "(none)" for an empty one.
inline QStringList slot_texts(const Page& page, int first, int count)
{
    QStringList texts;
    for (int slot = first; slot < first + count; ++slot)
        texts.append(text_on(page, element("txtItem", slot)));
    return texts;
}

} // namespace tarnwick
