#pragma once

#include "household/item_change.h"

#include <functional>

namespace tarnwick {

class Connection;
class StatusPanels;
struct SharedValues;

/// Tells in the first status panel how the item of an operation stands.
class StatusWords {
public:
    /// `is_selected` tells whether an item's node is the selected one; `tell_current` tells of the current row or
    /// node.
    StatusWords(Connection& connection, StatusPanels& panels, const SharedValues& shared,
                std::function<bool(Key item)> is_selected, std::function<void()> tell_current);

    void item_changed(const ItemChange& change);

private:
    bool tells(const ItemChange& change, Key item) const;

    Connection& connection_;
    StatusPanels& panels_;
    const SharedValues& shared_;
    std::function<bool(Key)> is_selected_;
    std::function<void()> tell_current_;
};

} // namespace tarnwick
