#include "data/text.h"

#include "data/runtime_error.h"

#include <array>
#include <cmath>
#include <limits>

namespace tarnwick {

QString trim(QStringView text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ')
        ++first;
    while (last > first && text[last - 1] == u' ')
        --last;
    return text.sliced(first, last - first).toString();
}

QString one_line(QStringView text)
{
    constexpr char16_t byte_order_mark = 0xfeff;
    constexpr char16_t line_separator = 0x2028;
    constexpr char16_t paragraph_separator = 0x2029;
    while (text.startsWith(QChar(byte_order_mark)))
        text = text.sliced(1);
    QString line = text.toString();
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& c : line) {
        if (c.category() == QChar::Other_Control || c == line_separator || c == paragraph_separator)
            c = u' ';
    }
    return line;
}

double val(QStringView text)
{
    QString number;
    bool point = false;
    bool exponent = false;
    bool digits = false;
    for (const QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r')
            continue;
        const bool after_exponent = number.endsWith(u'e');
        if (c >= u'0' && c <= u'9') {
            digits = true;
            number += c;
        } else if ((c == u'-' || c == u'+') && (number.isEmpty() || after_exponent)) {
            number += c;
        } else if (c == u'.' && !point && !exponent) {
            point = true;
            number += c;
        } else if ((c == u'e' || c == u'E') && digits && !exponent) {
            exponent = true;
            number += u'e';
        } else {
            break;
        }
    }
    while (!number.isEmpty() && !number.back().isDigit() && number.back() != u'.')
        number.chop(1);
    bool ok = false;
    const double value = number.toDouble(&ok);
    if (ok)
        return value;
    return std::isinf(value) ? value : 0.0;
}

Key to_int16(double number)
{
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Key>::min() && rounded <= std::numeric_limits<Key>::max()))
        throw runtime_error(runtime_error::overflow, QStringLiteral("Overflow"));
    return static_cast<Key>(rounded);
}

Key to_int16(QStringView text)
{
    return to_int16(val(text));
}

QString key_str(int key)
{
    if (key < 0 || key > 9999)
        return {};
    std::array<QChar, 4> digits{u'0', u'0', u'0', u'0'};
    for (size_t i = digits.size(); key > 0; key /= 10)
        digits.at(--i) = QChar(u'0' + key % 10);
    return QString(digits.data(), digits.size());
}

QString strip_apostrophes(QString& text)
{
    text.remove(u'\'');
    return text;
}

QString or_blank(const QString& text)
{
    return text.isEmpty() ? QStringLiteral(" ") : text;
}

} // namespace tarnwick
