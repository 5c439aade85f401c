#include "window/frmmain.h"
#include "data/query.h"
#include "lists/editing_window.h"
#include "window/commands.h"
#include "window/toolbar.h"
#include "window/view_state.h"
#include "stock/stock_tree.h"
#include "support/menu_hands.h"
#include "support/message_script.h"
#include "support/test_window.h"
#include "support/tool_button.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QToolButton>
#include <QTreeWidgetItem>
#include <QtTest>

using namespace tarnwick;

namespace {

QToolButton* button(frmmain& main, ToolButton which)
{
    return main.findChild<QToolButton*>(tool_button(which));
}

void click(frmmain& main, ToolButton which)
{
    QToolButton* target = button(main, which);
    QVERIFY(target);
    QVERIFY(target->isVisible());
    QVERIFY(target->isEnabled());
    QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(10, target->height() / 2));
}

QAction* drop_down_item(frmmain& main, ToolButton which, const QString& key)
{
    for (QAction* action : button(main, which)->menu()->actions())
        if (action->objectName() == key)
            return action;
    return nullptr;
}

/// The commands that a real click on a button runs.
QStringList commands_of_click(frmmain& main, ToolButton which)
{
    QStringList commands;
    const auto noted = QObject::connect(&main.commands(), &Commands::ran,
                                        [&commands](const QString& name) { commands += name; });
    click(main, which);
    QObject::disconnect(noted);
    return commands;
}

/// The window on the list "Weekly", with the recipe "Pie" on its page.
frmmain& load_list_and_recipe(TestWindow& w)
{
    w.set_pref(QStringLiteral("alist"), QString::number(w.add_list(QStringLiteral("Weekly"))));
    w.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    Query(w.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Pie', 'Bake.', '13')").run();
    return w.load();
}

/// Notes the type size at which a control gets hidden.
class HideWatch : public QObject {
public:
    HideWatch(QObject& control, const SharedValues& shared)
        : shared_(shared)
    {
        control.installEventFilter(this);
    }

    QList<int> sizes;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            sizes += shared_.type_size;
        return false;
    }

private:
    const SharedValues& shared_;
};

/// How much the toolbar has given away: 0 nothing, 1 Size, 2 Sort too, 3 Find too; -1 an impossible mix.
int given_away(frmmain& main)
{
    const auto shown = [&main](ToolButton which) { return button(main, which)->isVisible(); };
    const auto offered
        = [&main](const char* name) { return main.commands().action(QString::fromLatin1(name)).isVisible(); };
    const bool more = main.toolbar().tag(ToolButton::folders) == QLatin1String("MORE");
    const bool sort_offered
        = offered("mnu_more_sort") && offered("mnu_more_sort_alpha") && offered("mnu_more_sort_cat");
    if (!shown(ToolButton::folders) || more == shown(ToolButton::size) || sort_offered == shown(ToolButton::sort)
        || offered("mnu_more_find") == shown(ToolButton::find))
        return -1;
    if (shown(ToolButton::size))
        return shown(ToolButton::sort) && shown(ToolButton::find) ? 0 : -1;
    if (shown(ToolButton::sort))
        return shown(ToolButton::find) ? 1 : -1;
    return shown(ToolButton::find) ? 2 : 3;
}

} // namespace

class tst_toolbar : public QObject {
    Q_OBJECT
private slots:
    void buttons_have_their_captions_and_standing_tool_tips();
    void separators_stand_at_4_7_9_and_14();
    void captions_are_never_cut();
    void a_narrow_window_moves_size_then_sort_then_find_into_more_and_a_wider_one_brings_them_back();
    void a_button_fits_up_to_a_margin_of_8_pixels();
    void more_button_pops_up_its_menu();
    void print_button_with_the_tag_more_pops_up_the_menu_too();
    void sort_button_shows_the_order_in_force_and_says_what_a_click_does();
    void drop_down_items_sort();
    void folder_button_is_enabled_only_in_category_order();
    void size_tool_tip_at_start_says_the_opposite_of_the_click_data();
    void size_tool_tip_at_start_says_the_opposite_of_the_click();
    void size_cycle_goes_through_its_table();
    void clicks_at_one_place_go_through_the_sizes_and_meet_no_other_button();
    void size_cycle_from_12_goes_down();
    void size_drop_down_goes_straight_to_the_size();
    void size_drop_down_sets_the_button_for_the_step_away_from_the_size();
    void a_change_of_size_closes_the_open_row_first_data();
    void a_change_of_size_closes_the_open_row_first();
    void size_cycle_starts_at_10_from_a_damaged_size();
    void tool_tips_of_the_state_survive_a_resize();
    void email_button_follows_its_tag_and_not_the_list();
    void buttons_stand_for_their_commands_data();
    void buttons_stand_for_their_commands();
    void folder_button_closes_the_folders();
};

void tst_toolbar::buttons_have_their_captions_and_standing_tool_tips()
{
    struct Row {
        ToolButton which;
        const char* caption;
        const char* tool_tip;
    };
    const Row rows[] = {{ToolButton::new_list, "New", "Create a new shopping list"},
                        {ToolButton::clear, "Clear", "Clear selected list"},
                        {ToolButton::lists, "Lists", "List manager"},
                        {ToolButton::new_recipe, "New", "Create new recipe"},
                        {ToolButton::ingredient, "Ingrdnt", "Add ingredient"},
                        {ToolButton::stock, "Stock", "Add a new stock item"},
                        {ToolButton::print, "Print", "Print selected list"},
                        {ToolButton::preview, "Prev", "Preview list"},
                        {ToolButton::word_processor, "WP", "Open recipe in word processor"},
                        {ToolButton::email, "Email", "Send recipe by email"},
                        {ToolButton::find, "Find", "Find a stock item"},
                        {ToolButton::folders, "Snap", "Close all stock folders"}};
    TestWindow w;
    frmmain main(w.environment());
    for (const Row& row : rows) {
        QCOMPARE(button(main, row.which)->text(), QString::fromLatin1(row.caption));
        QCOMPARE(button(main, row.which)->toolTip(), QString::fromLatin1(row.tool_tip));
        QVERIFY(!button(main, row.which)->icon().isNull());
    }
    QCOMPARE(button(main, ToolButton::sort)->text(), QStringLiteral("Sort"));
    QCOMPARE(button(main, ToolButton::size)->text(), QStringLiteral("Size"));
    QCOMPARE(main.toolbar().tag(ToolButton::folders), QStringLiteral("DFLT"));
}

void tst_toolbar::separators_stand_at_4_7_9_and_14()
{
    TestWindow w;
    frmmain& main = w.load();
    for (int i = 1; i <= 18; ++i) {
        const bool separator = i == 4 || i == 7 || i == 9 || i == 14;
        QVERIFY(main.findChild<QWidget*>(QStringLiteral("Toolbar1(%1)").arg(i)));
        QCOMPARE(button(main, static_cast<ToolButton>(i)) == nullptr, separator);
        if (i > 1)
            QVERIFY(main.toolbar().button(static_cast<ToolButton>(i)).x()
                    > main.toolbar().button(static_cast<ToolButton>(i - 1)).geometry().right());
    }
}

void tst_toolbar::captions_are_never_cut()
{
    TestWindow w;
    frmmain& main = w.load();
    for (int i = 1; i <= 18; ++i)
        if (const QToolButton* b = button(main, static_cast<ToolButton>(i)))
            QVERIFY2(b->width() >= b->sizeHint().width() && b->height() >= b->sizeHint().height(),
                     qPrintable(b->text()));
}

void tst_toolbar::a_narrow_window_moves_size_then_sort_then_find_into_more_and_a_wider_one_brings_them_back()
{
    TestWindow w;
    frmmain& main = w.load({1000, 600});
    QList<int> seen{given_away(main)};
    const auto resize = [&](int width) {
        main.resize(width, 600);
        QApplication::processEvents();
        if (given_away(main) != seen.last())
            seen << given_away(main);
    };
    for (int width = 1000; width >= main.minimumWidth(); width -= 6)
        resize(width);
    for (int width = main.minimumWidth(); width <= 1000; width += 6)
        resize(width);
    QCOMPARE(seen, (QList<int>{0, 1, 2, 3, 2, 1, 0}));
    QCOMPARE(button(main, ToolButton::folders)->text(), QStringLiteral("Snap"));
    QCOMPARE(button(main, ToolButton::folders)->toolTip(), QStringLiteral("Close all stock folders"));
    QCOMPARE(main.toolbar().tag(ToolButton::folders), QStringLiteral("DFLT"));
}

void tst_toolbar::a_button_fits_up_to_a_margin_of_8_pixels()
{
    TestWindow w;
    frmmain& main = w.load({1000, 600});
    const auto least = [&main] {
        return main.toolbar().button(ToolButton::size).x() + main.toolbar().button(ToolButton::size).width() + 8;
    };
    const auto resize = [&main](int width) {
        main.resize(width, 600);
        QApplication::processEvents();
    };
    const int with_room = least();
    resize(with_room);
    QCOMPARE(least(), with_room);
    resize(with_room - 1); // the buttons move up first
    QCOMPARE(given_away(main), 0);
    const int tight = least();
    QVERIFY(tight < with_room);
    resize(tight);
    QCOMPARE(given_away(main), 0);
    resize(tight - 1);
    QVERIFY(given_away(main) >= 1);
    QCOMPARE(button(main, ToolButton::folders)->text(), QStringLiteral("More..."));
    QCOMPARE(button(main, ToolButton::folders)->toolTip(), QStringLiteral("More options"));
    QVERIFY(button(main, ToolButton::folders)->isEnabled());
}

void tst_toolbar::more_button_pops_up_its_menu()
{
    TestWindow w;
    frmmain& main = w.load({1000, 600});
    main.resize(main.minimumWidth(), 600);
    QApplication::processEvents();
    QCOMPARE(given_away(main), 3);
    QMenu& menu = main.commands().menu(QStringLiteral("mnu_more"));
    QVERIFY(!menu.isVisible());
    click(main, ToolButton::folders);
    QVERIFY(menu.isVisible());
    QCOMPARE(
        menu.pos(),
        button(main, ToolButton::folders)->mapToGlobal(QPoint(0, button(main, ToolButton::folders)->height())));
    menu.close();
}

void tst_toolbar::print_button_with_the_tag_more_pops_up_the_menu_too()
{
    TestWindow w;
    frmmain& main = load_list_and_recipe(w);
    main.toolbar().set_tag(ToolButton::print, QStringLiteral("MORE"));
    click(main, ToolButton::print);
    QMenu& menu = main.commands().menu(QStringLiteral("mnu_more"));
    QVERIFY(menu.isVisible());
    menu.close();
}

void tst_toolbar::sort_button_shows_the_order_in_force_and_says_what_a_click_does()
{
    TestWindow w;
    frmmain& main = w.load();
    const auto check = [&main](const char* tag, const char* tool_tip, int picture) {
        QCOMPARE(main.toolbar().tag(ToolButton::sort), QString::fromLatin1(tag));
        QCOMPARE(button(main, ToolButton::sort)->toolTip(), QString::fromLatin1(tool_tip));
        QCOMPARE(button(main, ToolButton::sort)->property("picture").toInt(), picture);
        const bool by_name = qstrcmp(tag, "ALPHA") == 0;
        QCOMPARE(main.commands().action(QStringLiteral("mnu_more_sort_alpha")).isChecked(), by_name);
        QCOMPARE(main.commands().action(QStringLiteral("mnu_more_sort_cat")).isChecked(), !by_name);
    };
    check("CAT", "Sort stock alphatbetically", 18);
    click(main, ToolButton::sort);
    check("ALPHA", "Sort stock by category", 14);
    QCOMPARE(w.pref(QStringLiteral("sort")), QStringLiteral("alpha"));
    QAction& recipes = main.commands().action(QStringLiteral("mnu_view_rcp"));
    QVERIFY(recipes.isEnabled());
    recipes.trigger();
    check("CAT", "Sort recipes alphatbetically", 18);
    click(main, ToolButton::sort);
    check("ALPHA", "Sort recipes by category", 14);
    QCOMPARE(w.pref(QStringLiteral("sort_r")), QStringLiteral("alpha"));
    click(main, ToolButton::sort);
    check("CAT", "Sort recipes alphatbetically", 18);
    QCOMPARE(w.pref(QStringLiteral("sort_r")), QStringLiteral("cat"));
    QVERIFY(main.shared.stock_alpha);
}

void tst_toolbar::drop_down_items_sort()
{
    TestWindow w;
    frmmain& main = w.load();
    QAction* by_name = drop_down_item(main, ToolButton::sort, QStringLiteral("ALPHA"));
    QAction* by_category = drop_down_item(main, ToolButton::sort, QStringLiteral("CAT"));
    QVERIFY(by_name && by_category && by_name->isEnabled() && by_category->isEnabled());
    QCOMPARE(by_name->text(), QStringLiteral("Sort alphabetically"));
    QCOMPARE(by_category->text(), QStringLiteral("Sort by category"));
    QVERIFY(drop_down_item(main, ToolButton::print, QStringLiteral("PRNT_OPT")));
    QCOMPARE(drop_down_item(main, ToolButton::print, QStringLiteral("PRNT_OPT"))->text(),
             QStringLiteral("Shopping list print options"));
    by_name->trigger();
    QVERIFY(main.shared.stock_alpha);
    by_category->trigger();
    QVERIFY(!main.shared.stock_alpha);
}

void tst_toolbar::folder_button_is_enabled_only_in_category_order()
{
    TestWindow w;
    frmmain& main = w.load();
    QVERIFY(button(main, ToolButton::folders)->isEnabled());
    main.view_state().sort(true);
    QVERIFY(!button(main, ToolButton::folders)->isEnabled());
    main.resize(990, 700);
    QApplication::processEvents();
    QVERIFY(!button(main, ToolButton::folders)->isEnabled());
    main.commands().action(QStringLiteral("mnu_view_rcp")).trigger();
    QVERIFY(button(main, ToolButton::folders)->isEnabled());
    QCOMPARE(button(main, ToolButton::folders)->toolTip(), QStringLiteral("Close all recipe folders"));
}

void tst_toolbar::size_tool_tip_at_start_says_the_opposite_of_the_click_data()
{
    QTest::addColumn<QString>("font");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("picture");
    QTest::addColumn<QString>("tool_tip");
    QTest::newRow("9") << "9"
                       << "UP" << 17 << "Make size smaller";
    QTest::newRow("10") << "10"
                        << "UP" << 17 << "Make size smaller";
    QTest::newRow("12") << "12"
                        << "DN" << 16 << "Make size larger";
    QTest::newRow("abc") << "abc"
                         << "UP" << 17 << "Make size smaller";
}

void tst_toolbar::size_tool_tip_at_start_says_the_opposite_of_the_click()
{
    QFETCH(QString, font);
    QFETCH(QString, tag);
    QFETCH(int, picture);
    QFETCH(QString, tool_tip);
    TestWindow w;
    w.set_pref(QStringLiteral("font"), font);
    frmmain& main = w.load();
    QCOMPARE(main.toolbar().tag(ToolButton::size_direction), tag);
    QCOMPARE(button(main, ToolButton::size)->property("picture").toInt(), picture);
    QCOMPARE(button(main, ToolButton::size)->toolTip(), tool_tip);
}

void tst_toolbar::clicks_at_one_place_go_through_the_sizes_and_meet_no_other_button()
{
    TestWindow w;
    frmmain& main = w.load();
    main.resize(1120, 720);
    QWidget& bar = main.toolbar().widget();
    const QPoint place = button(main, ToolButton::size)->geometry().center();
    for (const int size : {10, 12, 10, 9, 10}) {
        auto* under = bar.childAt(place);
        QCOMPARE(under, button(main, ToolButton::size));
        QTest::mouseClick(under, Qt::LeftButton, {}, under->mapFrom(&bar, place));
        QCOMPARE(main.shared.type_size, size);
        QCOMPARE(button(main, ToolButton::size)->geometry().center().x(), place.x());
    }
}

void tst_toolbar::size_cycle_goes_through_its_table()
{
    struct Step {
        int size;
        int picture;
        const char* tag;
        const char* tool_tip;
    };
    const Step steps[] = {{10, 17, "UP", "Make size larger"},
                          {12, 16, "DN", "Make size smaller"},
                          {10, 16, "DN", "Make size smaller"},
                          {9, 17, "UP", "Make size larger"},
                          {10, 17, "UP", "Make size larger"}};
    TestWindow w;
    frmmain& main = w.load();
    for (const Step& step : steps) {
        click(main, ToolButton::size);
        QCOMPARE(main.shared.type_size, step.size);
        QCOMPARE(main.toolbar().tag(ToolButton::size_direction), QString::fromLatin1(step.tag));
        QCOMPARE(button(main, ToolButton::size)->property("picture").toInt(), step.picture);
        QCOMPARE(button(main, ToolButton::size)->toolTip(), QString::fromLatin1(step.tool_tip));
        QCOMPARE(main.toolbar().tag(ToolButton::size), QString::number(step.size));
        QCOMPARE(w.pref(QStringLiteral("font")), QString::number(step.size));
    }
}

void tst_toolbar::size_cycle_from_12_goes_down()
{
    TestWindow w;
    w.set_pref(QStringLiteral("font"), QStringLiteral("12"));
    frmmain& main = w.load();
    click(main, ToolButton::size);
    QCOMPARE(main.shared.type_size, 10);
    click(main, ToolButton::size);
    QCOMPARE(main.shared.type_size, 9);
}

void tst_toolbar::size_drop_down_goes_straight_to_the_size()
{
    struct Choice {
        const char* key;
        const char* caption;
        const char* item;
        int size;
    };
    const Choice choices[] = {{"LRG", "Large", "mnu_more_lrg", 12},
                              {"SML", "Small", "mnu_more_sml", 9},
                              {"MDM", "Medium", "mnu_more_mdm", 10}};
    TestWindow w;
    frmmain& main = w.load();
    for (const Choice& choice : choices) {
        QAction* action = drop_down_item(main, ToolButton::size, QString::fromLatin1(choice.key));
        QVERIFY(action && action->isEnabled());
        QCOMPARE(action->text(), QString::fromLatin1(choice.caption));
        action->trigger();
        QCOMPARE(main.shared.type_size, choice.size);
        QCOMPARE(w.pref(QStringLiteral("font")), QString::number(choice.size));
        trigger(w, choice.size == 9 ? "mnu_more_lrg" : "mnu_more_sml");
        QVERIFY(main.shared.type_size != choice.size);
        trigger(w, choice.item);
        QCOMPARE(main.shared.type_size, choice.size);
    }
}

void tst_toolbar::size_drop_down_sets_the_button_for_the_step_away_from_the_size()
{
    struct Choice {
        const char* key;
        int picture;
        const char* tag;
        const char* tool_tip;
    };
    // Medium leads on in the direction that the button before it had.
    const Choice choices[] = {{"LRG", 16, "DN", "Make size smaller"}, {"MDM", 17, "UP", "Make size larger"},
                              {"LRG", 16, "DN", "Make size smaller"}, {"SML", 17, "UP", "Make size larger"},
                              {"MDM", 16, "DN", "Make size smaller"}, {"SML", 17, "UP", "Make size larger"}};
    TestWindow w;
    frmmain& main = w.load();
    for (const Choice& choice : choices) {
        drop_down_item(main, ToolButton::size, QString::fromLatin1(choice.key))->trigger();
        QCOMPARE(button(main, ToolButton::size)->property("picture").toInt(), choice.picture);
        QCOMPARE(main.toolbar().tag(ToolButton::size_direction), QString::fromLatin1(choice.tag));
        QCOMPARE(button(main, ToolButton::size)->toolTip(), QString::fromLatin1(choice.tool_tip));
    }
}

void tst_toolbar::a_change_of_size_closes_the_open_row_first_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("size button") << QString() << 9 << 10;
    QTest::newRow("mnu_more_sml") << QStringLiteral("mnu_more_sml") << 12 << 9;
    QTest::newRow("mnu_more_mdm") << QStringLiteral("mnu_more_mdm") << 9 << 10;
    QTest::newRow("mnu_more_lrg") << QStringLiteral("mnu_more_lrg") << 9 << 12;
}

void tst_toolbar::a_change_of_size_closes_the_open_row_first()
{
    QFETCH(QString, command);
    QFETCH(int, before);
    QFETCH(int, after);
    EditingWindow w;
    w.set_pref(QStringLiteral("font"), QString::number(before));
    w.rows(2);
    w.open();
    w.open_row(1);
    w.type_into("desc_brdr", QStringLiteral("ripe"));
    const HideWatch watch(w.widget("desc_brdr"), w.main().shared);
    if (command.isEmpty()) {
        click(w.main(), ToolButton::size);
    } else {
        QAction& action = w.main().commands().action(command);
        QVERIFY(action.isEnabled());
        action.trigger();
    }
    QCOMPARE(watch.sizes, QList<int>{before});
    QCOMPARE(w.main().shared.type_size, after);
    QVERIFY(!w.editor().is_open());
    for (const char* box : {"desc_brdr", "qty_brdr", "aisle_brdr", "frmEditDel"})
        QVERIFY2(!w.shown(box), box);
    QVERIFY(!w.grid().rows().row(1).bold);
    QCOMPARE(w.cell(1, GridColumn::desc), QStringLiteral("ripe"));
    QVERIFY(w.grid().hasFocus());
}

void tst_toolbar::size_cycle_starts_at_10_from_a_damaged_size()
{
    TestWindow w;
    w.set_pref(QStringLiteral("font"), QStringLiteral("abc"));
    frmmain& main = w.load();
    QCOMPARE(main.shared.type_size, 0);
    click(main, ToolButton::size);
    QCOMPARE(main.shared.type_size, 10);
}

void tst_toolbar::tool_tips_of_the_state_survive_a_resize()
{
    TestWindow w;
    frmmain& main = load_list_and_recipe(w);
    main.resize(900, 650);
    QApplication::processEvents();
    QCOMPARE(button(main, ToolButton::clear)->toolTip(), QStringLiteral("Clear Weekly list"));
    QCOMPARE(button(main, ToolButton::print)->toolTip(), QStringLiteral("Print Weekly list"));
}

void tst_toolbar::email_button_follows_its_tag_and_not_the_list()
{
    TestWindow w;
    w.set_pref(QStringLiteral("av_warn"), QStringLiteral("1")); // no notice before what is sent
    frmmain& main = load_list_and_recipe(w);
    MessageScript script;
    script.drive([](QDialog& rows_wanted) { rows_wanted.reject(); });
    QCOMPARE(main.toolbar().tag(ToolButton::email), QStringLiteral("list"));
    QCOMPARE(commands_of_click(main, ToolButton::email), QStringList{QStringLiteral("mnu_tools_email_list")});
    main.view_state().show_list_pane(false);
    QVERIFY(main.shared.current_list > 0);
    QCOMPARE(main.toolbar().tag(ToolButton::email), QStringLiteral("rcp"));
    QCOMPARE(commands_of_click(main, ToolButton::email), QStringList{QStringLiteral("mnu_tools_email_rcp")});
}

void tst_toolbar::buttons_stand_for_their_commands_data()
{
    QTest::addColumn<ToolButton>("which");
    QTest::addColumn<QString>("list_side");
    QTest::addColumn<QString>("recipe_side");
    QTest::addColumn<bool>("list_dialog");
    QTest::addColumn<bool>("recipe_dialog");
    const auto row = [](ToolButton which, const char* list_side, const char* recipe_side, bool list_dialog = false,
                        bool recipe_dialog = false) {
        QTest::addRow("%d", static_cast<int>(which))
            << which << QString::fromLatin1(list_side) << QString::fromLatin1(recipe_side) << list_dialog
            << recipe_dialog;
    };
    row(ToolButton::new_list, "mnu_list_new", "mnu_list_new", true, true);
    row(ToolButton::clear, "mnu_list_clear", "mnu_list_clear", true, true);
    row(ToolButton::lists, "mnu_tools_listlist", "mnu_tools_listlist");
    row(ToolButton::new_recipe, "mnu_recipe_new", "mnu_recipe_new", true, true);
    row(ToolButton::ingredient, "", "mnu_recipe_add_ingred");
    row(ToolButton::stock, "mnu_edit_add_stck", "mnu_edit_add_stck", true, true);
    row(ToolButton::print, "mnu_list_Print", "mnu_recipe_prnt", true, true);
    row(ToolButton::preview, "no command", "no command", true,
        true); // the preview stands in no menu, and never prints
    row(ToolButton::word_processor, "mnu_tools_wp_list", "mnu_tools_wp_rcp", true);
    row(ToolButton::email, "mnu_tools_email_list", "mnu_tools_email_rcp", true);
    row(ToolButton::find, "mnu_tools_find_item", "mnu_tools_find_item");
    row(ToolButton::folders, "mnu_view_cntrct_all", "mnu_view_cntrct_all");
}

void tst_toolbar::buttons_stand_for_their_commands()
{
    QFETCH(ToolButton, which);
    QFETCH(QString, list_side);
    QFETCH(QString, recipe_side);
    QFETCH(bool, list_dialog);
    QFETCH(bool, recipe_dialog);
    TestWindow w;
    w.set_pref(QStringLiteral("av_warn"), QStringLiteral("1")); // no notice before what is sent
    frmmain& main = load_list_and_recipe(w);
    for (const QString& expected : {list_side, recipe_side}) {
        MessageScript script;
        if (main.shared.list_pane_shown ? list_dialog : recipe_dialog)
            script.drive([](QDialog& opened) { opened.reject(); });
        if (expected.isEmpty())
            QVERIFY(!button(main, which)->isEnabled());
        else if (expected == QLatin1String("no command"))
            QCOMPARE(commands_of_click(main, which), QStringList());
        else
            QCOMPARE(commands_of_click(main, which), QStringList{expected});
        QCOMPARE(script.left(), 0);
        main.view_state().show_list_pane(false);
    }
}

void tst_toolbar::folder_button_closes_the_folders()
{
    TestWindow w;
    const Key category = w.add_category(QStringLiteral("Dairy"), true);
    w.add_item(QStringLiteral("Milk"), category);
    frmmain& main = w.load();
    QTreeWidgetItem* folder = main.stock_tree().category_node(category);
    QVERIFY(folder && folder->isExpanded());
    click(main, ToolButton::folders);
    QVERIFY(!folder->isExpanded());
    QCOMPARE(w.number("SELECT expand FROM cat WHERE key_id > 0"), 0);
}

QTEST_MAIN(tst_toolbar)
#include "tst_toolbar.moc"
