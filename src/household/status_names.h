#pragma once

#include <QString>

namespace tarnwick {

/// How a stock item stands with the lists, in a few words for the ear: other words for every status code 5 to 9,
/// empty for any other number.
QString status_name(int code);

} // namespace tarnwick
