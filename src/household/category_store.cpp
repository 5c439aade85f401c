#include "household/category_store.h"

#include "data/keys.h"
#include "data/query.h"
#include "household/literal_pattern.h"

namespace tarnwick {

bool category_name_taken(Connection& connection, const QString& name)
{
    return Query(connection, "SELECT key_id FROM cat WHERE cat.cat_desc LIKE ? ESCAPE '\\'", literal_pattern(name))
        .next();
}

Key insert_category(Connection& connection, const QString& name)
{
    Transaction transaction(connection);
    const Key key = get_node(connection, Table::cat);
    Query(connection, "INSERT INTO cat (key_id, cat_desc, expand) VALUES (?, ?, 0)", key, one_line(name)).run();
    transaction.commit();
    return key;
}

std::optional<Key> category_before(Connection& connection, Key category)
{
    std::optional<Key> before;
    Query rows(connection, "SELECT key_id FROM cat WHERE key_id > 0 ORDER BY cat_desc");
    while (rows.next()) {
        if (rows.key(0) == category)
            return before;
        before = rows.key(0);
    }
    return std::nullopt;
}

} // namespace tarnwick
