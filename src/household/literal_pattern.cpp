#include "household/literal_pattern.h"

namespace tarnwick {

QString literal_pattern(QString text)
{
    for (const char sign : {'\\', '%', '_'})
        text.replace(QLatin1Char(sign), QLatin1Char('\\') + QString(QLatin1Char(sign)));
    return text;
}

} // namespace tarnwick
