#include "data/schema.h"

#include "data/collation.h"
#include "data/connection.h"
#include "data/database_file.h"
#include "data/query.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <array>
#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

// Text is NOCASE, which is ours only inside the program; it is never indexed, so that any other tool
// still opens the file.
constexpr const char* tables = R"(
CREATE TABLE cat (
    key_id INTEGER PRIMARY KEY,
    cat_desc TEXT COLLATE NOCASE,
    expand INTEGER DEFAULT 0
);
CREATE TABLE items_1 (
    key_id INTEGER PRIMARY KEY,
    item TEXT COLLATE NOCASE,
    cat INTEGER,
    status INTEGER DEFAULT 5,
    to_get INTEGER DEFAULT 0,
    qty INTEGER DEFAULT 0,
    desc TEXT COLLATE NOCASE,
    modified TEXT COLLATE NOCASE,
    created TEXT COLLATE NOCASE
);
CREATE TABLE groc_1 (
    key_id INTEGER PRIMARY KEY,
    item TEXT COLLATE NOCASE,
    desc TEXT COLLATE NOCASE,
    qty TEXT COLLATE NOCASE,
    aisle TEXT COLLATE NOCASE,
    to_get INTEGER DEFAULT 0,
    cpn INTEGER DEFAULT 0,
    created TEXT COLLATE NOCASE,
    modified TEXT COLLATE NOCASE,
    list INTEGER DEFAULT 0,
    item_id INTEGER DEFAULT 0
);
CREATE TABLE tie (
    key_id INTEGER PRIMARY KEY,
    groc_id INTEGER,
    item_id INTEGER,
    list INTEGER
);
CREATE TABLE list_name (
    key_id INTEGER PRIMARY KEY,
    list_name TEXT COLLATE NOCASE,
    active INTEGER DEFAULT 0,
    modified TEXT COLLATE NOCASE
);
CREATE TABLE recipe_1 (
    key_id INTEGER PRIMARY KEY,
    r_name TEXT COLLATE NOCASE,
    r_body TEXT COLLATE NOCASE,
    cat TEXT COLLATE NOCASE
);
CREATE TABLE recipe_2 (
    key_id INTEGER PRIMARY KEY,
    r_ref INTEGER,
    item_ref INTEGER DEFAULT -1,
    item TEXT COLLATE NOCASE,
    qty TEXT COLLATE NOCASE,
    measure TEXT COLLATE NOCASE,
    comment TEXT COLLATE NOCASE,
    "order" INTEGER DEFAULT 0
);
INSERT INTO cat (key_id, cat_desc, expand) VALUES (0, 'OTHER', 0);
)";

constexpr std::array indexes = {
    "CREATE INDEX IF NOT EXISTS tie_item_id ON tie(item_id)",
    "CREATE INDEX IF NOT EXISTS tie_list ON tie(list)",
    "CREATE INDEX IF NOT EXISTS tie_groc_id ON tie(groc_id)",
    "CREATE INDEX IF NOT EXISTS items_1_cat ON items_1(cat)",
    "CREATE INDEX IF NOT EXISTS recipe_2_r_ref ON recipe_2(r_ref)",
    "CREATE INDEX IF NOT EXISTS recipe_2_item_ref ON recipe_2(item_ref)",
};

/// What a column of a file is, as far as the program relies on it.
struct Column {
    bool found = false;
    QByteArray type;
    QByteArray collation;
    int is_key = 0;

    bool operator==(const Column&) const = default;
};

Column column_of(const SQLite::Database& database, const std::string& table, const std::string& name)
{
    Column column;
    const char* type = nullptr;
    const char* collation = nullptr;
    column.found = sqlite3_table_column_metadata(database.getHandle(), nullptr, table.c_str(), name.c_str(), &type,
                                                 &collation, nullptr, &column.is_key, nullptr)
        == SQLITE_OK;
    column.type = QByteArray(type).toUpper();
    column.collation = QByteArray(collation).toUpper();
    return column;
}

/// A column of one-line texts. One that must not be empty holds a blank where there is no text.
struct TextColumn {
    const char* table;
    const char* name;
    bool is_name;
};

constexpr std::array one_line_columns = {
    TextColumn{"cat", "cat_desc", true},      TextColumn{"items_1", "item", true},
    TextColumn{"items_1", "desc", false},     TextColumn{"groc_1", "item", true},
    TextColumn{"groc_1", "desc", false},      TextColumn{"groc_1", "qty", false},
    TextColumn{"groc_1", "aisle", false},     TextColumn{"list_name", "list_name", true},
    TextColumn{"recipe_1", "r_name", true},   TextColumn{"recipe_2", "item", true},
    TextColumn{"recipe_2", "qty", false},     TextColumn{"recipe_2", "measure", false},
    TextColumn{"recipe_2", "comment", false},
};

/// From version 1, which kept line ends in names and let other programs leave texts empty.
void clean_texts(Connection& connection)
{
    for (const TextColumn& column : one_line_columns) {
        const std::string name = column.name;
        const std::string table = column.table;
        std::string update = "UPDATE ";
        update.append(table).append(" SET ").append(name).append(" = ? WHERE key_id = ?");
        std::string select = "SELECT key_id, ";
        select.append(name).append(" FROM ").append(table);
        Query change(connection, update);
        Query rows(connection, select);
        while (rows.next()) {
            const QString text = rows.text(1);
            const QString line = one_line(text);
            const QString kept = line == text ? text : trim(line);
            if (kept == text && (column.is_name || !text.isEmpty()))
                continue;
            change.reset();
            change.bind(1, column.is_name ? kept : or_blank(kept));
            change.bind(2, rows.number(0));
            change.run();
        }
    }
}

using Step = void (*)(Connection&);

/// The steps from each version to the next, from version 1 on.
constexpr std::array<Step, schema_version - 1> steps = {clean_texts};

/// Whether the tables of a file were made with the very words of this version, as nearly all are.
bool has_tables_as_made(const SQLite::Database& database)
{
    std::set<std::string, std::less<>> found;
    SQLite::Statement made(database, "SELECT sql FROM sqlite_master WHERE type = 'table'");
    while (made.executeStep())
        found.insert(made.getColumn(0).getString());
    const std::string_view all = tables;
    for (size_t begin = all.find("CREATE TABLE"); begin != all.npos; begin = all.find("CREATE TABLE", begin + 1)) {
        if (!found.contains(all.substr(begin, all.find(';', begin) - begin)))
            return false;
    }
    return true;
}

} // namespace

void refuse_incomplete(const SQLite::Database& database, const QString& name)
{
    if (has_tables_as_made(database))
        return;
    SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    install_collation(model.getHandle());
    model.exec(tables);
    SQLite::Statement columns(model,
                              "SELECT m.name, c.name FROM sqlite_master m, pragma_table_info(m.name) c"
                              " WHERE m.type = 'table'");
    while (columns.executeStep()) {
        const std::string table = columns.getColumn(0).getString();
        const std::string column = columns.getColumn(1).getString();
        const Column found = column_of(database, table, column);
        if (found == column_of(model, table, column))
            continue;
        refuse(SQLITE_CORRUPT,
               (found.found ? QStringLiteral("The column %1 of the table %2 is not as it should be")
                            : QStringLiteral("The column %1 of the table %2 is missing"))
                   .arg(QString::fromStdString(column), QString::fromStdString(table)),
               name);
    }
}

void upgrade(Connection& connection)
{
    const auto version_of_file = [&connection] {
        Query version(connection, "PRAGMA user_version");
        return version.next() ? static_cast<quint32>(version.number(0)) : schema_version;
    };
    if (version_of_file() >= schema_version)
        return;
    Transaction transaction(connection);
    for (quint32 version = version_of_file(); version < schema_version; ++version)
        steps.at(version - 1)(connection);
    for (const char* index : indexes)
        Query(connection, index).run();
    Query(connection, "PRAGMA user_version = " + std::to_string(schema_version)).run();
    transaction.commit();
}

bool make_database(const QString& path)
{
    if (QFile::exists(path))
        return false;
    QDir().mkpath(QFileInfo(path).path());
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    install_collation(database.getHandle());
    SQLite::Transaction transaction(database);
    database.exec(tables);
    for (const char* index : indexes)
        database.exec(index);
    database.exec("PRAGMA application_id = " + std::to_string(schema_application_id));
    database.exec("PRAGMA user_version = " + std::to_string(schema_version));
    transaction.commit();
    return true;
}

} // namespace tarnwick
