#pragma once

#include "data/connection.h"
#include "household/ingredient_store.h"
#include "household/treatment.h"

#include <functional>
#include <optional>

namespace tarnwick {

/// The last list row or ingredient line that was removed, whole and with its link, until anything else is written
/// to the file. Everything throws SQLite::Exception.
class LastRemoval {
public:
    enum class Kind { none, row, line };

    explicit LastRemoval(Connection& connection);

    /// Deletes a list row as `remove_list_row` does, and keeps it.
    std::optional<ItemStatus> remove_row(Key groc_key);

    /// Deletes an ingredient line, moves up those behind it, and keeps it. No such line: nothing.
    void remove_line(Key line);

    Kind kind(); ///< what `bring_back` would bring back now
    Key list() const { return list_; } ///< of the row that is kept
    Key recipe() const { return recipe_; } ///< of the line that is kept

    /// Lets a write pass that is no change of the user's: what is kept can still be brought back after it.
    void pass_by(const std::function<void(Connection&)>& write);

    /// Puts the row back with all its fields and its link. Returns its keys and the item's status, nothing when no
    /// row is kept.
    struct ReturnedRow {
        Key groc_key;
        Key list;
        ItemStatus item;
    };
    std::optional<ReturnedRow> bring_back_row();

    /// Puts the line back at its place, and returns that place, counted from 0; nothing when no line is kept.
    std::optional<int> bring_back_line();

private:
    void keep(const char* table, const char* key_column, Key key);
    void put_back(const char* table);
    void hold(Kind kind);
    qint64 changes();

    Connection& connection_;
    Kind kind_ = Kind::none;
    qint64 changes_ = 0; ///< of the connection when the removal was done
    Key list_ = -1;
    Key recipe_ = -1;
};

} // namespace tarnwick
