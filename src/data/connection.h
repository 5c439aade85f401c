#pragma once

#include <QString>

#include <memory>
#include <string_view>

namespace SQLite {
class Database;
class Statement;
} // namespace SQLite

namespace tarnwick {

/// The one shared connection to the database file, open from the main window's Load to its Unload.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens an existing database file for reading and writing. Throws a run-time error with SQLite's
    /// number when the file is missing, read-only, damaged, newer than the program or no database of
    /// ours; such a file is left untouched.
    void open(const QString& path);

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
    void refuse_unusable() const;

    struct Statements;
    QString path_;
    std::unique_ptr<SQLite::Database> database_;
    std::unique_ptr<Statements> statements_;
    int transaction_depth_ = 0;
    bool transaction_failed_ = false;
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
