#include "output/list_rows.h"
#include "output/page_things.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::list_rows;

namespace {

/// The items of all pages in their order, without headings.
QStringList printed_items(const ListPages& all)
{
    QStringList items;
    for (int number = 1; number <= all.count(); ++number)
        for (const PageThing& thing : all.page(number).things)
            if (thing.name.startsWith(QLatin1String("txtItem")) && !thing.bold)
                items.append(thing.text);
    return items;
}

} // namespace

/// Which rows and headings of a list stand on which of its pages.
class tst_list_page_breaks : public QObject {
    Q_OBJECT
private slots:
    void pages_by_item_follow_the_formula_data();
    void pages_by_item_follow_the_formula();
    void a_page_by_item_begins_at_its_record();
    void rows_that_the_formula_leaves_out_are_told_on_the_last_page();
    void several_rows_left_out_are_counted();
    void no_page_by_the_formula_renders_one();
    // Groups
    void a_group_has_a_centred_bold_heading_without_boxes();
    void a_group_that_starts_on_the_last_slot_of_a_column_opens_the_next_with_its_heading();
    void a_group_that_runs_over_a_column_top_repeats_its_heading_in_one_slot();
    void a_waiting_group_at_the_foot_of_a_page_opens_the_next();
    void the_first_heading_of_a_later_page_is_plain();
    void no_empty_page_follows_one_that_the_last_record_fills();
    void an_item_without_an_aisle_falls_under_aisle_unknown();
    void an_aisle_runs_over_a_column_top();
    void an_unknown_aisle_runs_over_a_column_top();
    void categories_of_one_name_are_one_group();
    void every_row_is_printed_once_in_its_order_data();
    void every_row_is_printed_once_in_its_order();
    // Feet
};

void tst_list_page_breaks::pages_by_item_follow_the_formula_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("expected");
    // 35 rows to a column: N against 36, and N against 36 or 71.
    QTest::newRow("1 row") << 1 << 1 << 1;
    QTest::newRow("35 rows, one column") << 1 << 35 << 1;
    QTest::newRow("36 rows, one column") << 1 << 36 << 1;
    QTest::newRow("37 rows, one column") << 1 << 37 << 2;
    QTest::newRow("70 rows, one column") << 1 << 70 << 2;
    QTest::newRow("72 rows, one column") << 1 << 72 << 2;
    QTest::newRow("73 rows, one column") << 1 << 73 << 3;
    QTest::newRow("70 rows, two columns") << 2 << 70 << 1;
    QTest::newRow("71 rows, two columns") << 2 << 71 << 2;
    QTest::newRow("72 rows, two columns") << 2 << 72 << 1;
    QTest::newRow("73 rows, two columns") << 2 << 73 << 2;
    QTest::newRow("141 rows, two columns") << 2 << 141 << 2;
    QTest::newRow("142 rows, two columns") << 2 << 142 << 3;
}

void tst_list_page_breaks::pages_by_item_follow_the_formula()
{
    QFETCH(int, columns);
    QFETCH(int, count);
    const ListPages all = pages(rows(count), options(by_item, static_cast<Key>(columns)));
    QTEST(all.count(), "expected");
    for (int number = 1; number <= all.count(); ++number)
        QVERIFY(has_thing(all.page(number), QStringLiteral("txtItem(0)")));
}

void tst_list_page_breaks::a_page_by_item_begins_at_its_record()
{
    const ListPages all = pages(rows(150), options(by_item, 2));
    QCOMPARE(text_on(all.page(1), QStringLiteral("txtItem(0)")), QStringLiteral("Dairy 0000"));
    QCOMPARE(text_on(all.page(2), QStringLiteral("txtItem(0)")), QStringLiteral("Dairy 0070"));
    QCOMPARE(text_on(all.page(3), QStringLiteral("txtItem(0)")), QStringLiteral("Dairy 0140"));
}

void tst_list_page_breaks::rows_that_the_formula_leaves_out_are_told_on_the_last_page()
{
    const ListPages all = pages(rows(36), options(by_item, 1));
    QCOMPARE(printed_items(all).size(), 35);
    QCOMPARE(text_on(all.page(1), QStringLiteral("page_note")),
             QStringLiteral("1 more item is not on these pages"));
    QVERIFY(!has_thing(pages(rows(35), options(by_item, 1)).page(1), QStringLiteral("page_note")));
    const ListPages two = pages(rows(37), options(by_item, 1));
    QVERIFY(!has_thing(two.page(1), QStringLiteral("page_note")));
    QVERIFY(!has_thing(two.page(2), QStringLiteral("page_note")));
}

void tst_list_page_breaks::several_rows_left_out_are_counted()
{
    const ListPages all = pages(rows(72), options(by_item, 1));
    QCOMPARE(printed_items(all).size(), 70);
    QVERIFY(!has_thing(all.page(1), QStringLiteral("page_note")));
    QCOMPARE(text_on(all.page(2), QStringLiteral("page_note")),
             QStringLiteral("2 more items are not on these pages"));
}

void tst_list_page_breaks::no_page_by_the_formula_renders_one()
{
    const ListPages all = pages(rows(36), options(by_item, 2));
    QCOMPARE(all.count(), 1);
    QCOMPARE(printed_items(all).size(), 36);
}

void tst_list_page_breaks::a_group_has_a_centred_bold_heading_without_boxes()
{
    const Page page = pages(rows(2), options(by_category, 1, 0)).page(1);
    const PageThing heading = thing(page, QStringLiteral("txtItem(0)"));
    QCOMPARE(heading.text, QStringLiteral("Dairy"));
    QCOMPARE(heading.align, PageThing::Align::centre);
    QVERIFY(heading.bold);
    for (const char* array :
         {"txtQty", "txtAisle", "txtCpn", "Checkbox", "Line2", "Line7", "Line3", "Line4", "Line5"})
        QVERIFY2(!has_thing(page, element(array, 0)), array);
    QVERIFY(has_thing(page, QStringLiteral("Line1(0)")));
    const PageThing detail = thing(page, QStringLiteral("txtItem(1)"));
    QCOMPARE(detail.align, PageThing::Align::left);
    QVERIFY(!detail.bold);
    QVERIFY(has_thing(page, QStringLiteral("Line4(1)")));
}

void tst_list_page_breaks::a_group_that_starts_on_the_last_slot_of_a_column_opens_the_next_with_its_heading()
{
    // Heading and 33 rows fill slots 0 to 33; the second group would have slot 34.
    const Page page = pages(joined(rows(33), rows(3, QStringLiteral("Fish"))), options(by_category, 2)).page(1);
    QVERIFY(!has_thing(page, QStringLiteral("txtItem(34)")));
    QVERIFY(!has_thing(page, QStringLiteral("Line1(34)")));
    QVERIFY(!has_thing(page, QStringLiteral("Line4(34)")));
    QCOMPARE(slot_texts(page, 35, 2), QStringList({QStringLiteral("Fish"), QStringLiteral("Fish 0000")}));
}

void tst_list_page_breaks::a_group_that_runs_over_a_column_top_repeats_its_heading_in_one_slot()
{
    const Page page = pages(rows(40), options(by_category, 2)).page(1);
    QCOMPARE(slot_texts(page, 33, 4),
             QStringList({QStringLiteral("Dairy 0032"), QStringLiteral("Dairy 0033"),
                          QStringLiteral("Dairy (Cont'd)"), QStringLiteral("Dairy 0034")}));
    QVERIFY(thing(page, QStringLiteral("txtItem(35)")).bold);
}

void tst_list_page_breaks::a_waiting_group_at_the_foot_of_a_page_opens_the_next()
{
    const ListPages all = pages(joined(rows(33), rows(1, QStringLiteral("Fish"))), options(by_category, 1));
    QCOMPARE(all.count(), 2);
    QCOMPARE(slot_texts(all.page(2), 0, 3),
             QStringList({QStringLiteral("Fish"), QStringLiteral("Fish 0000"), QStringLiteral("(none)")}));
}

void tst_list_page_breaks::the_first_heading_of_a_later_page_is_plain()
{
    const ListPages all = pages(rows(40), options(by_category, 1));
    QCOMPARE(all.count(), 2);
    QCOMPARE(slot_texts(all.page(2), 0, 2), QStringList({QStringLiteral("Dairy"), QStringLiteral("Dairy 0034")}));
}

void tst_list_page_breaks::no_empty_page_follows_one_that_the_last_record_fills()
{
    QCOMPARE(pages(rows(34), options(by_category, 1)).count(), 1);
    QCOMPARE(pages(rows(35), options(by_category, 1)).count(), 2);
    QCOMPARE(pages(rows(68), options(by_category, 2)).count(), 1); // a heading in each column
    QCOMPARE(pages(rows(69), options(by_category, 2)).count(), 2);
}

void tst_list_page_breaks::an_item_without_an_aisle_falls_under_aisle_unknown()
{
    const Page page = pages({row(QStringLiteral("Milk"), QString(), QString()),
                             row(QStringLiteral("Oats"), QString(), QStringLiteral(" ")),
                             row(QStringLiteral("Eggs"), QString(), QStringLiteral(" 4 "))},
                            options(by_aisle, 1))
                          .page(1);
    QCOMPARE(slot_texts(page, 0, 5),
             QStringList({QStringLiteral("Aisle ?"), QStringLiteral("Milk"), QStringLiteral("Oats"),
                          QStringLiteral("Aisle 4"), QStringLiteral("Eggs")}));
}

void tst_list_page_breaks::an_aisle_runs_over_a_column_top()
{
    const Page page = pages(rows(40), options(by_aisle, 2)).page(1);
    QCOMPARE(text_on(page, QStringLiteral("txtItem(35)")), QStringLiteral("5 Aisle (Cont'd)"));
}

void tst_list_page_breaks::an_unknown_aisle_runs_over_a_column_top()
{
    std::vector<ListRow> unknown = rows(40);
    for (ListRow& each : unknown)
        each.aisle = QStringLiteral(" ");
    const Page page = pages(unknown, options(by_aisle, 2)).page(1);
    QCOMPARE(text_on(page, QStringLiteral("txtItem(35)")), QStringLiteral("? Aisle (Cont'd)"));
}

void tst_list_page_breaks::categories_of_one_name_are_one_group()
{
    const Page page = pages({row(QStringLiteral("Cream"), QStringLiteral("dairy")), row(QStringLiteral("Milk")),
                             row(QStringLiteral("Yogurt"), QStringLiteral("dairy"))},
                            options(by_category, 1))
                          .page(1);
    QCOMPARE(slot_texts(page, 0, 4),
             QStringList({QStringLiteral("dairy"), QStringLiteral("Cream"), QStringLiteral("Milk"),
                          QStringLiteral("Yogurt")}));
}

void tst_list_page_breaks::every_row_is_printed_once_in_its_order_data()
{
    QTest::addColumn<int>("sort");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("size");
    for (int sort = 1; sort < 3; ++sort)
        for (int columns = 1; columns < 3; ++columns)
            for (int size = 0; size < 3; ++size)
                QTest::addRow("sort %d, %d columns, size %d", sort, columns, size) << sort << columns << size;
}

void tst_list_page_breaks::every_row_is_printed_once_in_its_order()
{
    QFETCH(int, sort);
    QFETCH(int, columns);
    QFETCH(int, size);
    std::vector<ListRow> all_rows;
    QStringList items;
    // Groups of one to forty rows come to every place of a column.
    for (int group = 1; group <= 40; ++group) {
        for (int i = 0; i < group; ++i) {
            const QString name = QStringLiteral("%1-%2").arg(group, 2, 10, QLatin1Char('0')).arg(i);
            all_rows.push_back(row(name, name.left(2), name.left(2)));
            items.append(name);
        }
    }
    const ListPages all = pages(
        all_rows, options(static_cast<ReportSort>(sort), static_cast<Key>(columns), 1, static_cast<Key>(size)));
    QCOMPARE(printed_items(all), items);
    for (int number = 1; number <= all.count(); ++number)
        QVERIFY(thing(all.page(number), QStringLiteral("txtItem(0)")).bold);
}

QTEST_GUILESS_MAIN(tst_list_page_breaks)
#include "tst_list_page_breaks.moc"
