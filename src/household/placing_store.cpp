#include "household/placing_store.h"

#include "data/keys.h"
#include "data/query.h"
#include "household/treatment.h"

namespace tarnwick {
namespace {

Key insert_row(Connection& connection, const QString& item, const Placement& placement)
{
    const Key key = get_node(connection, Table::groc_1);
    Query(connection,
          "INSERT INTO groc_1 (key_id, item, desc, aisle, to_get, qty, cpn, list, item_id, modified, created)"
          " VALUES (?, ?, ?, ?, ?, ?, 0, 0, 0, ?, ?)",
          key, item, or_blank(one_line(placement.desc)), or_blank(one_line(placement.aisle)), placement.to_get,
          QString::number(placement.qty), placement.modified, placement.created)
        .run();
    return key;
}

} // namespace

std::optional<PlacedRow> insert_list_row(Connection& connection, const Placement& placement)
{
    Transaction transaction(connection);
    std::optional<PlacedRow> placed;
    const auto name = stock_item_name(connection, placement.item_key);
    if (name && list_name_of(connection, placement.list_key)) {
        placed = PlacedRow{0, trim(*name), StatusCode::non_stock};
        placed->groc_key = insert_row(connection, placed->item, placement);
        Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, ?)",
              get_node(connection, Table::tie), placed->groc_key, placement.item_key, placement.list_key)
            .run();
        placed->status = store_status(connection, Cause::placing, placement.item_key, placement.to_get)
                             .value_or(StatusCode::non_stock);
    }
    transaction.commit();
    return placed;
}

std::optional<ListedRow> item_on_list(Connection& connection, Key item, Key list)
{
    // The plus keeps the look-up on the item's few links, away from the index over the whole list.
    Query row(connection,
              "SELECT g1.item, g1.to_get FROM groc_1 g1, tie t"
              " WHERE t.item_id = ? AND +t.list = ? AND t.groc_id = g1.key_id",
              item, list);
    return row.next() ? std::optional(ListedRow{row.text(0), row.flag(1)}) : std::nullopt;
}

std::optional<ItemStatus> write_buy_it(Connection& connection, Key groc_key, Key list, bool to_get)
{
    Transaction transaction(connection);
    std::optional<Key> item;
    std::optional<ItemStatus> ticked;
    {
        Query row(connection,
                  "SELECT t.item_id FROM groc_1 g, tie t, items_1 i WHERE g.key_id = ? AND g.key_id = t.groc_id"
                  " AND i.key_id = t.item_id AND +t.list = ?",
                  groc_key, list);
        if (row.next())
            item = row.key(0);
    }
    if (item) {
        Query(connection, "UPDATE groc_1 SET to_get = ? WHERE key_id = ?", to_get, groc_key).run();
        const auto status = store_status(connection, Cause::grid_box, *item, to_get);
        ticked = ItemStatus{*item, status.value_or(StatusCode::non_stock)};
    }
    transaction.commit();
    return ticked;
}

std::optional<Key> item_of_row(Connection& connection, Key groc_key)
{
    Query link(connection, "SELECT t.item_id FROM tie t WHERE t.groc_id = ?", groc_key);
    return link.next() ? std::optional(link.key(0)) : std::nullopt;
}

} // namespace tarnwick
