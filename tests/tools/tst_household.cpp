#include "household_loader.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;
using namespace tarnwick::sample;

namespace {

const QDate some_day(2024, 2, 20);

void create_tables(SQLite::Database& db)
{
    db.exec(
        "CREATE TABLE cat (key_id INTEGER PRIMARY KEY, cat_desc TEXT, expand INTEGER);"
        "CREATE TABLE items_1 (key_id INTEGER PRIMARY KEY, item TEXT, cat INTEGER, status INTEGER, to_get INTEGER,"
        " qty NUMERIC, \"desc\" TEXT, modified TEXT, created TEXT);"
        "CREATE TABLE groc_1 (key_id INTEGER PRIMARY KEY, item TEXT, \"desc\" TEXT, qty TEXT, aisle TEXT,"
        " to_get INTEGER, cpn INTEGER, created TEXT, modified TEXT, list INTEGER, item_id INTEGER);"
        "CREATE TABLE tie (key_id INTEGER PRIMARY KEY, groc_id INTEGER, item_id INTEGER, list INTEGER);"
        "CREATE TABLE list_name (key_id INTEGER PRIMARY KEY, list_name TEXT, active INTEGER, modified TEXT);"
        "CREATE TABLE recipe_1 (key_id INTEGER PRIMARY KEY, r_name TEXT, r_body TEXT, cat TEXT);"
        "CREATE TABLE recipe_2 (key_id INTEGER PRIMARY KEY, r_ref INTEGER, item_ref INTEGER, item TEXT, qty TEXT,"
        " measure TEXT, comment TEXT, \"order\" INTEGER);");
}

/// An empty database with the seven tables, in a folder of its own.
class TestDatabase {
public:
    TestDatabase()
        : db_(folder_.filePath(u"groc.mdb"_s).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
    {
        create_tables(db_);
    }

    SQLite::Database& db() { return db_; }

    int number(const char* sql) { return db_.execAndGet(sql).getInt(); }

    QString text(const char* sql) { return QString::fromStdString(db_.execAndGet(sql).getString()); }

private:
    QTemporaryDir folder_;
    SQLite::Database db_;
};

/// A folder with a small faultless household, whose files a test replaces one at a time.
class SmallFolder {
public:
    SmallFolder()
    {
        write(u"categories.txt"_s, "Fruit | expanded\nBakery\n");
        write(u"items.txt"_s, "# stock\n[Fruit]\nPlums\nPears\n\n[OTHER]\nString\n");
        write(u"lists.txt"_s,
              "[First]\nPlums | 2 lb | ripe | 3 | buy | +14\nString\n[Second]\nPlums | | | | buy\nPears\n");
        write(u"recipes.txt"_s,
              "[Compote | desserts]\n1/3 | cup | ripe plums | pitted | Plums\n2 | tbs | water\n"
              "Method:\nStew\nthem.\n\nServe.\n");
    }

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the test file");
    }

    QString path(const QString& name) const { return folder_.filePath(name); }

    Household read() const { return read_household(folder_.path()); }

    /// The reader's complaint, or an empty text when it has none.
    QString error() const
    {
        try {
            read();
        } catch (const std::runtime_error& error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }

private:
    QTemporaryDir folder_;
};

QStringList names_of(const auto& records)
{
    QStringList names;
    for (const auto& record : records)
        names.append(record.name);
    return names;
}

QString folded_without_plural(const QString& name)
{
    const QString folded = name.toCaseFolded();
    return folded.endsWith(u's') ? folded.chopped(1) : folded;
}

/// Counts the items whose stored status differs from the one that the rows give.
int false_statuses(TestDatabase& database)
{
    return database.number("SELECT COUNT(*) FROM items_1 i WHERE i.status <> ("
                           " SELECT CASE WHEN COUNT(*) = 0 THEN 5 WHEN SUM(g.to_get) = 0 THEN 6"
                           "  WHEN SUM(g.to_get) = 1 THEN 7 ELSE 8 END"
                           " FROM tie t JOIN groc_1 g ON g.key_id = t.groc_id WHERE t.item_id = i.key_id)");
}

/// Counts the tie records that point to no row, no item or no list, and the rows without a tie.
int broken_ties(TestDatabase& database)
{
    return database.number(
        "SELECT (SELECT COUNT(*) FROM tie WHERE groc_id NOT IN (SELECT key_id FROM groc_1)"
        "  OR item_id NOT IN (SELECT key_id FROM items_1) OR list NOT IN (SELECT key_id FROM list_name))"
        " + (SELECT COUNT(*) FROM groc_1 WHERE key_id NOT IN (SELECT groc_id FROM tie))");
}

} // namespace

class tst_household : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { household_ = read_household(QStringLiteral(SAMPLE_HOUSEHOLD_DIR)); }

    void committed_household_has_the_wanted_counts()
    {
        QVERIFY(household_.items.size() >= 260);
        QCOMPARE(household_.categories.size(), std::size_t{15});
        QCOMPARE(household_.lists.size(), std::size_t{4});
        QVERIFY(household_.recipes.size() >= 12);
        const auto others = std::count_if(household_.items.begin(), household_.items.end(),
                                          [](const Item& item) { return item.category == other_category; });
        QVERIFY(others >= 2 && others <= 4);

        std::vector<std::size_t> sizes;
        for (const ShoppingList& list : household_.lists)
            sizes.push_back(list.rows.size());
        std::sort(sizes.begin(), sizes.end());
        QCOMPARE(sizes, (std::vector<std::size_t>{8, 25, 40, 60}));

        QSet<QString> used;
        for (const Recipe& recipe : household_.recipes) {
            used.insert(recipe.category);
            QVERIFY2(recipe.ingredients.size() >= 6 && recipe.ingredients.size() <= 14, qPrintable(recipe.name));
        }
        QVERIFY(used.size() >= 8);
    }

    void every_category_holds_items()
    {
        std::vector<int> counts(household_.categories.size());
        for (const Item& item : household_.items) {
            if (item.category != other_category)
                ++counts.at(static_cast<std::size_t>(item.category));
        }
        QVERIFY(*std::min_element(counts.begin(), counts.end()) >= 10);
    }

    void names_have_no_apostrophe_and_no_pattern_sign()
    {
        QStringList names = names_of(household_.categories) + names_of(household_.items)
            + names_of(household_.lists) + names_of(household_.recipes);
        for (const Recipe& recipe : household_.recipes)
            names += names_of(recipe.ingredients);
        static const QRegularExpression refused(u"['%_]"_s);
        QCOMPARE(names.filter(refused), QStringList());
        QVERIFY(!names.contains(QString()));
        QVERIFY(names.contains(u"Crème fraîche"_s));
        QVERIFY(names.contains(u"Jalapeños"_s));
    }

    void names_are_unique_case_blind_and_in_the_plural()
    {
        for (const QStringList& names : {names_of(household_.categories), names_of(household_.items),
                                         names_of(household_.lists), names_of(household_.recipes)}) {
            QSet<QString> seen;
            for (const QString& name : names) {
                QVERIFY2(!seen.contains(folded_without_plural(name)), qPrintable(name));
                seen.insert(folded_without_plural(name));
            }
        }
    }

    void rows_vary_and_several_items_stand_on_two_or_three_lists()
    {
        QHash<int, QSet<QString>> lists_of_item;
        int buy = 0;
        int rows = 0;
        int future = 0;
        int past = 0;
        for (const ShoppingList& list : household_.lists) {
            for (const ListRow& row : list.rows) {
                QVERIFY2(!lists_of_item[row.item].contains(list.name), "an item stands twice on a list");
                lists_of_item[row.item].insert(list.name);
                ++rows;
                buy += row.to_get ? 1 : 0;
                future += row.coupon_days.value_or(0) > 0 ? 1 : 0;
                past += row.coupon_days.value_or(0) < 0 ? 1 : 0;
            }
        }
        const auto shared = std::count_if(lists_of_item.begin(), lists_of_item.end(),
                                          [](const QSet<QString>& lists) { return lists.size() >= 2; });
        QVERIFY(shared >= 10);
        QVERIFY(std::any_of(lists_of_item.begin(), lists_of_item.end(),
                            [](const QSet<QString>& lists) { return lists.size() == 3; }));
        QVERIFY(buy >= rows / 4 && buy <= rows * 3 / 4);
        QVERIFY(future >= 10);
        QVERIFY(past >= 2);
    }

    void a_quarter_of_the_lines_is_linked_and_a_quarter_is_not()
    {
        int linked = 0;
        int free = 0;
        for (const Recipe& recipe : household_.recipes) {
            for (const Ingredient& line : recipe.ingredients) {
                ++(line.item == no_stock_item ? free : linked);
                QVERIFY(line.item >= no_stock_item && line.item < static_cast<int>(household_.items.size()));
                QVERIFY(line.measure.size() <= 20);
            }
        }
        QVERIFY2(linked * 4 >= linked + free, qPrintable(QString::number(linked)));
        QVERIFY2(free * 4 >= linked + free, qPrintable(QString::number(free)));
    }

    void a_line_without_stock_has_no_stock_item_in_singular_or_plural()
    {
        QSet<QString> stock;
        for (const QString& name : names_of(household_.items))
            stock.insert(folded_without_plural(name));
        for (const Recipe& recipe : household_.recipes) {
            for (const Ingredient& line : recipe.ingredients) {
                if (line.item == no_stock_item)
                    QVERIFY2(!stock.contains(folded_without_plural(line.name)), qPrintable(line.name));
            }
        }
    }

    void methods_have_paragraphs_and_three_to_eight_sentences()
    {
        static const QRegularExpression sentence_end(u"[.!?](\\s|$)"_s);
        for (const Recipe& recipe : household_.recipes) {
            QVERIFY2(recipe.body.contains(u"\n\n"_s), qPrintable(recipe.name));
            const auto sentences = recipe.body.count(sentence_end);
            QVERIFY2(sentences >= 3 && sentences <= 8, qPrintable(u"%1: %2"_s.arg(recipe.name).arg(sentences)));
        }
    }

    void loaded_household_is_whole_and_its_statuses_are_true()
    {
        TestDatabase database;
        load_household(database.db(), household_, some_day);
        QCOMPARE(database.number("SELECT COUNT(*) FROM items_1"), static_cast<int>(household_.items.size()));
        QCOMPARE(database.number("SELECT MAX(key_id) FROM items_1"), static_cast<int>(household_.items.size()));
        QCOMPARE(database.number("SELECT COUNT(*) FROM groc_1"), 133);
        QCOMPARE(database.number("SELECT COUNT(*) FROM cat"), 16);
        QCOMPARE(database.number("SELECT COUNT(*) FROM items_1 WHERE cat NOT IN (SELECT key_id FROM cat)"), 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM recipe_1"), static_cast<int>(household_.recipes.size()));
        QCOMPARE(database.number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 1);
        QCOMPARE(database.number("SELECT active FROM list_name WHERE key_id = 1"), 1);
        QCOMPARE(broken_ties(database), 0);
        QCOMPARE(false_statuses(database), 0);
        QCOMPARE(database.number("SELECT COUNT(DISTINCT status) FROM items_1"), 4);
        QCOMPARE(database.number("SELECT COUNT(*) FROM groc_1 g JOIN tie t ON t.groc_id = g.key_id"
                                 " JOIN items_1 i ON i.key_id = t.item_id WHERE g.item <> i.item"),
                 0);
    }

    void loaded_links_point_to_stock_and_other_lines_to_minus_one()
    {
        TestDatabase database;
        load_household(database.db(), household_, some_day);
        QCOMPARE(database.number("SELECT COUNT(*) FROM recipe_2 WHERE item_ref <> -1"
                                 " AND item_ref NOT IN (SELECT key_id FROM items_1)"),
                 0);
        QVERIFY(database.number("SELECT COUNT(*) FROM recipe_2 WHERE item_ref = -1") > 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM recipe_2 WHERE qty = '' OR measure = '' OR comment = ''"),
                 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM recipe_2 WHERE r_ref NOT IN (SELECT key_id FROM recipe_1)"),
                 0);
    }

    void small_household_is_written_field_by_field()
    {
        TestDatabase database;
        load_household(database.db(), SmallFolder().read(), some_day);
        QCOMPARE(database.text("SELECT group_concat(key_id || cat_desc || expand) FROM cat"),
                 u"0OTHER0,1Fruit1,2Bakery0"_s);
        QCOMPARE(
            database.text("SELECT group_concat(key_id||'/'||item||'/'||cat||'/'||status||'/'||to_get||'/'||qty||'/'"
                          "||\"desc\"||'/'||modified||'/'||created) FROM items_1"),
            u"1/Plums/1/8/1/0/ /2024-02-20/2024-02-20,2/Pears/1/6/0/0/ /2024-02-20/2024-02-20,"
            "3/String/0/6/0/0/ /2024-02-20/2024-02-20"_s);
        QCOMPARE(
            database.text(
                "SELECT group_concat(key_id||'/'||item||'/'||\"desc\"||'/'||qty||'/'||aisle||'/'||to_get||"
                "'/'||cpn||'/'||created||'/'||modified||'/'||list||'/'||item_id) FROM groc_1"
                " WHERE key_id < 3"),
            u"1/Plums/ripe/2 lb/3/1/1/2024-03-05/2024-02-20/0/0,2/String/ / / /0/0/2024-02-20/2024-02-20/0/0"_s);
        QCOMPARE(database.text("SELECT group_concat(key_id||'/'||groc_id||'/'||item_id||'/'||list) FROM tie"),
                 u"1/1/1/1,2/2/3/1,3/3/1/2,4/4/2/2"_s);
        QCOMPARE(
            database.text("SELECT group_concat(key_id||'/'||list_name||'/'||active||'/'||modified) FROM list_name"),
            u"1/First/1/2024-02-20,2/Second/0/2024-02-20"_s);
        QCOMPARE(database.text("SELECT key_id||'/'||r_name||'/'||r_body||'/'||cat||'/'||typeof(cat) FROM recipe_1"),
                 u"1/Compote/Stew them.\n\nServe./13/text"_s);
        QCOMPARE(database.text(
                     "SELECT group_concat(key_id||'/'||r_ref||'/'||item_ref||'/'||item||'/'||qty||'/'||measure||"
                     "'/'||comment||'/'||\"order\") FROM recipe_2"),
                 u"1/1/1/ripe plums/1/3/cup/pitted/0,2/1/-1/water/2/tbs/ /1"_s);
    }

    void existing_other_category_is_kept()
    {
        TestDatabase database;
        database.db().exec("INSERT INTO cat (key_id, cat_desc, expand) VALUES (0, 'OTHER', 1)");
        load_household(database.db(), SmallFolder().read(), some_day);
        QCOMPARE(database.number("SELECT COUNT(*) FROM cat"), 3);
        QCOMPARE(database.number("SELECT expand FROM cat WHERE key_id = 0"), 1);
    }

    void database_in_use_is_refused_and_left_untouched_data()
    {
        QTest::addColumn<QString>("record");
        QTest::newRow("item") << "INSERT INTO items_1 (key_id, item) VALUES (7, 'Mine')";
        QTest::newRow("list") << "INSERT INTO list_name (key_id, list_name) VALUES (7, 'Mine')";
        QTest::newRow("recipe") << "INSERT INTO recipe_1 (key_id, r_name) VALUES (7, 'Mine')";
        QTest::newRow("user category") << "INSERT INTO cat (key_id, cat_desc) VALUES (7, 'Mine')";
    }

    void database_in_use_is_refused_and_left_untouched()
    {
        QFETCH(QString, record);
        TestDatabase database;
        database.db().exec(record.toStdString());
        const int changes = database.db().getTotalChanges();
        QString message;
        try {
            load_household(database.db(), household_, some_day);
        } catch (const std::runtime_error& error) {
            message = QString::fromUtf8(error.what());
        }
        QVERIFY2(message.contains(u"already holds"_s), qPrintable(message));
        QCOMPARE(database.db().getTotalChanges(), changes);
    }

    void failed_load_leaves_nothing_behind()
    {
        TestDatabase database;
        database.db().exec(
            "CREATE TRIGGER stop BEFORE INSERT ON recipe_2 BEGIN SELECT RAISE(ABORT, 'no room'); END");
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, load_household(database.db(), household_, some_day));
        QCOMPARE(database.number("SELECT COUNT(*) FROM items_1"), 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM cat"), 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM groc_1"), 0);
    }

    void reader_error_names_file_and_line_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char* tag, const char* name, const QByteArray& content, const char* complaint) {
            QTest::newRow(tag) << QString::fromUtf8(name) << content << QString::fromUtf8(complaint);
        };
        row("category twice", "categories.txt", "Fruit\n\nBakery\nFRUIT\n", "4: name is there already: FRUIT");
        row("category OTHER", "categories.txt", "Fruit\nOther\n", "2: OTHER is always there");
        row("bad mark", "categories.txt", "Fruit | open\n", "1: expected \"expanded\"");
        row("apostrophe", "items.txt", "[Fruit]\nPlums\nBaker's apples\n", "3: name holds an apostrophe");
        row("item twice", "items.txt", "[Fruit]\nÉclair\n[Bakery]\néclair\n", "4: name is there already");
        row("unknown category", "items.txt", "# one\n[Tools]\n", "2: unknown category: Tools");
        row("no category", "items.txt", "Plums\n", "1: item stands before");
        row("open bracket", "items.txt", "[Fruit\n", "1: heading has no closing bracket");
        row("no UTF-8", "items.txt", "[Fruit]\nPlums\nCr\xe8me\n", "3: is not UTF-8 text");
        row("cut short", "items.txt", "[Fruit]\nPlums\nCr\xe8\n", "3: is not UTF-8 text");
        row("unknown item", "lists.txt", "[First]\nPlums\nNails | 3\n", "3: unknown item: Nails");
        row("too many fields", "lists.txt", "[First]\nPlums|1|2|3|buy|1|x\n", "2: has 7 fields, at most 6");
        row("bad buy mark", "lists.txt", "[First]\nPlums|1|2|3|maybe\n", "2: expected \"buy\"");
        row("bad coupon", "lists.txt", "[First]\nPlums|1|2|3|buy|soon\n",
            "2: coupon is not a number of days: soon");
        row("row without list", "lists.txt", "\nPlums\n", "2: row stands before");
        row("recipe category", "recipes.txt", "[Compote | drinks]\n", "1: unknown recipe category: drinks");
        row("line without recipe", "recipes.txt", "2 | cup | Plums\n", "1: line stands before");
        row("nameless line", "recipes.txt", "[Compote | others]\n2 | cup |\n", "2: name is missing");
        row("long measure", "recipes.txt", "[Compote | others]\n2 | twenty-one characters | water\n",
            "2: measure is longer");
        row("unknown stock", "recipes.txt", "[Compote | others]\n2 | cup | water | | Water\n",
            "2: unknown item: Water");
        row("stock not linked", "recipes.txt", "[Compote | others]\n2 | cup | plums\n", "2: is a stock item");
        row("no method", "recipes.txt", "[A | others]\n1 | cup | water\n[B | others]\n", "3: recipe ends without");
    }

    void reader_error_names_file_and_line()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, complaint);
        const SmallFolder folder;
        QCOMPARE(folder.error(), QString());
        folder.write(name, content);
        const QString error = folder.error();
        QVERIFY2(error.startsWith(folder.path(name) + u':' + complaint), qPrintable(error));
    }

    void missing_file_is_an_error()
    {
        const SmallFolder folder;
        QVERIFY(QFile::remove(folder.path(u"lists.txt"_s)));
        QVERIFY2(folder.error().startsWith(folder.path(u"lists.txt"_s) + u":0: cannot be read"_s),
                 qPrintable(folder.error()));
    }

    void large_catalogue_has_the_asked_counts_data()
    {
        QTest::addColumn<int>("items");
        QTest::addColumn<int>("categories");
        QTest::addColumn<int>("lists");
        QTest::addColumn<int>("rows_per_list");
        QTest::newRow("largest tree") << 9999 << 200 << 5 << 1000;
        QTest::newRow("largest keys") << 32767 << 32767 << 7 << 4681;
        QTest::newRow("more rows than items") << 10 << 3 << 2 << 25;
        QTest::newRow("no categories, no rows") << 50 << 0 << 3 << 0;
        QTest::newRow("nothing") << 0 << 0 << 0 << 0;
    }

    void large_catalogue_has_the_asked_counts()
    {
        QFETCH(int, items);
        QFETCH(int, categories);
        QFETCH(int, lists);
        QFETCH(int, rows_per_list);
        TestDatabase database;
        make_large_catalogue(database.db(), items, categories, lists, rows_per_list, some_day);
        QCOMPARE(database.number("SELECT COUNT(DISTINCT lower(item)) FROM items_1"), items);
        QCOMPARE(database.number("SELECT COUNT(DISTINCT lower(cat_desc)) FROM cat WHERE key_id > 0"), categories);
        QCOMPARE(database.number("SELECT COUNT(DISTINCT lower(list_name)) FROM list_name"), lists);
        QCOMPARE(database.number("SELECT COUNT(*) FROM groc_1"), lists * rows_per_list);
        QCOMPARE(database.number("SELECT COUNT(*) FROM (SELECT list FROM tie GROUP BY list HAVING COUNT(*) <> "
                                 "(SELECT COUNT(*) FROM tie) / (SELECT COUNT(*) FROM list_name))"),
                 0);
        QCOMPARE(database.number(
                     "SELECT COALESCE(MAX(n) - MIN(n), 0) > 1 FROM (SELECT COUNT(*) n FROM items_1 GROUP BY cat)"),
                 0);
        QCOMPARE(database.number("SELECT COUNT(*) FROM items_1 WHERE instr(item, '''') > 0"), 0);
        QCOMPARE(broken_ties(database), 0);
    }

    void large_catalogue_statuses_are_true_and_its_rows_spread()
    {
        TestDatabase database;
        make_large_catalogue(database.db(), 600, 20, 4, 90, some_day);
        QCOMPARE(false_statuses(database), 0);
        QCOMPARE(database.number(
                     "SELECT COUNT(*) FROM (SELECT list, item_id FROM tie GROUP BY 1, 2 HAVING COUNT(*) > 1)"),
                 0);
        QCOMPARE(database.number("SELECT COUNT(DISTINCT (item_id - 1) / 60) FROM tie WHERE list = 1"), 10);
    }

    void large_catalogue_is_the_same_each_time()
    {
        const auto content = [] {
            TestDatabase database;
            make_large_catalogue(database.db(), 300, 12, 3, 40, some_day);
            return database.text("SELECT group_concat(item || cat || status || to_get) FROM items_1")
                + database.text(
                    "SELECT group_concat(item || qty || \"desc\" || aisle || to_get || created) FROM groc_1");
        };
        QCOMPARE(content(), content());
    }

    void large_catalogue_refuses_what_no_table_can_hold()
    {
        TestDatabase database;
        const auto make = [&](int items, int categories, int lists, int rows) {
            make_large_catalogue(database.db(), items, categories, lists, rows, some_day);
        };
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, make(-1, 1, 1, 1));
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, make(32768, 1, 1, 1));
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, make(10, 1, 8, 4096));
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, make(0, 1, 1, 1));
        QCOMPARE(database.number("SELECT COUNT(*) FROM cat"), 0);
    }

private:
    Household household_;
};

QTEST_GUILESS_MAIN(tst_household)
#include "tst_household.moc"
