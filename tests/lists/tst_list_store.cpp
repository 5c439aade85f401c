#include "data/query.h"
#include "data/runtime_error.h"
#include "household/list_store.h"
#include "household/status.h"
#include "support/test_window.h"
#include "support/error_number.h"

#include <QTest>

using namespace tarnwick;

class tst_list_store : public QObject {
    Q_OBJECT

private slots:
    void init();
    void rows_come_by_name_then_key_whatever_their_case();
    void all_lists_hold_the_same_item_twice_each_with_its_own_list();
    void quantity_empty_or_blank_is_one_blank();
    void rows_without_stock_item_or_list_or_on_list_zero_are_left_out();
    void key_beyond_16_bits_overflows();
    void coupon_shows_its_date_and_no_coupon_one_blank();
    void text_that_is_no_date_stays();
    void buy_it_mark_chooses_the_pictures();
    void list_without_rows_is_marked_active();
    void stale_list_key_marks_nothing();

private:
    std::vector<GridRow> rows(Key list) { return list_store::read_rows(window->db(), list); }

    std::unique_ptr<TestWindow> window;
};

void tst_list_store::init()
{
    window = std::make_unique<TestWindow>();
}

void tst_list_store::rows_come_by_name_then_key_whatever_their_case()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    const Key pear = window->add_row(window->add_item(QStringLiteral("pear"), 0), list, false);
    const Key second = window->add_item(QStringLiteral("Apple"), 0);
    const Key apple = window->add_row(second, list, false);
    const Key again = window->add_row(second, list, false);
    const Key lower = window->add_row(window->add_item(QStringLiteral("apricot"), 0), list, false);

    std::vector<Key> keys;
    for (const GridRow& row : rows(list))
        keys.push_back(row.groc_key);
    QCOMPARE(keys, (std::vector<Key>{apple, again, lower, pear}));
}

void tst_list_store::all_lists_hold_the_same_item_twice_each_with_its_own_list()
{
    const Key first = window->add_list(QStringLiteral("A"));
    const Key second = window->add_list(QStringLiteral("B"));
    const Key milk = window->add_item(QStringLiteral("Milk"), 0);
    window->add_row(window->add_item(QStringLiteral("Zest"), 0), first, false);
    window->add_row(milk, first, true);
    window->add_row(milk, second, false);

    const std::vector<GridRow> all = rows(0);
    QCOMPARE(all.size(), size_t(3));
    QCOMPARE(all[0].item, QStringLiteral("Milk"));
    QCOMPARE(all[1].item, QStringLiteral("Milk"));
    QCOMPARE(all[0].list_key, first);
    QCOMPARE(all[1].list_key, second);
    QCOMPARE(all[0].item_key, milk);
    QCOMPARE(all[1].item_key, milk);
    QCOMPARE(rows(-1).size(), size_t(3));
    QCOMPARE(rows(second).size(), size_t(1));
}

void tst_list_store::quantity_empty_or_blank_is_one_blank()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const QStringList stored = {QString(), QStringLiteral("   "), QStringLiteral(" 2 lb "), QStringLiteral("0")};
    for (const QString& qty : stored)
        window->add_row(window->add_item(QStringLiteral("Item"), 0), list, false, QStringLiteral(" "), qty);
    const std::vector<GridRow> read = rows(list);
    QCOMPARE(read[0].qty, QStringLiteral(" "));
    QCOMPARE(read[1].qty, QStringLiteral(" "));
    QCOMPARE(read[2].qty, QStringLiteral("2 lb"));
    QCOMPARE(read[3].qty, QStringLiteral("0"));
}

void tst_list_store::rows_without_stock_item_or_list_or_on_list_zero_are_left_out()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key item = window->add_item(QStringLiteral("Milk"), 0);
    const Key good = window->add_row(item, list, false);
    window->add_row(item, 0, false);
    window->add_row(item, -1, false);
    window->add_row(item, 77, false);
    const Key gone = window->add_item(QStringLiteral("Gone"), 0);
    window->add_row(gone, list, false);
    Query(window->db(), "DELETE FROM items_1 WHERE key_id = ?", gone).run();

    QCOMPARE(rows(0).size(), size_t(1));
    QCOMPARE(rows(0)[0].groc_key, good);
    QCOMPARE(rows(list).size(), size_t(1));
    QVERIFY(rows(77).empty());
}

void tst_list_store::key_beyond_16_bits_overflows()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key row = window->add_row(window->add_item(QStringLiteral("Milk"), 0), list, false);
    Query(window->db(), "UPDATE groc_1 SET key_id = 32767 WHERE key_id = ?", row).run();
    Query(window->db(), "UPDATE tie SET groc_id = 32767").run();
    QCOMPARE(rows(list)[0].groc_key, Key(32767));
    Query(window->db(), "UPDATE groc_1 SET key_id = 32768").run();
    Query(window->db(), "UPDATE tie SET groc_id = 32768").run();
    QCOMPARE(error_number([&] { rows(list); }), 6);
}

void tst_list_store::coupon_shows_its_date_and_no_coupon_one_blank()
{
    const Key list = window->add_list(QStringLiteral("A"));
    const Key with = window->add_row(window->add_item(QStringLiteral("A"), 0), list, false);
    window->add_row(window->add_item(QStringLiteral("B"), 0), list, false);
    Query(window->db(), "UPDATE groc_1 SET cpn = 1, created = '2026-03-04' WHERE key_id = ?", with).run();
    const std::vector<GridRow> read = rows(list);
    QCOMPARE(read[0].date, QStringLiteral("3/4/2026"));
    QCOMPARE(read[0].coupon, picture_base::coupon_on);
    QCOMPARE(read[1].date, QStringLiteral(" "));
    QCOMPARE(read[1].coupon, picture_base::coupon_off);
}

void tst_list_store::text_that_is_no_date_stays()
{
    QCOMPARE(list_store::screen_date(QStringLiteral("next week")), QStringLiteral("next week"));
    QCOMPARE(list_store::screen_date(QStringLiteral("2026-13-40")), QStringLiteral("2026-13-40"));
    QCOMPARE(list_store::screen_date(QStringLiteral("2026-12-31 00:00:00")), QStringLiteral("12/31/2026"));
}

void tst_list_store::buy_it_mark_chooses_the_pictures()
{
    const Key list = window->add_list(QStringLiteral("A"));
    window->add_row(window->add_item(QStringLiteral("A"), 0), list, true);
    window->add_row(window->add_item(QStringLiteral("B"), 0), list, false);
    const std::vector<GridRow> read = rows(list);
    QVERIFY(read[0].to_get);
    QCOMPARE(read[0].light, picture_base::light_on);
    QCOMPARE(read[0].check, picture_base::check_on);
    QVERIFY(!read[1].to_get);
    QCOMPARE(read[1].light, picture_base::light_off);
    QCOMPARE(read[1].check, picture_base::check_off);
}

void tst_list_store::list_without_rows_is_marked_active()
{
    const Key list = window->add_list(QStringLiteral("Weekly"));
    const Key other = window->add_list(QStringLiteral("Other"));
    QCOMPARE(list_store::mark_active(window->db(), list), std::optional<QString>(QStringLiteral("Weekly")));
    QCOMPARE(window->number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 1);
    list_store::mark_active(window->db(), other);
    QCOMPARE(window->number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 2);
}

void tst_list_store::stale_list_key_marks_nothing()
{
    window->add_list(QStringLiteral("Weekly"));
    QVERIFY(!list_store::mark_active(window->db(), 0));
    QVERIFY(!list_store::mark_active(window->db(), 99));
    QCOMPARE(window->number("SELECT COUNT(*) FROM list_name WHERE active = 1"), 0);
}

QTEST_MAIN(tst_list_store)
#include "tst_list_store.moc"
