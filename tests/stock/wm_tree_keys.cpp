#include "data/connection.h"
#include "data/query.h"
#include "probe/pie_household.h"
#include "probe/real_keyboard.h"

#include <QTest>

using namespace tarnwick;
using namespace tarnwick::real_keyboard;

/// The two trees by a real keyboard alone.
class wm_tree_keys : public QObject {
    Q_OBJECT
private slots:
    void init();
    void the_stock_tree_is_worked_without_a_mouse();
    void a_label_is_typed_and_given_back();
    void the_recipe_tree_is_worked_without_a_mouse();

private:
    /// Goes to a node by its letters, and waits until a blank is no more one of them.
    static void go_to(const char* letters)
    {
        type(QLatin1String(letters));
        QTest::qWait(700);
    }
    QString text(const char* sql) { return stored(program_, sql); }

    RealProgram program_;
};

void wm_tree_keys::init()
{
    program_.renew();
    Connection connection;
    connection.open(program_.database());
    make_pie_household(connection);
    insert_recipe(connection, QStringLiteral("Soup"), QStringLiteral("13"));
    Query(connection, "INSERT INTO items_1 (key_id, item, cat, status) VALUES (2, 'Yeast', 0, 5)").run();
}

void wm_tree_keys::the_stock_tree_is_worked_without_a_mouse()
{
    const auto process
        = start_with(program_, "TreeView1(0)", {{"alist", "1"}, {"lv_view", "1"}, {"sort", "alpha"}});
    QVERIFY(process);
    go_to("but");
    press("space");
    QTRY_COMPARE(text("SELECT to_get FROM groc_1"), QStringLiteral("0"));
    press("Return"); // swallowed
    QTest::qWait(300);
    QCOMPARE(keyboard(*process), QStringLiteral("TreeView1(0)"));
    QCOMPARE(text("SELECT to_get FROM groc_1"), QStringLiteral("0"));
    press("space");
    QTRY_COMPARE(text("SELECT to_get FROM groc_1"), QStringLiteral("1"));
    QVERIFY(opens_menu(*process, "Menu", "mnu_tv"));
    QVERIFY(opens_menu(*process, "shift+F10", "mnu_tv"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("TreeView1(0)"));
    QVERIFY(leads_to(*process, "F2", "label_edit"));
    type(QStringLiteral("Ghee"));
    press("Return"); // a question, since it is on a list
    QTRY_COMPARE(text("SELECT item FROM items_1 WHERE key_id = 1"), QStringLiteral("Ghee"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("TreeView1(0)"));
    press("Delete");
    QTRY_COMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Yeast"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("TreeView1(0)"));
    press("space"); // on the node that is left
    QTRY_COMPARE(text("SELECT group_concat(item || to_get) FROM groc_1"), QStringLiteral("Yeast1"));
    leave(*process);
}

void wm_tree_keys::a_label_is_typed_and_given_back()
{
    const auto process
        = start_with(program_, "TreeView1(0)", {{"alist", "1"}, {"lv_view", "1"}, {"sort", "alpha"}});
    QVERIFY(process);
    go_to("yea");
    QVERIFY(leads_to(*process, "F2", "label_edit"));
    type(QStringLiteral("Flour"));
    QVERIFY(leads_to(*process, "Escape", "TreeView1(0)"));
    QCOMPARE(text("SELECT item FROM items_1 WHERE key_id = 2"), QStringLiteral("Yeast"));
    QVERIFY(leads_to(*process, "F2", "label_edit"));
    type(QStringLiteral("Flour"));
    QVERIFY(leads_to(*process, "Return", "TreeView1(0)"));
    QTRY_COMPARE(text("SELECT item FROM items_1 WHERE key_id = 2"), QStringLiteral("Flour"));
    press("Delete"); // on no list: no question
    QTRY_COMPARE(text("SELECT group_concat(item) FROM items_1"), QStringLiteral("Butter"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("TreeView1(0)"));
    leave(*process);
}

void wm_tree_keys::the_recipe_tree_is_worked_without_a_mouse()
{
    const auto process = start_with(program_, "TreeView1(1)",
                                    {{"arcp", "1"}, {"tv_view", "0"}, {"lv_view", "0"}, {"sort_r", "alpha"}});
    QVERIFY(process);
    go_to("sou");
    press("space");
    QTRY_COMPARE(RealProgram::ask(*process, "get title text"), QStringLiteral("Soup"));
    QCOMPARE(keyboard(*process), QStringLiteral("TreeView1(1)"));
    QVERIFY(opens_menu(*process, "Menu", "mnu_tv_r"));
    QVERIFY(opens_menu(*process, "shift+F10", "mnu_tv_r"));
    press("Delete"); // a question
    QTRY_COMPARE(text("SELECT group_concat(r_name) FROM recipe_1"), QStringLiteral("Pie"));
    QTRY_COMPARE(keyboard(*process), QStringLiteral("TreeView1(1)"));
    leave(*process);
}

QTEST_GUILESS_MAIN(wm_tree_keys)
#include "wm_tree_keys.moc"
