#include "data/connection.h"

#include "data/collation.h"
#include "data/runtime_error.h"
#include "data/schema.h"

#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <string>
#include <unordered_map>

namespace tarnwick {
namespace {

constexpr int busy_timeout_ms = 2000;

[[noreturn]] void refuse(int number, const QString& text, const QString& path)
{
    throw runtime_error(number, text + QStringLiteral("\n(") + path + u')');
}

/// Reads the marks of the file from its first page, without any database code that might write to it.
void refuse_foreign(const QString& path)
{
    constexpr qsizetype header_size = 100; // SQLite's file format: a header of 100 bytes
    constexpr qsizetype version_offset = 60;
    constexpr qsizetype application_offset = 68;

    QFile file(path);
    if (!file.exists())
        refuse(SQLITE_CANTOPEN, QStringLiteral("The database file is missing"), path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(SQLITE_CANTOPEN, QStringLiteral("The database file cannot be opened: ") + file.errorString(), path);
    const QByteArray header = file.read(header_size);
    if (header.size() < header_size || !header.startsWith("SQLite format 3"))
        refuse(SQLITE_NOTADB, QStringLiteral("The file is not a database"), path);
    const auto number_at = [&header](qsizetype offset) {
        quint32 number = 0;
        for (qsizetype i = 0; i < 4; ++i)
            number = number << 8 | static_cast<quint8>(header[offset + i]);
        return number;
    };
    if (number_at(application_offset) != schema_application_id)
        refuse(SQLITE_NOTADB, QStringLiteral("The database was not made by this program"), path);
    if (number_at(version_offset) > schema_version)
        refuse(SQLITE_NOTADB, QStringLiteral("The database was made by a newer version of this program"), path);
}

} // namespace

struct Connection::Statements {
    std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> idle;
};

Connection::Connection() = default;

Connection::~Connection()
{
    close();
}

void Connection::open(const QString& path)
{
    close();
    path_ = path;
    refuse_foreign(path);
    if (!QFileInfo(path).isWritable())
        refuse(SQLITE_READONLY, QStringLiteral("The database file is read-only"), path);
    try {
        database_ = std::make_unique<SQLite::Database>(path.toStdString(), SQLite::OPEN_READWRITE, busy_timeout_ms);
        statements_ = std::make_unique<Statements>();
        install_collation(database_->getHandle());
        database_->exec("PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL");
        refuse_unusable();
    } catch (const SQLite::Exception& error) {
        close();
        refuse(error.getErrorCode(), QString::fromUtf8(error.what()), path);
    } catch (...) {
        close();
        throw;
    }
}

void Connection::refuse_unusable() const
{
    SQLite::Statement check(*database_, "PRAGMA quick_check(1)");
    const QString verdict
        = check.executeStep() ? QString::fromUtf8(check.getColumn(0).getText()) : QStringLiteral("no answer");
    if (verdict != QLatin1String("ok"))
        refuse(SQLITE_CORRUPT, QStringLiteral("The database file is damaged: ") + verdict, path_);
    // A folder without write permission lets the file be read but no journal be made beside it.
    if (!QFileInfo(QFileInfo(path_).path()).isWritable())
        refuse(SQLITE_READONLY, QStringLiteral("The folder of the database is read-only"), path_);
}

void Connection::reopen()
{
    if (!is_open())
        open(path_);
}

void Connection::close()
{
    statements_.reset();
    database_.reset();
    transaction_depth_ = 0;
    transaction_failed_ = false;
}

SQLite::Database& Connection::db()
{
    if (!database_)
        throw runtime_error(SQLITE_MISUSE, QStringLiteral("The database is not open"));
    return *database_;
}

std::unique_ptr<SQLite::Statement> Connection::take_statement(std::string_view sql)
{
    std::string text(sql);
    const auto found = statements_ ? statements_->idle.find(text) : decltype(statements_->idle.end()){};
    if (statements_ && found != statements_->idle.end()) {
        auto statement = std::move(found->second);
        statements_->idle.erase(found);
        return statement;
    }
    return std::make_unique<SQLite::Statement>(db(), text);
}

void Connection::keep_statement(std::unique_ptr<SQLite::Statement> statement)
{
    if (!statements_ || statement->tryReset() != SQLITE_OK)
        return;
    statement->clearBindings();
    std::string text = statement->getQuery();
    statements_->idle.emplace(std::move(text), std::move(statement));
}

Transaction::Transaction(Connection& connection)
    : connection_(connection)
{
    if (connection_.transaction_depth_ == 0) {
        connection_.db().exec("BEGIN IMMEDIATE");
        connection_.transaction_failed_ = false;
    }
    ++connection_.transaction_depth_;
}

Transaction::~Transaction()
{
    if (!open_ || connection_.transaction_depth_ == 0)
        return; // committed, or the connection was closed meanwhile, which took everything back
    connection_.transaction_failed_ = true;
    if (--connection_.transaction_depth_ == 0 && connection_.is_open()
        && sqlite3_get_autocommit(connection_.db().getHandle()) == 0)
        connection_.db().tryExec("ROLLBACK");
}

void Transaction::commit()
{
    if (connection_.transaction_depth_ == 1) {
        if (connection_.transaction_failed_)
            throw runtime_error(SQLITE_ABORT, QStringLiteral("A part of the operation has failed"));
        connection_.db().exec("COMMIT");
    }
    --connection_.transaction_depth_;
    open_ = false;
}

} // namespace tarnwick
