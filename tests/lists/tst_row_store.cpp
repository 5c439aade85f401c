#include "data/query.h"
#include "household/row_store.h"
#include "support/test_window.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTest>

#include <memory>

using namespace tarnwick;

class tst_row_store : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { window_.reset(); }

    void writes_each_field_alone_data();
    void writes_each_field_alone();
    void blanks_an_empty_text_data() { fields(); }
    void blanks_an_empty_text();
    void takes_any_text_as_it_stands_data();
    void takes_any_text_as_it_stands();
    void skips_a_row_that_has_gone();
    void a_database_that_turns_read_only_stops_the_write();

    void turning_a_coupon_on_moves_or_keeps_the_date_data();
    void turning_a_coupon_on_moves_or_keeps_the_date();
    void turning_a_coupon_on_replaces_a_text_that_is_no_date_data();
    void turning_a_coupon_on_replaces_a_text_that_is_no_date();
    void turning_a_coupon_off_leaves_the_date();
    void the_expiry_date_may_lie_in_the_past();
    void dates_are_stored_as_iso_text();

    void steps_the_number_at_the_start_data();
    void steps_the_number_at_the_start();
    void steps_a_number_of_any_length();

private:
    static void fields();
    QString created() { return window_->text("SELECT created FROM groc_1 WHERE key_id = 1"); }
    void set_created(const QString& text)
    {
        Query(window_->db(), "UPDATE groc_1 SET created = ? WHERE key_id = 1", text).run();
    }
    QString row_text(Key key)
    {
        Query row(
            window_->db(),
            "SELECT item || '|' || desc || '|' || qty || '|' || aisle || '|' || to_get || '|' || cpn || '|' || "
            "created || '|' || modified FROM groc_1 WHERE key_id = ?",
            key);
        return row.next() ? row.text(0) : QString();
    }
    Connection& db() { return window_->db(); }

    std::unique_ptr<TestWindow> window_;
    Key row_ = 0;
    Key other_row_ = 0;
};

namespace {

const QDate today(2026, 3, 14);

QString ninety_nines()
{
    return QString(90, u'9');
}

} // namespace

void tst_row_store::init()
{
    window_ = std::make_unique<TestWindow>();
    const Key list = window_->add_list(QStringLiteral("Corner shop"));
    row_ = window_->add_row(window_->add_item(QStringLiteral("Milk"), 0), list, true, QStringLiteral("fresh"),
                            QStringLiteral("2"), QStringLiteral("7"));
    other_row_ = window_->add_row(window_->add_item(QStringLiteral("Salt"), 0), list, true, QStringLiteral("fine"),
                                  QStringLiteral("1"), QStringLiteral("3"));
}

void tst_row_store::fields()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("column");
    QTest::newRow("description") << int(RowField::desc) << QStringLiteral("desc");
    QTest::newRow("quantity") << int(RowField::qty) << QStringLiteral("qty");
    QTest::newRow("aisle") << int(RowField::aisle) << QStringLiteral("aisle");
}

void tst_row_store::writes_each_field_alone_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("row");
    QTest::newRow("description") << int(RowField::desc) << QStringLiteral("Milk|new|2|7|1|0|2026-03-14|2026-03-14");
    QTest::newRow("quantity") << int(RowField::qty) << QStringLiteral("Milk|fresh|new|7|1|0|2026-03-14|2026-03-14");
    QTest::newRow("aisle") << int(RowField::aisle) << QStringLiteral("Milk|fresh|2|new|1|0|2026-03-14|2026-03-14");
}

void tst_row_store::writes_each_field_alone()
{
    QFETCH(int, field);
    QFETCH(QString, row);
    const QString other_before = row_text(other_row_);

    QVERIFY(write_row_field(db(), row_, static_cast<RowField>(field), QStringLiteral("new")));

    QCOMPARE(row_text(row_), row);
    QCOMPARE(row_text(other_row_), other_before);
}

void tst_row_store::blanks_an_empty_text()
{
    QFETCH(int, field);
    QFETCH(QString, column);
    QVERIFY(write_row_field(db(), row_, static_cast<RowField>(field), QString()));
    const std::string sql = "SELECT '[' || " + column.toStdString() + " || ']' FROM groc_1 WHERE key_id = 1";
    QCOMPARE(window_->text(sql.c_str()), QStringLiteral("[ ]"));
}

void tst_row_store::takes_any_text_as_it_stands_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("apostrophes") << QStringLiteral("the baker's 'own'");
    QTest::newRow("double quotes") << QStringLiteral("a \"good\" one");
    QTest::newRow("statement") << QStringLiteral("'; DELETE FROM groc_1; --");
    QTest::newRow("pattern signs") << QStringLiteral("100 % _pure_ *?");
    QTest::newRow("emoji") << QStringLiteral("\U0001F9C0 for \U0001F468\u200D\U0001F469\u200D\U0001F467");
    QTest::newRow("accents") << QStringLiteral("cr\u00E8me fra\u00EEche \u5473\u564C");
    QTest::newRow("10,000 characters") << QString(10'000, u'x');
    QTest::newRow("a number of eighty digits") << QString(80, u'7');
}

void tst_row_store::takes_any_text_as_it_stands()
{
    QFETCH(QString, text);
    for (const RowField field : {RowField::desc, RowField::qty, RowField::aisle})
        QVERIFY(write_row_field(db(), row_, field, text));
    for (const char* sql : {"SELECT desc FROM groc_1 WHERE key_id = 1", "SELECT qty FROM groc_1 WHERE key_id = 1",
                            "SELECT aisle FROM groc_1 WHERE key_id = 1"})
        QCOMPARE(window_->text(sql), text);
    QCOMPARE(window_->number("SELECT count(*) FROM groc_1"), 2);
}

void tst_row_store::skips_a_row_that_has_gone()
{
    const QString other_before = row_text(other_row_);
    Query(db(), "DELETE FROM groc_1 WHERE key_id = ?", row_).run();

    QVERIFY(!write_row_field(db(), row_, RowField::desc, QStringLiteral("late")));
    QVERIFY(!write_row_coupon(db(), row_, true, today));
    QVERIFY(!write_row_coupon(db(), row_, false, today));
    QVERIFY(!write_row_expiry(db(), row_, today));

    QCOMPARE(window_->number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(row_text(other_row_), other_before);
}

void tst_row_store::a_database_that_turns_read_only_stops_the_write()
{
    const QString before = row_text(row_);
    db().db().exec("PRAGMA query_only = ON");
    QVERIFY_EXCEPTION_THROWN(write_row_field(db(), row_, RowField::qty, QStringLiteral("9")), SQLite::Exception);
    QVERIFY_EXCEPTION_THROWN(write_row_coupon(db(), row_, true, today), SQLite::Exception);
    QVERIFY_EXCEPTION_THROWN(write_row_expiry(db(), row_, today), SQLite::Exception);
    db().db().exec("PRAGMA query_only = OFF");
    QCOMPARE(row_text(row_), before);

    QVERIFY(write_row_field(db(), row_, RowField::qty, QStringLiteral("9")));
    QCOMPARE(window_->text("SELECT qty FROM groc_1 WHERE key_id = 1"), QStringLiteral("9"));
}

void tst_row_store::turning_a_coupon_on_moves_or_keeps_the_date_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QDate>("now");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* stored, QDate now, const char* shown) {
        QTest::newRow(name) << QString::fromLatin1(stored) << now << QString::fromLatin1(shown);
    };
    row("expired date moves to today", "2026-03-13", today, "2026-03-14");
    row("date of today is today's", "2026-03-14", today, "2026-03-14");
    row("future date is kept", "2026-03-15", today, "2026-03-15");
    row("last day of the year has passed on new year's day", "2026-12-31", {2027, 1, 1}, "2027-01-01");
    row("new year's day lies ahead on the last day of the year", "2027-01-01", {2026, 12, 31}, "2027-01-01");
    row("leap day lies ahead on the day before", "2028-02-29", {2028, 2, 28}, "2028-02-29");
    row("leap day has passed on the first of March", "2028-02-29", {2028, 3, 1}, "2028-03-01");
    row("today is a leap day", "2027-02-28", {2028, 2, 29}, "2028-02-29");
    row("the last day there is", "9999-12-31", today, "9999-12-31");
    row("a date before all of ours", "0001-01-01", today, "2026-03-14");
    row("a date with a time of day", "2026-03-15 00:00:00", today, "2026-03-15");
}

void tst_row_store::turning_a_coupon_on_moves_or_keeps_the_date()
{
    QFETCH(QString, stored);
    QFETCH(QDate, now);
    QFETCH(QString, shown);
    set_created(stored);

    const std::optional<QDate> date = write_row_coupon(db(), row_, true, now);

    QVERIFY(date);
    QCOMPARE(date->toString(Qt::ISODate), shown);
    QCOMPARE(created().left(10), shown);
    QCOMPARE(window_->number("SELECT cpn FROM groc_1 WHERE key_id = 1"), 1);
    QCOMPARE(window_->number("SELECT cpn FROM groc_1 WHERE key_id = 2"), 0);
}

void tst_row_store::turning_a_coupon_on_replaces_a_text_that_is_no_date_data()
{
    QTest::addColumn<QString>("stored");
    for (const char* text : {"", " ", "soon", "2026-02-30", "3/15/2030", "12026-01-01"})
        QTest::newRow(qPrintable(QStringLiteral("[%1]").arg(QLatin1String(text)))) << QString::fromLatin1(text);
}

void tst_row_store::turning_a_coupon_on_replaces_a_text_that_is_no_date()
{
    QFETCH(QString, stored);
    set_created(stored);
    QCOMPARE(write_row_coupon(db(), row_, true, today).value(), today);
    QCOMPARE(created(), QStringLiteral("2026-03-14"));
}

void tst_row_store::turning_a_coupon_off_leaves_the_date()
{
    set_created(QStringLiteral("2025-01-02"));
    Query(db(), "UPDATE groc_1 SET cpn = 1").run();

    const std::optional<QDate> date = write_row_coupon(db(), row_, false, today);

    QVERIFY(date);
    QVERIFY(!date->isValid());
    QCOMPARE(created(), QStringLiteral("2025-01-02"));
    QCOMPARE(window_->number("SELECT cpn FROM groc_1 WHERE key_id = 1"), 0);
    QCOMPARE(window_->number("SELECT cpn FROM groc_1 WHERE key_id = 2"), 1);
}

void tst_row_store::the_expiry_date_may_lie_in_the_past()
{
    QVERIFY(write_row_expiry(db(), row_, QDate(1999, 12, 31)));
    QCOMPARE(created(), QStringLiteral("1999-12-31"));
}

void tst_row_store::dates_are_stored_as_iso_text()
{
    QVERIFY(write_row_expiry(db(), row_, QDate(2026, 1, 5)));
    QCOMPARE(created(), QStringLiteral("2026-01-05"));
    QCOMPARE(window_->text("SELECT typeof(created) FROM groc_1 WHERE key_id = 1"), QStringLiteral("text"));
}

void tst_row_store::steps_the_number_at_the_start_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("up");
    QTest::addColumn<QString>("down");
    const auto row = [](const char* name, const char* text, const char* up, const char* down) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(up) << QString::fromLatin1(down);
    };
    row("number with letters behind it", "2lb", "3lb", "1lb");
    row("a quantity of letters alone steps to 1 followed by those letters", "lb", "1lb", "lb");
    row("empty", "", "1", "");
    row("one blank", " ", "1", "");
    row("0 counts as no value", "0", "1", "");
    row("1 leaves nothing", "1", "2", "");
    row("1 leaves the rest alone", "1 kg", "2 kg", " kg");
    row("2", "2", "3", "1");
    row("into two digits and out of them", "9", "10", "8");
    row("10", "10", "11", "9");
    row("99", "99", "100", "98");
    row("1000", "1000", "1001", "999");
    row("leading zeros", "007", "8", "6");
    row("fraction behind the number", "1/2", "2/2", "/2");
    row("a sign is no digit", "-3", "1-3", "-3");
    row("letters before the number", "no 5", "1no 5", "no 5");
    row("blank before the number", " 2", "3", "1");
    row("blank before letters", " lb", "1 lb", " lb");
    row("blank behind the number", "2 ", "3", "1");
    row("32767", "32767", "32768", "32766");
    row("4294967295", "4294967295", "4294967296", "4294967294");
}

void tst_row_store::steps_the_number_at_the_start()
{
    QFETCH(QString, text);
    QFETCH(QString, up);
    QFETCH(QString, down);
    QCOMPARE(stepped_up(text), up);
    QCOMPARE(stepped_down(text), down);
}

void tst_row_store::steps_a_number_of_any_length()
{
    const QString one_more = u'1' + QString(90, u'0');
    QCOMPARE(stepped_up(ninety_nines() + QStringLiteral(" g")), one_more + QStringLiteral(" g"));
    QCOMPARE(stepped_down(one_more), ninety_nines());
    // Digits of other scripts are letters here.
    QCOMPARE(stepped_up(QStringLiteral("\u0663")), QStringLiteral("1\u0663"));
}

QTEST_MAIN(tst_row_store)
#include "tst_row_store.moc"
