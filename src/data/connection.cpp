#include "data/connection.h"

#include "data/collation.h"
#include "data/database_file.h"
#include "data/runtime_error.h"
#include "data/schema.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <QThread>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <exception>
#include <string>
#include <unordered_map>

namespace tarnwick {
namespace {

void refuse_read_only(const QString& path)
{
    if (!QFileInfo(path).isWritable())
        refuse(SQLITE_READONLY, QStringLiteral("The database file is read-only"), path);
    // A folder without write permission lets the file be read but no journal be made beside it.
    if (!QFileInfo(QFileInfo(path).path()).isWritable())
        refuse(SQLITE_READONLY, QStringLiteral("The folder of the database is read-only"), path);
}

/// Throws a run-time error when an open file is damaged or lacks a part. Changes nothing in it.
void refuse_unusable(SQLite::Database& database, const QString& name)
{
    install_collation(database.getHandle());
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    const QString verdict
        = check.executeStep() ? QString::fromUtf8(check.getColumn(0).getText()) : QStringLiteral("no answer");
    if (verdict != QLatin1String("ok"))
        refuse(SQLITE_CORRUPT, QStringLiteral("The database file is damaged: ") + verdict, name);
    refuse_incomplete(database, name);
}

/// Throws a run-time error when the unfinished change beside a file cannot be played back to a sound file.
void refuse_unrecoverable(const QString& path)
{
    refuse_foreign_journal(path);
    rehearse_recovery(path, [&path](const QString& copy) {
        {
            SQLite::Database database(copy.toStdString(), SQLite::OPEN_READWRITE);
            refuse_unusable(database, path);
        }
        refuse_foreign(copy, path);
    });
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

void Connection::open(const QString& path, const std::optional<FileState>& sound)
{
    close();
    path_ = path;
    refuse_irregular(path);
    when_unlocked([this, &sound] { open_once(sound); });
}

void Connection::open_to_read(const QString& path)
{
    close();
    path_ = path;
    refuse_irregular(path);
    if (has_unfinished_change(path))
        refuse(SQLITE_BUSY, QStringLiteral("The database has an unfinished change"), path);
    refuse_foreign(path, path);
    database_ = std::make_unique<SQLite::Database>(path.toStdString(), SQLite::OPEN_READONLY);
    statements_ = std::make_unique<Statements>();
    refuse_unusable(*database_, path);
}

void Connection::open_once(const std::optional<FileState>& sound)
{
    try {
        const bool unfinished = has_unfinished_change(path_);
        refuse_read_only(path_);
        if (unfinished)
            refuse_unrecoverable(path_);
        else
            refuse_foreign(path_, path_);
        database_ = std::make_unique<SQLite::Database>(path_.toStdString(), SQLite::OPEN_READWRITE);
        statements_ = std::make_unique<Statements>();
        sqlite3_busy_handler(
            database_->getHandle(),
            [](void* self, int) { return static_cast<Connection*>(self)->wait_a_little() ? 1 : 0; }, this);
        if (sound && file_state(path_) == sound)
            install_collation(database_->getHandle());
        else
            refuse_unusable(*database_, path_);
        // Without spilling, a journal that can be played back always holds the first page, by which it is known.
        database_->exec("PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL; PRAGMA cache_spill = OFF");
        upgrade(*this);
    } catch (const SQLite::Exception& error) {
        close();
        refuse(error.getErrorCode(), QString::fromUtf8(error.what()), path_);
    } catch (...) {
        close();
        throw;
    }
}

void Connection::when_unlocked(const std::function<void()>& attempt)
{
    if (unlocking_)
        return attempt();
    const QScopedValueRollback<bool> unlocking(unlocking_, true);
    for (;;) {
        std::exception_ptr locked;
        try {
            attempt();
        } catch (...) {
            if (current_error().number() != SQLITE_BUSY || !(locked = std::current_exception())) {
                end_waiting();
                throw;
            }
        }
        if (locked && wait_a_little())
            continue;
        end_waiting();
        if (!locked)
            return;
        if (!ask_to_wait())
            std::rethrow_exception(locked);
    }
}

// Also SQLite's own way to wait, in the middle of a statement: nothing here may use the connection.
bool Connection::wait_a_little()
{
    constexpr unsigned long pause_ms = 20;
    if (!waiting_.isValid()) {
        waiting_.start();
        locked_.show_waiting(true);
    }
    if (waiting_.elapsed() >= locked_.wait_ms)
        return false;
    QThread::msleep(pause_ms);
    return true;
}

void Connection::end_waiting()
{
    if (!waiting_.isValid())
        return;
    waiting_.invalidate();
    locked_.show_waiting(false);
}

bool Connection::ask_to_wait()
{
    if (asking_)
        return false;
    const QScopedValueRollback<bool> asking(asking_, true);
    return locked_.ask_to_wait(path_);
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
    std::unique_ptr<SQLite::Statement> statement;
    when_unlocked([this, &statement, &text] { statement = std::make_unique<SQLite::Statement>(db(), text); });
    return statement;
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
        // Alone with the file from here on, so that no later step of the operation meets a lock.
        connection_.when_unlocked([this] { connection_.db().exec("BEGIN EXCLUSIVE"); });
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
