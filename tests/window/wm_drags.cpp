#include "data/connection.h"
#include "data/query.h"
#include "data/settings.h"
#include "household/recipe_store.h"
#include "probe/real_program.h"

#include <QTest>

using namespace tarnwick;

/// Drags with a real mouse in the real program, one of each kind, under a window manager.
class wm_drags : public QObject, private RealProgram {
    Q_OBJECT
private slots:
    void init();
    void a_stock_item_dropped_on_the_grid_is_put_on_the_list();
    void a_stock_item_dropped_on_another_folder_moves_there();
    void a_stock_item_dropped_on_the_page_starts_its_line();
    void a_stock_item_dropped_on_a_list_of_the_list_manager_is_put_on_it();
    void a_recipe_dropped_on_another_category_moves_there();
    void an_ingredient_line_dropped_on_another_comes_to_stand_behind_it();
    void escape_and_a_release_outside_the_window_drop_nothing();
    void a_drag_with_the_pointer_at_the_edge_scrolls_the_tree();

private:
    void show(bool stock, bool list) const;
    std::unique_ptr<QProcess> stand() const;
    static QPoint middle(QProcess& process, const QByteArray& question);
    static void press(QPoint at);
    static void glide(QPoint from, QPoint to);
    static void drag(QProcess& process, const QByteArray& from, const QByteArray& to);
    static void act(const QString& arguments) { xdotool(arguments.split(u' ')); }
    QString stored(const char* sql) const;
    static void leave(QProcess& process);
};

void wm_drags::init()
{
    renew();
    Connection connection;
    connection.open(database());
    for (const char* sql : {
             "INSERT INTO cat (key_id, cat_desc, expand) VALUES (1, 'Dairy', 1), (2, 'Produce', 1)",
             "INSERT INTO items_1 (key_id, item, cat, status) VALUES (1, 'Milk', 1, 5), (2, 'Pears', 2, 5)",
             "INSERT INTO list_name (key_id, list_name, active) VALUES (1, 'Home', 1), (2, 'Party', 0)",
         })
        Query(connection, sql).run();
    const Key soup = insert_recipe(connection, QStringLiteral("Soup"), QStringLiteral("11"));
    for (const char* sql : {
             "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
             " VALUES (1, ?, -1, 'Water', ' ', ' ', ' ', 0)",
             "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
             " VALUES (2, ?, -1, 'Salt', ' ', ' ', ' ', 1)",
             "INSERT INTO recipe_2 (key_id, r_ref, item_ref, item, qty, measure, comment, \"order\")"
             " VALUES (3, ?, -1, 'Leek', ' ', ' ', ' ', 2)",
         })
        Query(connection, sql, soup).run();
}

void wm_drags::show(bool stock, bool list) const
{
    Settings prefs(settings());
    prefs.set_reg();
    const auto set = [&prefs](const char* key, const char* value) {
        prefs.set_pref(QLatin1String(key), QLatin1String(value));
    };
    set("alist", "1");
    set("arcp", "1");
    set("fwidth", "15000");
    set("fheight", "9750");
    set("wstate", "0");
    set("tv_view", stock ? "1" : "0");
    set("lv_view", list ? "1" : "0");
}

/// The program with its window at rest on the screen.
std::unique_ptr<QProcess> wm_drags::stand() const
{
    auto process = start_listening();
    if (!process || !QTest::qWaitFor([&] { return !ask(*process, "sizes").isEmpty(); }, patience_ms))
        return nullptr;
    QTest::qWait(500);
    return process;
}

QPoint wm_drags::middle(QProcess& process, const QByteArray& question)
{
    const QStringList place = ask(process, question).split(u' ');
    if (place.size() != 4)
        return {};
    return {place[0].toInt() + place[2].toInt() / 2, place[1].toInt() + place[3].toInt() / 2};
}

void wm_drags::press(QPoint at)
{
    act(QStringLiteral("mousemove %1 %2 sleep 0.1 mousedown 1 sleep 0.1").arg(at.x()).arg(at.y()));
}

void wm_drags::glide(QPoint from, QPoint to)
{
    QString steps;
    for (int step = 1; step <= 8; ++step) {
        const QPoint at = from + (to - from) * step / 8;
        steps += QStringLiteral("mousemove %1 %2 sleep 0.04 ").arg(at.x()).arg(at.y());
    }
    act(steps + QStringLiteral("sleep 0.1"));
}

void wm_drags::drag(QProcess& process, const QByteArray& from, const QByteArray& to)
{
    const QPoint start = middle(process, from);
    const QPoint goal = middle(process, to);
    QVERIFY2(!start.isNull(), from.constData());
    QVERIFY2(!goal.isNull(), to.constData());
    press(start);
    glide(start, goal);
    act(QStringLiteral("mouseup 1"));
}

QString wm_drags::stored(const char* sql) const
{
    Connection connection;
    connection.open(database());
    Query query(connection, sql);
    return query.next() ? query.text(0) : QStringLiteral("(no row)");
}

void wm_drags::leave(QProcess& process)
{
    tell(process, "close");
    lines_of(process);
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

void wm_drags::a_stock_item_dropped_on_the_grid_is_put_on_the_list()
{
    show(true, true);
    const auto process = stand();
    QVERIFY(process);
    drag(*process, "node item0001", "where Listview1");
    QTRY_COMPARE(stored("SELECT t.list || ' ' || g.item FROM groc_1 g, tie t WHERE t.groc_id = g.key_id"),
                 QStringLiteral("1 Milk"));
    leave(*process);
}

void wm_drags::a_stock_item_dropped_on_another_folder_moves_there()
{
    show(true, true);
    const auto process = stand();
    QVERIFY(process);
    drag(*process, "node item0001", "node cat0002");
    QTRY_COMPARE(stored("SELECT cat FROM items_1 WHERE item = 'Milk'"), QStringLiteral("2"));
    leave(*process);
}

void wm_drags::a_stock_item_dropped_on_the_page_starts_its_line()
{
    show(true, false);
    const auto process = stand();
    QVERIFY(process);
    drag(*process, "node item0001", "where Text1");
    QTRY_COMPARE(ask(*process, "get ing_flt_txtItem text"), QStringLiteral("Milk"));
    QVERIFY(click(*process, "where Text1"));
    QTRY_COMPARE(stored("SELECT item_ref FROM recipe_2 WHERE item = 'Milk'"), QStringLiteral("1"));
    leave(*process);
}

void wm_drags::a_stock_item_dropped_on_a_list_of_the_list_manager_is_put_on_it()
{
    show(true, true);
    const auto process = stand();
    QVERIFY(process);
    tell(*process, "do mnu_tools_listlist");
    QTRY_VERIFY(!middle(*process, "where lbl_list(1)").isNull());
    QTest::qWait(500);
    // The press gives the main window the activation back from the manager, and the drag goes on.
    drag(*process, "node item0001", "where lbl_list(1)");
    QTRY_COMPARE(stored("SELECT t.list || ' ' || g.item FROM groc_1 g, tie t WHERE t.groc_id = g.key_id"),
                 QStringLiteral("2 Milk"));
    leave(*process);
}

void wm_drags::a_recipe_dropped_on_another_category_moves_there()
{
    show(false, false);
    const auto process = stand();
    QVERIFY(process);
    drag(*process, "node rcp0001", "node rcat02");
    QTRY_COMPARE(stored("SELECT cat FROM recipe_1"), QStringLiteral("02"));
    leave(*process);
}

void wm_drags::an_ingredient_line_dropped_on_another_comes_to_stand_behind_it()
{
    show(true, false);
    const auto process = stand();
    QVERIFY(process);
    const QPoint first = middle(*process, "where ingred(0)");
    const QPoint second = middle(*process, "where ingred(1)");
    QVERIFY(!first.isNull() && !second.isNull());
    press(first);
    glide(first, second);
    QVERIFY(!middle(*process, "where insert_ingred").isNull());
    act(QStringLiteral("mouseup 1"));
    QTRY_COMPARE(stored("SELECT group_concat(item, ' ') FROM (SELECT item FROM recipe_2 ORDER BY \"order\")"),
                 QStringLiteral("Salt Water Leek"));
    QVERIFY(middle(*process, "where insert_ingred").isNull());
    QCOMPARE(ask(*process, "get ingred(1) text"), QStringLiteral("Water"));
    leave(*process);
}

void wm_drags::escape_and_a_release_outside_the_window_drop_nothing()
{
    show(true, true);
    const auto process = stand();
    QVERIFY(process);
    const QPoint milk = middle(*process, "node item0001");
    const QPoint grid = middle(*process, "where Listview1");
    press(milk);
    glide(milk, grid);
    QVERIFY(!middle(*process, "where drag_label_tree").isNull());
    act(QStringLiteral("key Escape sleep 0.2"));
    QVERIFY(middle(*process, "where drag_label_tree").isNull());
    act(QStringLiteral("mouseup 1 sleep 0.2"));
    press(milk);
    glide(milk, grid);
    QVERIFY(!middle(*process, "where drag_label_tree").isNull());
    glide(grid, {1590, 1190});
    act(QStringLiteral("mouseup 1 sleep 0.3"));
    QVERIFY(middle(*process, "where drag_label_tree").isNull());
    QCOMPARE(stored("SELECT count(*) FROM groc_1"), QStringLiteral("0"));
    leave(*process);
}

void wm_drags::a_drag_with_the_pointer_at_the_edge_scrolls_the_tree()
{
    {
        Connection connection;
        connection.open(database());
        for (int key = 10; key < 110; ++key)
            Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (?, ?, 1, 5)", key,
                  QStringLiteral("Sort %1").arg(key))
                .run();
    }
    show(true, true);
    const auto process = stand();
    QVERIFY(process);
    const QStringList tree = ask(*process, "where TreeView1(0)").split(u' ');
    QCOMPARE(tree.size(), 4);
    const QPoint milk = middle(*process, "node item0001");
    press(milk);
    glide(milk, {tree[0].toInt() + 100, tree[1].toInt() + tree[3].toInt() - 5});
    QTRY_VERIFY(ask(*process, "node item0001").isEmpty() || ask(*process, "node item0001").startsWith(u'c'));
    act(QStringLiteral("key Escape mouseup 1"));
    leave(*process);
}

QTEST_GUILESS_MAIN(wm_drags)
#include "wm_drags.moc"
