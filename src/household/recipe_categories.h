#pragma once

#include <QStringList>

namespace tarnwick {

/// The fifteen categories of recipes in their fixed order; `recipe_1.cat` counts them from "01".
inline const QStringList& recipe_categories()
{
    static const QStringList captions = {
        QStringLiteral("poultry"),    QStringLiteral("meat"),       QStringLiteral("seafood"),
        QStringLiteral("vegetarian"), QStringLiteral("pasta"),      QStringLiteral("rice"),
        QStringLiteral("dairy"),      QStringLiteral("vegetables"), QStringLiteral("sides"),
        QStringLiteral("salads"),     QStringLiteral("soups"),      QStringLiteral("breads"),
        QStringLiteral("desserts"),   QStringLiteral("favorites"),  QStringLiteral("others"),
    };
    return captions;
}

/// The text that `recipe_1.cat` holds for the category at this index, "01" to "15".
inline QString recipe_category(int index)
{
    return QStringLiteral("%1").arg(index + 1, 2, 10, QLatin1Char('0'));
}

} // namespace tarnwick
