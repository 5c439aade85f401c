#include "household/list_sheet.h"

#include "data/query.h"
#include "household/status.h"

#include <string>

namespace tarnwick {
namespace {

Query open_rows(Connection& connection, Key list, bool buy_it_only)
{
    std::string sql = "SELECT g1.Item, g1.desc, g1.qty, g1.aisle, g1.cpn, g1.created FROM groc_1 g1, tie t1"
                      " WHERE g1.key_id = t1.groc_id";
    if (list > 0)
        sql += " AND t1.list = ?";
    if (buy_it_only)
        sql += " AND g1.to_get <> 0";
    sql += " ORDER BY g1.Item, g1.key_id";
    return list > 0 ? Query(connection, sql, list) : Query(connection, sql);
}

QString text_or_null(const Query& query, int column)
{
    return query.is_null(column) ? QString() : query.text(column);
}

} // namespace

ListSheet read_list_sheet(Connection& connection, Key list, bool buy_it_only)
{
    ListSheet sheet{get_list_name(connection, list), {}};
    Query query = open_rows(connection, list, buy_it_only);
    while (query.next())
        sheet.rows.push_back({text_or_null(query, 0), text_or_null(query, 1), text_or_null(query, 2),
                              text_or_null(query, 3), query.flag(4), query.date(5)});
    return sheet;
}

} // namespace tarnwick
