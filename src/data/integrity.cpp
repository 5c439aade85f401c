#include "data/integrity.h"

#include "data/query.h"

namespace tarnwick {

void data_integrity_check(Connection& connection)
{
    Transaction transaction(connection);
    Query(connection, "DELETE FROM tie WHERE item_id NOT IN (SELECT i1.key_id FROM items_1 i1)").run();
    Query(connection, "DELETE FROM tie WHERE groc_id NOT IN (SELECT g1.key_id FROM groc_1 g1)").run();
    transaction.commit();
}

} // namespace tarnwick
