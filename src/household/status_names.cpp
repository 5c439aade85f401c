#include "household/status_names.h"

#include "household/status.h"

namespace tarnwick {

QString status_name(int code)
{
    switch (code) {
    case status_code::unlisted:
        return QStringLiteral("on no list");
    case status_code::inactive:
        return QStringLiteral("on a list, not to buy");
    case status_code::buy_it:
        return QStringLiteral("buy-it");
    case status_code::buy_it_plus:
        return QStringLiteral("buy-it on several lists");
    case status_code::non_stock:
        return QStringLiteral("non-stock item");
    default:
        return {};
    }
}

} // namespace tarnwick
