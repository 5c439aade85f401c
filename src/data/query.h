#pragma once

#include "data/connection.h"
#include "data/text.h"

#include <QDate>
#include <QString>

#include <memory>
#include <string_view>

namespace tarnwick {

/// One run of a statement on the shared connection: values bound by position from 1, rows read by
/// column from 0. The prepared statement goes back to the connection for the next use. Every call
/// throws SQLite::Exception on a database error.
class Query {
public:
    Query(Connection& connection, std::string_view sql);
    ~Query();
    Query(Query&& other) noexcept;
    Query& operator=(Query&&) = delete;

    template <typename... Values>
    Query(Connection& connection, std::string_view sql, const Values&... values)
        : Query(connection, sql)
    {
        int index = 0;
        (bind(++index, values), ...);
    }

    void bind(int index, int value);
    void bind(int index, bool value);
    void bind(int index, const QString& value);
    void bind(int index, const QDate& value); ///< as ISO text; an invalid date as NULL

    /// Makes the statement ready for other values and another run.
    void reset();

    /// Steps to the next row; false at the end. The first step waits for a locked file.
    bool next();

    /// Runs a statement that returns no rows, in the open transaction or one of its own. Returns the count of rows
    /// changed.
    int run();

    bool is_null(int column) const;
    int number(int column) const; ///< 0 for NULL
    Key key(int column) const; ///< throws error 6 outside 16 bits
    bool flag(int column) const;
    QString text(int column) const; ///< empty for NULL
    QDate date(int column) const; ///< invalid for NULL or a text that is no ISO date

private:
    Connection* connection_;
    std::unique_ptr<SQLite::Statement> statement_;
    bool stepping_ = false;
};

} // namespace tarnwick
