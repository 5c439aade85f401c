#pragma once

#include "data/database_file.h"

#include <QElapsedTimer>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace SQLite {
class Database;
class Statement;
} // namespace SQLite

namespace tarnwick {

/// What is done while another program keeps the database locked.
struct LockedFile {
    int wait_ms = 10000; ///< how long is waited before it is asked
    std::function<void(bool)> show_waiting = [](bool) {}; ///< a wait begins, or is over
    std::function<bool(const QString& path)> ask_to_wait
        = [](const QString&) { return false; }; ///< true: wait again
};

/// The one shared connection to the database file, open from the main window's Load to its Unload.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// A locked file is waited for before a read and before an operation begins; no transaction is open then.
    /// When nobody wants to wait any longer, error 5 is thrown.
    void set_locked_file(LockedFile locked) { locked_ = std::move(locked); }
    bool is_asking() const { return asking_; } ///< the question of a locked file is up: no operation may begin

    /// Opens an existing database file for reading and writing and takes an older one to the newest version. Throws
    /// a run-time error with SQLite's number when the file is missing, read-only, damaged, newer than the program
    /// or no database of ours; such a file and its journal are left untouched. A file in a state that was found
    /// sound already is not checked again.
    void open(const QString& path, const std::optional<FileState>& sound = std::nullopt);

    /// Opens it to be read alone, as it is and without waiting. Throws the same, also for an unfinished change.
    void open_to_read(const QString& path);

    /// Opens the file of the last `open` again if the connection is closed.
    void reopen();

    void close();
    bool is_open() const { return database_ != nullptr; }
    SQLite::Database& db(); ///< throws a run-time error while the connection is closed

private:
    friend class Query;
    friend class Transaction;

    std::unique_ptr<SQLite::Statement> take_statement(std::string_view sql);
    void keep_statement(std::unique_ptr<SQLite::Statement> statement);
    void open_once(const std::optional<FileState>& sound);
    void when_unlocked(const std::function<void()>& attempt);
    bool wait_a_little();
    void end_waiting();
    bool ask_to_wait();

    struct Statements;
    QString path_;
    std::unique_ptr<SQLite::Database> database_;
    std::unique_ptr<Statements> statements_;
    int transaction_depth_ = 0;
    bool transaction_failed_ = false;
    LockedFile locked_;
    QElapsedTimer waiting_; ///< valid while a locked file is waited for
    bool unlocking_ = false; ///< an attempt within another one waits with it
    bool asking_ = false;
};

/// One user operation: all of its changes are in the file or none. Nested ones join the outermost.
/// Leaving the scope without `commit` takes everything back.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Writes the changes to the file when this is the outermost transaction. Throws SQLite::Exception.
    void commit();

private:
    Connection& connection_;
    bool open_ = true;
};

} // namespace tarnwick
