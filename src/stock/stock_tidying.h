#pragma once

#include "data/text.h"

#include <QString>

class QWidget;

namespace tarnwick {

class Connection;
class Household;

/// Deletes, renames and moves stock items and categories: asks what is to be asked, and has the household do it.
/// What reads or writes throws SQLite::Exception.
class StockTidying {
public:
    /// Messages belong to `owner`.
    StockTidying(Connection& connection, Household& household, QWidget& owner);

    void delete_item(Key item); ///< asks when it stands on lists
    void delete_category(Key category); ///< asks when it holds items; OTHER is refused
    void move_item(Key item, Key category);

    // Names are trimmed, and none is empty.

    /// Renames an item. Refuses an apostrophe, and asks when the item stands on lists.
    void rename_item(Key item, const QString& old_name, const QString& name);
    void rename_category(Key category, const QString& name); ///< refuses an apostrophe, and a name in use

    /// Whether renaming an item or a category to this name comes to a message.
    bool asks_for_item(Key item, const QString& name);
    bool asks_for_category(const QString& name);

private:
    bool refuses_apostrophe(const QString& name, const QString& kind);
    bool allows_on_lists(Key item, const QString& old_name, const QString& name);

    Connection& connection_;
    Household& household_;
    QWidget& owner_;
};

} // namespace tarnwick
