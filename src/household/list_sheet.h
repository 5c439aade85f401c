#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QDate>
#include <QString>

#include <vector>

namespace tarnwick {

/// A row of a shopping list as it is sent. A text whose field is NULL is a null string.
struct SheetRow {
    QString item;
    QString desc;
    QString qty;
    QString aisle;
    bool cpn = false;
    QDate created; ///< expiry date of the coupon; invalid when there is none

    bool coupon_expired(QDate today) const { return cpn && created.isValid() && created < today; }
};

/// A shopping list, or all of them in one, as it is sent.
struct ListSheet {
    QString name; ///< "All" for all lists
    std::vector<SheetRow> rows;
};

/// The rows of a list, or of all lists when the key is below 1, by item; only those to buy when asked. Throws
/// SQLite::Exception.
ListSheet read_list_sheet(Connection& connection, Key list, bool buy_it_only);

} // namespace tarnwick
