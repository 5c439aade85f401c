#include "data/query.h"
#include "household/stock_store.h"
#include "support/test_window.h"

#include <QTest>

using namespace tarnwick;

class tst_stock_store : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void missing_category_other_is_made();
    void empty_category_forgets_that_it_was_open();
    void full_category_stays_open();
    void other_keeps_its_mark_without_items();
    void categories_come_by_name_with_their_counts_and_other_last();
    void items_come_by_name_with_the_stored_status();
    void expand_mark_is_stored_and_all_are_closed();
    void clickable_rows_come_in_the_order_of_placing();
    void box_click_writes_row_and_status_and_nothing_else();
    void first_tied_row_is_the_first_placed();

private:
    std::unique_ptr<TestWindow> window_;
};

void tst_stock_store::init()
{
    window_ = std::make_unique<TestWindow>();
}
void tst_stock_store::cleanup()
{
    window_.reset();
}

void tst_stock_store::missing_category_other_is_made()
{
    Query(window_->db(), "DELETE FROM cat").run();
    prepare_folders(window_->db());
    QCOMPARE(window_->number("SELECT count(*) FROM cat"), 1);
    QCOMPARE(window_->text("SELECT key_id || cat_desc || expand FROM cat"), QStringLiteral("0OTHER0"));
    prepare_folders(window_->db());
    QCOMPARE(window_->number("SELECT count(*) FROM cat"), 1);
}

void tst_stock_store::empty_category_forgets_that_it_was_open()
{
    window_->add_category(QStringLiteral("Dairy"), true);
    prepare_folders(window_->db());
    QCOMPARE(window_->number("SELECT expand FROM cat WHERE key_id = 1"), 0);
}

void tst_stock_store::full_category_stays_open()
{
    const Key dairy = window_->add_category(QStringLiteral("Dairy"), true);
    window_->add_item(QStringLiteral("Milk"), dairy);
    prepare_folders(window_->db());
    QCOMPARE(window_->number("SELECT expand FROM cat WHERE key_id = 1"), 1);
}

void tst_stock_store::other_keeps_its_mark_without_items()
{
    Query(window_->db(), "UPDATE cat SET expand = 1 WHERE key_id = 0").run();
    prepare_folders(window_->db());
    QCOMPARE(window_->number("SELECT expand FROM cat WHERE key_id = 0"), 1);
}

void tst_stock_store::categories_come_by_name_with_their_counts_and_other_last()
{
    const Key produce = window_->add_category(QStringLiteral("Produce"));
    const Key dairy = window_->add_category(QStringLiteral("dairy "), true);
    window_->add_item(QStringLiteral("Milk"), dairy);
    window_->add_item(QStringLiteral("Butter"), dairy);
    window_->add_item(QStringLiteral("Glue"), 0);
    const std::vector<CatalogueFolder> categories = read_categories(window_->db());
    QCOMPARE(categories.size(), size_t(3));
    QCOMPARE(categories[0].key, dairy);
    QCOMPARE(categories[0].name, QStringLiteral("dairy"));
    QVERIFY(categories[0].expand);
    QCOMPARE(categories[0].items, 2);
    QCOMPARE(categories[1].key, produce);
    QVERIFY(!categories[1].expand);
    QCOMPARE(categories[1].items, 0);
    QCOMPARE(categories[2].key, Key(0));
    QCOMPARE(categories[2].items, 1);
}

void tst_stock_store::items_come_by_name_with_the_stored_status()
{
    window_->add_item(QStringLiteral("milk"), 3, 8);
    window_->add_item(QStringLiteral("Butter "), 4, 6);
    QStringList seen;
    for (const CatalogueItem& item : in_name_order(read_named_items(window_->db())))
        seen << QStringLiteral("%1 %2 %3 %4").arg(item.key).arg(item.name).arg(item.category).arg(item.status);
    QCOMPARE(seen, QStringList({QStringLiteral("2 Butter 4 6"), QStringLiteral("1 milk 3 8")}));
}

void tst_stock_store::expand_mark_is_stored_and_all_are_closed()
{
    const Key dairy = window_->add_category(QStringLiteral("Dairy"));
    store_expand(window_->db(), dairy, true);
    store_expand(window_->db(), 0, true);
    store_expand(window_->db(), 99, true);
    QCOMPARE(window_->number("SELECT sum(expand) FROM cat"), 2);
    store_expand(window_->db(), dairy, false);
    QCOMPARE(window_->number("SELECT expand FROM cat WHERE key_id = 1"), 0);
    store_all_closed(window_->db());
    QCOMPARE(window_->number("SELECT sum(expand) FROM cat"), 0);
    QCOMPARE(window_->number("SELECT count(*) FROM cat"), 2);
}

void tst_stock_store::clickable_rows_come_in_the_order_of_placing()
{
    const Key milk = window_->add_item(QStringLiteral("Milk"), 0);
    const Key home = window_->add_list(QStringLiteral("Home"));
    const Key party = window_->add_list(QStringLiteral("Party"));
    const Key first = window_->add_row(milk, party, true);
    const Key second = window_->add_row(milk, home, false);
    const std::vector<TiedRow> rows = clickable_rows(window_->db(), milk);
    QCOMPARE(rows.size(), size_t(2));
    QCOMPARE(rows[0].groc_key, first);
    QCOMPARE(rows[0].list_key, party);
    QCOMPARE(rows[1].groc_key, second);
    QVERIFY(clickable_rows(window_->db(), 99).empty());
}

void tst_stock_store::box_click_writes_row_and_status_and_nothing_else()
{
    const Key milk = window_->add_item(QStringLiteral("Milk"), 0, 6);
    const Key home = window_->add_list(QStringLiteral("Home"));
    const Key row = window_->add_row(milk, home, false);
    window_->add_row(milk, home, false);
    store_box_click(window_->db(), milk, row, true);
    QCOMPARE(window_->number("SELECT to_get FROM groc_1 WHERE key_id = 1"), 1);
    QCOMPARE(window_->number("SELECT to_get FROM groc_1 WHERE key_id = 2"), 0);
    QCOMPARE(window_->number("SELECT status FROM items_1"), 7);
    QCOMPARE(window_->number("SELECT to_get FROM items_1"), 0);
    store_box_click(window_->db(), milk, row, false);
    QCOMPARE(window_->number("SELECT to_get FROM groc_1 WHERE key_id = 1"), 0);
    QCOMPARE(window_->number("SELECT status FROM items_1"), 6);
}

void tst_stock_store::first_tied_row_is_the_first_placed()
{
    const Key milk = window_->add_item(QStringLiteral("Milk"), 0);
    QVERIFY(!first_tied_row(window_->db(), milk));
    const Key party = window_->add_list(QStringLiteral("Party"));
    const Key home = window_->add_list(QStringLiteral("Home"));
    const Key row = window_->add_row(milk, home, false);
    window_->add_row(milk, party, true);
    const auto tied = first_tied_row(window_->db(), milk);
    QVERIFY(tied);
    QCOMPARE(tied->groc_key, row);
    QCOMPARE(tied->list_key, home);
}

QTEST_MAIN(tst_stock_store)
#include "tst_stock_store.moc"
