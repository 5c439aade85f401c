#pragma once

#include "household/item_change.h"
#include "household/stock_keeping.h"

namespace tarnwick {

class ListPane;
class RowEditor;
struct SharedValues;

/// Shows in the grid what operations did to list rows.
class GridListener {
public:
    GridListener(ListPane& pane, RowEditor& editor, const SharedValues& shared);

    void item_changed(const ItemChange& change);
    void items_gone(const ItemsGone& gone);

    /// Whether the rows of a list are on show.
    bool shows_list(Key list) const;

private:
    void take_away(const ItemChange& change);
    void take_away_many(const std::vector<Key>& gone);
    void take_away_around_current(const std::vector<Key>& gone);
    void show_placed(const GridRow& row, const ItemChange& change);
    void show_rewritten(const GridRow& row);
    void show_marks(const ItemChange& change);
    void rename(Key item, const QString& name);

    ListPane& pane_;
    RowEditor& editor_;
    const SharedValues& shared_;
};

} // namespace tarnwick
