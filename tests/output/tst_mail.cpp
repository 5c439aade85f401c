#include "data/query.h"
#include "household/mail.h"
#include "support/test_window.h"

#include <QTest>

#include <memory>

using namespace tarnwick;

namespace {

const QDate today(2026, 3, 14);
const QString blank = QStringLiteral(" ");

/// What a mail program reads from an address: each value percent-decoded once.
QString value_in(const QUrl& url, const QByteArray& key)
{
    const QByteArray query = url.toEncoded().mid(qsizetype(sizeof "mailto:?") - 1);
    for (const QByteArray& pair : query.split('&')) {
        if (pair.startsWith(key + '='))
            return QString::fromUtf8(QByteArray::fromPercentEncoding(pair.mid(key.size() + 1)));
    }
    return QStringLiteral("(none)");
}

} // namespace

class tst_mail : public QObject {
    Q_OBJECT
private slots:
    void init() { window_ = std::make_unique<TestWindow>(); }

    void pad_text_fills_up_or_cuts_data();
    void pad_text_fills_up_or_cuts();
    void an_item_name_of_26_characters_is_cut_at_25();
    void a_recipe_is_written_letter_by_letter();
    void a_list_is_written_letter_by_letter();
    void a_coupon_whose_date_is_yesterday_shows_brackets();
    void null_fields_count_as_empty();
    void the_address_has_no_recipient_and_two_values();
    void blanks_line_ends_and_signs_are_percent_encoded();
    void any_text_arrives_as_it_stands_data();
    void any_text_arrives_as_it_stands();

private:
    std::unique_ptr<TestWindow> window_;
};

void tst_mail::pad_text_fills_up_or_cuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("padded");
    QTest::newRow("empty") << QString() << 3 << QStringLiteral("   ");
    QTest::newRow("shorter") << QStringLiteral("ab") << 3 << QStringLiteral("ab ");
    QTest::newRow("just as wide") << QStringLiteral("abc") << 3 << QStringLiteral("abc");
    QTest::newRow("longer") << QStringLiteral("abcd") << 3 << QStringLiteral("abc");
    QTest::newRow("no half of an emoji") << QStringLiteral("ab🍎c") << 3 << QStringLiteral("ab ");
    QTest::newRow("a whole emoji") << QStringLiteral("a🍎c") << 3 << QStringLiteral("a🍎");
}

void tst_mail::pad_text_fills_up_or_cuts()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(QString, padded);
    QCOMPARE(pad_text(text, width), padded);
}

void tst_mail::an_item_name_of_26_characters_is_cut_at_25()
{
    const QString name = QStringLiteral("Abcdefghijklmnopqrstuvwxyz");
    QCOMPARE(name.size(), 26);
    const Mail mail = list_mail({QStringLiteral("L"), {{name, blank, blank, blank, false, {}}}}, today);
    QVERIFY(mail.body.contains(QStringLiteral("\r\nAbcdefghijklmnopqrstuvwxy   ")));
    QVERIFY(!mail.body.contains(u'z'));
}

void tst_mail::a_recipe_is_written_letter_by_letter()
{
    const Mail mail = recipe_mail({QStringLiteral(" Soup "),
                                   {QStringLiteral(" 2 onions"), QStringLiteral("salt ")},
                                   QStringLiteral(" Chop.\r\nStir. ")});
    QCOMPARE(mail.subject, QStringLiteral("Soup"));
    QCOMPARE(mail.body, QStringLiteral("Soup\r\n\r\n2 onions\r\nsalt\r\n\r\nChop.\r\nStir."));
}

void tst_mail::a_list_is_written_letter_by_letter()
{
    ListSheet list{QStringLiteral("Weekly"), {}};
    list.rows.push_back(
        {QStringLiteral("Milk"), QStringLiteral("fresh"), QStringLiteral("2"), QStringLiteral("7"), true, today});
    list.rows.push_back({QStringLiteral("Oats"), blank, blank, blank, false, today.addDays(-1)});
    const Mail mail = list_mail(list, today);
    QCOMPARE(mail.subject, QStringLiteral("Weekly list"));
    QCOMPARE(mail.body,
             QStringLiteral("Weekly list\r\n\r\n"
                            "Item                       Description                     Qty  Aisle     Cpn\r\n\r\n"
                            "Milk                       fresh                      2         7         CPN\r\n"
                            "Oats                                                                              "
                            "\r\n"));
}

void tst_mail::a_coupon_whose_date_is_yesterday_shows_brackets()
{
    const auto last_word = [](bool coupon, QDate created) {
        const ListSheet list{QStringLiteral("L"), {{QStringLiteral("Milk"), blank, blank, blank, coupon, created}}};
        return list_mail(list, today).body.section(QStringLiteral("  "), -1).chopped(2);
    };
    QCOMPARE(last_word(true, today.addDays(-1)), QStringLiteral("[CPN]"));
    QCOMPARE(last_word(true, today), QStringLiteral("CPN"));
    QCOMPARE(last_word(true, today.addDays(1)), QStringLiteral("CPN"));
    QCOMPARE(last_word(true, QDate()), QStringLiteral("CPN"));
    QCOMPARE(last_word(false, today.addDays(-1)), QString());
}

void tst_mail::null_fields_count_as_empty()
{
    const Key list = window_->add_list(QStringLiteral("Weekly"));
    const Key row = window_->add_row(window_->add_item(QStringLiteral("Milk"), 0), list, true);
    Query(window_->db(),
          "UPDATE groc_1 SET item = NULL, desc = NULL, qty = NULL, aisle = NULL, cpn = NULL WHERE key_id = ?", row)
        .run();
    const Mail mail = list_mail(read_list_sheet(window_->db(), list, false), today);
    QVERIFY(mail.body.endsWith(QStringLiteral("\r\n\r\n") + QString(25 + 2 + 25 + 2 + 8 + 2 + 8 + 2 + 8, u' ')
                               + QStringLiteral("\r\n")));
}

void tst_mail::the_address_has_no_recipient_and_two_values()
{
    const QUrl url = Mail{QStringLiteral("Soup"), QStringLiteral("Stir.")}.url();
    QVERIFY(url.isValid());
    QCOMPARE(url.toEncoded(), QByteArray("mailto:?subject=Soup&body=Stir."));
}

void tst_mail::blanks_line_ends_and_signs_are_percent_encoded()
{
    const Mail mail{QStringLiteral("a b"), QStringLiteral("50% & 'x' = #1?\r\nü+\"")};
    QCOMPARE(mail.url().toEncoded(),
             QByteArray("mailto:?subject=a%20b&body=50%25%20%26%20%27x%27%20%3D%20%231%3F%0D%0A%C3%BC%2B%22"));
}

void tst_mail::any_text_arrives_as_it_stands_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("signs of an address") << QStringLiteral("a&b=c?d#e+f%20g%zz;h/i:j@k");
    QTest::newRow("braces and backslashes") << QStringLiteral("{x} \\par [y] <z> `w` |v| ^u~");
    QTest::newRow("accents, euro, emoji, other scripts") << QStringLiteral("éß€ 🍮 щи 豆腐");
    QTest::newRow("line ends and tabs") << QStringLiteral("a\r\n\r\nb\tc");
    QTest::newRow("30,000 characters") << QString(30000, u'x');
}

void tst_mail::any_text_arrives_as_it_stands()
{
    QFETCH(QString, text);
    const QUrl url = Mail{text, text}.url();
    QVERIFY(url.isValid());
    QVERIFY(url.toEncoded().startsWith("mailto:?"));
    QCOMPARE(value_in(url, "subject"), text);
    QCOMPARE(value_in(url, "body"), text);
}

QTEST_MAIN(tst_mail)
#include "tst_mail.moc"
