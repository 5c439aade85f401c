#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QString>

#include <optional>

namespace tarnwick {

/// How a stock item stands with the shopping lists.
enum class StatusCode { unlisted = 5, inactive, buy_it, buy_it_plus, non_stock };

/// A code as `items_1.status` holds it; picture and Tag of the item's node as well.
constexpr int code_number(StatusCode code)
{
    return static_cast<int>(code);
}

/// The code of such a number; nothing for any other.
constexpr std::optional<StatusCode> code_of_number(int number)
{
    if (number < code_number(StatusCode::unlisted) || number > code_number(StatusCode::non_stock))
        return std::nullopt;
    return static_cast<StatusCode>(number);
}

/// Resource numbers of the lights and boxes on the page colour 0; the colour index is added to them.
namespace picture_base {
inline constexpr int check_off = 113;
inline constexpr int coupon_off = 117;
inline constexpr int check_on = 122;
inline constexpr int coupon_on = 126;
inline constexpr int check_plus = 130;
inline constexpr int light_non_stock = 171;
inline constexpr int light_unlisted = 175;
inline constexpr int light_on = 179;
inline constexpr int light_off = 183;
} // namespace picture_base

/// The light and the box that stand for a status code.
struct StatusPictures {
    int light;
    int check;
    bool check_enabled;
};

StatusPictures status_pictures(StatusCode code);

/// The true status code of a stock item, computed from its list rows. Everything here that takes a connection
/// throws SQLite::Exception on a database error.
StatusCode lite_status(Connection& connection, Key item);

/// The status of a stock item in words: its lists and its category, joined by " :: ".
QString get_status(Connection& connection, Key item);

/// The item's name, " - " and its status in words; names of one character are left out.
QString get_ttt(Connection& connection, Key item);

/// The name of a stock item as stored; nothing when there is none.
std::optional<QString> stock_item_name(Connection& connection, Key item);

/// The name of a stock item; empty when there is none.
QString get_ingred_name(Connection& connection, Key item);

/// The name of a shopping list as stored; nothing when the key has no row.
std::optional<QString> list_name_of(Connection& connection, Key list);

/// The name of a shopping list; "All" when the key has no row.
QString get_list_name(Connection& connection, Key list);

} // namespace tarnwick
