#include "data/connection.h"
#include "data/query.h"
#include "probe/pie_household.h"
#include "probe/real_keyboard.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::real_keyboard;

/// The shopping list by a real keyboard alone.
class wm_grid_keys : public QObject {
    Q_OBJECT
private slots:
    void init();
    void the_current_row_goes_by_keys();
    void keys_open_the_boxes_of_a_row();
    void the_round_takes_in_the_boxes_of_an_open_row();
    void a_removed_row_comes_back_data();
    void a_removed_row_comes_back();

private:
    static constexpr int rows = 60;
    std::unique_ptr<QProcess> start()
    {
        auto process = start_with(program_, "TreeView1(0)",
                                  {{"alist", "1"}, {"lv_view", "1"}, {"cpn", "1"}, {"wstate", "0"}});
        return process && leads_to(*process, "F6", "Listview1") ? std::move(process) : nullptr;
    }
    QString text(const char* sql) { return stored(program_, sql); }
    /// Ticks the current row and gives its key, by the mark that has changed; -1 without.
    int ticked_row()
    {
        const auto marks = [this] {
            return text("SELECT group_concat(to_get, '') FROM (SELECT to_get FROM groc_1 ORDER BY key_id)");
        };
        const QString before = marks();
        press("space");
        QString now;
        if (!QTest::qWaitFor([&] { return (now = marks()) != before; }, 5000))
            return -1;
        const auto differs = std::mismatch(before.begin(), before.end(), now.begin()).first;
        return 1 + int(differs - before.begin());
    }

    RealProgram program_;
};

/// Rows "Item 01" to "Item 60" in the order of their keys, and a tree of as many items.
void wm_grid_keys::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    make_pie_household(connection);
    for (const char* table : {"groc_1", "items_1", "tie"})
        Query(connection, std::string("DELETE FROM ") + table).run();
    for (int i = 1; i <= rows; ++i) {
        const QString name = QStringLiteral("Item %1").arg(i, 2, 10, QLatin1Char('0'));
        Query(connection, "INSERT INTO items_1 (key_id, item, cat, status, to_get) VALUES (?, ?, 0, 7, 1)", i, name)
            .run();
        Query(
            connection,
            "INSERT INTO groc_1 (key_id, item, desc, aisle, to_get, qty, cpn, created) VALUES (?, ?, 'fresh', '4', "
            "1, '2 lb', 1, '2026-05-06')",
            i, name)
            .run();
        Query(connection, "INSERT INTO tie (key_id, groc_id, item_id, list) VALUES (?, ?, ?, 1)", i, i, i).run();
    }
}

void wm_grid_keys::the_current_row_goes_by_keys()
{
    const auto process = start();
    QVERIFY(process);
    press("End");
    QCOMPARE(ticked_row(), rows);
    press("Up");
    QCOMPARE(ticked_row(), rows - 1);
    press("Home");
    QCOMPARE(ticked_row(), 1);
    press("Down");
    QCOMPARE(ticked_row(), 2);
    press("Page_Down");
    const int view = ticked_row();
    QVERIFY(view > 10 && view < rows);
    press("Page_Up");
    QCOMPARE(ticked_row(), 2);
    QCOMPARE(keyboard(*process), QStringLiteral("Listview1"));
    QVERIFY(opens_menu(*process, "Menu", "mnu_lv"));
    QVERIFY(opens_menu(*process, "shift+F10", "mnu_lv"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    leave(*process);
}

void wm_grid_keys::keys_open_the_boxes_of_a_row()
{
    const auto process = start();
    QVERIFY(process);
    press("Home");
    for (const char* keys : {"Return", "F2"}) {
        QVERIFY(leads_to(*process, keys, "desc_brdr"));
        QVERIFY(leads_to(*process, "Escape", "Listview1"));
        QVERIFY(!is_shown(*process, "desc_brdr"));
    }
    type(QStringLiteral("ripe"));
    QTRY_COMPARE(RealProgram::ask(*process, "get desc_brdr text"), QStringLiteral("ripe"));
    QVERIFY(leads_to(*process, "Escape", "Listview1"));
    type(QStringLiteral("12"));
    QTRY_COMPARE(RealProgram::ask(*process, "get qty_brdr text"), QStringLiteral("12"));
    QVERIFY(leads_to(*process, "Return", "Listview1"));
    QVERIFY(leads_to(*process, "F2", "desc_brdr"));
    for (const char* box : {"qty_brdr", "dp_brdr"}) {
        press("End");
        QVERIFY(leads_to(*process, "Right", box));
    }
    press("space");
    QTRY_COMPARE(text("SELECT cpn FROM groc_1 WHERE key_id = 1"), QStringLiteral("0"));
    QVERIFY(leads_to(*process, "Escape", "Listview1")); // gives coupon and date back
    QTRY_COMPARE(text("SELECT desc || qty || cpn || date(created) FROM groc_1 WHERE key_id = 1"),
                 QStringLiteral("fresh1212026-05-06"));
    leave(*process);
}

void wm_grid_keys::the_round_takes_in_the_boxes_of_an_open_row()
{
    const auto process = start();
    QVERIFY(process);
    press("Home");
    press("Down"); // opens the row
    QTRY_VERIFY(is_shown(*process, "desc_brdr"));
    QVERIFY(leads_to(*process, "F6", "desc_brdr"));
    QVERIFY(leads_to(*process, "shift+F6", "Listview1"));
    QVERIFY(is_shown(*process, "desc_brdr"));
    QVERIFY(leads_to(*process, "F6", "desc_brdr"));
    QVERIFY(leads_to(*process, "F6", "TreeView1(0)"));
    QVERIFY(leads_to(*process, "F6", "Listview1"));
    leave(*process);
}

void wm_grid_keys::a_removed_row_comes_back_data()
{
    QTest::addColumn<bool>("by_cross");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QByteArray>("place");
    QTest::newRow("in the grid") << false << QByteArray() << QByteArray("Listview1");
    QTest::newRow("by the cross") << true << QByteArray() << QByteArray("Listview1");
    QTest::newRow("from the tree") << false << QByteArray("F6") << QByteArray("TreeView1(0)");
    QTest::newRow("from the toolbar") << false << QByteArray("F10") << QByteArray("Toolbar1(1)");
    QTest::newRow("from the separator") << false << QByteArray("F8") << QByteArray("Frame1");
    QTest::newRow("from the box of another row") << false << QByteArray("F2") << QByteArray("desc_brdr");
    QTest::newRow("from the list manager") << false << QByteArray("alt+t Return") << QByteArray("frm_list(0)");
}

void wm_grid_keys::a_removed_row_comes_back()
{
    QFETCH(bool, by_cross);
    QFETCH(QByteArray, keys);
    QFETCH(QByteArray, place);
    constexpr const char* all
        = "SELECT group_concat(key_id || item || desc || aisle || to_get || qty || cpn || created) "
          "FROM (SELECT * FROM groc_1 ORDER BY key_id)";
    constexpr const char* links
        = "SELECT group_concat(groc_id || ' ' || item_id || ' ' || list) FROM (SELECT * FROM tie ORDER BY key_id)";
    const auto process = start();
    QVERIFY(process);
    const QString rows_before = text(all);
    const QString links_before = text(links);
    press("Home");
    press("Down");
    if (by_cross) {
        QTRY_VERIFY(is_shown(*process, "imgScratch"));
        QVERIFY(RealProgram::click(*process, "where imgScratch"));
    } else {
        press("Delete");
    }
    QTRY_COMPARE(text("SELECT count(*) FROM groc_1"), QString::number(rows - 1));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("Listview1"));
    for (const QByteArray& pressed : keys.split(' '))
        press(pressed.constData());
    QTRY_COMPARE(keyboard(*process), QString::fromLatin1(place));
    press("ctrl+z");
    QTRY_COMPARE(text(all), rows_before);
    QCOMPARE(text(links), links_before);
    leave(*process);
}

QTEST_GUILESS_MAIN(wm_grid_keys)
#include "wm_grid_keys.moc"
