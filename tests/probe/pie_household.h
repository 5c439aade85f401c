#pragma once

#include "data/connection.h"
#include "data/query.h"
#include "household/recipe_store.h"

namespace tarnwick {

/// A list with one row, butter to buy, and an empty recipe for a pie, whose key it returns.
inline Key make_pie_household(Connection& connection)
{
    for (const char* sql : {"INSERT INTO list_name (key_id, list_name, active) VALUES (1, 'Home', 1)",
                            "INSERT INTO items_1 (key_id, item, cat, status, to_get, qty, desc) VALUES (1, "
                            "'Butter', 0, 7, 1, 0, ' ')",
                            "INSERT INTO groc_1 (key_id, item, desc, aisle, to_get, qty, cpn, list, item_id)"
                            " VALUES (1, 'Butter', 'salted', ' ', 1, '2', 0, 0, 0)",
                            "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (1, 1, 1, 1)"})
        Query(connection, sql).run();
    return insert_recipe(connection, QStringLiteral("Pie"), QStringLiteral("13"));
}

} // namespace tarnwick
