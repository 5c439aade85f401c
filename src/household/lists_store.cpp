#include "household/lists_store.h"

#include "data/keys.h"
#include "data/query.h"

namespace tarnwick {

std::vector<ShoppingList> shopping_lists(Connection& connection)
{
    std::vector<ShoppingList> lists;
    Query query(connection, "SELECT key_id, list_name FROM list_name ORDER BY list_name, key_id");
    while (query.next())
        lists.push_back({query.key(0), trim(query.text(1))});
    return lists;
}

bool list_name_taken(Connection& connection, const QString& name)
{
    return Query(connection, "SELECT key_id FROM list_name ln WHERE ln.list_name LIKE ?", name).next();
}

void clear_active_marks(Connection& connection)
{
    Transaction transaction(connection);
    // The mark is on one list at most as long as the rule is kept; further ones stay as they are.
    Query(connection,
          "UPDATE list_name SET active = 0"
          " WHERE key_id = (SELECT key_id FROM list_name WHERE active <> 0 ORDER BY key_id LIMIT 1)")
        .run();
    transaction.commit();
}

Key insert_list(Connection& connection, const QString& name, QDate today)
{
    Transaction transaction(connection);
    clear_active_marks(connection);
    const Key key = get_node(connection, Table::list_name);
    Query(connection, "INSERT INTO list_name (key_id, list_name, active, modified) VALUES (?, ?, 1, ?)", key,
          one_line(name), today)
        .run();
    transaction.commit();
    return key;
}

void rename_list_record(Connection& connection, Key list, const QString& name)
{
    Transaction transaction(connection);
    Query(connection, "UPDATE list_name SET list_name = ? WHERE key_id = ?", one_line(name), list).run();
    transaction.commit();
}

int count_list_rows(Connection& connection, Key list)
{
    Query query(connection, "SELECT count(*) FROM tie t WHERE t.list = ?", list);
    query.next();
    return query.number(0);
}

ListDeletion delete_list(Connection& connection, Key list)
{
    Transaction transaction(connection);
    ListDeletion deletion;
    deletion.cleared = clear_rows(connection, list, ClearMode::delete_all);
    Query(connection, "DELETE FROM list_name WHERE key_id = ?", list).run();
    {
        Query rest(connection, "SELECT key_id FROM list_name LIMIT 1");
        if (rest.next())
            deletion.first_list = rest.key(0);
    }
    transaction.commit();
    return deletion;
}

} // namespace tarnwick
