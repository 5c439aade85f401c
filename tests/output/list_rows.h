#pragma once

#include "household/list_pages.h"

namespace tarnwick::list_rows {

inline const QDate today(2026, 3, 14);

using enum ReportSort;

inline ReportOptions options(ReportSort sort, Key col_ct, Key active = 1, Key size = 0)
{
    return {sort, col_ct, active, size};
}

inline ListRow row(const QString& item, const QString& category = QStringLiteral("Dairy"),
                   const QString& aisle = QStringLiteral("5"))
{
    ListRow made;
    made.item = item;
    made.desc = QStringLiteral(" ");
    made.qty = QStringLiteral("2");
    made.aisle = aisle;
    made.category = category;
    made.to_get = true;
    return made;
}

inline std::vector<ListRow> rows(int count, const QString& category = QStringLiteral("Dairy"))
{
    std::vector<ListRow> made;
    for (int i = 0; i < count; ++i)
        made.push_back(row(QStringLiteral("%1 %2").arg(category).arg(i, 4, 10, QLatin1Char('0')), category));
    return made;
}

inline std::vector<ListRow> joined(std::vector<ListRow> first, const std::vector<ListRow>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

inline ListPages pages(const std::vector<ListRow>& of, const ReportOptions& with,
                       const QString& name = QStringLiteral("Weekly"))
{
    return {of, with, name, today};
}

} // namespace tarnwick::list_rows
