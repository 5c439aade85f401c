#include "data/runtime_error.h"
#include "data/text.h"
#include "support/error_number.h"

#include <QTest>

using namespace tarnwick;

class tst_text : public QObject {
    Q_OBJECT
private slots:
    void trim_takes_the_blank_alone();
    void a_one_line_text_has_blanks_for_line_ends_and_control_characters_data();
    void a_one_line_text_has_blanks_for_line_ends_and_control_characters();
    void val_reads_the_leading_number_data();
    void val_reads_the_leading_number();
    void to_int16_rounds_half_to_even();
    void to_int16_overflows_past_16_bits();
    void key_str_gives_four_digits();
    void key_str_of_10000_is_empty_and_of_minus_1_too();
    void a_name_with_two_apostrophes_loses_both();
    void the_stripper_leaves_other_quotes();
    void a_text_of_only_a_blank_counts_as_empty_when_trimmed();
};

void tst_text::trim_takes_the_blank_alone()
{
    QCOMPARE(trim(QStringLiteral("  milk  ")), QStringLiteral("milk"));
    QCOMPARE(trim(QStringLiteral("\tmilk\n")), QStringLiteral("\tmilk\n"));
    QCOMPARE(trim(QStringLiteral(" \t ")), QStringLiteral("\t"));
    QCOMPARE(trim(QStringLiteral("\u00a0milk\u00a0")), QStringLiteral("\u00a0milk\u00a0"));
    QCOMPARE(trim(QStringLiteral("oat milk")), QStringLiteral("oat milk"));
    QCOMPARE(trim(QString()), QString());
    QCOMPARE(trim(QStringLiteral("    ")), QString());
}

void tst_text::a_one_line_text_has_blanks_for_line_ends_and_control_characters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    const auto row
        = [](const char* name, const QString& text, const QString& line) { QTest::newRow(name) << text << line; };
    row("plain", QStringLiteral("oat  milk "), QStringLiteral("oat  milk "));
    row("empty", QString(), QString());
    row("line feed", QStringLiteral("oat\nmilk"), QStringLiteral("oat milk"));
    row("carriage return", QStringLiteral("oat\rmilk"), QStringLiteral("oat milk"));
    row("both are one end", QStringLiteral("oat\r\nmilk"), QStringLiteral("oat milk"));
    row("two ends", QStringLiteral("oat\n\rmilk"), QStringLiteral("oat  milk"));
    row("tab", QStringLiteral("oat\tmilk"), QStringLiteral("oat milk"));
    row("NUL", QStringLiteral("oat%1milk").arg(QChar(0)), QStringLiteral("oat milk"));
    row("delete and next line", QStringLiteral("oat\u007fand\u0085milk"), QStringLiteral("oat and milk"));
    row("separators", QStringLiteral("oat\u2028and\u2029milk"), QStringLiteral("oat and milk"));
    row("mark at the start", QStringLiteral("\ufeffmilk"), QStringLiteral("milk"));
    row("marks at the start", QStringLiteral("\ufeff\ufeffmilk"), QStringLiteral("milk"));
    row("mark within", QStringLiteral("oat\ufeffmilk"), QStringLiteral("oat\ufeffmilk"));
    row("mark alone", QStringLiteral("\ufeff"), QString());
    row("other alphabets", QStringLiteral("crème 🍎 молоко"), QStringLiteral("crème 🍎 молоко"));
}

void tst_text::a_one_line_text_has_blanks_for_line_ends_and_control_characters()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(one_line(text), line);
    QCOMPARE(one_line(line), line);
}

void tst_text::val_reads_the_leading_number_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("whole") << QStringLiteral("12") << 12.0;
    QTest::newRow("no number") << QStringLiteral("abc") << 0.0;
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("number then letters") << QStringLiteral("9pt") << 9.0;
    QTest::newRow("letters then number") << QStringLiteral("pt9") << 0.0;
    QTest::newRow("blanks within") << QStringLiteral(" 1 2 3 ") << 123.0;
    QTest::newRow("negative") << QStringLiteral("-1") << -1.0;
    QTest::newRow("sign alone") << QStringLiteral("-") << 0.0;
    QTest::newRow("two signs") << QStringLiteral("--1") << 0.0;
    QTest::newRow("decimals") << QStringLiteral("1.50 lb") << 1.5;
    QTest::newRow("point first") << QStringLiteral(".5") << 0.5;
    QTest::newRow("second point ends it") << QStringLiteral("1.2.3") << 1.2;
    QTest::newRow("comma ends it") << QStringLiteral("1,5") << 1.0;
    QTest::newRow("exponent") << QStringLiteral("1e3") << 1000.0;
    QTest::newRow("exponent without digits") << QStringLiteral("7e") << 7.0;
    QTest::newRow("fraction ends it") << QStringLiteral("1/3") << 1.0;
}

void tst_text::val_reads_the_leading_number()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(val(text), number);
}

void tst_text::to_int16_rounds_half_to_even()
{
    QCOMPARE(to_int16(0.5), Key{0});
    QCOMPARE(to_int16(1.5), Key{2});
    QCOMPARE(to_int16(2.5), Key{2});
    QCOMPARE(to_int16(-0.5), Key{0});
    QCOMPARE(to_int16(-1.5), Key{-2});
    QCOMPARE(to_int16(QStringLiteral("3.5")), Key{4});
}

void tst_text::to_int16_overflows_past_16_bits()
{
    QCOMPARE(to_int16(32767.0), Key{32767});
    QCOMPARE(to_int16(-32768.0), Key{-32768});
    QCOMPARE(error_number([] { to_int16(32768.0); }), int(runtime_error::overflow));
    QCOMPARE(error_number([] { to_int16(-32769.0); }), int(runtime_error::overflow));
    QCOMPARE(error_number([] { to_int16(QStringLiteral("99999")); }), int(runtime_error::overflow));
    QCOMPARE(error_number([] { to_int16(QStringLiteral("1e999")); }), int(runtime_error::overflow));
    QCOMPARE(to_int16(32767.4), Key{32767});
    QCOMPARE(error_number([] { to_int16(32767.5); }), int(runtime_error::overflow));
}

void tst_text::key_str_gives_four_digits()
{
    QCOMPARE(key_str(0), QStringLiteral("0000"));
    QCOMPARE(key_str(1), QStringLiteral("0001"));
    QCOMPARE(key_str(9), QStringLiteral("0009"));
    QCOMPARE(key_str(10), QStringLiteral("0010"));
    QCOMPARE(key_str(99), QStringLiteral("0099"));
    QCOMPARE(key_str(100), QStringLiteral("0100"));
    QCOMPARE(key_str(999), QStringLiteral("0999"));
    QCOMPARE(key_str(1000), QStringLiteral("1000"));
    QCOMPARE(key_str(9999), QStringLiteral("9999"));
}

void tst_text::key_str_of_10000_is_empty_and_of_minus_1_too()
{
    QCOMPARE(key_str(10000), QString());
    QCOMPARE(key_str(32767), QString());
    QCOMPARE(key_str(-1), QString());
}

void tst_text::a_name_with_two_apostrophes_loses_both()
{
    QString name = QStringLiteral("Grocer's 'choice");
    const QString result = strip_apostrophes(name);
    QCOMPARE(result, QStringLiteral("Grocers choice"));
    QCOMPARE(name, result);
}

void tst_text::the_stripper_leaves_other_quotes()
{
    QString name = QStringLiteral("\"a\" `b` \u2019c");
    strip_apostrophes(name);
    QCOMPARE(name, QStringLiteral("\"a\" `b` \u2019c"));
}

void tst_text::a_text_of_only_a_blank_counts_as_empty_when_trimmed()
{
    QCOMPARE(or_blank(QString()), QStringLiteral(" "));
    QCOMPARE(or_blank(QStringLiteral("two")), QStringLiteral("two"));
    QVERIFY(trim(or_blank(QString())).isEmpty());
}

QTEST_MAIN(tst_text)
#include "tst_text.moc"
