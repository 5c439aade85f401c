#include "data/keys.h"

#include "data/query.h"
#include "data/runtime_error.h"

#include <array>
#include <string_view>

namespace tarnwick {
namespace {

struct KeyQueries {
    std::string_view ends;
    std::string_view count_all;
    std::string_view count_positive;
    std::string_view first_gap;
};

// The first gap lies behind the lowest key whose successor is missing, unless key 1 itself is. It
// counts only below the number of records, which leaves out a gap that shows at the last record.
#define TARNWICK_KEY_QUERIES(table)                                                                                \
    KeyQueries                                                                                                     \
    {                                                                                                              \
        "SELECT (SELECT min(key_id) FROM " table " WHERE key_id > 0),"                                             \
        " (SELECT max(key_id) FROM " table "), (SELECT min(key_id) FROM " table ")",                               \
            "SELECT count(*) FROM " table, "SELECT count(*) FROM " table " WHERE key_id > 0",                      \
            "SELECT a.key_id + 1 FROM " table " a WHERE a.key_id > 0 AND NOT EXISTS"                               \
            " (SELECT 1 FROM " table " b WHERE b.key_id = a.key_id + 1) ORDER BY a.key_id LIMIT 1"                 \
    }

constexpr std::array queries = {
    TARNWICK_KEY_QUERIES("cat"),      TARNWICK_KEY_QUERIES("items_1"),   TARNWICK_KEY_QUERIES("groc_1"),
    TARNWICK_KEY_QUERIES("tie"),      TARNWICK_KEY_QUERIES("list_name"), TARNWICK_KEY_QUERIES("recipe_1"),
    TARNWICK_KEY_QUERIES("recipe_2"),
};

#undef TARNWICK_KEY_QUERIES

/// SQLite counts a whole table without looking at its keys.
int count_records(Connection& connection, const KeyQueries& table, int lowest)
{
    Query count(connection, lowest > 0 ? table.count_all : table.count_positive);
    count.next();
    return count.number(0);
}

} // namespace

Key get_node(Connection& connection, Table table)
{
    const KeyQueries& sql = queries[static_cast<size_t>(table)];
    int first = 0;
    int last = 0;
    int lowest = 0;
    {
        Query ends(connection, sql.ends);
        ends.next();
        if (ends.is_null(0))
            return 1;
        first = ends.number(0);
        last = ends.number(1);
        lowest = ends.number(2);
    }
    const int records = count_records(connection, sql, lowest);
    if (last != records) {
        int gap = 1;
        if (first == 1) {
            Query first_gap(connection, sql.first_gap);
            gap = first_gap.next() ? first_gap.number(0) : last + 1;
        }
        if (gap < records)
            return static_cast<Key>(gap);
    }
    return to_int16(static_cast<double>(last) + 1);
}

} // namespace tarnwick
