#include "kill/kill_model.h"

#include "data/connection.h"
#include "data/query.h"

#include <algorithm>
#include <array>

namespace tarnwick::kill {
namespace {

constexpr std::array kind_names = {"place", "tick", "delete_list", "make_list"};

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
};

} // namespace

QString begin_line(const Operation& operation)
{
    return QStringLiteral("begin %1 %2 %3 %4 %5")
        .arg(QLatin1String(kind_names[static_cast<size_t>(operation.kind)]))
        .arg(operation.key)
        .arg(operation.item)
        .arg(operation.list)
        .arg(operation.to_get ? 1 : 0);
}

std::optional<Operation> read_begin_line(const QString& line)
{
    const QStringList words = line.split(u' ');
    if (words.size() != 6 || words[0] != QLatin1String("begin"))
        return std::nullopt;
    const auto* const kind = std::find_if(kind_names.begin(), kind_names.end(),
                                          [&words](const char* name) { return words[1] == QLatin1String(name); });
    if (kind == kind_names.end())
        return std::nullopt;
    return Operation{static_cast<Kind>(kind - kind_names.begin()), words[2].toInt(), words[3].toInt(),
                     words[4].toInt(), words[5] == QLatin1String("1")};
}

void apply(State& state, const Operation& operation)
{
    switch (operation.kind) {
    case Kind::place:
        state.rows[operation.key] = {operation.item, operation.list, true};
        state.status[operation.item] = true_status(state, operation.item);
        break;
    case Kind::tick:
        state.rows[operation.key].to_get = operation.to_get;
        state.status[operation.item] = operation.to_get ? 7 : 6;
        break;
    case Kind::make_list:
        state.lists.insert(operation.key);
        break;
    case Kind::delete_list: {
        std::set<int> items;
        std::erase_if(state.rows, [&](const auto& entry) {
            if (entry.second.list != operation.key)
                return false;
            items.insert(entry.second.item);
            return true;
        });
        for (const int item : items)
            state.status[item] = true_status(state, item);
        state.lists.erase(operation.key);
        break;
    }
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
    Query rows(connection,
               "SELECT g.key_id, t.item_id, t.list, g.to_get FROM groc_1 g, tie t WHERE t.groc_id = g.key_id");
    while (rows.next())
        state.rows[rows.number(0)] = {rows.number(1), rows.number(2), rows.flag(3)};
    Query lists(connection, "SELECT key_id FROM list_name");
    while (lists.next())
        state.lists.insert(lists.number(0));
    Query items(connection, "SELECT key_id, status FROM items_1");
    while (items.next())
        state.status[items.number(0)] = items.number(1);
    return state;
}

int held(const State& before, Operation operation, const State& file)
{
    if (file == before)
        return 0;
    // The key that a new record took is in the file alone.
    if (operation.kind == Kind::place) {
        for (const auto& [key, row] : file.rows) {
            if (!before.rows.contains(key))
                operation.key = key;
        }
    } else if (operation.kind == Kind::make_list) {
        for (const int list : file.lists) {
            if (!before.lists.contains(list))
                operation.key = list;
        }
    }
    State after = before;
    apply(after, operation);
    return operation.key > 0 && file == after ? 1 : -1;
}

QString difference(const State& expected, const State& file)
{
    QStringList lines;
    const auto row_text = [](const Row& row) {
        return QStringLiteral("item %1 on list %2, %3").arg(row.item).arg(row.list).arg(row.to_get ? 1 : 0);
    };
    for (const auto& [key, row] : expected.rows) {
        const auto found = file.rows.find(key);
        if (found == file.rows.end())
            lines << QStringLiteral("row %1 (%2) is missing").arg(key).arg(row_text(row));
        else if (found->second != row)
            lines << QStringLiteral("row %1 is %2, not %3").arg(key).arg(row_text(found->second), row_text(row));
    }
    for (const auto& [key, row] : file.rows) {
        if (!expected.rows.contains(key))
            lines << QStringLiteral("row %1 (%2) is there").arg(key).arg(row_text(row));
    }
    for (const auto& [item, status] : expected.status) {
        const auto found = file.status.find(item);
        if (found == file.status.end() || found->second != status)
            lines << QStringLiteral("item %1 has not status %2").arg(item).arg(status);
    }
    if (expected.lists != file.lists)
        lines << QStringLiteral("%1 lists instead of %2").arg(file.lists.size()).arg(expected.lists.size());
    return lines.mid(0, 8).join(QStringLiteral("; "));
}

} // namespace tarnwick::kill
