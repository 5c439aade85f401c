#include "data/connection.h"
#include "data/query.h"
#include "data/schema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tarnwick;

class tst_schema : public QObject {
    Q_OBJECT
private slots:
    void init();

    void a_new_file_has_the_seven_tables_and_OTHER();
    void missing_folders_are_made();
    void an_existing_file_is_never_touched_data();
    void an_existing_file_is_never_touched();
    void other_tools_can_read_and_check_the_file();
    void no_text_column_is_indexed();

private:
    QString path() const { return folder_->filePath(QStringLiteral("twdata/groc.mdb")); }
    QStringList column_of(const char* sql);

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_schema::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
}

QStringList tst_schema::column_of(const char* sql)
{
    SQLite::Database plain(path().toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement query(plain, sql);
    QStringList rows;
    while (query.executeStep())
        rows << QString::fromUtf8(query.getColumn(0).getText());
    return rows;
}

void tst_schema::a_new_file_has_the_seven_tables_and_OTHER()
{
    QVERIFY(make_database(path()));
    Connection connection;
    connection.open(path());
    for (const char* table : {"cat", "items_1", "groc_1", "tie", "list_name", "recipe_1", "recipe_2"}) {
        const QString sql = QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table);
        Query count(connection, sql.toStdString());
        QVERIFY(count.next());
        QCOMPARE(count.number(0), qstrcmp(table, "cat") == 0 ? 1 : 0);
    }
    Query other(connection, "SELECT key_id, cat_desc, expand FROM cat");
    QVERIFY(other.next());
    QCOMPARE(other.key(0), Key{0});
    QCOMPARE(other.text(1), QStringLiteral("OTHER"));
    QVERIFY(!other.flag(2));
}

void tst_schema::missing_folders_are_made()
{
    const QString deep = folder_->filePath(QStringLiteral("a/b/c/groc.mdb"));
    QVERIFY(make_database(deep));
    QVERIFY(QFile::exists(deep));
}

void tst_schema::an_existing_file_is_never_touched_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("text") << QByteArray("my shopping\n");
    QTest::newRow("half a database") << QByteArray("SQLite format 3\0 and no more", 28);
}

void tst_schema::an_existing_file_is_never_touched()
{
    QFETCH(QByteArray, content);
    QVERIFY(QDir().mkpath(folder_->filePath(QStringLiteral("twdata"))));
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    QVERIFY(!make_database(path()));

    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
    QCOMPARE(QDir(folder_->filePath(QStringLiteral("twdata"))).entryList(QDir::Files).size(), 1);
}

void tst_schema::other_tools_can_read_and_check_the_file()
{
    QVERIFY(make_database(path()));
    {
        Connection connection;
        connection.open(path());
        Query(connection, "INSERT INTO items_1 (key_id, item, cat) VALUES (1, 'éclair', 0), (2, 'Eclair', 0)")
            .run();
    }
    QCOMPARE(column_of("PRAGMA integrity_check"), QStringList(QStringLiteral("ok")));
    QCOMPARE(column_of("SELECT item FROM items_1 ORDER BY key_id"),
             (QStringList{QStringLiteral("éclair"), QStringLiteral("Eclair")}));
}

void tst_schema::no_text_column_is_indexed()
{
    QVERIFY(make_database(path()));
    const QStringList indexed
        = column_of("SELECT m.tbl_name || '.' || i.name FROM sqlite_master m, pragma_index_info(m.name) i"
                    " WHERE m.type = 'index' ORDER BY 1");
    QCOMPARE(indexed,
             (QStringList{QStringLiteral("items_1.cat"), QStringLiteral("recipe_2.item_ref"),
                          QStringLiteral("recipe_2.r_ref"), QStringLiteral("tie.groc_id"),
                          QStringLiteral("tie.item_id"), QStringLiteral("tie.list")}));
}

QTEST_MAIN(tst_schema)
#include "tst_schema.moc"
