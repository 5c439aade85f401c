#include "household/clearing_store.h"

#include "data/integrity.h"
#include "data/query.h"
#include "household/treatment.h"

#include <string_view>
#include <unordered_set>

namespace tarnwick {
namespace {

std::string_view rows_sql(ClearMode mode)
{
    switch (mode) {
    case ClearMode::uncheck:
        return "SELECT g1.key_id, t.item_id FROM groc_1 g1, tie t"
               " WHERE g1.key_id = t.groc_id AND t.list = ? AND g1.to_get <> 0";
    case ClearMode::delete_unchecked:
        return "SELECT g1.key_id, t.item_id FROM groc_1 g1, tie t"
               " WHERE g1.key_id = t.groc_id AND t.list = ? AND g1.to_get = 0";
    default:
        return "SELECT g1.key_id, t.item_id FROM groc_1 g1, tie t WHERE g1.key_id = t.groc_id AND t.list = ?";
    }
}

std::vector<LinkedRow> rows_to_clear(Connection& connection, Key list, ClearMode mode)
{
    std::vector<LinkedRow> rows;
    Query query(connection, rows_sql(mode), list);
    while (query.next())
        rows.push_back({query.key(0), query.key(1)});
    return rows;
}

/// Links of rows that are gone are left to the repair.
std::string_view change_sql(ClearMode mode)
{
    switch (mode) {
    case ClearMode::uncheck:
        return "UPDATE groc_1 SET to_get = 0"
               " WHERE to_get <> 0 AND key_id IN (SELECT t.groc_id FROM tie t WHERE t.list = ?)";
    case ClearMode::delete_unchecked:
        return "DELETE FROM groc_1"
               " WHERE to_get = 0 AND key_id IN (SELECT t.groc_id FROM tie t WHERE t.list = ?)";
    default:
        return "DELETE FROM groc_1 WHERE key_id IN (SELECT t.groc_id FROM tie t WHERE t.list = ?)";
    }
}

/// The stock items behind cleared rows: no longer to be bought, with the status that is now theirs.
std::vector<ItemStatus> write_items(Connection& connection, const std::vector<LinkedRow>& rows)
{
    std::vector<ItemStatus> items;
    std::unordered_set<Key> seen;
    for (const LinkedRow& row : rows) {
        if (!seen.insert(row.item).second)
            continue;
        if (const auto status = store_status(connection, Cause::clearing, row.item, false))
            items.push_back({row.item, *status});
    }
    return items;
}

} // namespace

bool has_rows_to_clear(Connection& connection, Key list, ClearMode mode)
{
    return Query(connection, rows_sql(mode), list).next();
}

ClearedRows clear_rows(Connection& connection, Key list, ClearMode mode)
{
    Transaction transaction(connection);
    ClearedRows cleared;
    cleared.rows = rows_to_clear(connection, list, mode);
    if (!cleared.rows.empty()) {
        Query(connection, change_sql(mode), list).run();
        cleared.items = write_items(connection, cleared.rows);
        data_integrity_check(connection);
    }
    transaction.commit();
    return cleared;
}

std::optional<ItemStatus> delete_list_row(Connection& connection, Key groc_key)
{
    Transaction transaction(connection);
    std::optional<ItemStatus> item;
    Query(connection, "DELETE FROM groc_1 WHERE key_id = ?", groc_key).run();
    std::optional<LinkedRow> link;
    std::optional<Key> tie_key;
    {
        Query tie(connection, "SELECT t.key_id, t.item_id FROM tie t WHERE t.groc_id = ?", groc_key);
        if (tie.next()) {
            tie_key = tie.key(0);
            link = LinkedRow{groc_key, tie.key(1)};
        }
    }
    if (link) {
        Query(connection, "DELETE FROM tie WHERE key_id = ?", *tie_key).run();
        const auto status = store_status(connection, Cause::row_removal, link->item, false);
        item = ItemStatus{link->item, status.value_or(StatusCode::non_stock)};
    }
    transaction.commit();
    return item;
}

std::optional<ItemStatus> remove_list_row(Connection& connection, Key groc_key)
{
    Transaction transaction(connection);
    const auto item = delete_list_row(connection, groc_key);
    if (item)
        data_integrity_check(connection);
    transaction.commit();
    return item;
}

} // namespace tarnwick
