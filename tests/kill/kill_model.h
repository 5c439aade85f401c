#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace tarnwick {
class Connection;
}

namespace tarnwick::kill {

struct Row {
    int item;
    int list;
    bool to_get;
    QString name;
    bool operator==(const Row&) const = default;
};

struct Item {
    QString name;
    int category;
    int status;
    bool operator==(const Item&) const = default;
};

/// What the operations under test change, as it stands in a file or as the log says it must stand.
struct State {
    std::map<int, Row> rows; ///< by `groc_1.key_id`
    std::map<int, Item> items;
    std::map<int, QString> lists;
    std::map<int, QString> categories;
    std::map<int, int> lines; ///< the stock item of each recipe line; -1 none
    bool operator==(const State&) const = default;
};

enum class Kind {
    place,
    tick,
    delete_list,
    make_list,
    clear_list,
    delete_category,
    rename_list,
    rename_category,
    rename_item
};

QString kind_name(Kind kind);

/// One operation of the user. The key of a new record is known only when it is done.
struct Operation {
    Kind kind;
    int key = 0; ///< of the record it is about
    int item = 0;
    int list = 0;
    bool to_get = false; ///< the mark after a tick
    int mode = 0; ///< of a clearing
    QString name{}; ///< of a new record, or its new name
};

/// Lines of the log: "begin KIND KEY ITEM LIST TO_GET MODE NAME" before an operation, "done KEY" after it.
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
