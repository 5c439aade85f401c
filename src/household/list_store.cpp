#include "household/list_store.h"

#include "data/query.h"
#include "household/status.h"

namespace tarnwick::list_store {
namespace {

constexpr const char* rows_of_one_list
    = "SELECT g.key_id, g.Item, i.cat, g.desc, g.qty, g.aisle, g.to_get, t.item_id, t.list, l.list_name, g.cpn,"
      " g.created FROM groc_1 g, tie t, items_1 i, list_name l WHERE t.list = ? AND g.key_id = t.groc_id"
      " AND i.key_id = t.item_id AND l.key_id = t.list ORDER BY g.Item, g.key_id";

constexpr const char* rows_of_all_lists
    = "SELECT g.key_id, g.Item, i.cat, g.desc, g.qty, g.aisle, g.to_get, t.item_id, t.list, l.list_name, g.cpn,"
      " g.created FROM groc_1 g, tie t, items_1 i, list_name l WHERE t.list > 0 AND g.key_id = t.groc_id"
      " AND i.key_id = t.item_id AND l.key_id = t.list ORDER BY g.Item, g.key_id";

namespace field {
constexpr int groc_key = 0;
constexpr int item = 1;
constexpr int desc = 3;
constexpr int qty = 4;
constexpr int aisle = 5;
constexpr int to_get = 6;
constexpr int item_key = 7;
constexpr int list_key = 8;
constexpr int cpn = 10;
constexpr int created = 11;
} // namespace field

Query open_rows(Connection& connection, Key list_key)
{
    if (list_key < 1)
        return Query(connection, rows_of_all_lists);
    return Query(connection, rows_of_one_list, list_key);
}

GridRow read_row(const Query& query)
{
    GridRow row;
    row.groc_key = query.key(field::groc_key);
    row.list_key = query.key(field::list_key);
    row.item_key = query.key(field::item_key);
    row.item = query.text(field::item);
    row.desc = query.text(field::desc);
    row.qty = or_blank(trim(query.text(field::qty)));
    row.aisle = query.text(field::aisle);
    set_to_get(row, query.flag(field::to_get));
    const bool coupon = query.flag(field::cpn);
    set_coupon(row, coupon, coupon ? query.text(field::created) : QString());
    return row;
}

} // namespace

void set_to_get(GridRow& row, bool to_get)
{
    row.to_get = to_get;
    row.light = to_get ? picture_base::light_on : picture_base::light_off;
    row.check = to_get ? picture_base::check_on : picture_base::check_off;
}

void set_coupon_cells(GridRow& row, bool coupon, const QString& date)
{
    row.coupon = coupon ? picture_base::coupon_on : picture_base::coupon_off;
    row.date = date;
}

void set_coupon(GridRow& row, bool coupon, const QString& created)
{
    set_coupon_cells(row, coupon, coupon ? screen_date(created) : QStringLiteral(" "));
}

QString screen_date(const QString& stored)
{
    const QDate date = QDate::fromString(stored.left(10), Qt::ISODate);
    return date.isValid() ? date.toString(screen_date_format) : stored;
}

std::vector<GridRow> read_rows(Connection& connection, Key list_key)
{
    std::vector<GridRow> rows;
    Query query = open_rows(connection, list_key);
    while (query.next())
        rows.push_back(read_row(query));
    return rows;
}

std::optional<QString> mark_active(Connection& connection, Key list_key)
{
    Query record(connection, "SELECT list_name, active FROM list_name WHERE key_id = ?", list_key);
    if (!record.next())
        return std::nullopt;
    const QString name = record.text(0);
    const bool was_active = record.flag(1);
    record.reset();
    if (!was_active)
        Query(connection, "UPDATE list_name SET active = 1 WHERE key_id = ?", list_key).run();
    return name;
}

} // namespace tarnwick::list_store
