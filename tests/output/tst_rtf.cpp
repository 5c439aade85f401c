#include "data/query.h"
#include "household/rtf.h"
#include "support/rtf_reader.h"
#include "support/test_window.h"

#include <QTest>

#include <memory>

using namespace tarnwick;

namespace {

const QByteArray header
    = R"({\rtf1\ansi\ansicpg1252\uc1 \deff0\deflang1033\deflangfe1033{\fonttbl{\f0\fswiss\fcharset0\fprq2{\*\panose 020b0604020202020204}Arial;}}{\stylesheet{\widctlpar\adjustright \fs20\cgrid \snext0 Normal;}{\*\cs10 \additive Default Paragraph Font;}{\s15\qc\widctlpar\adjustright \b\f0\fs20\cgrid\sbasedon0 \snext15 Title;}}{\info{\creatim\yr2002\mo1\dy20\hr20\min55}{\revtim\yr2002\mo1\dy20\hr21\min32}{\version1}{\edmins37}{\nofpages1}{\nofwords0}{\nofchars0}}\margl1440\margr1440 \widowctrl\ftnbj\aenddoc\formshade\viewkind4\viewscale92\viewzk2\pgbrdrhead\pgbrdrfoot \fet0\sectd \linex0\endnhere\sectdefaultcl \pard\plain \s15\qc\widctlpar\adjustright \b\f0\fs20\cgrid)"
      "\r";

const QDate today(2026, 3, 14);

/// A document of nothing but this text, in a group of the program's own header.
QString read_back(const QString& text)
{
    return read_rtf("{\\rtf1\\ansi\\ansicpg1252\\uc1 " + rtf_text(text) + "}").text();
}

} // namespace

class tst_rtf : public QObject {
    Q_OBJECT
private slots:
    void init() { window_ = std::make_unique<TestWindow>(); }

    void a_recipe_is_written_byte_for_byte();
    void a_recipe_without_lines_and_text_is_a_whole_document();
    void title_lines_and_body_are_trimmed_of_blanks();
    void the_body_is_cut_at_each_carriage_return_and_loses_the_line_feeds();
    void a_list_is_written_byte_for_byte();
    void a_null_field_is_one_blank();
    void no_file_has_a_line_feed();
    void every_character_reads_back_as_it_stands();
    void characters_of_code_page_1252_are_its_bytes_data();
    void characters_of_code_page_1252_are_its_bytes();
    void other_characters_are_signed_16_bit_numbers_data();
    void other_characters_are_signed_16_bit_numbers();
    void digits_and_blanks_after_an_escaped_character_stay();
    void names_full_of_signs_read_back_as_they_stand();
    void coupons_that_expired_before_today_including_yesterday_are_struck_through_data();
    void coupons_that_expired_before_today_including_yesterday_are_struck_through();
    void rows_of_all_lists_stand_in_one_table_and_the_same_item_once_for_each_list();
    void rows_of_one_list_stand_alone_by_name();
    void only_buy_it_rows_when_asked();

private:
    Connection& db() { return window_->db(); }

    std::unique_ptr<TestWindow> window_;
};

void tst_rtf::a_recipe_is_written_byte_for_byte()
{
    const RecipeSheet soup{QStringLiteral("Soup"),
                           {QStringLiteral("2 onions"), QStringLiteral("salt")},
                           QStringLiteral("Chop.\r\nStir.")};
    QCOMPARE(
        recipe_rtf(soup),
        header
            + "{\\fs24\\par Soup\r\\par }\\pard\\plain \\widctlpar\\adjustright \\fs20\\cgrid {\\f0\\fs24\\par }"
              "\\pard \\fi-360\\li1080\\ri1440\\widctlpar\\adjustright {\\f0\\fs24\\i "
              "2 onions\\par \rsalt\\par \r"
              "}\\pard\\plain \\widctlpar\\adjustright {\\f0\\fs24\\par Chop.\\par Stir.\\par \\par }}");
}

void tst_rtf::a_recipe_without_lines_and_text_is_a_whole_document()
{
    const RtfDocument document = read_rtf(recipe_rtf({QStringLiteral("Air"), {}, QString()}));
    QVERIFY(document.whole);
    QVERIFY(document.paragraphs.contains(QStringLiteral("Air")));
}

void tst_rtf::title_lines_and_body_are_trimmed_of_blanks()
{
    const RecipeSheet sheet{QStringLiteral("  Soup "), {QStringLiteral(" salt  ")}, QStringLiteral(" Stir.  ")};
    const RecipeSheet trimmed{QStringLiteral("Soup"), {QStringLiteral("salt")}, QStringLiteral("Stir.")};
    QCOMPARE(recipe_rtf(sheet), recipe_rtf(trimmed));
}

void tst_rtf::the_body_is_cut_at_each_carriage_return_and_loses_the_line_feeds()
{
    const RecipeSheet sheet{QStringLiteral("T"), {}, QStringLiteral("one\r\n\r\n two\rthree")};
    QVERIFY(recipe_rtf(sheet).endsWith("\\par one\\par \\par  two\\par three\\par \\par }}"));
}

void tst_rtf::a_list_is_written_byte_for_byte()
{
    ListSheet list{QStringLiteral("Weekly"), {}};
    const QString blank = QStringLiteral(" ");
    list.rows.push_back(
        {QStringLiteral("Milk"), QStringLiteral("fresh"), QStringLiteral("2"), QStringLiteral("7"), true, today});
    list.rows.push_back({QStringLiteral("Oats"), blank, blank, blank, false, today});
    list.rows.push_back({QStringLiteral("Tea"), blank, blank, blank, true, today.addDays(-1)});
    QCOMPARE(
        list_rtf(list, today),
        header
            + "{\\fs24\\par Weekly\\par }\\pard\\plain \\widctlpar\\adjustright \\fs20\\cgrid {\\f0\\fs24\\par }"
              "\\pard {\\f0\\fs24\\i \\par }\\pard \\ql \\li0\\ri0\\widctlpar\\tx3600\\tx6800\\tx7500\\tx8400"
              "\\aspalpha\\aspnum\\faauto\\adjustright\\rin0\\lin0\\itap0 "
              "{\\f1\\fs24\\i Ingredient\\tab Description\\tab Qty\\tab Aisle\\tab CPN\r\\par}{\\f1\\fs24\\par "
              "Milk\\tab fresh\\tab 2\\tab 7\\tab CPN\\par \r"
              "Oats\\tab  \\tab  \\tab  \\tab \\par \r"
              "Tea\\tab  \\tab  \\tab  \\tab {\\strike CPN}\\par \r"
              "\\par \r\\par }}");
}

void tst_rtf::a_null_field_is_one_blank()
{
    const Key list = window_->add_list(QStringLiteral("Weekly"));
    const Key row = window_->add_row(window_->add_item(QStringLiteral("Milk"), 0), list, true);
    Query(db(), "UPDATE groc_1 SET desc = NULL, qty = NULL, aisle = NULL, created = NULL, cpn = 1 WHERE key_id = ?",
          row)
        .run();
    QVERIFY(list_rtf(read_list_sheet(db(), list, false), today)
                .contains("\\par Milk\\tab  \\tab  \\tab  \\tab CPN\\par "));
}

void tst_rtf::no_file_has_a_line_feed()
{
    const QString text = QStringLiteral("a\r\nb\nc\rd");
    QVERIFY(!recipe_rtf({text, {text}, text}).contains('\n'));
    QVERIFY(!list_rtf({text, {{text, text, text, text, true, today}}}, today).contains('\n'));
    QCOMPARE(read_back(text), QStringLiteral("a\nb\nc\nd"));
}

void tst_rtf::every_character_reads_back_as_it_stands()
{
    for (int c = 1; c <= 0xFFFF; ++c) {
        const bool is_line_end = c == '\n' || c == '\r' || c == 0x2028 || c == 0x2029;
        const QString text = QStringLiteral("<%1>").arg(QChar(static_cast<char16_t>(c)));
        const QString expected = is_line_end ? QStringLiteral("<\n>") : text;
        if (read_back(text) != expected)
            QFAIL(qPrintable(QStringLiteral("U+%1 does not read back").arg(c, 4, 16)));
    }
}

void tst_rtf::characters_of_code_page_1252_are_its_bytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("letters with accents") << QStringLiteral("éÀß") << QByteArray("\xE9\xC0\xDF");
    QTest::newRow("euro sign") << QStringLiteral("€") << QByteArray("\x80");
    QTest::newRow("quotes and dashes") << QStringLiteral("‘’“”–—") << QByteArray("\x91\x92\x93\x94\x96\x97");
    QTest::newRow("degree and fraction") << QStringLiteral("º°½") << QByteArray("\xBA\xB0\xBD");
    QTest::newRow("straight apostrophe and quote") << QStringLiteral("'\"") << QByteArray("'\"");
    QTest::newRow("signs of the format") << QStringLiteral("{\\}") << QByteArray("\\{\\\\\\}");
}

void tst_rtf::characters_of_code_page_1252_are_its_bytes()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(rtf_text(text), bytes);
}

void tst_rtf::other_characters_are_signed_16_bit_numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("Cyrillic") << QStringLiteral("щ") << QByteArray("\\u1097?");
    QTest::newRow("above 32767") << QString(QChar(0xFFFD)) << QByteArray("\\u-3?");
    QTest::newRow("just 32767") << QString(QChar(0x7FFF)) << QByteArray("\\u32767?");
    QTest::newRow("just 32768") << QString(QChar(0x8000)) << QByteArray("\\u-32768?");
    QTest::newRow("emoji as two surrogates") << QStringLiteral("🍎") << QByteArray("\\u-10180?\\u-8370?");
    QTest::newRow("a hole of the code page") << QString(QChar(0x81)) << QByteArray("\\u129?");
    QTest::newRow("not the byte of the euro sign") << QString(QChar(0x80)) << QByteArray("\\u128?");
}

void tst_rtf::other_characters_are_signed_16_bit_numbers()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(rtf_text(text), bytes);
    QCOMPARE(read_back(text), text);
}

void tst_rtf::digits_and_blanks_after_an_escaped_character_stay()
{
    const QString text = QStringLiteral("щ5 щ 5 {2} \\u233? \\par \\'41");
    QCOMPARE(read_back(text), text);
}

void tst_rtf::names_full_of_signs_read_back_as_they_stand()
{
    const QString odd = QStringLiteral("{Crème} \\brûlée\\ 🍮 €3 d'Anjou’s щи");
    const RtfDocument recipe = read_rtf(recipe_rtf({odd, {odd}, odd}));
    QVERIFY(recipe.whole);
    QCOMPARE(recipe.paragraphs.count(odd), 3);
    const RtfDocument list = read_rtf(list_rtf({odd, {{odd, odd, odd, odd, false, today}}}, today));
    QVERIFY(list.whole);
    QVERIFY(list.paragraphs.contains(odd));
    QVERIFY(list.paragraphs.contains(QStringLiteral("%1\t%1\t%1\t%1\t").arg(odd)));
}

void tst_rtf::coupons_that_expired_before_today_including_yesterday_are_struck_through_data()
{
    QTest::addColumn<bool>("coupon");
    QTest::addColumn<QDate>("created");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("struck");
    const QString cpn = QStringLiteral("CPN");
    QTest::newRow("last year") << true << today.addYears(-1) << cpn << true;
    QTest::newRow("yesterday") << true << today.addDays(-1) << cpn << true;
    QTest::newRow("today") << true << today << cpn << false;
    QTest::newRow("tomorrow") << true << today.addDays(1) << cpn << false;
    QTest::newRow("no date") << true << QDate() << cpn << false;
    QTest::newRow("no coupon") << false << today.addDays(-1) << QString() << false;
}

void tst_rtf::coupons_that_expired_before_today_including_yesterday_are_struck_through()
{
    QFETCH(bool, coupon);
    QFETCH(QDate, created);
    QFETCH(QString, word);
    QFETCH(bool, struck);
    const QString blank = QStringLiteral(" ");
    const ListSheet list{QStringLiteral("L"), {{QStringLiteral("Milk"), blank, blank, blank, coupon, created}}};
    const RtfDocument document = read_rtf(list_rtf(list, today));
    QVERIFY(document.paragraphs.contains(QStringLiteral("Milk\t \t \t \t") + word));
    QCOMPARE(document.struck, struck ? QStringList{word} : QStringList());
}

void tst_rtf::rows_of_all_lists_stand_in_one_table_and_the_same_item_once_for_each_list()
{
    const Key milk = window_->add_item(QStringLiteral("Milk"), 0);
    const Key apple = window_->add_item(QStringLiteral("apple"), 0);
    window_->add_row(milk, window_->add_list(QStringLiteral("Weekly")), true, QStringLiteral("fresh"));
    const Key party = window_->add_list(QStringLiteral("Party"));
    window_->add_row(milk, party, true, QStringLiteral("soured"));
    window_->add_row(apple, party, true);

    const ListSheet all = read_list_sheet(db(), 0, false);
    const RtfDocument document = read_rtf(list_rtf(all, today));
    QVERIFY(document.whole);
    QVERIFY(document.paragraphs.contains(QStringLiteral("All")));
    const auto first = document.paragraphs.indexOf(QStringLiteral("apple\t \t \t \t"));
    QVERIFY(first > 0);
    QCOMPARE(document.paragraphs.mid(first + 1, 2),
             (QStringList{QStringLiteral("Milk\tfresh\t \t \t"), QStringLiteral("Milk\tsoured\t \t \t")}));
    QCOMPARE(read_list_sheet(db(), -1, false).rows.size(), size_t{3});
}

void tst_rtf::rows_of_one_list_stand_alone_by_name()
{
    const Key weekly = window_->add_list(QStringLiteral("Weekly"));
    window_->add_row(window_->add_item(QStringLiteral("pear"), 0), weekly, false);
    window_->add_row(window_->add_item(QStringLiteral("Apple"), 0), weekly, true);
    window_->add_row(window_->add_item(QStringLiteral("Milk"), 0), window_->add_list(QStringLiteral("Party")),
                     true);

    const ListSheet sheet = read_list_sheet(db(), weekly, false);
    QCOMPARE(sheet.name, QStringLiteral("Weekly"));
    QCOMPARE(sheet.rows.size(), size_t{2});
    QCOMPARE(sheet.rows[0].item, QStringLiteral("Apple"));
    QCOMPARE(sheet.rows[1].item, QStringLiteral("pear"));
}

void tst_rtf::only_buy_it_rows_when_asked()
{
    const Key weekly = window_->add_list(QStringLiteral("Weekly"));
    window_->add_row(window_->add_item(QStringLiteral("Pear"), 0), weekly, false);
    QVERIFY(read_list_sheet(db(), weekly, true).rows.empty());
    window_->add_row(window_->add_item(QStringLiteral("Apple"), 0), weekly, true);
    const ListSheet sheet = read_list_sheet(db(), weekly, true);
    QCOMPARE(sheet.rows.size(), size_t{1});
    QCOMPARE(sheet.rows[0].item, QStringLiteral("Apple"));
}

QTEST_MAIN(tst_rtf)
#include "tst_rtf.moc"
