#include "household/recipe_store.h"
#include "household/status.h"

#include "data/query.h"
#include "data/schema.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tarnwick;

namespace {

class Store {
public:
    Store()
    {
        make_database(folder_.filePath(QStringLiteral("groc.mdb")));
        db.open(folder_.filePath(QStringLiteral("groc.mdb")));
    }

    void run(const char* sql) { Query(db, sql).run(); }

    QString text(const char* sql)
    {
        Query query(db, sql);
        return query.next() ? query.text(0) : QStringLiteral("(no row)");
    }

    Connection db;

private:
    QTemporaryDir folder_;
};

} // namespace

class tst_recipe_store : public QObject {
    Q_OBJECT

private slots:
    void display_text_joins_what_is_not_empty_data();
    void display_text_joins_what_is_not_empty();
    void recipes_are_read_in_name_order_and_trimmed();
    void lines_are_renumbered_from_zero();
    void lines_in_order_are_not_written();
    void lines_without_an_order_get_one();
    void a_missing_recipe_has_no_text();
    void a_save_trims_and_turns_line_ends_into_crlf();
    void an_empty_body_is_saved_as_the_help_text();
    void saving_a_missing_recipe_writes_nothing();
    void a_new_recipe_takes_the_first_free_key();
    void names_may_hold_apostrophes_and_pattern_signs();
    void a_delete_takes_the_lines_and_no_others();
    void a_category_of_one_digit_is_read_with_its_zero();
    void marking_an_item_writes_all_rows_and_the_status();
    void line_ends_of_every_kind_become_crlf();
};

void tst_recipe_store::display_text_joins_what_is_not_empty_data()
{
    QTest::addColumn<QString>("qty");
    QTest::addColumn<QString>("measure");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("text");
    const QString no;
    const auto s = [](const char* text) { return QString::fromLatin1(text); };
    QTest::newRow("all") << s("1") << s("cup") << s("Flour") << s("sifted") << s("1 cup Flour sifted");
    QTest::newRow("item") << no << no << s("Flour") << no << s("Flour");
    QTest::newRow("no measure") << s("2") << no << s("Eggs") << no << s("2 Eggs");
    QTest::newRow("comment alone") << no << no << no << s("sifted") << s(" sifted");
    QTest::newRow("quantity alone") << s("1") << no << no << no << s("1 ");
    QTest::newRow("nothing") << no << no << no << no << no;
}

void tst_recipe_store::display_text_joins_what_is_not_empty()
{
    QFETCH(QString, qty);
    QFETCH(QString, measure);
    QFETCH(QString, item);
    QFETCH(QString, comment);
    QFETCH(QString, text);
    const IngredientRow row{1, -1, qty, measure, item, comment};
    QCOMPARE(row.display_text(), text);
}

void tst_recipe_store::recipes_are_read_in_name_order_and_trimmed()
{
    Store store;
    store.run("INSERT INTO recipe_1 (key_id, r_name, cat) VALUES (1, 'pie ', ' 13 '), (2, 'Cake', '13'),"
              " (3, 'éclair', NULL), (0, 'Zero', '01'), (-4, 'Below', '01')");
    const auto rows = read_recipes(store.db);
    QCOMPARE(rows.size(), size_t{3});
    QCOMPARE(rows[0].name, QStringLiteral("Cake"));
    QCOMPARE(rows[1].key, Key{3});
    QCOMPARE(rows[1].cat, QString());
    QCOMPARE(rows[2].name, QStringLiteral("pie"));
    QCOMPARE(rows[2].cat, QStringLiteral("13"));
}

void tst_recipe_store::lines_are_renumbered_from_zero()
{
    Store store;
    store.run("INSERT INTO recipe_2 (key_id, r_ref, item, \"order\") VALUES (1, 7, 'c', 9), (2, 7, ' a ', 2),"
              " (3, 7, 'b', 5), (4, 8, 'other', 5)");
    const auto rows = load_lines(store.db, 7);
    QCOMPARE(rows.size(), size_t{3});
    QCOMPARE(rows[0].item, QStringLiteral("a"));
    QCOMPARE(rows[2].key, Key{1});
    QCOMPARE(store.text("SELECT group_concat(key_id || '=' || \"order\") FROM recipe_2"),
             QStringLiteral("1=2,2=0,3=1,4=5"));
}

void tst_recipe_store::lines_in_order_are_not_written()
{
    Store store;
    store.run("INSERT INTO recipe_2 (key_id, r_ref, item, \"order\") VALUES (1, 7, 'a', 0), (2, 7, 'b', 1)");
    store.run("CREATE TRIGGER no_write BEFORE UPDATE ON recipe_2 BEGIN SELECT RAISE(ABORT, 'written'); END");
    QCOMPARE(load_lines(store.db, 7).size(), size_t{2});
}

void tst_recipe_store::lines_without_an_order_get_one()
{
    Store store;
    store.run("INSERT INTO recipe_2 (key_id, r_ref, item, \"order\") VALUES (1, 7, 'a', NULL), (2, 7, 'b', NULL)");
    load_lines(store.db, 7);
    QCOMPARE(store.text("SELECT group_concat(\"order\") FROM recipe_2"), QStringLiteral("0,1"));
}

void tst_recipe_store::a_missing_recipe_has_no_text()
{
    Store store;
    QVERIFY(!read_recipe(store.db, 3));
    QVERIFY(!recipe_name(store.db, 3));
    QVERIFY(!recipe_for_move(store.db, 3));
    QVERIFY(!line_link(store.db, 3));
    QVERIFY(load_lines(store.db, 3).empty());
}

void tst_recipe_store::a_save_trims_and_turns_line_ends_into_crlf()
{
    Store store;
    const Key key = insert_recipe(store.db, QStringLiteral("Pie"), QStringLiteral("13"));
    QVERIFY(save_recipe(store.db, key, QStringLiteral(" Tart "), QStringLiteral("  a\nb\r\nc ")));
    QCOMPARE(store.text("SELECT r_name FROM recipe_1"), QStringLiteral("Tart"));
    QCOMPARE(store.text("SELECT r_body FROM recipe_1"), QStringLiteral("a\r\nb\r\nc"));
    QCOMPARE(store.text("SELECT cat FROM recipe_1"), QStringLiteral("13"));
}

void tst_recipe_store::an_empty_body_is_saved_as_the_help_text()
{
    Store store;
    const Key key = insert_recipe(store.db, QStringLiteral("Pie"), QStringLiteral("13"));
    QCOMPARE(store.text("SELECT r_body FROM recipe_1"), help_text());
    save_recipe(store.db, key, QStringLiteral("Pie"), QStringLiteral("x"));
    save_recipe(store.db, key, QStringLiteral("Pie"), QStringLiteral("   "));
    QCOMPARE(store.text("SELECT r_body FROM recipe_1"), help_text());
    QCOMPARE(help_text().count(QStringLiteral("\r\n")), 4);
}

void tst_recipe_store::saving_a_missing_recipe_writes_nothing()
{
    Store store;
    QVERIFY(!save_recipe(store.db, 5, QStringLiteral("Pie"), QStringLiteral("x")));
    QCOMPARE(store.text("SELECT count(*) FROM recipe_1"), QStringLiteral("0"));
}

void tst_recipe_store::a_new_recipe_takes_the_first_free_key()
{
    Store store;
    store.run("INSERT INTO recipe_1 (key_id, r_name) VALUES (1, 'a'), (3, 'b'), (4, 'c')");
    QCOMPARE(insert_recipe(store.db, QStringLiteral(" Pie "), QStringLiteral("04")), Key{2});
    QCOMPARE(store.text("SELECT r_name || cat FROM recipe_1 WHERE key_id = 2"), QStringLiteral("Pie04"));
}

void tst_recipe_store::names_may_hold_apostrophes_and_pattern_signs()
{
    Store store;
    const QString name = QStringLiteral("Gran's 100% _pie_");
    const Key key = insert_recipe(store.db, name, QStringLiteral("13"));
    QCOMPARE(recipe_name(store.db, key).value(), name);
    QVERIFY(save_recipe(store.db, key, name, QStringLiteral("Don't; DROP TABLE recipe_1")));
    QCOMPARE(read_recipe(store.db, key)->body, QStringLiteral("Don't; DROP TABLE recipe_1"));
}

void tst_recipe_store::a_delete_takes_the_lines_and_no_others()
{
    Store store;
    store.run("INSERT INTO recipe_1 (key_id, r_name) VALUES (1, 'a'), (2, 'b')");
    store.run("INSERT INTO recipe_2 (key_id, r_ref, item) VALUES (1, 1, 'x'), (2, 1, 'y'), (3, 2, 'z')");
    delete_recipe(store.db, 1);
    QCOMPARE(store.text("SELECT group_concat(r_name) FROM recipe_1"), QStringLiteral("b"));
    QCOMPARE(store.text("SELECT group_concat(item) FROM recipe_2"), QStringLiteral("z"));
}

void tst_recipe_store::a_category_of_one_digit_is_read_with_its_zero()
{
    Store store;
    store.run("INSERT INTO recipe_1 (key_id, r_name, cat) VALUES (1, ' a ', ' 4 '), (2, 'b', '12')");
    QCOMPARE(recipe_for_move(store.db, 1)->cat, QStringLiteral("04"));
    QCOMPARE(recipe_for_move(store.db, 1)->name, QStringLiteral("a"));
    QCOMPARE(recipe_for_move(store.db, 2)->cat, QStringLiteral("12"));
    set_recipe_category(store.db, 2, QStringLiteral("03"));
    QCOMPARE(recipe_for_move(store.db, 2)->cat, QStringLiteral("03"));
}

void tst_recipe_store::marking_an_item_writes_all_rows_and_the_status()
{
    Store store;
    store.run("INSERT INTO items_1 (key_id, item, cat, status) VALUES (1, 'Salt', 0, 6), (2, 'Oil', 0, 6)");
    store.run("INSERT INTO groc_1 (key_id, item, to_get) VALUES (1, 'Salt', 0), (2, 'Salt', 0), (3, 'Oil', 0)");
    store.run("INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (1, 1, 1, 4), (2, 2, 1, 5), (3, 3, 2, 4)");
    QCOMPARE(mark_item(store.db, 1, true), StatusCode::buy_it_plus);
    QCOMPARE(store.text("SELECT group_concat(to_get) FROM groc_1"), QStringLiteral("1,1,0"));
    QCOMPARE(store.text("SELECT group_concat(status) FROM items_1"), QStringLiteral("8,6"));
    QCOMPARE(mark_item(store.db, 1, false), StatusCode::inactive);
    QCOMPARE(store.text("SELECT group_concat(to_get) FROM groc_1"), QStringLiteral("0,0,0"));
}

void tst_recipe_store::line_ends_of_every_kind_become_crlf()
{
    QCOMPARE(with_crlf(QStringLiteral("a\nb\rc\r\nd\n\ne")), QStringLiteral("a\r\nb\r\nc\r\nd\r\n\r\ne"));
    QCOMPARE(with_crlf(QString()), QString());
}

QTEST_GUILESS_MAIN(tst_recipe_store)
#include "tst_recipe_store.moc"
