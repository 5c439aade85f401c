#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

namespace tarnwick {

/// A record key, 16-bit as in every table. 0 and negative values are sentinels.
using Key = std::int16_t;

/// The text without leading and trailing blanks; tabs and line ends stay.
QString trim(QStringView text);

/// The text as names and other one-line texts are kept: every line end and control character is a blank, and a
/// byte order mark (U+FEFF) at the start is gone.
QString one_line(QStringView text);

/// The number at the start of a text, blanks ignored; 0 when there is none.
double val(QStringView text);

/// A number as 16-bit integer, rounded half to even. Throws error 6 outside -32768 to 32767.
Key to_int16(double number);

/// The leading number of a text as 16-bit integer. Throws error 6 as above.
Key to_int16(QStringView text);

/// The four digits of a key in a node key, "0000" to "9999"; empty for any other number.
QString key_str(int key);

/// Removes every apostrophe from the text in place, and returns the result as well.
QString strip_apostrophes(QString& text);

/// The text, or one blank where it is empty: fields of the tables that must not be empty.
QString or_blank(const QString& text);

} // namespace tarnwick
