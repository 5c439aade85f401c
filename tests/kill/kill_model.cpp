#include "kill/kill_model.h"

#include "data/connection.h"
#include "data/query.h"

#include <algorithm>
#include <array>
#include <set>

namespace tarnwick::kill {
namespace {

constexpr std::array kind_names = {"place",           "tick",        "delete_list",     "make_list",  "clear_list",
                                   "delete_category", "rename_list", "rename_category", "rename_item"};

/// The status code that the rows of an item give: 5 unlisted, 6 inactive, 7 on one row to buy, 8 on several.
int true_status(const State& state, int item)
{
    int listed = 0;
    int active = 0;
    for (const auto& [key, row] : state.rows) {
        listed += row.item == item ? 1 : 0;
        active += row.item == item && row.to_get ? 1 : 0;
    }
    if (listed == 0)
        return 5;
    return active > 1 ? 8 : active == 1 ? 7 : 6;
}

void write_status(State& state, int item)
{
    if (const auto found = state.items.find(item); found != state.items.end())
        found->second.status = true_status(state, item);
}

/// Takes away, or unmarks, the rows for which `goes` holds; their items get the status that is then theirs.
template <typename Goes> void clear_rows(State& state, bool unmark, const Goes& goes)
{
    std::set<int> items;
    for (auto row = state.rows.begin(); row != state.rows.end();) {
        if (!goes(row->second)) {
            ++row;
            continue;
        }
        items.insert(row->second.item);
        if (unmark)
            (row++)->second.to_get = false;
        else
            row = state.rows.erase(row);
    }
    for (const int item : items)
        write_status(state, item);
}

void clear_list(State& state, int list, int mode)
{
    constexpr int uncheck = 1;
    constexpr int delete_unchecked = 2;
    clear_rows(state, mode == uncheck, [&](const Row& row) {
        return row.list == list && (mode == uncheck ? row.to_get : mode == delete_unchecked ? !row.to_get : true);
    });
}

void unlink_lines(State& state, int item)
{
    for (auto& [key, linked] : state.lines)
        linked = linked == item ? -1 : linked;
}

void delete_category(State& state, int category)
{
    std::set<int> items;
    std::erase_if(state.items, [&](const auto& entry) {
        if (entry.second.category != category)
            return false;
        items.insert(entry.first);
        return true;
    });
    clear_rows(state, false, [&](const Row& row) { return items.contains(row.item); });
    for (const int item : items)
        unlink_lines(state, item);
    state.categories.erase(category);
}

/// The lines of the item keep their own names and lose the link; none bears the new name.
void rename_item(State& state, int item, const QString& name)
{
    state.items[item].name = name;
    for (auto& [key, row] : state.rows)
        if (row.item == item)
            row.name = name;
    unlink_lines(state, item);
}

/// Counts of records that must be 0 in every sound file.
struct Rule {
    const char* sql;
    const char* fault;
};

constexpr std::array rules = {
    Rule{"SELECT count(*) FROM tie WHERE groc_id NOT IN (SELECT key_id FROM groc_1)", "links without a row"},
    Rule{"SELECT count(*) FROM groc_1 WHERE key_id NOT IN (SELECT groc_id FROM tie)", "rows without a link"},
    Rule{"SELECT count(*) - count(DISTINCT groc_id) FROM tie", "rows with two links"},
    Rule{"SELECT count(*) FROM tie WHERE list NOT IN (SELECT key_id FROM list_name)", "links on a missing list"},
    Rule{"SELECT count(*) FROM tie WHERE item_id NOT IN (SELECT key_id FROM items_1)", "links to a missing item"},
    Rule{"SELECT count(*) - count(DISTINCT list_name) FROM list_name", "lists of the same name"},
    Rule{"SELECT count(*) FROM items_1 WHERE cat NOT IN (SELECT key_id FROM cat)", "items of a missing category"},
    Rule{"SELECT count(*) FROM recipe_2 WHERE item_ref <> -1 AND item_ref NOT IN (SELECT key_id FROM items_1)",
         "recipe lines of a missing item"},
};

/// The key in `now` that `before` does not have; 0 for none.
template <typename Records> int new_key(const Records& before, const Records& now)
{
    const auto made
        = std::find_if(now.begin(), now.end(), [&](const auto& entry) { return !before.contains(entry.first); });
    return made == now.end() ? 0 : made->first;
}

} // namespace

QString kind_name(Kind kind)
{
    return QLatin1String(kind_names.at(static_cast<size_t>(kind)));
}

QString begin_line(const Operation& operation)
{
    return QStringLiteral("begin %1 %2 %3 %4 %5 %6 %7")
        .arg(kind_name(operation.kind))
        .arg(operation.key)
        .arg(operation.item)
        .arg(operation.list)
        .arg(operation.to_get ? 1 : 0)
        .arg(operation.mode)
        .arg(operation.name);
}

std::optional<Operation> read_begin_line(const QString& line)
{
    constexpr int name_word = 7;
    const QStringList words = line.split(u' ');
    if (words.size() <= name_word || words[0] != QLatin1String("begin"))
        return std::nullopt;
    const auto* const kind = std::find_if(kind_names.begin(), kind_names.end(),
                                          [&words](const char* name) { return words[1] == QLatin1String(name); });
    if (kind == kind_names.end())
        return std::nullopt;
    return Operation{static_cast<Kind>(kind - kind_names.begin()),
                     words[2].toInt(),
                     words[3].toInt(),
                     words[4].toInt(),
                     words[5] == QLatin1String("1"),
                     words[6].toInt(),
                     words.mid(name_word).join(u' ')};
}

void apply(State& state, const Operation& operation)
{
    switch (operation.kind) {
    case Kind::place:
        state.rows[operation.key] = {operation.item, operation.list, true, state.items[operation.item].name};
        write_status(state, operation.item);
        break;
    case Kind::tick:
        state.rows[operation.key].to_get = operation.to_get;
        state.items[operation.item].status = operation.to_get ? 7 : 6;
        break;
    case Kind::make_list:
    case Kind::rename_list:
        state.lists[operation.key] = operation.name;
        break;
    case Kind::delete_list:
        clear_rows(state, false, [&](const Row& row) { return row.list == operation.key; });
        state.lists.erase(operation.key);
        break;
    case Kind::clear_list:
        clear_list(state, operation.key, operation.mode);
        break;
    case Kind::delete_category:
        delete_category(state, operation.key);
        break;
    case Kind::rename_category:
        state.categories[operation.key] = operation.name;
        break;
    case Kind::rename_item:
        rename_item(state, operation.key, operation.name);
        break;
    }
}

State read_state(Connection& connection, QStringList& faults)
{
    Query check(connection, "PRAGMA integrity_check");
    while (check.next()) {
        if (check.text(0) != QLatin1String("ok"))
            faults << check.text(0);
    }
    for (const Rule& rule : rules) {
        Query count(connection, rule.sql);
        if (!count.next() || count.number(0) != 0)
            faults << QStringLiteral("%1 %2").arg(count.number(0)).arg(QLatin1String(rule.fault));
    }
    State state;
    Query rows(
        connection,
        "SELECT g.key_id, t.item_id, t.list, g.to_get, g.item FROM groc_1 g, tie t WHERE t.groc_id = g.key_id");
    while (rows.next())
        state.rows[rows.number(0)] = {rows.number(1), rows.number(2), rows.flag(3), rows.text(4)};
    Query items(connection, "SELECT key_id, item, cat, status FROM items_1");
    while (items.next())
        state.items[items.number(0)] = {items.text(1), items.number(2), items.number(3)};
    const auto names = [&](const char* sql, std::map<int, QString>& into) {
        Query records(connection, sql);
        while (records.next())
            into[records.number(0)] = records.text(1);
    };
    names("SELECT key_id, list_name FROM list_name", state.lists);
    names("SELECT key_id, cat_desc FROM cat", state.categories);
    Query lines(connection, "SELECT key_id, item_ref FROM recipe_2");
    while (lines.next())
        state.lines[lines.number(0)] = lines.number(1);
    return state;
}

int held(const State& before, Operation operation, const State& file)
{
    if (file == before)
        return 0;
    // The key that a new record took is in the file alone.
    if (operation.kind == Kind::place)
        operation.key = new_key(before.rows, file.rows);
    else if (operation.kind == Kind::make_list)
        operation.key = new_key(before.lists, file.lists);
    State after = before;
    apply(after, operation);
    return operation.key > 0 && file == after ? 1 : -1;
}

namespace {

/// What differs between two sets of records, each put into words.
template <typename Records, typename Words>
QStringList record_differences(const char* what, const Records& expected, const Records& file, const Words& words)
{
    QStringList lines;
    for (const auto& [key, record] : expected) {
        const auto found = file.find(key);
        if (found == file.end())
            lines << QStringLiteral("%1 %2 (%3) is missing").arg(QLatin1String(what)).arg(key).arg(words(record));
        else if (!(found->second == record))
            lines << QStringLiteral("%1 %2 is %3, not %4")
                         .arg(QLatin1String(what))
                         .arg(key)
                         .arg(words(found->second), words(record));
    }
    for (const auto& [key, record] : file) {
        if (!expected.contains(key))
            lines << QStringLiteral("%1 %2 (%3) is there").arg(QLatin1String(what)).arg(key).arg(words(record));
    }
    return lines;
}

} // namespace

QString difference(const State& expected, const State& file)
{
    constexpr int told = 8;
    const auto name = [](const QString& text) { return text; };
    const QStringList lines = record_differences("row", expected.rows, file.rows,
                                                 [](const Row& row) {
                                                     return QStringLiteral("'%1', item %2 on list %3, %4")
                                                         .arg(row.name)
                                                         .arg(row.item)
                                                         .arg(row.list)
                                                         .arg(row.to_get ? 1 : 0);
                                                 })
        + record_differences("item", expected.items, file.items,
                             [](const Item& item) {
                                 return QStringLiteral("'%1' of %2 with status %3")
                                     .arg(item.name)
                                     .arg(item.category)
                                     .arg(item.status);
                             })
        + record_differences("list", expected.lists, file.lists, name)
        + record_differences("category", expected.categories, file.categories, name)
        + record_differences("line", expected.lines, file.lines, [](int item) { return QString::number(item); });
    return lines.mid(0, told).join(QStringLiteral("; "));
}

} // namespace tarnwick::kill
