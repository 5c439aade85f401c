#include "household/stock_store.h"

#include "data/name_order.h"
#include "data/query.h"
#include "household/treatment.h"

namespace tarnwick {

void prepare_folders(Connection& connection)
{
    Transaction transaction(connection);
    Query(connection,
          "INSERT INTO cat (key_id, cat_desc, expand) SELECT 0, 'OTHER', 0"
          " WHERE NOT EXISTS (SELECT 1 FROM cat WHERE key_id = 0)")
        .run();
    Query(connection,
          "UPDATE cat SET expand = 0 WHERE key_id > 0 AND expand <> 0"
          " AND NOT EXISTS (SELECT 1 FROM items_1 WHERE items_1.cat = cat.key_id)")
        .run();
    transaction.commit();
}

std::vector<CatalogueFolder> read_categories(Connection& connection)
{
    std::vector<CatalogueFolder> categories;
    Query rows(connection,
               "SELECT c.key_id, c.cat_desc, c.expand, (SELECT count(*) FROM items_1 i WHERE i.cat = c.key_id)"
               " FROM cat c WHERE c.key_id >= 0 ORDER BY c.key_id = 0, c.cat_desc");
    while (rows.next())
        categories.push_back({rows.key(0), trim(rows.text(1)), rows.flag(2), rows.number(3)});
    return categories;
}

std::vector<NamedItem> read_named_items(Connection& connection)
{
    std::vector<NamedItem> items;
    Query rows(connection, "SELECT key_id, item, cat, status FROM items_1 ORDER BY key_id");
    while (rows.next())
        items.push_back({NameKey(rows.text(1)), rows.key(0), rows.key(2), rows.number(3)});
    return items;
}

std::vector<CatalogueItem> in_name_order(const std::vector<NamedItem>& items)
{
    std::vector<CatalogueItem> sorted;
    sorted.reserve(items.size());
    for (const NamedItem* item : in_order_of_names(items))
        sorted.push_back({item->key, trim(item->name.name()), item->category, item->status});
    return sorted;
}

void store_expand(Connection& connection, Key category, bool open)
{
    Query(connection, "UPDATE cat SET expand = ? WHERE key_id = ?", open, category).run();
}

void store_all_closed(Connection& connection)
{
    Query(connection, "UPDATE cat SET expand = 0 WHERE expand <> 0").run();
}

std::vector<TiedRow> clickable_rows(Connection& connection, Key item)
{
    std::vector<TiedRow> found;
    Query rows(connection,
               "SELECT t.groc_id, t.list FROM groc_1 g, tie t, items_1 i WHERE t.item_id = ?"
               " AND g.key_id = t.groc_id AND i.key_id = t.item_id ORDER BY t.key_id",
               item);
    while (rows.next())
        found.push_back({rows.key(0), rows.key(1)});
    return found;
}

StatusCode store_box_click(Connection& connection, Key item, Key groc_key, bool to_get)
{
    Transaction transaction(connection);
    Query(connection, "UPDATE groc_1 SET to_get = ? WHERE key_id = ?", to_get, groc_key).run();
    const auto status = store_status(connection, Cause::tree_box, item, to_get);
    transaction.commit();
    return status.value_or(StatusCode::non_stock);
}

std::optional<TiedRow> first_tied_row(Connection& connection, Key item)
{
    Query rows(connection, "SELECT t.groc_id, t.list FROM tie t WHERE t.item_id = ? ORDER BY t.key_id", item);
    if (!rows.next())
        return std::nullopt;
    return TiedRow{rows.key(0), rows.key(1)};
}

} // namespace tarnwick
