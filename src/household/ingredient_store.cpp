#include "household/ingredient_store.h"

#include "data/collation.h"
#include "data/keys.h"
#include "data/query.h"
#include "household/status.h"

#include <algorithm>

namespace tarnwick {
namespace {

constexpr qsizetype longest_measure = 20;

QString singular_of(const QString& name)
{
    return name.size() > 1 && name.endsWith(u's', Qt::CaseInsensitive) ? name.chopped(1) : name;
}

} // namespace

std::optional<IngredientRow> read_line(Connection& connection, Key line)
{
    Query query(connection,
                "SELECT r.item, r.qty, r.measure, r.comment, r.item_ref FROM recipe_2 r WHERE r.key_id = ?", line);
    if (!query.next())
        return std::nullopt;
    IngredientRow row;
    row.key = line;
    row.item = trim(query.text(0));
    row.qty = trim(query.text(1));
    row.measure = trim(query.text(2));
    row.comment = trim(query.text(3));
    row.item_ref = query.key(4);
    return row;
}

QString measure_of_new_line(const QString& measure)
{
    const QString cut = measure.left(longest_measure);
    return cut.size() < measure.size() && cut.back().isHighSurrogate() ? cut.chopped(1) : cut;
}

std::optional<IngredientRow> insert_line(Connection& connection, Key recipe, IngredientRow line, int order)
{
    Transaction transaction(connection);
    if (!Query(connection, "SELECT key_id FROM recipe_1 WHERE key_id = ?", recipe).next())
        return std::nullopt;
    if (line.item_ref < 1 || !stock_item_name(connection, line.item_ref))
        line.item_ref = -1;
    line.key = get_node(connection, Table::recipe_2);
    line.item = trim(one_line(line.item));
    line.qty = trim(one_line(line.qty));
    line.measure = measure_of_new_line(trim(one_line(line.measure)));
    line.comment = trim(one_line(line.comment));
    Query(connection,
          "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
          " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
          line.key, recipe, line.item_ref, line.item, or_blank(line.qty), or_blank(line.measure),
          or_blank(line.comment), order)
        .run();
    transaction.commit();
    return line;
}

std::optional<int> move_line(Connection& connection, Key recipe, Key line, Key after)
{
    Transaction transaction(connection);
    std::vector<Key> keys;
    Query lines(connection, "SELECT key_id FROM recipe_2 WHERE r_ref = ? ORDER BY \"order\"", recipe);
    while (lines.next())
        keys.push_back(lines.key(0));
    const auto old = std::find(keys.begin(), keys.end(), line);
    if (old == keys.end())
        return std::nullopt;
    const auto from = old - keys.begin();
    keys.erase(old);
    const auto neighbour = std::find(keys.begin(), keys.end(), after);
    if (after > 0 && neighbour == keys.end())
        return std::nullopt;
    const auto place = after > 0 ? neighbour - keys.begin() + 1 : 0;
    if (place == from)
        return std::nullopt;
    keys.insert(keys.begin() + place, line);
    for (size_t i = 0; i < keys.size(); ++i)
        Query(connection, "UPDATE recipe_2 SET \"order\" = ? WHERE key_id = ?", static_cast<int>(i), keys[i]).run();
    transaction.commit();
    return static_cast<int>(place);
}

void delete_line(Connection& connection, Key line)
{
    Query(connection, "DELETE FROM recipe_2 WHERE key_id = ?", line).run();
}

bool item_on_recipe(Connection& connection, Key recipe, Key item)
{
    return Query(connection, "SELECT item_ref FROM recipe_2 r WHERE item_ref = ? AND r_ref = ?", item, recipe)
        .next();
}

// All three forms begin like the singular: the other patterns are tried on few records.
Key stock_item_named(Connection& connection, const QString& name)
{
    const QString text = trim(name);
    if (text.isEmpty())
        return 0;
    const QString singular = singular_of(text);
    Query query(connection,
                "SELECT key_id FROM items_1 WHERE item LIKE ? AND (item LIKE ? OR item LIKE ? OR item LIKE ?)"
                " ORDER BY item LIKE ? DESC, key_id",
                singular + u'%', text, singular, QString(singular + u's'), text);
    return query.next() ? query.key(0) : Key(0);
}

std::vector<StockName> stock_names_like(Connection& connection, const QString& text)
{
    std::vector<StockName> names;
    const QString start = trim(text);
    Query query(connection, "SELECT i1.key_id, i1.item FROM items_1 i1 WHERE i1.item LIKE ? ORDER BY i1.item",
                QString((start.endsWith(u's', Qt::CaseInsensitive) ? start.chopped(1) : start) + u'%'));
    while (query.next())
        names.push_back({query.key(0), query.text(1)});
    return names;
}

// Saves a keystroke its second walk through the catalogue. A name of another length is no candidate.
Key stock_item_among(Connection& connection, const std::vector<StockName>& names, const QString& name)
{
    const QString text = trim(name);
    if (text.contains(u'%') || text.contains(u'_'))
        return stock_item_named(connection, text);
    const QString singular = singular_of(text);
    const QString plural = singular + u's';
    Key found = 0;
    bool found_itself = false;
    for (const StockName& stock : names) {
        if (stock.name.size() < singular.size() || stock.name.size() > plural.size())
            continue;
        const bool itself = like(stock.name, text);
        if (!itself && !like(stock.name, singular) && !like(stock.name, plural))
            continue;
        if (found == 0 || (itself && !found_itself) || (itself == found_itself && stock.key < found)) {
            found = stock.key;
            found_itself = itself;
        }
    }
    return found;
}

} // namespace tarnwick
