#include "household/status.h"

#include "data/query.h"

namespace tarnwick {
namespace {

const QString separator = QStringLiteral(" :: ");

bool stock_item_exists(Connection& connection, Key item)
{
    return Query(connection, "SELECT key_id FROM items_1 WHERE key_id = ?", item).next();
}

} // namespace

StatusPictures status_pictures(StatusCode code)
{
    switch (code) {
    case StatusCode::unlisted:
        return {picture_base::light_unlisted, picture_base::check_off, true};
    case StatusCode::inactive:
        return {picture_base::light_off, picture_base::check_off, true};
    case StatusCode::buy_it:
        return {picture_base::light_on, picture_base::check_on, true};
    case StatusCode::buy_it_plus:
        return {picture_base::light_on, picture_base::check_plus, false};
    case StatusCode::non_stock:
        break;
    }
    return {picture_base::light_non_stock, picture_base::check_off, true};
}

StatusCode lite_status(Connection& connection, Key item)
{
    if (item < 1)
        return StatusCode::non_stock; // no stock item has such a key
    Query rows(connection, "SELECT g1.to_get FROM groc_1 g1, tie t WHERE t.groc_id = g1.key_id AND t.item_id = ?",
               item);
    int listed = 0;
    int active = 0;
    while (rows.next()) {
        ++listed;
        active += rows.flag(0) ? 1 : 0;
    }
    if (listed == 0)
        return stock_item_exists(connection, item) ? StatusCode::unlisted : StatusCode::non_stock;
    if (active > 1)
        return StatusCode::buy_it_plus;
    return active == 1 ? StatusCode::buy_it : StatusCode::inactive;
}

QString get_status(Connection& connection, Key item)
{
    if (item < 1)
        return QStringLiteral("Non-stock item");
    QString text;
    Query rows(connection,
               "SELECT g1.to_get, t.list FROM tie t, groc_1 g1 WHERE t.groc_id = g1.key_id AND t.item_id = ?"
               " ORDER BY t.key_id",
               item);
    while (rows.next()) {
        if (!text.isEmpty())
            text += separator;
        text += rows.flag(0) ? QStringLiteral("Active On ") : QStringLiteral("Inactive On ");
        text += list_name_of(connection, rows.key(1)).value_or(QString()) + QStringLiteral(" list");
    }
    if (text.isEmpty())
        text
            = stock_item_exists(connection, item) ? QStringLiteral("Not listed") : QStringLiteral("Non-stock item");
    Query category(connection,
                   "SELECT cat.cat_desc FROM cat, items_1 i1 WHERE i1.cat = cat.key_id AND i1.key_id = ?", item);
    if (category.next())
        text += separator + trim(category.text(0)) + QStringLiteral(" category");
    return text;
}

QString get_ttt(Connection& connection, Key item)
{
    const QString name = get_ingred_name(connection, item);
    const QString status = get_status(connection, item);
    return name.size() < 2 ? status : name + QStringLiteral(" - ") + status;
}

std::optional<QString> stock_item_name(Connection& connection, Key item)
{
    Query name(connection, "SELECT i.item FROM items_1 i WHERE i.key_id = ?", item);
    return name.next() ? std::optional(name.text(0)) : std::nullopt;
}

QString get_ingred_name(Connection& connection, Key item)
{
    return stock_item_name(connection, item).value_or(QString());
}

std::optional<QString> list_name_of(Connection& connection, Key list)
{
    Query name(connection, "SELECT ln.list_name FROM list_name ln WHERE ln.key_id = ?", list);
    return name.next() ? std::optional(name.text(0)) : std::nullopt;
}

QString get_list_name(Connection& connection, Key list)
{
    return list_name_of(connection, list).value_or(QStringLiteral("All"));
}

} // namespace tarnwick
