#include "household/stock_keeping.h"

#include "data/integrity.h"
#include "data/query.h"
#include "household/literal_pattern.h"
#include "household/status.h"

#include <string>

namespace tarnwick {
namespace {

/// Deletes the items that meet a condition on `items_1`, with rows, links and the references of recipe lines.
ItemsGone delete_items(Connection& connection, const std::string& condition, Key key)
{
    const std::string items = "(SELECT i1.key_id FROM items_1 i1 WHERE " + condition + ")";
    ItemsGone gone;
    {
        Query query(connection, "SELECT i1.key_id FROM items_1 i1 WHERE " + condition, key);
        while (query.next())
            gone.items.push_back(query.key(0));
    }
    {
        Query query(connection,
                    "SELECT g1.key_id FROM groc_1 g1, tie t WHERE g1.key_id = t.groc_id AND t.item_id IN " + items,
                    key);
        while (query.next())
            gone.rows.push_back(query.key(0));
    }
    Query(connection,
          "DELETE FROM groc_1 WHERE key_id IN (SELECT t.groc_id FROM tie t WHERE t.item_id IN " + items + ")", key)
        .run();
    Query(connection, "DELETE FROM tie WHERE item_id IN " + items, key).run();
    Query(connection, "UPDATE recipe_2 SET item_ref = -1 WHERE item_ref IN " + items, key).run();
    Query(connection, "DELETE FROM items_1 WHERE key_id IN " + items, key).run();
    if (!gone.rows.empty())
        data_integrity_check(connection);
    return gone;
}

bool is_category(Connection& connection, Key category)
{
    return Query(connection, "SELECT key_id FROM cat WHERE key_id = ?", category).next();
}

} // namespace

std::vector<QString> lists_with_item(Connection& connection, Key item)
{
    std::vector<QString> names;
    Query query(connection,
                "SELECT ln.list_name FROM list_name ln, tie t, groc_1 g1"
                " WHERE ln.key_id = t.list AND t.item_id = ? AND g1.key_id = t.groc_id ORDER BY t.key_id",
                item);
    while (query.next())
        names.push_back(trim(query.text(0)));
    return names;
}

std::optional<Key> category_of(Connection& connection, Key item)
{
    Query row(connection, "SELECT i1.cat FROM items_1 i1 WHERE i1.key_id = ?", item);
    return row.next() ? std::optional(row.key(0)) : std::nullopt;
}

std::optional<CategoryContents> contents_of(Connection& connection, Key category)
{
    Query name(connection, "SELECT c.cat_desc FROM cat c WHERE c.key_id = ?", category);
    if (!name.next())
        return std::nullopt;
    CategoryContents contents;
    contents.name = trim(name.text(0));
    Query count(connection,
                "SELECT count(*), total(EXISTS (SELECT 1 FROM tie t, groc_1 g1"
                " WHERE t.item_id = i1.key_id AND g1.key_id = t.groc_id)) FROM items_1 i1 WHERE i1.cat = ?",
                category);
    count.next();
    contents.items = count.number(0);
    contents.listed = count.number(1);
    return contents;
}

std::optional<ItemsGone> delete_item_record(Connection& connection, Key item)
{
    Transaction transaction(connection);
    ItemsGone gone = delete_items(connection, "i1.key_id = ?", item);
    transaction.commit();
    return gone.items.empty() ? std::nullopt : std::optional(std::move(gone));
}

std::optional<ItemsGone> delete_category_record(Connection& connection, Key category)
{
    if (category == 0)
        return std::nullopt;
    Transaction transaction(connection);
    if (Query(connection, "DELETE FROM cat WHERE key_id = ?", category).run() == 0)
        return std::nullopt; // items without their category are left alone
    ItemsGone gone = delete_items(connection, "i1.cat = ?", category);
    transaction.commit();
    gone.category = category;
    return gone;
}

bool rename_item_record(Connection& connection, Key item, const QString& new_name)
{
    const QString name = one_line(new_name);
    Transaction transaction(connection);
    if (Query(connection, "UPDATE items_1 SET item = ? WHERE key_id = ?", name, item).run() == 0)
        return false;
    Query(connection,
          "UPDATE groc_1 SET item = ? WHERE key_id IN (SELECT t.groc_id FROM tie t WHERE t.item_id = ?)", name,
          item)
        .run();
    Query(connection, "UPDATE recipe_2 SET item_ref = -1 WHERE item_ref = ?", item).run();
    Query(connection, "UPDATE recipe_2 SET item_ref = ? WHERE item LIKE ? ESCAPE '\\' AND item_ref = -1", item,
          literal_pattern(name))
        .run();
    transaction.commit();
    return true;
}

Moved move_item_record(Connection& connection, Key item, Key category)
{
    Transaction transaction(connection);
    if (!is_category(connection, category))
        return Moved::no_category;
    if (!stock_item_name(connection, item))
        return Moved::no_item;
    const bool moved
        = Query(connection, "UPDATE items_1 SET cat = ? WHERE key_id = ? AND cat <> ?", category, item, category)
              .run()
        > 0;
    transaction.commit();
    return moved ? Moved::yes : Moved::was_there;
}

bool rename_category_record(Connection& connection, Key category, const QString& name)
{
    if (category == 0)
        return false;
    Transaction transaction(connection);
    const bool renamed
        = Query(connection, "UPDATE cat SET cat_desc = ? WHERE key_id = ?", one_line(name), category).run() > 0;
    transaction.commit();
    return renamed;
}

} // namespace tarnwick
