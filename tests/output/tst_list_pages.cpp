#include "output/list_rows.h"
#include "output/page_things.h"

#include <QTest>

#include <stdexcept>

using namespace tarnwick;
using namespace tarnwick::list_rows;

namespace {

Page one_row(const ListRow& of, const ReportOptions& with = options(by_item, 1))
{
    return pages({of}, with).page(1);
}

} // namespace

class tst_list_pages : public QObject {
    Q_OBJECT
private slots:
    // Titles and captions
    void all_lists_by_item_are_titled_all_lists();
    void the_second_column_is_titled_list_for_all_lists_too();
    void the_captions_and_their_frame_stand_over_the_first_column();
    void the_second_frame_comes_with_the_second_column();
    void line6_belongs_to_the_second_column_by_item();
    // Slots
    void a_page_shows_its_own_slots_only();
    void the_slots_of_a_size_follow_in_its_pitch_data();
    void the_slots_of_a_size_follow_in_its_pitch();
    void one_column_fills_the_page();
    void the_second_column_lies_337_pixels_to_the_right();
    void type_sizes_follow_the_report_size_data();
    void type_sizes_follow_the_report_size();
    void the_lines_go_down_with_the_type_size();
    void nothing_of_a_slot_crosses_a_line_data();
    void nothing_of_a_slot_crosses_a_line();
    // Rows
    void a_description_stands_behind_the_item();
    void a_quantity_of_three_characters_stands_in_its_box();
    void a_quantity_of_four_characters_lands_in_the_item_text();
    void a_long_quantity_comes_after_the_description();
    void a_row_without_an_aisle_has_a_blank_there();
    void a_coupon_is_shown_only_where_there_is_one();
    void an_expiry_date_of_yesterday_is_not_struck_through_two_days_ago_is();
    void a_coupon_without_a_date_is_not_struck_through();
    void the_check_box_is_shown_only_with_all_rows();
    // Pages by item

    void every_page_has_its_number_at_the_foot();
    void a_page_beyond_the_last_is_refused();
    void damaged_options_count_as_the_nearest();
};

void tst_list_pages::all_lists_by_item_are_titled_all_lists()
{
    const Page page = pages(rows(1), options(by_item, 2), QStringLiteral("All")).page(1);
    QCOMPARE(text_on(page, QStringLiteral("LblColTitle(0)")), QStringLiteral("All lists"));
    QCOMPARE(text_on(pages(rows(1), options(by_item, 2)).page(1), QStringLiteral("LblColTitle(0)")),
             QStringLiteral("Weekly list"));
}

void tst_list_pages::the_second_column_is_titled_list_for_all_lists_too()
{
    const Page page = pages(rows(36), options(by_item, 2), QStringLiteral("All")).page(1);
    QCOMPARE(text_on(page, QStringLiteral("LblColTitle(1)")), QStringLiteral("All list"));
}

void tst_list_pages::the_captions_and_their_frame_stand_over_the_first_column()
{
    const Page page = pages(rows(1), options(by_item, 1)).page(1);
    const QStringList captions
        = {QStringLiteral("ITEM"), QStringLiteral("QTY"), QStringLiteral("CPN"), QStringLiteral("ASL")};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(text_on(page, element("ttlLabel", i)), captions[i]);
    QVERIFY(has_thing(page, QStringLiteral("ttlLineH(0)")));
    for (int i = 0; i < 5; ++i)
        QVERIFY(has_thing(page, element("ttlLineV", i)));
    QVERIFY(has_thing(page, QStringLiteral("Picture1(0)")));
    QVERIFY(!has_thing(page, QStringLiteral("ttlLabel2(0)")));
}

void tst_list_pages::the_second_frame_comes_with_the_second_column()
{
    const QStringList second
        = {QStringLiteral("LblColTitle(1)"), QStringLiteral("Picture1(1)"), QStringLiteral("ttlLabel2(3)"),
           QStringLiteral("ttlLineH2(0)"), QStringLiteral("ttlLineV2(4)")};
    for (const QString& name : second) {
        QVERIFY2(!has_thing(pages(rows(34), options(by_item, 2)).page(1), name), qPrintable(name));
        QVERIFY2(has_thing(pages(rows(36), options(by_item, 2)).page(1), name), qPrintable(name));
        QVERIFY2(!has_thing(pages(rows(60), options(by_item, 1)).page(1), name), qPrintable(name));
    }
}

void tst_list_pages::line6_belongs_to_the_second_column_by_item()
{
    const QString line = QStringLiteral("Line6");
    QVERIFY(has_thing(pages(rows(50), options(by_item, 2)).page(1), line));
    QVERIFY(!has_thing(pages(rows(34), options(by_item, 2)).page(1), line));
    QVERIFY(!has_thing(pages(rows(50), options(by_item, 1)).page(1), line));
    QVERIFY(!has_thing(pages(rows(50), options(by_category, 2)).page(1), line));
    QVERIFY(!has_thing(pages(rows(50), options(by_aisle, 2)).page(1), line));
}

void tst_list_pages::a_page_shows_its_own_slots_only()
{
    const ListPages all = pages(rows(40), options(by_item, 1));
    QCOMPARE(all.count(), 2);
    QVERIFY(has_thing(all.page(1), QStringLiteral("txtItem(34)")));
    QVERIFY(has_thing(all.page(2), QStringLiteral("txtItem(4)")));
    for (const char* array :
         {"txtItem", "txtQty", "txtAisle", "Line1", "Line2", "Line3", "Line4", "Line5", "Line7"})
        QVERIFY2(!has_thing(all.page(2), element(array, 5)), array);
}

void tst_list_pages::the_slots_of_a_size_follow_in_its_pitch_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("rows_per_column");
    QTest::addColumn<int>("pitch");
    QTest::newRow("small") << 0 << 35 << 20;
    QTest::newRow("medium") << 1 << 32 << 22;
    QTest::newRow("large") << 2 << 27 << 26;
}

void tst_list_pages::the_slots_of_a_size_follow_in_its_pitch()
{
    QFETCH(int, size);
    QFETCH(int, rows_per_column);
    QFETCH(int, pitch);
    const Page page = pages(rows(100), options(by_item, 2, 0, static_cast<Key>(size))).page(1);
    QVERIFY(has_thing(page, element("txtItem", 2 * rows_per_column - 1)));
    QVERIFY(!has_thing(page, element("txtItem", 2 * rows_per_column)));
    for (int i = 1; i < rows_per_column; ++i) {
        for (const char* array : {"txtItem", "txtQty", "txtAisle", "Checkbox"})
            QCOMPARE(thing(page, element(array, i)).box,
                     thing(page, element(array, i - 1)).box.translated(0, pitch));
        for (const char* array : {"Line1", "Line2", "Line3", "Line4", "Line5", "Line7"})
            QCOMPARE(thing(page, element(array, i)).line,
                     thing(page, element(array, i - 1)).line.translated(0, pitch));
    }
    const QRect last = thing(page, element("txtItem", rows_per_column - 1)).box;
    QVERIFY(last.bottom() < thing(page, QStringLiteral("page_foot")).box.top());
}

void tst_list_pages::one_column_fills_the_page()
{
    ListRow with_coupon = row(QStringLiteral("Milk"));
    with_coupon.cpn = true;
    const Page page = one_row(with_coupon);
    QCOMPARE(thing(page, QStringLiteral("Line1(0)")).line.x2(), 703);
    QCOMPARE(thing(page, QStringLiteral("ttlLineH(0)")).line.x2(), 702);
    const std::pair<const char*, int> lines[]
        = {{"Line4(0)", 620}, {"ttlLineV(1)", 620}, {"Line3(0)", 647}, {"ttlLineV(2)", 647},
           {"Line2(0)", 672}, {"ttlLineV(3)", 672}, {"Line7(0)", 702}, {"ttlLineV(4)", 702}};
    for (const auto& [name, x] : lines) {
        QCOMPARE(thing(page, QLatin1String(name)).line.x1(), x);
        QCOMPARE(thing(page, QLatin1String(name)).line.x2(), x);
    }
    const std::pair<const char*, int> boxes[]
        = {{"txtQty(0)", 626},   {"txtCpn(0)", 649},   {"txtAisle(0)", 682}, {"ttlLabel(1)", 622},
           {"ttlLabel(2)", 648}, {"ttlLabel(3)", 678}, {"Picture1(0)", 380}};
    for (const auto& [name, x] : boxes)
        QCOMPARE(thing(page, QLatin1String(name)).box.left(), x);
    const std::pair<const char*, int> widths[]
        = {{"txtItem(0)", 488}, {"ttlLabel(0)", 488}, {"LblColTitle(0)", 570}};
    for (const auto& [name, width] : widths)
        QCOMPARE(thing(page, QLatin1String(name)).box.width(), width);
}

void tst_list_pages::the_second_column_lies_337_pixels_to_the_right()
{
    const Page page = pages(rows(70), options(by_item, 2, 0)).page(1);
    const auto moved = [&](const QString& left, const QString& right) {
        const PageThing from = thing(page, left);
        const PageThing to = thing(page, right);
        if (from.kind == PageThing::Kind::line)
            QCOMPARE(to.line, from.line.translated(337, 0));
        else
            QCOMPARE(to.box, from.box.translated(337, 0));
    };
    for (const char* array :
         {"txtItem", "txtQty", "txtAisle", "Checkbox", "Line1", "Line2", "Line3", "Line4", "Line5", "Line7"})
        for (const int slot : {0, 34})
            moved(element(array, slot), element(array, slot + 35));
    for (int i = 0; i < 4; ++i)
        moved(element("ttlLabel", i), element("ttlLabel2", i));
    for (int i = 0; i < 5; ++i)
        moved(element("ttlLineV", i), element("ttlLineV2", i));
    moved(QStringLiteral("ttlLineH(0)"), QStringLiteral("ttlLineH2(0)"));
    moved(QStringLiteral("LblColTitle(0)"), QStringLiteral("LblColTitle(1)"));
    moved(QStringLiteral("Picture1(0)"), QStringLiteral("Picture1(1)"));
}

void tst_list_pages::type_sizes_follow_the_report_size_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("cells");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("first_caption");
    QTest::addColumn<int>("caption");
    QTest::newRow("small") << 0 << 9 << 9 << 15 << 138 << 131;
    QTest::newRow("medium") << 1 << 10 << 10 << 16 << 140 << 133;
    QTest::newRow("large") << 2 << 12 << 10 << 20 << 142 << 135;
}

void tst_list_pages::type_sizes_follow_the_report_size()
{
    QFETCH(int, size);
    QFETCH(int, item);
    QFETCH(int, cells);
    QFETCH(int, height);
    const Page page = one_row(row(QStringLiteral("Milk")), options(by_item, 1, 1, static_cast<Key>(size)));
    QCOMPARE(thing(page, QStringLiteral("txtItem(0)")).size, item);
    QCOMPARE(thing(page, QStringLiteral("LblColTitle(0)")).size, item);
    QCOMPARE(thing(page, QStringLiteral("txtQty(0)")).size, cells);
    QCOMPARE(thing(page, QStringLiteral("txtAisle(0)")).size, cells);
    for (const char* name : {"txtItem(0)", "txtQty(0)", "txtAisle(0)", "LblColTitle(0)"})
        QCOMPARE(thing(page, QLatin1String(name)).box.height(), height);
    QTEST(thing(page, QStringLiteral("ttlLabel(0)")).box.top(), "first_caption");
    for (int i = 1; i < 4; ++i)
        QTEST(thing(page, element("ttlLabel", i)).box.top(), "caption");
}

void tst_list_pages::the_lines_go_down_with_the_type_size()
{
    const Page small = one_row(row(QStringLiteral("Milk")), options(by_item, 1, 1, 0));
    for (const auto& [size, shift] : {std::pair{1, 2}, std::pair{2, 6}}) {
        const Page other = one_row(row(QStringLiteral("Milk")), options(by_item, 1, 1, static_cast<Key>(size)));
        const auto moved = [&](const char* name) { return thing(other, QLatin1String(name)).line; };
        const auto rest = [&](const char* name) { return thing(small, QLatin1String(name)).line; };
        QCOMPARE(moved("Line1(0)"), rest("Line1(0)").translated(0, shift));
        QCOMPARE(moved("ttlLineH(0)"), rest("ttlLineH(0)").translated(0, shift));
        QCOMPARE(moved("ttlLineV(2)").y1(), rest("ttlLineV(2)").y1() + shift);
        for (const char* name : {"Line2(0)", "Line3(0)", "Line4(0)", "Line5(0)", "Line7(0)"}) {
            QCOMPARE(moved(name).y2(), rest(name).y2() + shift);
            QCOMPARE(moved(name).y2(), moved("Line1(0)").y1());
        }
        QCOMPARE(thing(other, QStringLiteral("txtItem(0)")).box.topLeft(),
                 thing(small, QStringLiteral("txtItem(0)")).box.topLeft());
    }
}

void tst_list_pages::nothing_of_a_slot_crosses_a_line_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("col_ct");
    for (int size = 0; size < 3; ++size)
        for (int col_ct = 1; col_ct < 3; ++col_ct)
            QTest::addRow("size %d, %d columns", size, col_ct) << size << col_ct;
}

void tst_list_pages::nothing_of_a_slot_crosses_a_line()
{
    QFETCH(int, size);
    QFETCH(int, col_ct);
    std::vector<ListRow> some = rows(60);
    for (ListRow& each : some)
        each.cpn = true;
    const Page page = pages(some, options(by_item, static_cast<Key>(col_ct), 0, static_cast<Key>(size))).page(1);
    int boxes = 0;
    for (const PageThing& box : page.things) {
        if (!box.name.startsWith(QLatin1String("txt")) && box.kind != PageThing::Kind::check)
            continue;
        ++boxes;
        for (const PageThing& line : page.things) {
            if (line.kind != PageThing::Kind::line)
                continue;
            const QRect drawn(line.line.p1(), line.line.p2());
            QVERIFY2(!box.box.intersects(drawn), qPrintable(box.name + QStringLiteral(" and ") + line.name));
        }
        QVERIFY(QRect({}, page.size).contains(box.box));
    }
    QVERIFY(boxes > 100);
}

void tst_list_pages::a_description_stands_behind_the_item()
{
    ListRow described = row(QStringLiteral("Milk"));
    described.desc = QStringLiteral("skimmed");
    QCOMPARE(text_on(one_row(described), QStringLiteral("txtItem(0)")), QStringLiteral("Milk: skimmed"));
    described.desc = QStringLiteral("   ");
    QCOMPARE(text_on(one_row(described), QStringLiteral("txtItem(0)")), QStringLiteral("Milk"));
}

void tst_list_pages::a_quantity_of_three_characters_stands_in_its_box()
{
    ListRow three = row(QStringLiteral("Milk"));
    three.qty = QStringLiteral(" 500 ");
    const Page page = one_row(three);
    QCOMPARE(text_on(page, QStringLiteral("txtQty(0)")), QStringLiteral("500"));
    QCOMPARE(text_on(page, QStringLiteral("txtItem(0)")), QStringLiteral("Milk"));
}

void tst_list_pages::a_quantity_of_four_characters_lands_in_the_item_text()
{
    ListRow four = row(QStringLiteral("Milk"));
    four.qty = QStringLiteral(" 2 qt ");
    const Page page = one_row(four);
    QCOMPARE(text_on(page, QStringLiteral("txtItem(0)")), QStringLiteral("Milk: 2 qt"));
    QCOMPARE(text_on(page, QStringLiteral("txtQty(0)")), QString());
}

void tst_list_pages::a_long_quantity_comes_after_the_description()
{
    ListRow both = row(QStringLiteral("Milk"));
    both.desc = QStringLiteral("skimmed");
    both.qty = QStringLiteral("1 gallon");
    QCOMPARE(text_on(one_row(both), QStringLiteral("txtItem(0)")), QStringLiteral("Milk: skimmed: 1 gallon"));
}

void tst_list_pages::a_row_without_an_aisle_has_a_blank_there()
{
    QCOMPARE(text_on(one_row(row(QStringLiteral("Milk"), QStringLiteral("Dairy"), QString())),
                     QStringLiteral("txtAisle(0)")),
             QStringLiteral(" "));
    QCOMPARE(text_on(one_row(row(QStringLiteral("Milk"), QStringLiteral("Dairy"), QStringLiteral(" 12A "))),
                     QStringLiteral("txtAisle(0)")),
             QStringLiteral("12A"));
}

void tst_list_pages::a_coupon_is_shown_only_where_there_is_one()
{
    ListRow coupon = row(QStringLiteral("Milk"));
    QVERIFY(!has_thing(one_row(coupon), QStringLiteral("txtCpn(0)")));
    coupon.cpn = true;
    coupon.created = today;
    QCOMPARE(text_on(one_row(coupon), QStringLiteral("txtCpn(0)")), QStringLiteral("CPN"));
}

void tst_list_pages::an_expiry_date_of_yesterday_is_not_struck_through_two_days_ago_is()
{
    ListRow coupon = row(QStringLiteral("Milk"));
    coupon.cpn = true;
    coupon.created = today.addDays(-1);
    QVERIFY(has_thing(one_row(coupon), QStringLiteral("txtCpn(0)")));
    QVERIFY(!thing(one_row(coupon), QStringLiteral("txtCpn(0)")).strike);
    coupon.created = today.addDays(-2);
    QVERIFY(thing(one_row(coupon), QStringLiteral("txtCpn(0)")).strike);
    coupon.created = today.addDays(7);
    QVERIFY(!thing(one_row(coupon), QStringLiteral("txtCpn(0)")).strike);
}

void tst_list_pages::a_coupon_without_a_date_is_not_struck_through()
{
    ListRow coupon = row(QStringLiteral("Milk"));
    coupon.cpn = true;
    QVERIFY(has_thing(one_row(coupon), QStringLiteral("txtCpn(0)")));
    QVERIFY(!thing(one_row(coupon), QStringLiteral("txtCpn(0)")).strike);
}

void tst_list_pages::the_check_box_is_shown_only_with_all_rows()
{
    ListRow each = row(QStringLiteral("Milk"));
    QVERIFY(!has_thing(one_row(each, options(by_item, 1, 1)), QStringLiteral("Checkbox(0)")));
    QVERIFY(thing(one_row(each, options(by_item, 1, 0)), QStringLiteral("Checkbox(0)")).checked);
    each.to_get = false;
    const Page page = one_row(each, options(by_item, 1, 0));
    QVERIFY(has_thing(page, QStringLiteral("Checkbox(0)")));
    QVERIFY(!thing(page, QStringLiteral("Checkbox(0)")).checked);
}

void tst_list_pages::every_page_has_its_number_at_the_foot()
{
    const ListPages all = pages(rows(150), options(by_item, 2));
    for (int number = 1; number <= 3; ++number)
        QCOMPARE(text_on(all.page(number), QStringLiteral("page_foot")),
                 QStringLiteral("page %1 of 3").arg(number));
}

void tst_list_pages::a_page_beyond_the_last_is_refused()
{
    const ListPages all = pages(rows(1), options(by_item, 1));
    QVERIFY_EXCEPTION_THROWN(all.page(2), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(all.page(0), std::out_of_range);
}

void tst_list_pages::damaged_options_count_as_the_nearest()
{
    const ListPages odd = pages(rows(60), {report_sort_of(-7), 31, 1, 99});
    QCOMPARE(odd.count(), 3); // one column of 27 rows, by item
    QVERIFY(!thing(odd.page(1), QStringLiteral("txtItem(0)")).bold);
}

QTEST_GUILESS_MAIN(tst_list_pages)
#include "tst_list_pages.moc"
