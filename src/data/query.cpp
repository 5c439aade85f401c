#include "data/query.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace tarnwick {

Query::Query(Connection& connection, std::string_view sql)
    : connection_(&connection)
    , statement_(connection.take_statement(sql))
{
}

Query::~Query()
{
    if (statement_)
        connection_->keep_statement(std::move(statement_));
}

Query::Query(Query&& other) noexcept = default;

void Query::bind(int index, int value)
{
    statement_->bind(index, value);
}

void Query::bind(int index, bool value)
{
    statement_->bind(index, value ? 1 : 0);
}

void Query::bind(int index, const QString& value)
{
    statement_->bind(index, value.toStdString());
}

void Query::bind(int index, const QDate& value)
{
    if (value.isValid())
        statement_->bind(index, value.toString(Qt::ISODate).toStdString());
    else
        statement_->bind(index);
}

void Query::reset()
{
    statement_->reset();
    statement_->clearBindings();
    stepping_ = false;
}

bool Query::next()
{
    if (stepping_)
        return statement_->executeStep();
    bool row = false;
    connection_->when_unlocked([this, &row] {
        statement_->tryReset();
        row = statement_->executeStep();
    });
    stepping_ = true;
    return row;
}

int Query::run()
{
    Transaction operation(*connection_);
    const int changed = statement_->exec();
    operation.commit();
    return changed;
}

bool Query::is_null(int column) const
{
    return statement_->getColumn(column).isNull();
}

int Query::number(int column) const
{
    return statement_->getColumn(column).getInt();
}

Key Query::key(int column) const
{
    const qint64 number = statement_->getColumn(column).getInt64();
    const auto key = static_cast<Key>(number);
    return key == number ? key : to_int16(static_cast<double>(number));
}

bool Query::flag(int column) const
{
    return number(column) != 0;
}

QString Query::text(int column) const
{
    const SQLite::Column value = statement_->getColumn(column);
    const char* bytes = value.getText("");
    return QString::fromUtf8(bytes, value.getBytes());
}

QDate Query::date(int column) const
{
    return QDate::fromString(text(column).left(10), Qt::ISODate);
}

} // namespace tarnwick
