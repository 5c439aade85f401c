#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <set>

namespace tarnwick {
class Connection;
}

namespace tarnwick::kill {

struct Row {
    int item;
    int list;
    bool to_get;
    bool operator==(const Row&) const = default;
};

/// What the operations under test change, as it stands in a file or as the log says it must stand.
struct State {
    std::map<int, Row> rows; ///< by `groc_1.key_id`
    std::set<int> lists;
    std::map<int, int> status; ///< `items_1.status` by item
    bool operator==(const State&) const = default;
};

enum class Kind { place, tick, delete_list, make_list };

/// One operation of the user. The key of a new record is known only when it is done.
struct Operation {
    Kind kind;
    int key = 0; ///< row or list
    int item = 0;
    int list = 0;
    bool to_get = false; ///< the mark after a tick
};

/// Lines of the log: "begin KIND KEY ITEM LIST TO_GET" before an operation, "done KEY" after it.
QString begin_line(const Operation& operation);
std::optional<Operation> read_begin_line(const QString& line);

/// The state after an operation, by the rules of the program.
void apply(State& state, const Operation& operation);

/// The state in a file. What is unsound in itself, whatever was done before, is added to `faults`.
State read_state(Connection& connection, QStringList& faults);

/// Whether the file holds the operation wholly (1), not at all (0), or anything else (-1), coming from `before`.
int held(const State& before, Operation operation, const State& file);

/// What differs, for the eye.
QString difference(const State& expected, const State& file);

} // namespace tarnwick::kill
