#include "household/line_draft.h"

#include "data/keys.h"
#include "data/query.h"
#include "data/runtime_error.h"
#include "data/schema.h"
#include "household/status.h"
#include "support/error_number.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tarnwick;

class tst_ingredient_store : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void an_inserted_line_holds_blanks_and_a_cut_measure();
    void a_measure_is_not_cut_inside_a_character();
    void a_line_needs_its_recipe_and_loses_a_stock_item_that_has_gone();
    void a_line_past_the_last_key_is_an_overflow();
    void fields_are_written_trimmed_and_never_empty();
    void a_link_is_written_only_when_it_differs();
    void a_name_finds_its_stock_item_data();
    void a_name_finds_its_stock_item();
    void the_very_name_goes_before_its_plural();
    void names_begin_with_the_text_without_its_last_s();
    void an_item_is_looked_for_on_one_recipe();

private:
    Key item(const QString& name)
    {
        const Key key = get_node(*db_, Table::items_1);
        Query(*db_, "INSERT INTO items_1 (key_id, item, cat) VALUES (?, ?, 0)", key, name).run();
        return key;
    }
    IngredientRow row(const QString& name, Key item_ref = -1)
    {
        IngredientRow made;
        made.item = name;
        made.item_ref = item_ref;
        return made;
    }
    QString text(const char* sql)
    {
        Query query(*db_, sql);
        return query.next() ? query.text(0) : QStringLiteral("(no row)");
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Connection> db_;
    Key recipe_ = 0;
};

void tst_ingredient_store::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    const QString path = folder_->filePath(QStringLiteral("groc.mdb"));
    make_database(path);
    db_ = std::make_unique<Connection>();
    db_->open(path);
    recipe_ = insert_recipe(*db_, QStringLiteral("Soup"), QStringLiteral("11"));
}

void tst_ingredient_store::cleanup()
{
    db_.reset();
    folder_.reset();
}

void tst_ingredient_store::an_inserted_line_holds_blanks_and_a_cut_measure()
{
    IngredientRow line = row(QStringLiteral("  Salt "), item(QStringLiteral("Salt")));
    line.measure = QStringLiteral(" 1234567890123456789012345 ");
    const auto written = insert_line(*db_, recipe_, line, 4);
    QVERIFY(written);
    QCOMPARE(
        text("SELECT '[' || qty || '][' || measure || '][' || item || '][' || comment || '] ' || item_ref || ' '"
             " || r_ref || ' ' || \"order\" FROM recipe_2"),
        QStringLiteral("[ ][12345678901234567890][Salt][ ] 1 %1 4").arg(recipe_));
    const auto read = read_line(*db_, written->key);
    QVERIFY(read);
    QCOMPARE(read->display_text(), written->display_text());
    QCOMPARE(read->display_text(), QStringLiteral("12345678901234567890 Salt"));
}

void tst_ingredient_store::a_measure_is_not_cut_inside_a_character()
{
    const QString nineteen(19, u'a');
    QCOMPARE(measure_of_new_line(nineteen + QStringLiteral("🧂")), nineteen);
    QCOMPARE(measure_of_new_line(nineteen + QStringLiteral("é")), nineteen + QStringLiteral("é"));
    QCOMPARE(measure_of_new_line(QString()), QString());
}

void tst_ingredient_store::a_line_needs_its_recipe_and_loses_a_stock_item_that_has_gone()
{
    QVERIFY(!insert_line(*db_, Key(recipe_ + 1), row(QStringLiteral("Salt")), 0));
    QCOMPARE(text("SELECT count(*) FROM recipe_2"), QStringLiteral("0"));
    const auto written = insert_line(*db_, recipe_, row(QStringLiteral("Salt"), 55), 0);
    QVERIFY(written);
    QCOMPARE(written->item_ref, Key(-1));
    QCOMPARE(text("SELECT item_ref FROM recipe_2"), QStringLiteral("-1"));
}

void tst_ingredient_store::a_line_past_the_last_key_is_an_overflow()
{
    Query(*db_, "INSERT INTO recipe_2 (key_id, r_ref, item) VALUES (32767, 99, 'x')").run();
    QCOMPARE(error_number([this] { insert_line(*db_, recipe_, row(QStringLiteral("Salt")), 0); }),
             int(runtime_error::overflow));
    QCOMPARE(text("SELECT count(*) FROM recipe_2"), QStringLiteral("1"));
}

void tst_ingredient_store::fields_are_written_trimmed_and_never_empty()
{
    IngredientRow salt = row(QStringLiteral("Salt"));
    salt.qty = QStringLiteral("2");
    LineDraft draft = LineDraft::of(*insert_line(*db_, recipe_, salt, 0));
    draft.set_text(IngredientField::qty, QStringLiteral("  "));
    draft.set_text(IngredientField::measure, QStringLiteral(" 1234567890123456789012345"));
    draft.set_text(IngredientField::item, QStringLiteral("Baker's salt "));
    draft.set_text(IngredientField::comment, QStringLiteral("\"x\""));
    QVERIFY(save_line(*db_, draft));
    QCOMPARE(text("SELECT '[' || qty || '][' || measure || '][' || item || '][' || comment || ']' FROM recipe_2"),
             QStringLiteral("[ ][1234567890123456789012345][Baker's salt][\"x\"]"));
    draft.stored.key += 1;
    draft.set_text(IngredientField::qty, QStringLiteral("1"));
    QVERIFY(!save_line(*db_, draft));
    QCOMPARE(text("SELECT count(*) FROM recipe_2 WHERE qty = '1'"), QStringLiteral("0"));
}

void tst_ingredient_store::a_link_is_written_only_when_it_differs()
{
    LineDraft draft = LineDraft::of(*insert_line(*db_, recipe_, row(QStringLiteral("Salt")), 0));
    const Key sugar = item(QStringLiteral("Sugar"));
    Query(*db_, "CREATE TEMP TABLE writes (n)").run();
    Query(*db_, "CREATE TEMP TRIGGER w AFTER UPDATE ON recipe_2 BEGIN INSERT INTO writes VALUES (1); END").run();
    draft.stored_as(save_line(*db_, draft));
    QCOMPARE(text("SELECT count(*) FROM writes"), QStringLiteral("0"));
    draft.choose({QStringLiteral("Salt"), sugar});
    draft.stored_as(save_line(*db_, draft));
    draft.stored_as(save_line(*db_, draft));
    QCOMPARE(text("SELECT count(*) FROM writes"), QStringLiteral("1"));
    QCOMPARE(text("SELECT item_ref FROM recipe_2"), QString::number(sugar));
}

void tst_ingredient_store::a_name_finds_its_stock_item_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    const auto add = [](const char* name, const char* typed, const char* found) {
        QTest::newRow(name) << QString::fromUtf8(typed) << QString::fromUtf8(found);
    };
    add("itself", "Apple", "Apple");
    add("any case", " aPPle ", "Apple");
    add("plural for singular", "APPLES", "Apple");
    add("singular for plural", "egg", "Eggs");
    add("plural for plural", "eggs", "Eggs");
    add("accents", "ÉCLAIRS", "éclair");
    add("a beginning is no name", "App", "");
    add("one letter", "s", "");
    add("nothing", "  ", "");
    add("a pattern", "App_e", "Apple");
    add("an apostrophe", "Apple'", "");
}

void tst_ingredient_store::a_name_finds_its_stock_item()
{
    QFETCH(QString, typed);
    QFETCH(QString, found);
    for (const char* name : {"Apple", "Eggs", "éclair"})
        item(QString::fromUtf8(name));
    const Key key = stock_item_named(*db_, typed);
    QCOMPARE(stock_item_among(*db_, stock_names_like(*db_, typed), typed), trim(typed).isEmpty() ? Key(0) : key);
    QCOMPARE(key > 0 ? stock_item_name(*db_, key).value_or(QString()) : QString(), found);
}

void tst_ingredient_store::the_very_name_goes_before_its_plural()
{
    const Key plural = item(QStringLiteral("Oats"));
    const Key singular = item(QStringLiteral("Oat"));
    QCOMPARE(stock_item_named(*db_, QStringLiteral("oat")), singular);
    QCOMPARE(stock_item_named(*db_, QStringLiteral("oats")), plural);
    for (const QString& typed : {QStringLiteral("oat"), QStringLiteral("oats")})
        QCOMPARE(stock_item_among(*db_, stock_names_like(*db_, typed), typed), stock_item_named(*db_, typed));
}

void tst_ingredient_store::names_begin_with_the_text_without_its_last_s()
{
    for (const char* name : {"beer", "Beans", "bean", "Oats", "Sage"})
        item(QString::fromUtf8(name));
    const auto names = [this](const char* text) {
        QStringList list;
        for (const StockName& found : stock_names_like(*db_, QString::fromUtf8(text)))
            list.append(found.name);
        return list.join(u'|');
    };
    QCOMPARE(names("BEANS"), QStringLiteral("bean|Beans"));
    QCOMPARE(names("be"), QStringLiteral("bean|Beans|beer"));
    QCOMPARE(names("s"), QStringLiteral("bean|Beans|beer|Oats|Sage"));
    QCOMPARE(names("x'y"), QString());
}

void tst_ingredient_store::an_item_is_looked_for_on_one_recipe()
{
    const Key salt = item(QStringLiteral("Salt"));
    const Key other = insert_recipe(*db_, QStringLiteral("Stew"), QStringLiteral("02"));
    const Key line = insert_line(*db_, other, row(QStringLiteral("Salt"), salt), 0)->key;
    QVERIFY(item_on_recipe(*db_, other, salt));
    QVERIFY(!item_on_recipe(*db_, recipe_, salt));
    delete_line(*db_, line);
    QVERIFY(!item_on_recipe(*db_, other, salt));
}

QTEST_GUILESS_MAIN(tst_ingredient_store)
#include "tst_ingredient_store.moc"
