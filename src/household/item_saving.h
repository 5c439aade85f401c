#pragma once

#include "data/runtime_error.h"
#include "data/text.h"
#include "household/item_change.h"

#include <QDate>
#include <QString>

#include <vector>

namespace tarnwick {

class Connection;

/// What saving does for a row of the item editor.
enum class RowAction { none = 0, rewrite = 1, place = 3, take_off = 4 };

/// A row of the item editor as its user left it. The texts may have blanks around.
struct RowEdit {
    RowAction action = RowAction::none;
    Key groc_key = 0;
    Key list_key = 0;
    bool to_get = false;
    bool coupon = false;
    QString date; ///< expiry as on the screen, M/d/yyyy
    QString desc;
    QString qty;
    QString aisle;

    bool operator==(const RowEdit&) const = default;
};

/// What the item editor's OK is to write.
struct ItemEdit {
    Key item = -1; ///< -1 makes a stock item
    Key line = -1; ///< the recipe line that is linked to the item; -1 none
    QString name; ///< trimmed
    bool renamed = false;
    bool link_namesakes = false; ///< a new item takes every non-stock recipe line of its name
    Key category = 0;
    QDate today;
    bool quiet = true; ///< a row that is placed is not brought to the user's eye
    std::vector<RowEdit> rows;

    bool operator==(const ItemEdit&) const = default;
};

/// An error in the placing of a row, which is trapped where other errors are not.
class placing_error : public runtime_error {
public:
    explicit placing_error(const runtime_error& error)
        : runtime_error(error)
    {
    }
};

/// Writes what the editor holds, in one transaction. Returns what it changed; the one item of it has its key.
/// Throws placing_error, and SQLite::Exception elsewhere; nothing is written then.
ItemChange write_item_edit(Connection& connection, const ItemEdit& edit);

} // namespace tarnwick
