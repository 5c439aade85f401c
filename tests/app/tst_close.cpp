#include "recipes/recipe_fixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

using namespace tarnwick;

/// The two ways out of the program: the close box, which stores the window, and the menu's Exit, which does not.
class tst_close : public QObject {
    Q_OBJECT
private slots:
    void closing_writes_size_and_state_data();
    void closing_writes_size_and_state();
    void a_window_comes_up_in_the_stored_state_data();
    void a_window_comes_up_in_the_stored_state();
    void closing_writes_the_views_as_they_are_whatever_the_menus_wrote();
    void closing_writes_the_views_as_they_are_whatever_the_tabs_wrote();
    void exit_clicked_in_the_menu_does_not_save_an_edited_recipe();
};

namespace {

void add_states()
{
    QTest::addColumn<int>("states");
    QTest::addColumn<QString>("stored");
    QTest::newRow("normal") << int(Qt::WindowNoState) << QStringLiteral("0");
    QTest::newRow("minimised") << int(Qt::WindowMinimized) << QStringLiteral("1");
    QTest::newRow("maximised") << int(Qt::WindowMaximized) << QStringLiteral("2");
}

void click_tab(TestWindow& window, const char* strip, int index)
{
    auto* tabs = window.find<QTabBar>(QLatin1String(strip));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

/// Puts a value that nothing writes into a setting.
void spoil(TestWindow& window, std::initializer_list<const char*> keys)
{
    for (const char* key : keys)
        window.set_pref(QLatin1String(key), QStringLiteral("spoiled"));
}

} // namespace

void tst_close::closing_writes_size_and_state_data()
{
    add_states();
}

void tst_close::closing_writes_size_and_state()
{
    QFETCH(int, states);
    QFETCH(QString, stored);
    TestWindow window;
    frmmain& main = window.load({900, 600});
    main.setWindowState(Qt::WindowStates(states));
    QCoreApplication::processEvents();
    QCOMPARE(int(main.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)), states);
    spoil(window, {"fwidth", "fheight", "wstate"});
    const QSize size = main.size();
    QVERIFY(main.close());
    QCOMPARE(window.ends, 1);
    QCOMPARE(window.pref(QStringLiteral("wstate")), stored);
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QString::number(size.width() * Layout::twips_per_pixel));
    QCOMPARE(window.pref(QStringLiteral("fheight")), QString::number(size.height() * Layout::twips_per_pixel));
}

void tst_close::a_window_comes_up_in_the_stored_state_data()
{
    add_states();
}

void tst_close::a_window_comes_up_in_the_stored_state()
{
    QFETCH(int, states);
    QFETCH(QString, stored);
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), stored);
    const frmmain& main = window.load({});
    QVERIFY(main.isVisible());
    QCOMPARE(int(main.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized)), states);
}

void tst_close::closing_writes_the_views_as_they_are_whatever_the_menus_wrote()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("1"));
    window.load();
    window.trigger(QStringLiteral("mnu_view_rcpepages"));
    window.trigger(QStringLiteral("mnu_view_rcp"));
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    spoil(window, {"tv_view"});
    QVERIFY(window.main().close());
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("0"));

    window.load();
    QVERIFY(!window.main().shared.list_pane_shown);
    QVERIFY(!window.main().shared.stock_view);
    window.trigger(QStringLiteral("mnu_view_shoplist"));
    window.trigger(QStringLiteral("mnu_view_stock"));
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("1"));
    spoil(window, {"tv_view"});
    QVERIFY(window.main().close());
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("1"));
}

void tst_close::closing_writes_the_views_as_they_are_whatever_the_tabs_wrote()
{
    RecipeWindow window;
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("1"));
    window.load();
    click_tab(window, "TabStrip1(1)", 1);
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
    QVERIFY(window.main().close());
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("0"));

    window.load();
    click_tab(window, "TabStrip1(1)", 0);
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
    QVERIFY(window.main().close());
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
}

void tst_close::exit_clicked_in_the_menu_does_not_save_an_edited_recipe()
{
    RecipeWindow window;
    const Key soup = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.set_pref(QStringLiteral("arcp"), QString::number(soup));
    frmmain& main = window.load();
    window.focus(window.title());
    QTest::keyClick(&window.title(), Qt::Key_End);
    QTest::keyClicks(&window.title(), QStringLiteral("s"));
    QVERIFY(window.edited());

    QMenu& menu = main.commands().menu(QStringLiteral("mnu_list"));
    QMenuBar& bar = *main.menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
    QTRY_VERIFY(menu.isVisible());
    QAction& exit = main.commands().action(QStringLiteral("mnu_list_exit"));
    QVERIFY(exit.isEnabled());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&exit).center());
    QCOMPARE(window.ends, 1);
    QVERIFY(window.edited());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));
}

QTEST_MAIN(tst_close)
#include "tst_close.moc"
