#include "data/schema.h"

#include "data/collation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

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
CREATE INDEX tie_item_id ON tie(item_id);
CREATE INDEX tie_list ON tie(list);
CREATE INDEX tie_groc_id ON tie(groc_id);
CREATE INDEX items_1_cat ON items_1(cat);
CREATE INDEX recipe_2_r_ref ON recipe_2(r_ref);
CREATE INDEX recipe_2_item_ref ON recipe_2(item_ref);
INSERT INTO cat (key_id, cat_desc, expand) VALUES (0, 'OTHER', 0);
)";

} // namespace

bool make_database(const QString& path)
{
    if (QFile::exists(path))
        return false;
    QDir().mkpath(QFileInfo(path).path());
    SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    install_collation(database.getHandle());
    SQLite::Transaction transaction(database);
    database.exec(tables);
    database.exec("PRAGMA application_id = " + std::to_string(schema_application_id));
    database.exec("PRAGMA user_version = " + std::to_string(schema_version));
    transaction.commit();
    return true;
}

} // namespace tarnwick
