#include "household/status_names.h"

namespace tarnwick {

QString status_name(StatusCode code)
{
    switch (code) {
    case StatusCode::unlisted:
        return QStringLiteral("on no list");
    case StatusCode::inactive:
        return QStringLiteral("on a list, not to buy");
    case StatusCode::buy_it:
        return QStringLiteral("buy-it");
    case StatusCode::buy_it_plus:
        return QStringLiteral("buy-it on several lists");
    case StatusCode::non_stock:
        return QStringLiteral("non-stock item");
    }
    return {};
}

} // namespace tarnwick
