#include "household/find_store.h"

#include "data/query.h"

namespace tarnwick {
namespace {

std::vector<Key> keys_of(Query query)
{
    std::vector<Key> keys;
    while (query.next())
        keys.push_back(query.key(0));
    return keys;
}

QString anywhere(const QString& text)
{
    return u'%' + text + u'%';
}

} // namespace

std::vector<Key> find_items(Connection& connection, const QString& text)
{
    return keys_of(Query(connection,
                         "SELECT i1.key_id FROM items_1 i1 WHERE i1.item LIKE ? ORDER BY i1.cat, i1.item",
                         anywhere(text)));
}

std::vector<Key> find_recipes(Connection& connection, const QString& text)
{
    return keys_of(Query(connection, "SELECT r1.key_id FROM recipe_1 r1 WHERE r1.r_name LIKE ? ORDER BY r1.r_name",
                         anywhere(text)));
}

} // namespace tarnwick
