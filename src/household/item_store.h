#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

/// A category as the item editor offers it.
struct CategoryEntry {
    Key key = 0;
    QString name;
};

/// A stock item's name and category, with its own key.
struct EditedItem {
    Key key = 0;
    QString name;
    Key category = 0;
};

/// A row of a list as the item editor shows it.
struct EditedRow {
    Key groc_key = 0;
    QString desc;
    QString qty;
    QString aisle;
    bool to_get = false;
    bool cpn = false;
    QDate created; ///< expiry of the coupon
};

/// A list with the rows that a stock item has on it; none when the item is not listed there.
struct ListOfItem {
    Key list_key = 0;
    QString list_name;
    std::vector<EditedRow> rows;
};

/// What the item editor writes into a list row.
struct RowChange {
    Key groc_key = 0;
    bool to_get = false;
    QString desc;
    QString qty;
    QString aisle;
    bool cpn = false;
    QDate created; ///< expiry while `cpn` holds; the stored date stays when it is invalid
};

/// All that the item editor reads from and writes to the database. Everything throws SQLite::Exception.
class ItemStore {
public:
    explicit ItemStore(Connection& connection)
        : connection_(connection)
    {
    }

    /// All lists in the table's order, each with the item's rows in the order of their placing.
    std::vector<ListOfItem> lists_of(Key item);

    /// The user's categories by name, without OTHER.
    std::vector<CategoryEntry> categories();

    std::optional<EditedItem> item(Key item);

    /// The stock item that a recipe line is linked to.
    std::optional<EditedItem> item_of_line(Key line);

    /// The name on a recipe line; nothing when there is no such line.
    std::optional<QString> line_name(Key line);

    /// Whether another item than `but` matches the name as a pattern, case-blind. -1 excepts none.
    bool name_in_use(const QString& name, Key but);

    /// The first row of an item on a list; -1 when there is none.
    Key row_on_list(Key item, Key list);

    /// The expiry date of a list row; invalid when there is no such row or no date.
    QDate expiry(Key groc_key);

    // Writes. Each joins the caller's transaction.

    /// Makes a stock item without list rows and returns its key. Throws error 6 past 32767.
    Key add_item(const QString& name, Key category, QDate today);

    /// Rewrites a list row; a row that has gone is passed over.
    void change_row(const RowChange& change);

    /// Gives a row that was just placed what a placing does not take: quantity text and coupon.
    void complete_row(Key groc_key, const QString& qty, QDate coupon_expiry);

    /// Renames an item and its copies on all lists.
    void rename_item(Key item, const QString& new_name, QDate today);

    /// Recipe lines of the item become non-stock lines; they keep their text.
    void unlink_lines(Key item);

    /// Non-stock lines whose text matches the name as a pattern are linked to the item.
    void link_lines(const QString& name, Key item);

    /// Links one recipe line to the item, whatever its text.
    void link_line(Key line, Key item);

    void move_item(Key item, Key category, QDate today);

private:
    Connection& connection_;
};

} // namespace tarnwick
