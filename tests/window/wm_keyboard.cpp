#include "data/connection.h"
#include "data/query.h"
#include "probe/pie_household.h"
#include "probe/real_keyboard.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::real_keyboard;

/// The real window by a real keyboard alone.
class wm_keyboard : public QObject {
    Q_OBJECT
private slots:
    void init();
    void the_way_round_the_window_and_its_menus();
    void a_row_is_edited_and_given_back();
    void one_click_into_a_cell_puts_the_caret_there_data();
    void one_click_into_a_cell_puts_the_caret_there();
    void a_new_recipe_is_named_and_written();
    void a_removed_line_comes_back();
    void the_item_editor_puts_the_item_on_another_list();
    void ok_that_places_nothing_says_so();

private:
    /// A real click into the first row of a grid, under the head of a column.
    static void click_cell(QProcess& process, const QByteArray& head)
    {
        const QStringList column = RealProgram::ask(process, "where " + head).split(u' ');
        QCOMPARE(column.size(), 4);
        constexpr int into = 12; // pixels
        QVERIFY(!RealProgram::xdotool({QStringLiteral("mousemove"), QString::number(column[0].toInt() + into),
                                       QString::number(column[1].toInt() + column[3].toInt() + into),
                                       QStringLiteral("click"), QStringLiteral("1")})
                     .isNull());
    }
    std::unique_ptr<QProcess> start(const char* lists_first)
    {
        return start_with(program_, "TreeView1(0)", {{"arcp", "1"}, {"alist", "1"}, {"lv_view", lists_first}});
    }
    QString text(const char* sql) { return stored(program_, sql); }
    /// Another list, and an item that is on none.
    void add_party()
    {
        Connection connection;
        connection.open(program_.database());
        for (const char* sql : {"INSERT INTO list_name (key_id, list_name, active) VALUES (2, 'Party', 0)",
                                "INSERT INTO items_1 (key_id, item, cat, status) VALUES (2, 'Yeast', 0, 5)"})
            Query(connection, sql).run();
    }

    RealProgram program_;
};

void wm_keyboard::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    const Key recipe = make_pie_household(connection);
    for (int i = 0; i < 2; ++i)
        Query(connection,
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " VALUES (?, ?, -1, ?, '1', 'cup', ' ', ?)",
              i + 1, recipe, i == 0 ? QStringLiteral("Salt") : QStringLiteral("Oil"), i)
            .run();
}

void wm_keyboard::the_way_round_the_window_and_its_menus()
{
    const auto process = start("1");
    QVERIFY(process);
    for (const char* next : {"Listview1", "TreeView1(0)"}) {
        press("F6");
        QTRY_COMPARE(keyboard(*process), QString::fromLatin1(next));
    }
    press("shift+F6");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    const std::pair<const char*, QByteArray> menus[]
        = {{"alt+s", "mnu_list"},  {"alt+r", "mnu_recipe"}, {"alt+k", "mnu_edit"},
           {"alt+t", "mnu_tools"}, {"alt+v", "mnu_view"},   {"alt+h", "mnu_help"}};
    for (const auto& [keys, menu] : menus) {
        press(keys);
        QTRY_VERIFY2(is_shown(*process, menu), menu.constData());
        press("Escape");
        QTRY_VERIFY(!is_shown(*process, menu));
        press("Escape");
        QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    }
    press("shift+F10");
    QTRY_VERIFY(is_shown(*process, "mnu_lv"));
    press("Escape");
    QTRY_VERIFY(!is_shown(*process, "mnu_lv"));
    leave(*process);
}

void wm_keyboard::a_row_is_edited_and_given_back()
{
    const auto process = start("1");
    QVERIFY(process);
    press("F6");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    type(QStringLiteral("5 kg"));
    QTRY_COMPARE(RealProgram::ask(*process, "get qty_brdr text"), QStringLiteral("5 kg"));
    press("Return");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    press("F2");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("desc_brdr"));
    type(QStringLiteral(" and soft"));
    QTRY_COMPARE(RealProgram::ask(*process, "get desc_brdr text"), QStringLiteral("salted and soft"));
    press("Escape");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    press("space");
    QTRY_COMPARE(text("SELECT qty || '/' || desc || '/' || to_get FROM groc_1"), QStringLiteral("5 kg/salted/0"));
    leave(*process);
}

void wm_keyboard::one_click_into_a_cell_puts_the_caret_there_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("stored");
    QTest::newRow("description") << QByteArray("listheader_lbl(1)") << QStringLiteral("desc_brdr")
                                 << QStringLiteral("2/salted and soft");
    QTest::newRow("quantity") << QByteArray("listheader_lbl(2)") << QStringLiteral("qty_brdr")
                              << QStringLiteral("2 and soft/salted");
    QTest::newRow("description in the item editor")
        << QByteArray("listheaderlbl(1)") << QStringLiteral("desc_brdr") << QStringLiteral("2/salted and soft");
    QTest::newRow("quantity in the item editor")
        << QByteArray("listheaderlbl(2)") << QStringLiteral("qty_brdr") << QStringLiteral("2 and soft/salted");
}

void wm_keyboard::one_click_into_a_cell_puts_the_caret_there()
{
    QFETCH(QByteArray, head);
    QFETCH(QString, box);
    QFETCH(QString, stored);
    const auto process = start("1");
    QVERIFY(process);
    press("F6");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    if (head.startsWith("listheaderlbl")) {
        press("shift+F10");
        QTRY_VERIFY(is_shown(*process, "mnu_lv"));
        press("Down");
        press("Return");
        QTRY_VERIFY(is_shown(*process, "l_item_edit"));
        QTest::qWait(500);
    }
    click_cell(*process, head);
    QTRY_COMPARE(keyboard(*process), box);
    press("End");
    type(QStringLiteral(" and soft"));
    press("Return");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    if (is_shown(*process, "l_item_edit"))
        press("Return"); // OK
    QTRY_COMPARE(text("SELECT qty || '/' || desc FROM groc_1"), stored);
    leave(*process);
}

void wm_keyboard::a_new_recipe_is_named_and_written()
{
    const auto process = start("1");
    QVERIFY(process);
    press("alt+r");
    QTRY_VERIFY(is_shown(*process, "mnu_recipe"));
    press("Return"); // the first command that can be chosen
    QTRY_VERIFY(is_shown(*process, "new_item_rcp"));
    QTest::qWait(300);
    type(QStringLiteral("Stew"));
    press("Return");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Text1"));
    type(QStringLiteral("Simmer"));
    QTRY_COMPARE(RealProgram::ask(*process, "get Text1 plainText"), QStringLiteral("Simmer"));
    leave(*process);
    QCOMPARE(text("SELECT r_name || '/' || r_body FROM recipe_1 WHERE key_id = 2"), QStringLiteral("Stew/Simmer"));
}

void wm_keyboard::a_removed_line_comes_back()
{
    const auto process = start("0");
    QVERIFY(process);
    press("F6");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(0)"));
    press("Down");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(1)"));
    press("Delete");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(0)"));
    press("ctrl+z");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(1)"));
    press("Return");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ing_flt_txtQty"));
    type(QStringLiteral("9"));
    press("Escape");
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(1)"));
    leave(*process);
    QCOMPARE(text("SELECT group_concat(qty || item) FROM (SELECT * FROM recipe_2 ORDER BY \"order\")"),
             QStringLiteral("1Salt,1Oil"));
}

void wm_keyboard::the_item_editor_puts_the_item_on_another_list()
{
    add_party();
    const auto process = start("1");
    QVERIFY(process);
    QVERIFY(leads_to(*process, "F6", "Listview1"));
    press("shift+F10");
    QTRY_VERIFY(is_shown(*process, "mnu_lv"));
    press("Down");
    press("Return");
    QTRY_VERIFY(is_shown(*process, "l_item_edit"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("txt_item"));
    for (const char* next : {"Combo1", "CmdNewCat", "Listview1"})
        QVERIFY2(leads_to(*process, "Tab", next), next);
    press("Down");
    QVERIFY(leads_to(*process, "F2", "desc_brdr"));
    type(QStringLiteral("soft"));
    QVERIFY(leads_to(*process, "Escape", "Listview1"));
    QVERIFY(is_shown(*process, "l_item_edit"));
    press("space");
    press("Return"); // OK
    QTRY_COMPARE(text("SELECT g.item || trim(g.desc) || g.to_get FROM groc_1 g, tie t WHERE t.groc_id = g.key_id "
                      "AND t.list = 2"),
                 QStringLiteral("Butter1"));
    leave(*process);
}

void wm_keyboard::ok_that_places_nothing_says_so()
{
    add_party();
    const auto process
        = start_with(program_, "TreeView1(0)", {{"alist", "1"}, {"lv_view", "1"}, {"sort", "alpha"}});
    QVERIFY(process);
    RealProgram::tell(*process, "do mnu_list_list(2)"); // all lists
    type(QStringLiteral("yea"));
    QTest::qWait(700); // a blank is then no more a letter
    press("space");
    QTRY_VERIFY(is_shown(*process, "l_item_edit"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("txt_item"));
    press("Return"); // OK
    QVERIFY(RealProgram::wait_for(*process, "Yeast was not added to any list"));
    QTRY_VERIFY(!is_shown(*process, "l_item_edit"));
    QCOMPARE(text("SELECT count(*) FROM tie"), QStringLiteral("1"));
    leave(*process);
}

QTEST_GUILESS_MAIN(wm_keyboard)
#include "wm_keyboard.moc"
