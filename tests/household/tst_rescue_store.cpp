#include "data/keys.h"
#include "data/query.h"
#include "data/schema.h"
#include "household/line_draft.h"
#include "household/rescue.h"
#include "support/child_process.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace tarnwick;

/// What becomes of a text that an error kept from being stored.
class tst_rescue_store : public QObject {
    Q_OBJECT
private slots:
    void init();

    void a_rescue_is_read_as_it_was_written();
    void a_second_rescue_does_not_overwrite_the_first();
    void a_folder_that_takes_nothing_is_replaced_by_the_state_folder();
    void a_full_disk_is_no_rescue_and_leaves_no_half_file();
    void a_garbled_file_is_no_rescue();
    void a_rescue_set_aside_is_kept_and_not_offered();

    void a_text_goes_over_what_it_was_typed_over();
    void a_text_changed_meanwhile_stays_and_the_rescued_one_follows_it();
    void a_name_changed_meanwhile_stays_and_the_rescued_one_is_kept();
    void a_recipe_that_is_gone_is_made_again();
    void another_recipe_under_the_same_key_is_left_alone();
    void putting_back_twice_changes_nothing();
    void a_line_gets_its_texts_back();
    void a_line_changed_meanwhile_stays_and_a_new_one_follows();
    void a_new_line_is_added_at_the_end_with_its_link();
    void a_row_gets_its_text_back_unless_it_is_another_row();
    void a_new_stock_item_is_made_and_put_on_its_lists();
    void a_stock_item_gets_its_name_and_the_texts_of_its_rows();
    void a_stock_item_whose_name_is_taken_stays_in_the_file();
    void a_stock_item_that_is_gone_is_not_made_again();

private:
    QString database() const { return folder_->filePath(QStringLiteral("twdata/groc.mdb")); }
    QString text(const char* sql);
    Rescue soup(const QString& name, const QString& body) const;
    Key add_list(const QString& name);
    static RowEdit row_on(Key list);
    Rescue typed_item(Key item, const QString& old_name, const QString& name, const RowEdit& row) const;
    QString rows();

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Connection> connection_;
    Key recipe_ = 0;
};

void tst_rescue_store::init()
{
    connection_.reset();
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(make_database(database()));
    qputenv("XDG_STATE_HOME", QFile::encodeName(folder_->filePath(QStringLiteral("state"))));
    connection_ = std::make_unique<Connection>();
    connection_->open(database());
    recipe_ = insert_recipe(*connection_, QStringLiteral("Soup"), QStringLiteral("11"));
    QVERIFY(save_recipe(*connection_, recipe_, QStringLiteral("Soup"), QStringLiteral("Stir.")));
}

QString tst_rescue_store::text(const char* sql)
{
    Query query(*connection_, sql);
    return query.next() ? query.text(0) : QStringLiteral("(no row)");
}

Rescue tst_rescue_store::soup(const QString& name, const QString& body) const
{
    Rescue rescue;
    rescue.recipe = recipe_;
    rescue.before = {QStringLiteral("Soup"), QStringLiteral("Stir.")};
    rescue.typed = RecipeText{name, body};
    return rescue;
}

Key tst_rescue_store::add_list(const QString& name)
{
    const Key key = get_node(*connection_, Table::list_name);
    Query(*connection_, "INSERT INTO list_name (key_id, list_name) VALUES (?, ?)", key, name).run();
    return key;
}

RowEdit tst_rescue_store::row_on(Key list)
{
    RowEdit row;
    row.action = RowAction::place;
    row.list_key = list;
    row.to_get = true;
    return row;
}

/// As it comes out of a rescue file.
Rescue tst_rescue_store::typed_item(Key item, const QString& old_name, const QString& name,
                                    const RowEdit& row) const
{
    Rescue rescue;
    rescue.item = RescuedItem{old_name, {}};
    rescue.item->edit.item = item;
    rescue.item->edit.name = name;
    rescue.item->edit.today = QDate(2026, 3, 14);
    rescue.item->edit.rows = {row};
    return read_rescue(write_rescue(rescue, database())).value_or(Rescue());
}

QString tst_rescue_store::rows()
{
    return text("SELECT group_concat(t.list || ':' || g.item || ':' || g.desc || ':' || g.qty || ':' || g.aisle"
                " || ':' || g.cpn || ':' || g.created || ':' || g.to_get, ' / ')"
                " FROM groc_1 g, tie t WHERE t.groc_id = g.key_id");
}

void tst_rescue_store::a_rescue_is_read_as_it_was_written()
{
    Rescue rescue = soup(QStringLiteral("Soupe \"à l'oignon\""), QStringLiteral("Stir.\r\nServe 🍲."));
    rescue.line = RescuedLine{
        {3, 7, QStringLiteral("1"), QStringLiteral("cup"), QStringLiteral("milk"), QString()},
        {3, 7, QStringLiteral("2"), QStringLiteral("cups"), QStringLiteral("milk"), QStringLiteral("warm")}};
    rescue.field = RescuedField{4, QStringLiteral("Milk"), RowField::aisle, QStringLiteral("12")};
    const QString file = write_rescue(rescue, database());
    QCOMPARE(file, folder_->filePath(QStringLiteral("twdata/rescue.json")));
    QCOMPARE(rescue_files(database()), QStringList(file));
    const auto read = read_rescue(file);
    QVERIFY(read);
    QCOMPARE(read->recipe, recipe_);
    QCOMPARE(read->before.body, QStringLiteral("Stir."));
    QCOMPARE(read->typed->name, rescue.typed->name);
    QCOMPARE(read->typed->body, rescue.typed->body);
    QCOMPARE(read->line->before.qty, QStringLiteral("1"));
    QCOMPARE(read->line->typed.display_text(), QStringLiteral("2 cups milk warm"));
    QCOMPARE(read->line->typed.key, Key{3});
    QCOMPARE(read->line->typed.item_ref, Key{7});
    QCOMPARE(read->field->groc_key, Key{4});
    QCOMPARE(read->field->field, RowField::aisle);
    QCOMPARE(read->field->typed, QStringLiteral("12"));
}

void tst_rescue_store::a_second_rescue_does_not_overwrite_the_first()
{
    const QString first = write_rescue(soup(QStringLiteral("one"), QString()), database());
    const QString second = write_rescue(soup(QStringLiteral("two"), QString()), database());
    QVERIFY(first != second);
    QCOMPARE(rescue_files(database()).size(), 2);
    QCOMPARE(read_rescue(first)->typed->name, QStringLiteral("one"));
    QCOMPARE(read_rescue(second)->typed->name, QStringLiteral("two"));
}

void tst_rescue_store::a_folder_that_takes_nothing_is_replaced_by_the_state_folder()
{
    QFile::setPermissions(folder_->path(), QFile::Permissions(0x7777));
    QFile::setPermissions(QFileInfo(database()).path(), QFile::Permissions(0x5555));
    const Rescue rescue = soup(QStringLiteral("Soups"), QString());
    const QString given = as_nobody([&] {
        const QString file = write_rescue(rescue, database());
        const bool found = rescue_files(database()) == QStringList(file);
        const bool not_others = rescue_files(QStringLiteral("/elsewhere/groc.mdb")).isEmpty();
        return file.startsWith(folder_->filePath(QStringLiteral("state/tarnwick/rescue-"))) && found && not_others
            ? read_rescue(file)->typed->name
            : file;
    });
    QFile::setPermissions(QFileInfo(database()).path(), QFile::Permissions(0x7755));
    QCOMPARE(given, QStringLiteral("Soups"));
}

void tst_rescue_store::a_full_disk_is_no_rescue_and_leaves_no_half_file()
{
    const QString given = in_child_process([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none{10, 10};
        setrlimit(RLIMIT_FSIZE, &none);
        return write_rescue(soup(QStringLiteral("Soups"), QString()), database());
    });
    QCOMPARE(given, QString());
    QCOMPARE(rescue_files(database()), QStringList());
}

void tst_rescue_store::a_garbled_file_is_no_rescue()
{
    QFile file(folder_->filePath(QStringLiteral("twdata/rescue.json")));
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("{"), QByteArray("[1]"), QByteArray("{\"typed\": 3")}) {
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        file.close();
        QVERIFY2(!read_rescue(file.fileName()), bytes.constData());
    }
}

void tst_rescue_store::a_rescue_set_aside_is_kept_and_not_offered()
{
    const QString file = write_rescue(soup(QStringLiteral("Soups"), QString()), database());
    const QString aside = set_rescue_aside(file);
    QVERIFY(aside != file);
    QCOMPARE(read_rescue(aside)->typed->name, QStringLiteral("Soups"));
    QCOMPARE(rescue_files(database()), QStringList());
}

void tst_rescue_store::a_text_goes_over_what_it_was_typed_over()
{
    QVERIFY(put_back(*connection_, soup(QStringLiteral("Soups"), QStringLiteral("Stir.\nServe."))));
    QCOMPARE(text("SELECT r_name || '|' || r_body FROM recipe_1"), QStringLiteral("Soups|Stir.\r\nServe."));
    QCOMPARE(text("SELECT count(*) FROM recipe_1"), QStringLiteral("1"));
}

void tst_rescue_store::a_text_changed_meanwhile_stays_and_the_rescued_one_follows_it()
{
    QVERIFY(save_recipe(*connection_, recipe_, QStringLiteral("Soup"), QStringLiteral("Boil.")));
    QVERIFY(put_back(*connection_, soup(QStringLiteral("Soups"), QStringLiteral("Stir.\nServe."))));
    QCOMPARE(text("SELECT r_name || '|' || r_body FROM recipe_1"),
             QStringLiteral("Soups|Boil.\r\n\r\nStir.\r\nServe."));
}

void tst_rescue_store::a_name_changed_meanwhile_stays_and_the_rescued_one_is_kept()
{
    QVERIFY(save_recipe(*connection_, recipe_, QStringLiteral("Broth"), QStringLiteral("Stir.")));
    QVERIFY(put_back(*connection_, soup(QStringLiteral("Soups"), QStringLiteral("Stir. Serve."))));
    QCOMPARE(text("SELECT r_name || '|' || r_body FROM recipe_1"),
             QStringLiteral("Broth|Stir. Serve.\r\n\r\nSoups"));
}

void tst_rescue_store::a_recipe_that_is_gone_is_made_again()
{
    delete_recipe(*connection_, recipe_);
    Rescue rescue = soup(QStringLiteral(" "), QStringLiteral("Serve."));
    rescue.line = RescuedLine{{}, {-1, -1, QStringLiteral("2"), QString(), QStringLiteral("carrots"), QString()}};
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT r_name || '|' || r_body || '|' || cat FROM recipe_1"),
             QStringLiteral("Recipe|Serve.|15"));
    QCOMPARE(text("SELECT r.item FROM recipe_2 r, recipe_1 t WHERE r.r_ref = t.key_id"), QStringLiteral("carrots"));
}

void tst_rescue_store::another_recipe_under_the_same_key_is_left_alone()
{
    QVERIFY(save_recipe(*connection_, recipe_, QStringLiteral("Cake"), QStringLiteral("Bake.")));
    QVERIFY(put_back(*connection_, soup(QStringLiteral("Soups"), QStringLiteral("Serve."))));
    QCOMPARE(text("SELECT group_concat(r_name || '|' || r_body, ' / ') FROM recipe_1"),
             QStringLiteral("Cake|Bake. / Soups|Serve."));
}

void tst_rescue_store::putting_back_twice_changes_nothing()
{
    Rescue rescue = soup(QStringLiteral("Soup"), QStringLiteral("Serve."));
    QVERIFY(put_back(*connection_, rescue));
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT group_concat(r_name || '|' || r_body) FROM recipe_1"), QStringLiteral("Soup|Serve."));
}

void tst_rescue_store::a_line_gets_its_texts_back()
{
    const auto line
        = insert_line(*connection_, recipe_,
                      {-1, -1, QStringLiteral("1"), QStringLiteral("cup"), QStringLiteral("milk"), QString()}, 0);
    Rescue rescue = soup({}, {});
    rescue.typed.reset();
    rescue.line = RescuedLine{*line, *line};
    rescue.line->typed.qty = QStringLiteral("2");
    rescue.line->typed.comment = QStringLiteral("warm");
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT group_concat(qty || measure || item || comment || item_ref) FROM recipe_2"),
             QStringLiteral("2cupmilkwarm-1"));
    QCOMPARE(text("SELECT r_body FROM recipe_1"), QStringLiteral("Stir."));
}

void tst_rescue_store::a_line_changed_meanwhile_stays_and_a_new_one_follows()
{
    const auto line
        = insert_line(*connection_, recipe_,
                      {-1, -1, QStringLiteral("1"), QStringLiteral("cup"), QStringLiteral("milk"), QString()}, 0);
    Rescue rescue = soup({}, {});
    rescue.typed.reset();
    rescue.line = RescuedLine{*line, *line};
    rescue.line->typed.qty = QStringLiteral("2");
    LineDraft other = LineDraft::of(*line);
    other.set_text(IngredientField::qty, QStringLiteral("3"));
    QVERIFY(save_line(*connection_, other));
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT group_concat(trim(qty) || item || \"order\") FROM recipe_2"),
             QStringLiteral("3milk0,2milk1"));
}

void tst_rescue_store::a_new_line_is_added_at_the_end_with_its_link()
{
    Query(*connection_, "INSERT INTO items_1 (key_id, item, cat) VALUES (9, 'Milk', 0)").run();
    Rescue rescue = soup({}, {});
    rescue.typed.reset();
    rescue.line = RescuedLine{{}, {-1, -1, QStringLiteral("2"), QString(), QStringLiteral("milk"), QString()}};
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT group_concat(qty || item || item_ref || r_ref) FROM recipe_2"),
             QStringLiteral("2milk9%1").arg(recipe_));
}

void tst_rescue_store::a_row_gets_its_text_back_unless_it_is_another_row()
{
    Query(*connection_, "INSERT INTO groc_1 (key_id, item, desc, qty, aisle) VALUES (4, 'Milk', ' ', '1', ' ')")
        .run();
    Rescue rescue;
    rescue.field = RescuedField{4, QStringLiteral("Milk"), RowField::qty, QStringLiteral("2 l")};
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT qty FROM groc_1"), QStringLiteral("2 l"));
    rescue.field->item = QStringLiteral("Bread");
    rescue.field->typed = QStringLiteral("3");
    QVERIFY(!put_back(*connection_, rescue));
    QCOMPARE(text("SELECT qty FROM groc_1"), QStringLiteral("2 l"));
}

void tst_rescue_store::a_new_stock_item_is_made_and_put_on_its_lists()
{
    const Key list = add_list(QStringLiteral("Weekly"));
    RowEdit row = row_on(list);
    row.coupon = true;
    row.date = QStringLiteral("12/24/2026");
    row.desc = QStringLiteral("cold");
    row.qty = QStringLiteral("2 kg");
    row.aisle = QStringLiteral("9");
    const Rescue rescue = typed_item(-1, QString(), QStringLiteral("Bob's milk"), row);
    QCOMPARE(rescue_contents(rescue), QStringLiteral("Stock item \"Bob's milk\""));
    QVERIFY(put_back(*connection_, rescue));
    QCOMPARE(text("SELECT item || ':' || cat || ':' || status FROM items_1"), QStringLiteral("Bobs milk:0:7"));
    QCOMPARE(rows(), QStringLiteral("%1:Bobs milk:cold:2 kg:9:1:2026-12-24:1").arg(list));
    QVERIFY(!put_back(*connection_, rescue)); // the name is there now
    QCOMPARE(text("SELECT count(*) FROM items_1"), QStringLiteral("1"));
}

void tst_rescue_store::a_stock_item_gets_its_name_and_the_texts_of_its_rows()
{
    const Key list = add_list(QStringLiteral("Weekly"));
    QVERIFY(put_back(*connection_, typed_item(-1, QString(), QStringLiteral("Milk"), row_on(list))));
    RowEdit row = row_on(list);
    row.action = RowAction::rewrite;
    row.groc_key = 1;
    row.desc = QStringLiteral("cold");
    QVERIFY(put_back(*connection_, typed_item(1, QStringLiteral("Milk"), QStringLiteral("Oat milk"), row)));
    QCOMPARE(text("SELECT item FROM items_1"), QStringLiteral("Oat milk"));
    QVERIFY2(rows().startsWith(QStringLiteral("%1:Oat milk:cold:").arg(list)), qPrintable(rows()));
    // It was written after all, and the error came behind that.
    QVERIFY(put_back(*connection_,
                     typed_item(1, QStringLiteral("Oat milk"), QStringLiteral("Oat milk"), row_on(list))));
    QCOMPARE(text("SELECT count(*) FROM groc_1"), QStringLiteral("1"));
}

void tst_rescue_store::a_stock_item_whose_name_is_taken_stays_in_the_file()
{
    QVERIFY(put_back(*connection_, typed_item(-1, QString(), QStringLiteral("Milk"), {})));
    QVERIFY(put_back(*connection_, typed_item(-1, QString(), QStringLiteral("Oats"), {})));
    QVERIFY(!put_back(*connection_, typed_item(-1, QString(), QStringLiteral("MILK"), {})));
    QVERIFY(!put_back(*connection_, typed_item(2, QStringLiteral("Oats"), QStringLiteral("Milk"), {})));
    QVERIFY(!put_back(*connection_, typed_item(-1, QString(), QString(), {})));
    QCOMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Milk,Oats"));
}

void tst_rescue_store::a_stock_item_that_is_gone_is_not_made_again()
{
    QVERIFY(put_back(*connection_, typed_item(-1, QString(), QStringLiteral("Milk"), {})));
    QVERIFY(!put_back(*connection_, typed_item(1, QStringLiteral("Oats"), QStringLiteral("Oats, rolled"), {})));
    QVERIFY(!put_back(*connection_, typed_item(2, QStringLiteral("Oats"), QStringLiteral("Oats, rolled"), {})));
    QCOMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Milk"));
}

QTEST_GUILESS_MAIN(tst_rescue_store)
#include "tst_rescue_store.moc"
