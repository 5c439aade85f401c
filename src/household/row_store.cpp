#include "household/row_store.h"

#include "data/connection.h"
#include "data/query.h"

#include <string_view>

namespace tarnwick {
namespace {

std::string_view update_of(RowField field)
{
    switch (field) {
    case RowField::desc:
        return "UPDATE groc_1 SET desc = ? WHERE key_id = ?";
    case RowField::qty:
        return "UPDATE groc_1 SET qty = ? WHERE key_id = ?";
    case RowField::aisle:
        return "UPDATE groc_1 SET aisle = ? WHERE key_id = ?";
    }
    return {};
}

/// The number at the start of a text, as digits without leading zeros, and what follows it.
struct Stepped {
    QString number;
    QString rest;
};

bool is_digit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

Stepped number_and_rest(const QString& text)
{
    // A blank stands for an empty field, so one typed next to it must not hide the number.
    const QString bare = trim(text);
    const QString& whole = bare.isEmpty() || is_digit(bare[0]) ? bare : text;
    qsizetype end = 0;
    while (end < whole.size() && is_digit(whole[end]))
        ++end;
    qsizetype start = 0;
    while (start < end && whole[start] == u'0')
        ++start;
    return {whole.sliced(start, end - start), whole.sliced(end)};
}

QString plus_one(QString number)
{
    for (qsizetype i = number.size() - 1; i >= 0; --i) {
        if (number[i] != u'9') {
            number[i] = QChar(number[i].unicode() + 1);
            return number;
        }
        number[i] = u'0';
    }
    return u'1' + number;
}

QString minus_one(QString number)
{
    for (qsizetype i = number.size() - 1; i >= 0; --i) {
        if (number[i] != u'0') {
            number[i] = QChar(number[i].unicode() - 1);
            break;
        }
        number[i] = u'9';
    }
    return number.size() > 1 && number[0] == u'0' ? number.sliced(1) : number;
}

} // namespace

RowField row_field_of(GridColumn column)
{
    switch (column) {
    case GridColumn::qty:
        return RowField::qty;
    case GridColumn::aisle:
        return RowField::aisle;
    default:
        return RowField::desc;
    }
}

bool write_row_field(Connection& connection, Key groc_key, RowField field, const QString& trimmed)
{
    Transaction transaction(connection);
    const int changed = Query(connection, update_of(field), or_blank(one_line(trimmed)), groc_key).run();
    transaction.commit();
    return changed > 0;
}

std::optional<QDate> write_row_coupon(Connection& connection, Key groc_key, bool on, QDate today)
{
    Transaction transaction(connection);
    QDate date;
    {
        Query row(connection, "SELECT created FROM groc_1 WHERE key_id = ?", groc_key);
        if (!row.next())
            return std::nullopt;
        date = row.date(0);
    }
    const bool moves = on && !(date.isValid() && date > today);
    if (moves)
        date = today;
    Query(connection, "UPDATE groc_1 SET cpn = ? WHERE key_id = ?", on, groc_key).run();
    if (moves)
        Query(connection, "UPDATE groc_1 SET created = ? WHERE key_id = ?", date, groc_key).run();
    transaction.commit();
    return on ? date : QDate();
}

bool write_row_expiry(Connection& connection, Key groc_key, QDate date)
{
    Transaction transaction(connection);
    const int changed = Query(connection, "UPDATE groc_1 SET created = ? WHERE key_id = ?", date, groc_key).run();
    transaction.commit();
    return changed > 0;
}

QString stepped_up(const QString& text)
{
    const Stepped parts = number_and_rest(text);
    return plus_one(parts.number) + parts.rest;
}

QString stepped_down(const QString& text)
{
    const Stepped parts = number_and_rest(text);
    const bool below_two = parts.number.isEmpty() || parts.number == QLatin1String("1");
    return (below_two ? QString() : minus_one(parts.number)) + parts.rest;
}

} // namespace tarnwick
