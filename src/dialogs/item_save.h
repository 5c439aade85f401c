#pragma once

#include "household/clearing_store.h"
#include "household/placing_store.h"
#include "household/item_store.h"

#include <QString>

#include <optional>
#include <vector>

class QTreeWidgetItem;

namespace tarnwick {

class frmmain;
class ItemEditGrid;
struct EditRow;
struct GridRow;

/// What the item editor's OK is given beside the grid.
struct ItemEntry {
    int mode = 0; ///< the editor's mode
    Key item = -1; ///< the stock item; -1 makes one
    Key line = -1; ///< the recipe line that the editor was opened for; -1 none
    QString name; ///< trimmed
    bool renamed = false;
    Key category = 0;
};

/// The writing half of the item editor's OK: everything is written in one transaction, then shown in
/// tree, grid, recipe page and status bar. Questions and checks come before.
class ItemSave {
public:
    ItemSave(frmmain& main, const ItemEditGrid& grid, ItemEntry entry);

    /// Throws what the database throws; nothing is written then.
    void run();

private:
    /// A row that was put on a list, with what the dialog holds of it.
    struct Placed {
        Placement placement;
        PlacedRow row;
        const EditRow* edit;
        const GridRow* cells;
    };

    /// A row that was taken off its list, with the stock item behind it; none without a link.
    struct TakenOff {
        Key groc_key;
        std::optional<ItemStatus> item;
    };

    void write();
    void write_rows();
    void place(const EditRow& edit, const GridRow& cells);
    void rewrite(const EditRow& edit, const GridRow& cells);
    void write_item();
    void show();
    void show_rows();
    void show_row(Key groc_key, const EditRow& edit, const GridRow& cells);
    void show_new_node();
    void show_node();
    void show_lines();

    frmmain& main_;
    ItemStore store_;
    const ItemEditGrid& grid_;
    ItemEntry entry_;
    bool makes_item_;
    bool moved_ = false;
    std::vector<Placed> placed_;
    std::vector<TakenOff> taken_off_;
    bool in_placing_ = false; ///< a write of a placing is under way
    int code_ = 0;
};

} // namespace tarnwick
