#include "data/query.h"
#include "household/status.h"
#include "support/test_window.h"

#include <QTest>

using namespace tarnwick;

class tst_status : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void unlisted_item_is_5_in_words_not_listed();
    void inactive_on_all_its_lists_is_6();
    void active_on_one_of_two_lists_is_7();
    void active_on_two_lists_is_8();
    void two_rows_on_one_list_count_one_by_one();
    void deleted_item_is_9_and_a_non_stock_item();
    void deleted_item_that_still_has_rows_counts_by_its_rows();
    void three_lists_have_two_separators_and_one_before_the_category();
    void list_that_is_gone_leaves_an_empty_name();
    void item_without_category_row_names_no_category();
    void tool_tip_has_the_name_before_the_words();
    void tool_tip_of_a_one_letter_name_has_the_words_alone();
    void pictures_of_each_code_data();
    void pictures_of_each_code();
    void number_that_is_no_code_names_none();
    void list_name_of_no_row_is_all();

private:
    Key item(const QString& name) { return window_->add_item(name, category_); }
    QString words(Key key) { return get_status(window_->db(), key); }
    int code(Key key) { return code_number(lite_status(window_->db(), key)); } ///< as the table holds it

    std::unique_ptr<TestWindow> window_;
    Key category_ = 0;
    Key home_ = 0;
    Key party_ = 0;
};

void tst_status::init()
{
    window_ = std::make_unique<TestWindow>();
    category_ = window_->add_category(QStringLiteral(" Dairy "));
    home_ = window_->add_list(QStringLiteral("Home"));
    party_ = window_->add_list(QStringLiteral("Party"));
}

void tst_status::cleanup()
{
    window_.reset();
}

void tst_status::unlisted_item_is_5_in_words_not_listed()
{
    const Key milk = item(QStringLiteral("Milk"));
    QCOMPARE(code(milk), 5);
    QCOMPARE(words(milk), QStringLiteral("Not listed :: Dairy category"));
}

void tst_status::inactive_on_all_its_lists_is_6()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, false);
    QCOMPARE(code(milk), 6);
    QCOMPARE(words(milk), QStringLiteral("Inactive On Home list :: Dairy category"));
    window_->add_row(milk, party_, false);
    QCOMPARE(code(milk), 6);
}

void tst_status::active_on_one_of_two_lists_is_7()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, true);
    QCOMPARE(code(milk), 7);
    QCOMPARE(words(milk), QStringLiteral("Active On Home list :: Dairy category"));
    window_->add_row(milk, party_, false);
    QCOMPARE(code(milk), 7);
    QCOMPARE(words(milk), QStringLiteral("Active On Home list :: Inactive On Party list :: Dairy category"));
}

void tst_status::active_on_two_lists_is_8()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, true);
    window_->add_row(milk, party_, true);
    QCOMPARE(code(milk), 8);
}

void tst_status::two_rows_on_one_list_count_one_by_one()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, true);
    window_->add_row(milk, home_, true);
    QCOMPARE(code(milk), 8);
}

void tst_status::deleted_item_is_9_and_a_non_stock_item()
{
    const Key milk = item(QStringLiteral("Milk"));
    Query(window_->db(), "DELETE FROM items_1 WHERE key_id = ?", milk).run();
    QCOMPARE(code(milk), 9);
    QCOMPARE(words(milk), QStringLiteral("Non-stock item"));
    QCOMPARE(get_ingred_name(window_->db(), milk), QString());
}

void tst_status::deleted_item_that_still_has_rows_counts_by_its_rows()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, true);
    Query(window_->db(), "DELETE FROM items_1 WHERE key_id = ?", milk).run();
    QCOMPARE(code(milk), 7);
    QCOMPARE(words(milk), QStringLiteral("Active On Home list"));
}

void tst_status::three_lists_have_two_separators_and_one_before_the_category()
{
    const Key milk = item(QStringLiteral("Milk"));
    const Key third = window_->add_list(QStringLiteral("Office"));
    window_->add_row(milk, third, true);
    window_->add_row(milk, home_, false);
    window_->add_row(milk, party_, true);
    QCOMPARE(words(milk),
             QStringLiteral("Active On Office list :: Inactive On Home list :: Active On Party list"
                            " :: Dairy category"));
}

void tst_status::list_that_is_gone_leaves_an_empty_name()
{
    const Key milk = item(QStringLiteral("Milk"));
    window_->add_row(milk, home_, true);
    Query(window_->db(), "DELETE FROM list_name WHERE key_id = ?", home_).run();
    QCOMPARE(words(milk), QStringLiteral("Active On  list :: Dairy category"));
}

void tst_status::item_without_category_row_names_no_category()
{
    const Key milk = window_->add_item(QStringLiteral("Milk"), 77);
    QCOMPARE(words(milk), QStringLiteral("Not listed"));
}

void tst_status::tool_tip_has_the_name_before_the_words()
{
    const Key milk = item(QStringLiteral("Milk"));
    QCOMPARE(get_ttt(window_->db(), milk), QStringLiteral("Milk - Not listed :: Dairy category"));
}

void tst_status::tool_tip_of_a_one_letter_name_has_the_words_alone()
{
    QCOMPARE(get_ttt(window_->db(), item(QStringLiteral("X"))), QStringLiteral("Not listed :: Dairy category"));
    QCOMPARE(get_ttt(window_->db(), item(QStringLiteral("XY"))),
             QStringLiteral("XY - Not listed :: Dairy category"));
}

void tst_status::pictures_of_each_code_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("light");
    QTest::addColumn<int>("check");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("Unlisted") << 5 << 175 << 113 << true;
    QTest::newRow("Inactive") << 6 << 183 << 113 << true;
    QTest::newRow("Buy-it") << 7 << 179 << 122 << true;
    QTest::newRow("Buy-it +") << 8 << 179 << 130 << false;
    QTest::newRow("Non-stock") << 9 << 171 << 113 << true;
}

void tst_status::pictures_of_each_code()
{
    QFETCH(int, code);
    QFETCH(int, light);
    QFETCH(int, check);
    QFETCH(bool, enabled);
    const StatusPictures pictures = status_pictures(code_of_number(code).value());
    QCOMPARE(pictures.light, light);
    QCOMPARE(pictures.check, check);
    QCOMPARE(pictures.check_enabled, enabled);
}

void tst_status::number_that_is_no_code_names_none()
{
    for (const int number : {-1, 0, 4, 10})
        QVERIFY(!code_of_number(number));
    for (const int number : {5, 6, 7, 8, 9})
        QCOMPARE(code_number(code_of_number(number).value()), number);
}

void tst_status::list_name_of_no_row_is_all()
{
    QCOMPARE(get_list_name(window_->db(), home_), QStringLiteral("Home"));
    QCOMPARE(get_list_name(window_->db(), 0), QStringLiteral("All"));
}

QTEST_MAIN(tst_status)
#include "tst_status.moc"
