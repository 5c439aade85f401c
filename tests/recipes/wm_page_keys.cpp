#include "data/connection.h"
#include "data/query.h"
#include "probe/pie_household.h"
#include "probe/real_keyboard.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::real_keyboard;

/// The recipe page by a real keyboard alone.
class wm_page_keys : public QObject {
    Q_OBJECT
private slots:
    void init();
    void arrows_go_along_the_lines_and_space_clicks_a_box();
    void a_right_click_leaves_the_keyboard_on_its_line();
    void escape_leaves_a_line_as_it_was();
    void a_new_line_is_dropped_or_kept();
    void the_round_takes_in_the_boxes_of_an_open_line();
    void a_removed_line_comes_back_data();
    void a_removed_line_comes_back();
    void a_long_body_scrolls_by_rows_and_views();

private:
    std::unique_ptr<QProcess> start()
    {
        auto process
            = start_with(program_, "TreeView1(0)",
                         {{"arcp", "1"}, {"alist", "1"}, {"lv_view", "0"}, {"wstate", "0"}, {"fheight", "9000"}});
        return process && leads_to(*process, "F6", "ingred(0)") ? std::move(process) : nullptr;
    }
    QString text(const char* sql) { return stored(program_, sql); }
    QString lines()
    {
        return text("SELECT group_concat(key_id || ' ' || item_ref || qty || measure || item || comment) "
                    "FROM (SELECT * FROM recipe_2 ORDER BY \"order\")");
    }
    static int page_top(QProcess& process) { return RealProgram::ask(process, "get Frame3 y").toInt(); }

    RealProgram program_;
};

void wm_page_keys::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    const Key recipe = make_pie_household(connection);
    const std::pair<int, const char*> lines[] = {{1, "Butter"}, {-1, "Salt"}, {-1, "Oil"}};
    for (int i = 0; i < 3; ++i)
        Query(connection,
              "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
              " VALUES (?, ?, ?, ?, '1', 'cup', 'fine', ?)",
              i + 1, recipe, lines[i].first, QString::fromLatin1(lines[i].second), i)
            .run();
    QString body;
    for (int i = 0; i < 200; ++i)
        body += QStringLiteral("Row %1\r\n").arg(i);
    Query(connection, "UPDATE recipe_1 SET r_body = ?", body).run();
}

void wm_page_keys::arrows_go_along_the_lines_and_space_clicks_a_box()
{
    const auto process = start();
    QVERIFY(process);
    QVERIFY(leads_to(*process, "Up", "title"));
    for (const char* next : {"ingred(0)", "ingred(1)", "ingred(2)", "Text1"})
        QVERIFY2(leads_to(*process, "Down", next), next);
    for (const char* next : {"ingred(2)", "ingred(1)", "ingred(0)"})
        QVERIFY2(leads_to(*process, "Up", next), next);
    QVERIFY(opens_menu(*process, "Menu", "mnu_ingred"));
    QVERIFY(opens_menu(*process, "shift+F10", "mnu_ingred"));
    press("space");
    QTRY_COMPARE(text("SELECT to_get FROM groc_1"), QStringLiteral("0"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("ingred(0)"));
    leave(*process);
}

void wm_page_keys::a_right_click_leaves_the_keyboard_on_its_line()
{
    const auto process = start();
    QVERIFY(process);
    constexpr int right_button = 3;
    QVERIFY(RealProgram::click(*process, "where ingred(1)", right_button));
    QTRY_VERIFY(is_shown(*process, "mnu_ingred"));
    press("Escape");
    QTRY_VERIFY(!is_shown(*process, "mnu_ingred"));
    QCOMPARE(keyboard(*process), QStringLiteral("ingred(1)"));
    QVERIFY(leads_to(*process, "Down", "ingred(2)"));
    leave(*process);
}

void wm_page_keys::escape_leaves_a_line_as_it_was()
{
    const auto process = start();
    QVERIFY(process);
    const QString before = lines();
    QVERIFY(leads_to(*process, "Return", "ing_flt_txtQty"));
    type(QStringLiteral("7"));
    QVERIFY(leads_to(*process, "Escape", "ingred(0)"));
    QCOMPARE(lines(), before);
    QVERIFY(leads_to(*process, "F2", "ing_flt_txtQty"));
    QVERIFY(leads_to(*process, "Down", "ListIngred"));
    QVERIFY(leads_to(*process, "Escape", "ingred(0)"));
    QCOMPARE(lines(), before);
    QVERIFY(leads_to(*process, "Return", "ing_flt_txtQty"));
    for (const char* next : {"ing_flt_txtMeasure", "ing_flt_txtItem", "ing_flt_txtDesc"}) {
        type(QStringLiteral("zz"));
        QVERIFY2(leads_to(*process, "Tab", next), next);
    }
    QTRY_VERIFY(lines() != before); // the boxes that were left
    type(QStringLiteral("zz"));
    QVERIFY(leads_to(*process, "Escape", "ingred(0)"));
    QCOMPARE(lines(), before);
    leave(*process);
}

void wm_page_keys::a_new_line_is_dropped_or_kept()
{
    const auto process = start();
    QVERIFY(process);
    const QString before = lines();
    for (const bool kept : {false, true}) {
        QVERIFY(leads_to(*process, "ctrl+i", "ing_flt_txtQty"));
        type(QStringLiteral("3"));
        QVERIFY(leads_to(*process, "Tab", "ing_flt_txtMeasure"));
        QVERIFY(leads_to(*process, "Tab", "ing_flt_txtItem"));
        type(QStringLiteral("Quark"));
        if (!kept) {
            QVERIFY(leads_to(*process, "Escape", "ingred(2)"));
            QCOMPARE(lines(), before);
        }
    }
    QVERIFY(leads_to(*process, "Tab", "ing_flt_txtDesc"));
    QVERIFY(leads_to(*process, "Return", "Text1"));
    QTRY_COMPARE(text("SELECT trim(qty) || item FROM recipe_2 WHERE \"order\" = 3"), QStringLiteral("3Quark"));
    leave(*process);
}

void wm_page_keys::the_round_takes_in_the_boxes_of_an_open_line()
{
    const auto process = start();
    QVERIFY(process);
    QVERIFY(leads_to(*process, "Return", "ing_flt_txtQty"));
    QVERIFY(leads_to(*process, "F6", "TreeView1(0)"));
    QVERIFY(leads_to(*process, "F6", "ingred(0)"));
    QVERIFY(leads_to(*process, "Return", "ing_flt_txtQty"));
    QVERIFY(leads_to(*process, "shift+F6", "ingred(0)"));
    leave(*process);
}

void wm_page_keys::a_removed_line_comes_back_data()
{
    QTest::addColumn<bool>("by_cross");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("place");
    QTest::newRow("on the page") << false << QByteArray() << QByteArray();
    QTest::newRow("by the cross") << true << QByteArray() << QByteArray();
    QTest::newRow("from the tree") << false << QByteArray("F6") << QByteArray("TreeView1(0)");
    QTest::newRow("from the toolbar") << false << QByteArray("F10") << QByteArray("Toolbar1(1)");
}

void wm_page_keys::a_removed_line_comes_back()
{
    QFETCH(bool, by_cross);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, place);
    const auto process = start();
    QVERIFY(process);
    const QString before = lines();
    if (by_cross) {
        QVERIFY(leads_to(*process, "Return", "ing_flt_txtQty"));
        QVERIFY(RealProgram::click(*process, "where imgScratch"));
    } else {
        press("Delete");
    }
    QTRY_COMPARE(text("SELECT group_concat(item) FROM (SELECT * FROM recipe_2 ORDER BY \"order\")"),
                 QStringLiteral("Salt,Oil"));
    QTRY_VERIFY(!keyboard(*process).isEmpty());
    if (!key.isEmpty())
        QVERIFY(leads_to(*process, key.constData(), place.constData()));
    press("ctrl+z");
    QTRY_COMPARE(lines(), before);
    leave(*process);
}

void wm_page_keys::a_long_body_scrolls_by_rows_and_views()
{
    const auto process = start();
    QVERIFY(process);
    QVERIFY(leads_to(*process, "Down", "ingred(1)"));
    QVERIFY(leads_to(*process, "Down", "ingred(2)"));
    QVERIFY(leads_to(*process, "Down", "Text1"));
    int highest = 0;
    int moved = 0;
    for (int i = 0; i < 50; ++i) {
        const int before = page_top(*process);
        press("Down");
        const bool scrolled = QTest::qWaitFor([&] { return page_top(*process) != before; }, 300);
        const int by = scrolled ? before - page_top(*process) : 0; // the caret may find the next row in sight
        highest = std::max(highest, by);
        moved += by > 0 ? 1 : 0;
    }
    QVERIFY(moved > 10);
    QVERIFY2(highest <= 2 * 20, qPrintable(QString::number(highest))); // pixels: two rows of small type
    const int before = page_top(*process);
    const int view = RealProgram::ask(*process, "get Frame4 height").toInt();
    press("Page_Down");
    QTRY_VERIFY(before - page_top(*process) > view / 2);
    QVERIFY(before - page_top(*process) <= view);
    leave(*process);
}

QTEST_GUILESS_MAIN(wm_page_keys)
#include "wm_page_keys.moc"
