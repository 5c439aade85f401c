#include "data/query.h"
#include "data/runtime_error.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "recipes/page_geometry.h"
#include "recipes/recipe_fixture.h"
#include "recipes/page_texts.h"
#include "recipes/recipe_page.h"
#include "window/commands.h"
#include "window/layout.h"
#include "support/file_bytes.h"
#include "support/menu_hands.h"
#include "support/test_window.h"
#include "window/output_commands.h"
#include "support/error_number.h"
#include "support/tool_button.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QResizeEvent>
#include <QTest>
#include <QToolButton>

#include <array>

using namespace tarnwick;

namespace {

/// The number of the run-time error that loading the window gives; 0 when it gives none.
int load_error(TestWindow& window)
{
    return error_number([&] { window.load({}); });
}

/// The labels `lblWarning` on show, counted at the moment the splash appears.
class SplashWatch : public QObject {
public:
    SplashWatch() { qApp->installEventFilter(this); }
    int splashes = 0;
    int warnings = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && watched->objectName() == QLatin1String("frmSplash")) {
            ++splashes;
            for (const QLabel* label : watched->findChildren<QLabel*>())
                warnings
                    += label->objectName().startsWith(QLatin1String("lblWarning")) && !label->isHidden() ? 1 : 0;
        }
        return QObject::eventFilter(watched, event);
    }
};

void add_recipe(TestWindow& window, int key, const QString& name)
{
    Query(window.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (?, ?, ?, '01')", key, name,
          QStringLiteral("Stir."))
        .run();
}

} // namespace

class tst_start : public QObject {
    Q_OBJECT
private slots:
    void first_run_writes_every_default_and_load_reads_load();
    void a_first_run_starts_maximised_with_the_stock_and_the_list();
    void a_later_run_writes_no_defaults();
    void settings_without_load_get_every_default_data();
    void settings_without_load_get_every_default();
    void a_value_other_than_1_in_clean_shows_no_warnings_data();
    void a_value_other_than_1_in_clean_shows_no_warnings();
    void values_of_the_other_applications_do_not_come_back();
    void the_column_switches_come_back_as_they_stood_under_the_main_name();
    void an_arcp_of_a_deleted_recipe_leaves_name_and_page_empty();
    void a_recipe_too_long_for_the_large_type_starts_and_shows_its_page();
    void an_alist_of_a_deleted_list_starts();
    void a_font_of_abc_gives_0_and_the_layout_runs();
    void a_number_too_large_for_16_bits_is_error_6_data();
    void a_number_too_large_for_16_bits_is_error_6();
    void a_color_above_3_leaves_the_page_color_unset();
    void a_value_that_is_no_text_ends_the_load();
    void a_missing_database_ends_the_load_and_is_not_made();
    void settings_that_cannot_be_written_end_the_load();
    void size_and_separator_are_restored();
    void minimising_writes_nothing_and_lays_nothing_out();
    void coming_back_from_minimised_lays_out_and_writes_as_a_resize();
    void a_start_minimised_lays_out_when_the_window_comes_up();
    void every_resize_writes_the_size();
    void the_close_box_saves_the_window_and_closes_the_database();
    void exit_from_the_menu_writes_nothing();
    void the_close_box_saves_an_edited_recipe();
    void exit_from_the_menu_keeps_what_resize_and_view_switch_wrote();
    void exit_from_the_menu_does_not_save_an_edited_recipe();
};

void tst_start::first_run_writes_every_default_and_load_reads_load()
{
    TestWindow window;
    QVERIFY(!QFile::exists(window.environment().settings_file));
    window.load({});
    QCOMPARE(window.pref(QStringLiteral("load")), QStringLiteral("load"));
    for (const char* key : {"seprtr", "sort", "arcp", "tv_view", "lv_view", "s_all", "font", "load", "aisle", "cpn",
                            "color", "av_warn", "clean", "fheight", "fwidth", "wstate", "alist"})
        QVERIFY2(window.pref(QLatin1String(key)) != QLatin1String("(none)"), key);
    for (const char* key : {"col_ct", "sort", "sort_r", "active", "size"})
        QVERIFY2(window.pref(QLatin1String(key), QStringLiteral("trnwck"), QStringLiteral("reports"))
                     != QLatin1String("(none)"),
                 key);
    QCOMPARE(window.pref(QStringLiteral("font")), QStringLiteral("9"));
    QCOMPARE(window.pref(QStringLiteral("color")), QStringLiteral("3"));
    QCOMPARE(window.pref(QStringLiteral("wstate")), QStringLiteral("2"));
}

void tst_start::a_first_run_starts_maximised_with_the_stock_and_the_list()
{
    TestWindow window;
    frmmain& main = window.load({});
    QVERIFY(main.isVisible());
    QVERIFY(main.isMaximized());
    QVERIFY(main.shared.stock_view);
    QVERIFY(main.shared.list_pane_shown);
    QVERIFY(!main.shared.form_loading);
    QVERIFY(main.shared.started);
    QCOMPARE(main.shared.page_color().value_or(QColor()), QColor(204, 204, 255));
}

void tst_start::a_later_run_writes_no_defaults()
{
    TestWindow window;
    window.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    window.set_pref(QStringLiteral("color"), QStringLiteral("1"));
    frmmain& main = window.load();
    QCOMPARE(window.pref(QStringLiteral("font")), QStringLiteral("12"));
    QCOMPARE(main.shared.type_size, 12);
    QCOMPARE(main.shared.page_color().value_or(QColor()), QColor(255, 204, 204));
}

void tst_start::settings_without_load_get_every_default_data()
{
    QTest::addColumn<QByteArray>("load");
    QTest::newRow("absent") << QByteArray();
    QTest::newRow("fail") << QByteArray("prefs\\load=fail\n");
}

void tst_start::settings_without_load_get_every_default()
{
    QFETCH(QByteArray, load);
    TestWindow window;
    QFile file(window.environment().settings_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[trnwck]\n" + load + "prefs\\font=12\nprefs\\aisle=0\nprefs\\cpn=0\nprefs\\wstate=0\n");
    file.close();
    const frmmain& main = window.load({});
    QCOMPARE(window.pref(QStringLiteral("load")), QStringLiteral("load"));
    QCOMPARE(window.pref(QStringLiteral("font")), QStringLiteral("9"));
    QCOMPARE(main.shared.type_size, 9);
    QVERIFY(main.isMaximized());
    for (const ColumnGroup group : column_groups)
        QVERIFY(window.main().list_pane().column_group_shown(group));
    QVERIFY(window.main().list_pane().grid().col_width(GridColumn::aisle) > 0);
}

void tst_start::a_value_other_than_1_in_clean_shows_no_warnings_data()
{
    QTest::addColumn<QString>("clean");
    QTest::addColumn<int>("warnings");
    QTest::newRow("0") << QStringLiteral("0") << 0;
    QTest::newRow("2") << QStringLiteral("2") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("text") << QStringLiteral("yes") << 0;
    QTest::newRow("-1") << QStringLiteral("-1") << 0;
    QTest::newRow("1") << QStringLiteral("1") << 3;
}

void tst_start::a_value_other_than_1_in_clean_shows_no_warnings()
{
    QFETCH(QString, clean);
    QFETCH(int, warnings);
    TestWindow window;
    window.set_pref(QStringLiteral("clean"), clean);
    const SplashWatch watch;
    window.load();
    QCOMPARE(watch.splashes, 1);
    QCOMPARE(watch.warnings, warnings);
    QCOMPARE(window.pref(QStringLiteral("clean")), clean);
}

void tst_start::values_of_the_other_applications_do_not_come_back()
{
    TestWindow window;
    const Key first = window.add_list(QStringLiteral("market"));
    const Key second = window.add_list(QStringLiteral("butcher"));
    window.set_pref(QStringLiteral("alist"), QString::number(first));
    {
        Settings settings(window.environment().settings_file);
        settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("alist"),
                       QString::number(second));
        settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("prefs"), QStringLiteral("s_all"),
                       QStringLiteral("1"));
        settings.write(QLatin1String(settings_app::dialogs), QStringLiteral("reports"), QStringLiteral("col_ct"),
                       QStringLiteral("1"));
    }
    frmmain& main = window.load();
    QCOMPARE(main.shared.current_list, first);
    QVERIFY(!main.shared.all_lists_view);
    QCOMPARE(main.output().reports().col_ct, Key{2});
}

void tst_start::the_column_switches_come_back_as_they_stood_under_the_main_name()
{
    TestWindow window;
    const Key list = window.add_list(QStringLiteral("market"));
    window.set_pref(QStringLiteral("alist"), QString::number(list));
    {
        frmmain& main = window.load();
        for (const char* name : {"mnu_view_cpn", "mnu_view_aisle"}) {
            QAction& command = main.commands().action(QLatin1String(name));
            QVERIFY(command.isEnabled());
            command.trigger();
        }
        QVERIFY(!main.list_pane().column_group_shown(ColumnGroup::coupon));
        QVERIFY(!main.list_pane().column_group_shown(ColumnGroup::aisle));
        QVERIFY(main.close());
    }
    QCOMPARE(window.pref(QStringLiteral("cpn")), QStringLiteral("1"));
    QCOMPARE(window.pref(QStringLiteral("cpn"), QStringLiteral("Velora")), QStringLiteral("0"));
    frmmain& again = window.load();
    QVERIFY(again.list_pane().column_group_shown(ColumnGroup::coupon));
    QVERIFY(again.list_pane().column_group_shown(ColumnGroup::aisle));
    QVERIFY(again.list_pane().grid().col_width(GridColumn::aisle) > 0);
}

void tst_start::an_arcp_of_a_deleted_recipe_leaves_name_and_page_empty()
{
    RecipeWindow window;
    const Key soup = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_line(soup, QStringLiteral("Salt"));
    window.set_pref(QStringLiteral("arcp"), QStringLiteral("9"));
    frmmain& main = window.load();
    QCOMPARE(main.shared.cur_recipe_name, QString());
    QVERIFY(!main.recipe_page().has_recipe());
    QVERIFY(!main.shared.list_pane_shown);
    QVERIFY(window.title().isVisible());
    QCOMPARE(window.title().text(), QString());
    QCOMPARE(window.Text1().text(), QString());
    for (const char* control : {"ingred(0)", "lite(0)", "Check1(0)"})
        QVERIFY2(!window.control(QLatin1String(control)).isVisible(), control);
    for (const auto which : {ToolButton::print, ToolButton::preview, ToolButton::word_processor, ToolButton::email})
        QVERIFY(!window.find<QToolButton>(tool_button(which))->isEnabled());
    QCOMPARE(window.pref(QStringLiteral("arcp")), QStringLiteral("9"));
}

void tst_start::a_recipe_too_long_for_the_large_type_starts_and_shows_its_page()
{
    constexpr int lines = 100;
    RecipeWindow window;
    const Key feast = window.add_recipe(QStringLiteral("Feast"), QStringLiteral("15"));
    const Key soup = window.add_recipe(QStringLiteral("Soup"), QStringLiteral("11"));
    window.add_lines(feast, lines);
    window.set_pref(QStringLiteral("arcp"), QString::number(feast));
    {
        frmmain& main = window.load();
        window.trigger(QStringLiteral("mnu_more_lrg"));
        QVERIFY(main.close());
    }
    QCOMPARE(window.pref(QStringLiteral("font")), QStringLiteral("12"));
    frmmain& again = window.load();
    QVERIFY(again.isVisible());
    QVERIFY(window.page().frame4().isVisible());
    QCOMPARE(window.title().text(), QStringLiteral("Feast"));
    QCOMPARE(window.page().recipe_lines().count(), lines);
    QVERIFY(window.page().lines().back().ingred->y() > page_geometry::to_pixels(32767));

    window.page().set_recipe(soup);
    window.page().set_recipe(feast);
    QCOMPARE(window.page().recipe_lines().count(), lines);
}

void tst_start::an_alist_of_a_deleted_list_starts()
{
    TestWindow window;
    const Key category = window.add_category(QStringLiteral("Dairy"));
    const Key item = window.add_item(QStringLiteral("milk"), category);
    const Key list = window.add_list(QStringLiteral("market"));
    window.add_row(item, list, true);
    window.set_pref(QStringLiteral("alist"), QStringLiteral("7"));
    frmmain& main = window.load();
    QVERIFY(main.isVisible());
    QCOMPARE(main.list_pane().grid().rows().rows(), 0);
    QCOMPARE(window.number("SELECT count(*) FROM groc_1"), 1);
    QCOMPARE(window.number("SELECT count(*) FROM list_name"), 1);
}

void tst_start::a_font_of_abc_gives_0_and_the_layout_runs()
{
    TestWindow window;
    window.set_pref(QStringLiteral("font"), QStringLiteral("abc"));
    frmmain& main = window.load();
    QCOMPARE(main.shared.type_size, 0);
    QVERIFY(main.isVisible());
    main.resize(800, 600);
    QCoreApplication::processEvents();
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("12000"));
}

void tst_start::a_number_too_large_for_16_bits_is_error_6_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    for (const char* key : {"alist", "arcp", "color", "font"})
        QTest::newRow(key) << QStringLiteral("prefs") << QString::fromLatin1(key);
    for (const char* key : {"size", "sort", "col_ct", "active"})
        QTest::addRow("reports %s", key) << QStringLiteral("reports") << QString::fromLatin1(key);
}

void tst_start::a_number_too_large_for_16_bits_is_error_6()
{
    QFETCH(QString, section);
    QFETCH(QString, key);
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    Settings(window.environment().settings_file)
        .write(QLatin1String(settings_app::main), section, key, QStringLiteral("40000"));
    QCOMPARE(load_error(window), int(runtime_error::overflow));
}

void tst_start::a_color_above_3_leaves_the_page_color_unset()
{
    TestWindow window;
    window.set_pref(QStringLiteral("color"), QStringLiteral("4"));
    frmmain& main = window.load();
    QVERIFY(!main.shared.page_color().has_value());
    QVERIFY(main.isVisible());
    const auto ground = [&](const char* name) {
        return window.find<QWidget>(QLatin1String(name))->palette().color(QPalette::Base);
    };
    QCOMPARE(ground("Listview1"), ground("Frame4"));
    QVERIFY(ground("Listview1") != QColor(Qt::white));
}

void tst_start::a_value_that_is_no_text_ends_the_load()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    QByteArray content = bytes_of(window.environment().settings_file);
    QVERIFY(content.contains("prefs\\font=9"));
    content.replace("prefs\\font=9", "prefs\\font=9, 10");
    QFile file(window.environment().settings_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    const QByteArray database = bytes_of(window.database());
    QCOMPARE(static_cast<unsigned>(load_error(window)), 0x800407D0U + QMetaType::QStringList);
    QCOMPARE(bytes_of(window.environment().settings_file), content);
    QCOMPARE(bytes_of(window.database()), database);
}

void tst_start::a_missing_database_ends_the_load_and_is_not_made()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    const QByteArray settings = bytes_of(window.environment().settings_file);
    QVERIFY(QFile::remove(window.database()));
    constexpr int cannot_open = 14;
    QCOMPARE(load_error(window), cannot_open);
    QVERIFY(!QFile::exists(window.database()));
    QCOMPARE(bytes_of(window.environment().settings_file), settings);
}

void tst_start::settings_that_cannot_be_written_end_the_load()
{
    TestWindow window;
    window.environment().settings_file = window.database() + QStringLiteral("/settings.ini");
    const QByteArray database = bytes_of(window.database());
    QCOMPARE(static_cast<unsigned>(load_error(window)), 0x800407D0U + 1);
    QCOMPARE(bytes_of(window.database()), database);
}

void tst_start::size_and_separator_are_restored()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    window.set_pref(QStringLiteral("fwidth"), QString::number(1000 * Layout::twips_per_pixel));
    window.set_pref(QStringLiteral("fheight"), QString::number(640 * Layout::twips_per_pixel));
    window.set_pref(QStringLiteral("seprtr"), QString::number(300 * Layout::twips_per_pixel));
    frmmain& main = window.load({});
    QCOMPARE(main.size(), QSize(1000, 640));
    QCOMPARE(main.layout_manager().separator(), 300);
    QVERIFY(!main.isMaximized());
}

void tst_start::minimising_writes_nothing_and_lays_nothing_out()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    frmmain& main = window.load({900, 600});
    QCoreApplication::processEvents();
    const QByteArray before = bytes_of(window.environment().settings_file);
    const QRect grid = main.list_pane().grid().geometry();
    main.showMinimized();
    QCoreApplication::processEvents();
    QVERIFY(main.isMinimized());
    QResizeEvent small(QSize(160, 30), main.size());
    QCoreApplication::sendEvent(&main, &small);
    QCOMPARE(bytes_of(window.environment().settings_file), before);
    QCOMPARE(main.list_pane().grid().geometry(), grid);
}

void tst_start::coming_back_from_minimised_lays_out_and_writes_as_a_resize()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    frmmain& main = window.load({900, 600});
    const QRect grid = main.list_pane().grid().geometry();
    main.showMinimized();
    QCoreApplication::processEvents();
    main.resize(1000, 640);
    QCoreApplication::processEvents();
    QCOMPARE(main.list_pane().grid().geometry(), grid);
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("13500"));
    main.showNormal();
    QCoreApplication::processEvents();
    QVERIFY(!main.isMinimized());
    QCOMPARE(main.list_pane().grid().geometry().size(), grid.size() + QSize(100, 40));
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("15000"));
    QCOMPARE(window.pref(QStringLiteral("fheight")), QStringLiteral("9600"));
}

void tst_start::a_start_minimised_lays_out_when_the_window_comes_up()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("fwidth"), QString::number(1000 * Layout::twips_per_pixel));
    window.set_pref(QStringLiteral("fheight"), QString::number(640 * Layout::twips_per_pixel));
    frmmain& main = window.load({});
    QVERIFY(main.isMinimized());
    main.resize(1100, 700);
    QCoreApplication::processEvents();
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("15000"));
    main.showNormal();
    QCoreApplication::processEvents();
    QCOMPARE(main.size(), QSize(1100, 700));
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("16500"));
    const QWidget& grid = main.list_pane().grid();
    QVERIFY(main.width() - grid.mapTo(&main, QPoint(grid.width(), 0)).x() < 40);
}

void tst_start::every_resize_writes_the_size()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    frmmain& main = window.load({900, 600});
    for (const QSize size : {QSize(1000, 640), QSize(880, 560)}) {
        main.resize(size);
        QCoreApplication::processEvents();
        QCOMPARE(window.pref(QStringLiteral("fwidth")), QString::number(size.width() * 15));
        QCOMPARE(window.pref(QStringLiteral("fheight")), QString::number(size.height() * 15));
    }
}

void tst_start::the_close_box_saves_the_window_and_closes_the_database()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    frmmain& main = window.load({900, 600});
    trigger(window, "mnu_view_rcp");
    trigger(window, "mnu_view_rcpepages");
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("untouched"));
    QVERIFY(main.close());
    QCOMPARE(window.ends, 1);
    QVERIFY(!main.connection().is_open());
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("13500"));
    QCOMPARE(window.pref(QStringLiteral("fheight")), QStringLiteral("9000"));
    QCOMPARE(window.pref(QStringLiteral("wstate")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
}

void tst_start::exit_from_the_menu_writes_nothing()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    frmmain& main = window.load({900, 600});
    QCoreApplication::processEvents();
    trigger(window, "mnu_view_rcp");
    trigger(window, "mnu_view_rcpepages");
    window.set_pref(QStringLiteral("tv_view"), QStringLiteral("untouched"));
    const QByteArray before = bytes_of(window.environment().settings_file);
    QAction& exit = main.commands().action(QStringLiteral("mnu_list_exit"));
    QVERIFY(exit.isEnabled());
    exit.trigger();
    QCOMPARE(window.ends, 1);
    QVERIFY(main.connection().is_open());
    QCOMPARE(bytes_of(window.environment().settings_file), before);
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("untouched"));
}

void tst_start::exit_from_the_menu_keeps_what_resize_and_view_switch_wrote()
{
    TestWindow window;
    window.set_pref(QStringLiteral("wstate"), QStringLiteral("2"));
    frmmain& main = window.load({900, 600});
    QVERIFY(!main.isMaximized());
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("untouched"));
    main.resize(1000, 640);
    QCoreApplication::processEvents();
    for (const char* name : {"mnu_view_rcp", "mnu_list_exit"}) {
        QAction& action = main.commands().action(QLatin1String(name));
        QVERIFY2(action.isEnabled(), name);
        action.trigger();
    }
    QCOMPARE(window.ends, 1);
    QCOMPARE(window.pref(QStringLiteral("fwidth")), QStringLiteral("15000"));
    QCOMPARE(window.pref(QStringLiteral("fheight")), QStringLiteral("9600"));
    QCOMPARE(window.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    // A close would write these two anew.
    QCOMPARE(window.pref(QStringLiteral("wstate")), QStringLiteral("2"));
    QCOMPARE(window.pref(QStringLiteral("lv_view")), QStringLiteral("untouched"));
}

namespace {

/// The window on a recipe whose title was typed at, unsaved.
frmmain& with_edited_title(TestWindow& window)
{
    add_recipe(window, 1, QStringLiteral("Soup"));
    window.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    window.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    frmmain& main = window.load();
    QLineEdit& title = main.recipe_page().title();
    title.setFocus();
    title.end(false);
    QTest::keyClicks(&title, QStringLiteral("s"));
    return main;
}

} // namespace

void tst_start::the_close_box_saves_an_edited_recipe()
{
    TestWindow window;
    frmmain& main = with_edited_title(window);
    QVERIFY(main.recipe_page().texts().is_edited());
    QVERIFY(main.close());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soups"));
}

void tst_start::exit_from_the_menu_does_not_save_an_edited_recipe()
{
    TestWindow window;
    frmmain& main = with_edited_title(window);
    QVERIFY(main.recipe_page().texts().is_edited());
    QAction& exit = main.commands().action(QStringLiteral("mnu_list_exit"));
    QVERIFY(exit.isEnabled());
    exit.trigger();
    QCOMPARE(window.ends, 1);
    QVERIFY(main.recipe_page().texts().is_edited());
    QCOMPARE(window.text("SELECT r_name FROM recipe_1"), QStringLiteral("Soup"));
}

QTEST_MAIN(tst_start)
#include "tst_start.moc"
