#pragma once

#include <QString>

namespace tarnwick {

/// The pattern that matches this very text, in any case, as the right side of `LIKE ? ESCAPE '\'`.
QString literal_pattern(QString text);

} // namespace tarnwick
