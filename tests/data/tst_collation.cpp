#include "data/collation.h"
#include "data/connection.h"
#include "data/query.h"
#include "data/schema.h"

#include <QCollator>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace tarnwick;

namespace {

int sign(int number)
{
    return number < 0 ? -1 : number > 0 ? 1 : 0;
}

} // namespace

class tst_collation : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();

    void accented_and_capital_names_sort_together();
    void equality_ignores_case_but_not_accents();
    void the_screen_and_the_queries_sort_alike();
    void plain_texts_compare_as_the_collator_does();
    void mixed_texts_compare_as_the_collator_does();
    void keys_of_names_compare_as_the_names_do();
    void percent_and_underscore_are_patterns_data();
    void percent_and_underscore_are_patterns();
    void like_with_an_escape_takes_signs_literally();
    void like_with_null_is_null();
    void a_long_pattern_of_percents_ends_soon();

private:
    void add(const QStringList& names);
    QStringList select(std::string_view sql);
    bool sql_like(const QString& text, const QString& pattern);

    QTemporaryDir folder_;
    Connection connection_;
};

void tst_collation::initTestCase()
{
    const QString path = folder_.filePath(QStringLiteral("groc.mdb"));
    QVERIFY(make_database(path));
    connection_.open(path);
}

void tst_collation::cleanup()
{
    Query(connection_, "DELETE FROM items_1").run();
}

void tst_collation::add(const QStringList& names)
{
    int key = 0;
    for (const QString& name : names)
        Query(connection_, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", ++key, name).run();
}

QStringList tst_collation::select(std::string_view sql)
{
    Query query(connection_, sql);
    QStringList rows;
    while (query.next())
        rows << query.text(0);
    return rows;
}

bool tst_collation::sql_like(const QString& text, const QString& pattern)
{
    Query query(connection_, "SELECT ? LIKE ?", text, pattern);
    return query.next() && query.flag(0);
}

void tst_collation::accented_and_capital_names_sort_together()
{
    add({QStringLiteral("zebra"), QStringLiteral("éclair"), QStringLiteral("apple"), QStringLiteral("ÉCLAIR"),
         QStringLiteral("eclair"), QStringLiteral("fig"), QStringLiteral("Ecru")});
    const QStringList sorted = select("SELECT item FROM items_1 ORDER BY item, key_id");
    QCOMPARE(sorted,
             (QStringList{QStringLiteral("apple"), QStringLiteral("eclair"), QStringLiteral("éclair"),
                          QStringLiteral("ÉCLAIR"), QStringLiteral("Ecru"), QStringLiteral("fig"),
                          QStringLiteral("zebra")}));
}

void tst_collation::equality_ignores_case_but_not_accents()
{
    add({QStringLiteral("éclair")});
    QCOMPARE(select("SELECT item FROM items_1 WHERE item = 'ÉCLAIR'").size(), 1);
    QCOMPARE(select("SELECT item FROM items_1 WHERE item = 'Éclair'").size(), 1);
    QCOMPARE(select("SELECT item FROM items_1 WHERE item = 'eclair'").size(), 0);
    QCOMPARE(compare_names(u"MILK", u"milk"), 0);
    QCOMPARE(compare_names(u"ÅL", u"ål"), 0);
    QVERIFY(compare_names(u"milk", u"milks") < 0);
}

void tst_collation::the_screen_and_the_queries_sort_alike()
{
    QStringList names = {QStringLiteral("Tea (green)"),
                         QStringLiteral("tea"),
                         QStringLiteral("Tea-bags"),
                         QStringLiteral("öl"),
                         QStringLiteral("oil"),
                         QStringLiteral("7up"),
                         QStringLiteral("70 %"),
                         QStringLiteral("🍎 apple"),
                         QStringLiteral("apple 🍎"),
                         QStringLiteral(" leading blank"),
                         QStringLiteral("Ωmega"),
                         QStringLiteral("日本茶"),
                         QString()};
    add(names);
    std::stable_sort(names.begin(), names.end(),
                     [](const QString& left, const QString& right) { return compare_names(left, right) < 0; });
    QCOMPARE(select("SELECT item FROM items_1 ORDER BY item, key_id"), names);
}

void tst_collation::plain_texts_compare_as_the_collator_does()
{
    QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    QRandomGenerator random(20260314);
    const auto text = [&random] {
        QString result;
        for (int length = random.bounded(8); length > 0; --length)
            result += QChar(0x20 + random.bounded(0x5f));
        return result;
    };
    int equal = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString left = text();
        // Half of the pairs share a beginning and differ in case, where a mistake would hide.
        const QString right = i % 2 == 0 ? text() : left.toUpper() + text().left(random.bounded(2));
        const int expected = sign(collator.compare(left, right));
        QVERIFY2(sign(compare_names(left, right)) == expected, qPrintable(left + QStringLiteral(" | ") + right));
        equal += expected == 0 ? 1 : 0;
    }
    QVERIFY(equal > 100);
}

void tst_collation::mixed_texts_compare_as_the_collator_does()
{
    QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const QString alphabet = QStringLiteral("aAbé É-'\u0301ß\tñ");
    QRandomGenerator random(7);
    const auto text = [&] {
        QString result;
        for (int length = random.bounded(6); length > 0; --length)
            result += alphabet[random.bounded(static_cast<int>(alphabet.size()))];
        return result;
    };
    for (int i = 0; i < 5000; ++i) {
        const QString left = text();
        const QString right = text();
        QVERIFY2(sign(compare_names(left, right)) == sign(collator.compare(left, right)),
                 qPrintable(left + QStringLiteral(" | ") + right));
        Query query(connection_, "SELECT (?1 < ?2 COLLATE NOCASE) - (?1 > ?2 COLLATE NOCASE)", left, right);
        QVERIFY(query.next());
        QCOMPARE(query.number(0), -sign(compare_names(left, right)));
    }
}

void tst_collation::keys_of_names_compare_as_the_names_do()
{
    const QString beginning = QStringLiteral("Whole Grain Mustard, hot");
    QCOMPARE(beginning.size(), 24); // as much as a key holds
    const QString alphabet = QStringLiteral("aAbB -é");
    QRandomGenerator random(11);
    const auto text = [&] {
        QString result = random.bounded(2) == 0 ? beginning.left(20 + random.bounded(5)) : QString();
        for (int length = random.bounded(6); length > 0; --length)
            result += alphabet[random.bounded(static_cast<int>(alphabet.size()))];
        return random.bounded(2) == 0 ? result : result.toUpper();
    };
    int different = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString left = text();
        const QString right = text();
        const bool below = compare_names(left, right) < 0;
        QVERIFY2((NameKey(left) < NameKey(right)) == below, qPrintable(left + QStringLiteral(" | ") + right));
        QCOMPARE(NameKey(left).name(), left);
        different += below ? 1 : 0;
    }
    QVERIFY(different > 5000);
}

void tst_collation::percent_and_underscore_are_patterns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("match");
    const auto row = [](const char* name, const QString& text, const QString& pattern, bool match) {
        QTest::newRow(name) << text << pattern << match;
    };
    row("same", QStringLiteral("Milk"), QStringLiteral("milk"), true);
    row("other", QStringLiteral("Milk"), QStringLiteral("silk"), false);
    row("part is no match", QStringLiteral("Milk"), QStringLiteral("mil"), false);
    row("percent at the end", QStringLiteral("Milk"), QStringLiteral("mi%"), true);
    row("percent at the start", QStringLiteral("oat milk"), QStringLiteral("%MILK"), true);
    row("percent for nothing", QStringLiteral("milk"), QStringLiteral("%m%ilk%"), true);
    row("percent alone", QString(), QStringLiteral("%"), true);
    row("100% as a pattern", QStringLiteral("100 grams"), QStringLiteral("100%"), true);
    row("underscore", QStringLiteral("milk"), QStringLiteral("m_lk"), true);
    row("underscore needs one", QStringLiteral("mlk"), QStringLiteral("m_lk"), false);
    row("underscore takes one alone", QStringLiteral("miilk"), QStringLiteral("m_lk"), false);
    row("coming back", QStringLiteral("mississippi"), QStringLiteral("%iss%ip_i"), true);
    row("coming back in vain", QStringLiteral("mississippi"), QStringLiteral("%iss%ip_o"), false);
    row("accents and case", QStringLiteral("ÉCLAIR"), QStringLiteral("écl%"), true);
    row("accent is no e", QStringLiteral("éclair"), QStringLiteral("eclair"), false);
    row("emoji is one character", QStringLiteral("a🍎b"), QStringLiteral("a_b"), true);
    row("emoji is not two", QStringLiteral("a🍎b"), QStringLiteral("a__b"), false);
    row("emoji in a pattern", QStringLiteral("red 🍎"), QStringLiteral("%🍎"), true);
    row("apostrophe", QStringLiteral("baker's"), QStringLiteral("baker's"), true);
    row("backslash is a character", QStringLiteral("a\\b"), QStringLiteral("a\\b"), true);
    row("empty and empty", QString(), QString(), true);
    row("empty and underscore", QString(), QStringLiteral("_"), false);
}

void tst_collation::percent_and_underscore_are_patterns()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(bool, match);
    QCOMPARE(like(text, pattern), match);
    QCOMPARE(sql_like(text, pattern), match);
}

void tst_collation::like_with_an_escape_takes_signs_literally()
{
    Query query(connection_, "SELECT '100%' LIKE '100!%' ESCAPE '!', '100 g' LIKE '100!%' ESCAPE '!'");
    QVERIFY(query.next());
    QVERIFY(query.flag(0));
    QVERIFY(!query.flag(1));
}

void tst_collation::like_with_null_is_null()
{
    Query query(connection_, "SELECT NULL LIKE 'a', 'a' LIKE NULL");
    QVERIFY(query.next());
    QVERIFY(query.is_null(0));
    QVERIFY(query.is_null(1));
}

void tst_collation::a_long_pattern_of_percents_ends_soon()
{
    const QString text(20000, u'a');
    QString pattern;
    for (int i = 0; i < 40; ++i)
        pattern += QStringLiteral("%a");
    // An engine that tries every way to share out the letters would never end.
    QVERIFY(!like(text, pattern + QStringLiteral("%b")));
    QVERIFY(like(text, pattern));
}

QTEST_MAIN(tst_collation)
#include "tst_collation.moc"
