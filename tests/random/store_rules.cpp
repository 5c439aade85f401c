#include "random/oracle.h"

#include "data/query.h"

#include <algorithm>

namespace tarnwick::random_use {
namespace {

/// A query that counts the records that break a rule.
struct Rule {
    const char* fault;
    const char* sql;
};

// A recipe may have an empty name: one of blanks alone is let through.
constexpr Rule rules[] = {
    {"ties without a row", "SELECT count(*) FROM tie WHERE groc_id NOT IN (SELECT key_id FROM groc_1)"},
    {"ties without an item", "SELECT count(*) FROM tie WHERE item_id NOT IN (SELECT key_id FROM items_1)"},
    {"ties without a list", "SELECT count(*) FROM tie WHERE list NOT IN (SELECT key_id FROM list_name)"},
    {"rows not tied once",
     "SELECT count(*) FROM groc_1 g WHERE (SELECT count(*) FROM tie t WHERE t.groc_id = g.key_id) <> 1"},
    {"rows with another name than their item",
     "SELECT count(*) FROM groc_1 g, tie t, items_1 i WHERE t.groc_id = g.key_id AND i.key_id = t.item_id"
     " AND trim(g.item) <> trim(i.item)"},
    {"marks that are neither 0 nor 1",
     "SELECT count(*) FROM groc_1 WHERE to_get NOT IN (0, 1) OR cpn NOT IN (0, 1)"},
    {"items without a category", "SELECT count(*) FROM items_1 WHERE cat NOT IN (SELECT key_id FROM cat)"},
    {"items without a name", "SELECT count(*) FROM items_1 WHERE trim(item) = ''"},
    {"lists without a name", "SELECT count(*) FROM list_name WHERE trim(list_name) = ''"},
    {"categories without a name", "SELECT count(*) FROM cat WHERE trim(cat_desc) = ''"},
    {"recipes outside the fifteen categories",
     "SELECT count(*) FROM recipe_1 WHERE length(cat) <> 2 OR CAST(cat AS INTEGER) NOT BETWEEN 1 AND 15"},
    {"lines without a recipe", "SELECT count(*) FROM recipe_2 WHERE r_ref NOT IN (SELECT key_id FROM recipe_1)"},
    {"lines of no item",
     "SELECT count(*) FROM recipe_2 WHERE item_ref <> -1 AND item_ref NOT IN (SELECT key_id FROM items_1)"},
    {"lines in the place of another",
     "SELECT count(*) FROM recipe_2 a, recipe_2 b WHERE a.r_ref = b.r_ref AND a.key_id < b.key_id"
     " AND a.\"order\" = b.\"order\""},
    {"categories OTHER missing", "SELECT 1 - count(*) FROM cat WHERE key_id = 0"},
};

constexpr const char* keys_out_of_range
    = "SELECT (SELECT count(*) FROM items_1 WHERE key_id NOT BETWEEN 1 AND 32767)"
      " + (SELECT count(*) FROM cat WHERE key_id NOT BETWEEN 0 AND 32767)"
      " + (SELECT count(*) FROM groc_1 WHERE key_id NOT BETWEEN 1 AND 32767)"
      " + (SELECT count(*) FROM tie WHERE key_id NOT BETWEEN 1 AND 32767)"
      " + (SELECT count(*) FROM list_name WHERE key_id NOT BETWEEN 1 AND 32767)"
      " + (SELECT count(*) FROM recipe_1 WHERE key_id NOT BETWEEN 1 AND 32767)"
      " + (SELECT count(*) FROM recipe_2 WHERE key_id NOT BETWEEN 1 AND 32767)";

constexpr const char* one_line_texts
    = "SELECT item FROM items_1 UNION ALL SELECT cat_desc FROM cat UNION ALL SELECT list_name FROM list_name"
      " UNION ALL SELECT r_name FROM recipe_1 UNION ALL SELECT item || qty || measure || comment FROM recipe_2"
      " UNION ALL SELECT item || desc || qty || aisle FROM groc_1";

bool is_one_line(const QString& text)
{
    return !text.startsWith(u'\uFEFF') && std::none_of(text.begin(), text.end(), [](QChar sign) {
        return sign.category() == QChar::Other_Control || sign == QChar::LineSeparator
            || sign == QChar::ParagraphSeparator;
    });
}

} // namespace

QStringList store_faults(Connection& connection)
{
    QStringList faults;
    const auto count = [&](const char* fault, const char* sql) {
        Query query(connection, sql);
        if (!query.next() || query.number(0) != 0)
            faults += QStringLiteral("%1 %2").arg(query.number(0)).arg(QLatin1String(fault));
    };
    for (const Rule& rule : rules)
        count(rule.fault, rule.sql);
    count("keys out of range", keys_out_of_range);
    Query texts(connection, one_line_texts);
    while (texts.next())
        if (!is_one_line(texts.text(0)))
            faults += QStringLiteral("line ends in the name '%1'").arg(texts.text(0));
    return faults;
}

int true_code(Connection& connection, Key item)
{
    Query counts(connection,
                 "SELECT (SELECT count(*) FROM items_1 WHERE key_id = ?1), count(*), coalesce(sum(g.to_get), 0)"
                 " FROM tie t, groc_1 g WHERE g.key_id = t.groc_id AND t.item_id = ?1",
                 item);
    counts.next();
    if (counts.number(0) == 0)
        return 9;
    if (counts.number(1) == 0)
        return 5;
    return 6 + std::min(counts.number(2), 2);
}

} // namespace tarnwick::random_use
