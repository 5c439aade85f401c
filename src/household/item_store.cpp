#include "household/item_store.h"

#include "data/keys.h"
#include "data/query.h"
#include "household/status.h"

#include <unordered_map>

namespace tarnwick {

std::vector<ListOfItem> ItemStore::lists_of(Key item)
{
    std::vector<ListOfItem> lists;
    std::unordered_map<Key, size_t> place;
    Query names(connection_, "SELECT ln.list_name, ln.key_id FROM list_name ln");
    while (names.next()) {
        place.emplace(names.key(1), lists.size());
        lists.push_back({names.key(1), names.text(0), {}});
    }
    // One query for all lists: the order within a list is that of a query for this list alone.
    Query rows(connection_,
               "SELECT t.list, g1.key_id, g1.desc, g1.to_get, g1.qty, g1.cpn, g1.created, g1.aisle"
               " FROM groc_1 g1, tie t WHERE g1.key_id = t.groc_id AND t.item_id = ? ORDER BY t.key_id",
               item);
    while (rows.next()) {
        const auto list = place.find(rows.key(0));
        if (list == place.end())
            continue;
        EditedRow row;
        row.groc_key = rows.key(1);
        row.desc = rows.text(2);
        row.to_get = rows.flag(3);
        row.qty = rows.text(4);
        row.cpn = rows.flag(5);
        row.created = rows.date(6);
        row.aisle = rows.text(7);
        lists[list->second].rows.push_back(std::move(row));
    }
    return lists;
}

std::vector<CategoryEntry> ItemStore::categories()
{
    std::vector<CategoryEntry> entries;
    Query rows(connection_, "SELECT key_id, cat_desc FROM cat WHERE key_id > 0 ORDER BY cat_desc");
    while (rows.next())
        entries.push_back({rows.key(0), rows.text(1)});
    return entries;
}

std::optional<EditedItem> ItemStore::item(Key item)
{
    Query row(connection_, "SELECT i1.cat, i1.item FROM items_1 i1 WHERE i1.key_id = ?", item);
    if (!row.next())
        return std::nullopt;
    return EditedItem{item, row.text(1), row.key(0)};
}

std::optional<EditedItem> ItemStore::item_of_line(Key line)
{
    Query row(connection_,
              "SELECT i1.cat, i1.item, i1.key_id FROM recipe_2 r2, items_1 i1"
              " WHERE i1.key_id = r2.item_ref AND r2.key_id = ?",
              line);
    if (!row.next())
        return std::nullopt;
    return EditedItem{row.key(2), row.text(1), row.key(0)};
}

std::optional<QString> ItemStore::line_name(Key line)
{
    Query row(connection_, "SELECT r2.item FROM recipe_2 r2 WHERE r2.key_id = ?", line);
    return row.next() ? std::optional(row.text(0)) : std::nullopt;
}

bool ItemStore::name_in_use(const QString& name, Key but)
{
    return Query(connection_, "SELECT key_id FROM items_1 WHERE item LIKE ? AND key_id <> ?", name, but).next();
}

Key ItemStore::row_on_list(Key item, Key list)
{
    Query row(connection_, "SELECT t.groc_id FROM tie t WHERE t.item_id = ? AND t.list = ?", item, list);
    return row.next() ? row.key(0) : Key(-1);
}

QDate ItemStore::expiry(Key groc_key)
{
    Query row(connection_, "SELECT g1.created FROM groc_1 g1 WHERE g1.key_id = ?", groc_key);
    return row.next() ? row.date(0) : QDate();
}

Key ItemStore::add_item(const QString& name, Key category, QDate today)
{
    const Key key = get_node(connection_, Table::items_1);
    Query(connection_,
          "INSERT INTO items_1 (key_id, item, to_get, cat, qty, modified, created, desc, status)"
          " VALUES (?, ?, 0, ?, 0, ?, ?, ' ', ?)",
          key, one_line(name), category, today, today, code_number(StatusCode::unlisted))
        .run();
    return key;
}

void ItemStore::change_row(const RowChange& change)
{
    Query(connection_, "UPDATE groc_1 SET to_get = ?, desc = ?, qty = ?, cpn = ?, aisle = ? WHERE key_id = ?",
          change.to_get, or_blank(one_line(change.desc)), or_blank(one_line(change.qty)), change.cpn,
          or_blank(one_line(change.aisle)), change.groc_key)
        .run();
    // A coupon that is off leaves its date behind, for the day when it is turned on again.
    if (change.cpn && change.created.isValid())
        Query(connection_, "UPDATE groc_1 SET created = ? WHERE key_id = ?", change.created, change.groc_key).run();
}

void ItemStore::complete_row(Key groc_key, const QString& qty, QDate coupon_expiry)
{
    if (!qty.isEmpty())
        Query(connection_, "UPDATE groc_1 SET qty = ? WHERE key_id = ?", one_line(qty), groc_key).run();
    if (coupon_expiry.isValid())
        Query(connection_, "UPDATE groc_1 SET cpn = 1, created = ? WHERE key_id = ?", coupon_expiry, groc_key)
            .run();
}

void ItemStore::rename_item(Key item, const QString& new_name, QDate today)
{
    const QString name = one_line(new_name);
    Query(connection_, "UPDATE items_1 SET item = ?, modified = ? WHERE key_id = ?", name, today, item).run();
    Query(connection_,
          "UPDATE groc_1 SET item = ? WHERE key_id IN (SELECT t.groc_id FROM tie t WHERE t.item_id = ?)", name,
          item)
        .run();
}

void ItemStore::unlink_lines(Key item)
{
    Query(connection_, "UPDATE recipe_2 SET item_ref = -1 WHERE item_ref = ?", item).run();
}

void ItemStore::link_lines(const QString& name, Key item)
{
    Query(connection_, "UPDATE recipe_2 SET item_ref = ? WHERE item LIKE ? AND item_ref = -1", item, name).run();
}

void ItemStore::link_line(Key line, Key item)
{
    Query(connection_, "UPDATE recipe_2 SET item_ref = ? WHERE key_id = ?", item, line).run();
}

void ItemStore::move_item(Key item, Key category, QDate today)
{
    Query(connection_, "UPDATE items_1 SET cat = ?, modified = ? WHERE key_id = ?", category, today, item).run();
}

} // namespace tarnwick
