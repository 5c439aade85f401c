#include "household/recipe_pages.h"

#include "output/page_things.h"

#include <QTest>

using namespace tarnwick;

namespace {

QStringList lines(int count)
{
    QStringList made;
    for (int i = 0; i < count; ++i)
        made.append(QStringLiteral("%1 cups of flour").arg(i));
    return made;
}

QString prose(int words)
{
    QString text;
    for (int i = 0; i < words; ++i)
        text += QStringLiteral("word%1 ").arg(i, 4, 10, QLatin1Char('0'));
    return text;
}

std::vector<Page> pages(int line_count, const QString& body)
{
    return recipe_pages({QStringLiteral("Plum jam"), lines(line_count), body});
}

QString body_of(const Page& page)
{
    return text_on(page, QStringLiteral("txtBody"));
}

/// The instructions of all pages in one piece.
QString all_of(const std::vector<Page>& all)
{
    QString text;
    for (const Page& page : all)
        text += thing(page, QStringLiteral("txtBody")).text;
    return text;
}

} // namespace

class tst_recipe_pages : public QObject {
    Q_OBJECT
private slots:
    void a_short_recipe_has_one_page();
    void an_empty_body_gives_one_page_with_only_the_list();
    void a_recipe_without_lines_has_title_and_body();
    void the_lines_stand_below_each_other_with_a_gap_of_11();
    void only_26_lines_are_printed();
    void a_body_that_does_not_fit_is_cut_after_a_blank();
    void the_second_page_takes_the_whole_rest();
    void lines_that_leave_less_than_60_pixels_send_the_whole_body_to_page_2();
    void lines_that_leave_60_pixels_begin_the_body_on_page_1();
    void a_word_longer_than_the_room_has_no_blank_to_cut_at();
    void many_short_lines_do_not_run_out_of_the_page();
    void a_longer_rest_is_set_in_smaller_type();
    void nothing_of_an_endless_body_is_lost_data();
    void nothing_of_an_endless_body_is_lost();
    void the_body_ends_above_the_foot();
};

void tst_recipe_pages::a_short_recipe_has_one_page()
{
    const auto all = pages(3, QStringLiteral("Stir.\nServe."));
    QCOMPARE(all.size(), size_t(1));
    QCOMPARE(text_on(all[0], QStringLiteral("txtTitle")), QStringLiteral("Plum jam"));
    QCOMPARE(text_on(all[0], QStringLiteral("txtIngred(2)")), QStringLiteral("2 cups of flour"));
    QVERIFY(!has_thing(all[0], QStringLiteral("txtIngred(3)")));
    QCOMPARE(body_of(all[0]), QStringLiteral("Stir.\nServe."));
    QCOMPARE(text_on(all[0], QStringLiteral("page_foot")), QStringLiteral("page 1 of 1"));
}

void tst_recipe_pages::an_empty_body_gives_one_page_with_only_the_list()
{
    for (const int count : {0, 3, 26}) {
        const auto all = pages(count, QString());
        QCOMPARE(all.size(), size_t(1));
        QVERIFY(!has_thing(all[0], QStringLiteral("txtBody")));
        QCOMPARE(has_thing(all[0], QStringLiteral("txtIngred(0)")), count > 0);
    }
}

void tst_recipe_pages::a_recipe_without_lines_has_title_and_body()
{
    const auto all = pages(0, QStringLiteral("Stir."));
    QCOMPARE(all.size(), size_t(1));
    QVERIFY(!has_thing(all[0], QStringLiteral("txtIngred(0)")));
    QCOMPARE(body_of(all[0]), QStringLiteral("Stir."));
}

void tst_recipe_pages::the_lines_stand_below_each_other_with_a_gap_of_11()
{
    const Page page = pages(5, QStringLiteral("Stir.")).front();
    for (int i = 1; i < 5; ++i) {
        const QRect before = thing(page, element("txtIngred", i - 1)).box;
        QCOMPARE(thing(page, element("txtIngred", i)).box.top(), before.top() + before.height() + 11);
    }
    const QRect last = thing(page, QStringLiteral("txtIngred(4)")).box;
    const QRect body = thing(page, QStringLiteral("txtBody")).box;
    QCOMPARE(body.top(), last.top() + last.height() + 11);
    QCOMPARE(body.height(), page.size.height() - body.top() - 90);
}

void tst_recipe_pages::only_26_lines_are_printed()
{
    const Page page = pages(40, QString()).front();
    QVERIFY(has_thing(page, QStringLiteral("txtIngred(25)")));
    QVERIFY(!has_thing(page, QStringLiteral("txtIngred(26)")));
    QVERIFY(thing(page, QStringLiteral("txtIngred(25)")).box.bottom()
            < thing(page, QStringLiteral("page_foot")).box.top());
}

void tst_recipe_pages::a_body_that_does_not_fit_is_cut_after_a_blank()
{
    const QString body = prose(700);
    const auto all = pages(10, body);
    QCOMPARE(all.size(), size_t(2));
    QVERIFY(!body_of(all[0]).isEmpty());
    QVERIFY(body_of(all[0]).endsWith(QLatin1Char(' ')));
    QVERIFY(body_of(all[1]).startsWith(QLatin1String("word")));
    QCOMPARE(all_of(all), body);
}

void tst_recipe_pages::the_second_page_takes_the_whole_rest()
{
    const auto all = pages(10, prose(700));
    const Page& second = all.at(1);
    QCOMPARE(text_on(second, QStringLiteral("txtTitle")), QStringLiteral("Plum jam"));
    QVERIFY(!has_thing(second, QStringLiteral("txtIngred(0)")));
    const QRect body = thing(second, QStringLiteral("txtBody")).box;
    QCOMPARE(body.top(), 100);
    QCOMPARE(body.height(), second.size.height() - 200);
    QCOMPARE(text_on(all[0], QStringLiteral("page_foot")), QStringLiteral("page 1 of 2"));
    QCOMPARE(text_on(second, QStringLiteral("page_foot")), QStringLiteral("page 2 of 2"));
}

void tst_recipe_pages::lines_that_leave_less_than_60_pixels_send_the_whole_body_to_page_2()
{
    const QString body = prose(60);
    const auto all = pages(23, body); // 960 - (22 * 30 + 260) = 40
    QCOMPARE(all.size(), size_t(2));
    QVERIFY(!has_thing(all[0], QStringLiteral("txtBody")));
    QVERIFY(has_thing(all[0], QStringLiteral("txtIngred(22)")));
    QCOMPARE(body_of(all[1]), body);
}

void tst_recipe_pages::lines_that_leave_60_pixels_begin_the_body_on_page_1()
{
    const QString body = prose(100);
    const auto all = pages(22, body); // 960 - (21 * 30 + 260) = 70
    QCOMPARE(all.size(), size_t(2));
    QVERIFY(!thing(all[0], QStringLiteral("txtBody")).text.isEmpty());
    QCOMPARE(all_of(all), body);
}

void tst_recipe_pages::a_word_longer_than_the_room_has_no_blank_to_cut_at()
{
    const QString word(5000, QLatin1Char('x'));
    const auto all = pages(10, word);
    QVERIFY(!has_thing(all[0], QStringLiteral("txtBody")));
    QCOMPARE(all_of(all), word);
}

void tst_recipe_pages::many_short_lines_do_not_run_out_of_the_page()
{
    QString body;
    for (int i = 0; i < 60; ++i)
        body += QStringLiteral("Stir %1 times.\n").arg(i);
    const auto all = pages(4, body);
    QCOMPARE(all.size(), size_t(2));
    QVERIFY(body_of(all[0]).count(QLatin1Char('\n')) < 40);
    QCOMPARE(all_of(all), body);
}

void tst_recipe_pages::a_longer_rest_is_set_in_smaller_type()
{
    const QString body = prose(700);
    const auto all = pages(26, body); // all of it on page 2
    QCOMPARE(all.size(), size_t(2));
    QCOMPARE(body_of(all[1]), body);
    const int size = thing(all[1], QStringLiteral("txtBody")).size;
    QVERIFY(size < 10 && size >= 7);
}

void tst_recipe_pages::nothing_of_an_endless_body_is_lost_data()
{
    QTest::addColumn<QString>("body");
    QTest::newRow("prose") << prose(8000);
    QTest::newRow("one word") << QString(40000, QLatin1Char('x'));
    QTest::newRow("empty lines") << QString(2000, QLatin1Char('\n'));
}

void tst_recipe_pages::nothing_of_an_endless_body_is_lost()
{
    QFETCH(QString, body);
    const auto all = pages(2, body);
    QVERIFY(all.size() > 2);
    QCOMPARE(all_of(all), body);
    for (const Page& page : all)
        QVERIFY(!has_thing(page, QStringLiteral("txtBody")) || thing(page, QStringLiteral("txtBody")).size >= 7);
}

void tst_recipe_pages::the_body_ends_above_the_foot()
{
    for (const Page& page : pages(5, prose(900))) {
        const PageThing body = thing(page, QStringLiteral("txtBody"));
        QVERIFY(body.wraps);
        QVERIFY(body.box.bottom() < thing(page, QStringLiteral("page_foot")).box.top());
    }
}

QTEST_GUILESS_MAIN(tst_recipe_pages)
#include "tst_recipe_pages.moc"
