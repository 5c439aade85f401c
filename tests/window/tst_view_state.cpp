#include "window/frmmain.h"
#include "data/query.h"
#include "household/household.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "recipes/recipe_tree.h"
#include "window/commands.h"
#include "window/status_panels.h"
#include "window/toolbar.h"
#include "widgets/tree_view.h"
#include "window/view_state.h"
#include "stock/stock_tree.h"
#include "support/menu_hands.h"
#include "support/test_window.h"
#include "support/tool_button.h"

#include <QAction>
#include <QLabel>
#include <QTabBar>
#include <QToolButton>
#include <QtTest>

using namespace tarnwick;

namespace {

enum ListKind { no_list, one_list, all_lists };

constexpr ToolButton page_buttons[]
    = {ToolButton::print, ToolButton::preview, ToolButton::word_processor, ToolButton::email};

/// The window with the lists "Weekly", which is in use, and "Party", a recipe "Lentil soup", a category "Dairy"
/// with the item "Milk".
class Fixture {
public:
    explicit Fixture(bool with_lists = true)
    {
        if (with_lists)
            lists_ = {list_ = w.add_list(QStringLiteral("Weekly")), w.add_list(QStringLiteral("Party"))};
        Query(w.db(), "INSERT INTO recipe_1 (key_id, r_name, r_body, cat) VALUES (1, 'Lentil soup', 'Boil.', '01')")
            .run();
        category_ = w.add_category(QStringLiteral("Dairy"), true);
        item_ = w.add_item(QStringLiteral("Milk"), category_);
        w.set_pref(QStringLiteral("alist"), QString::number(list_));
    }

    frmmain& load(QSize size = {1000, 700})
    {
        main_ = &w.load(size);
        return *main_;
    }

    /// Chooses the views as a user does; for no list all of them are deleted.
    void set_view(bool stock, bool list, ListKind lists)
    {
        if (lists != no_list)
            choose_list(w, lists == one_list ? list_ : Key{0});
        for (const Key each : lists == no_list ? lists_ : std::vector<Key>())
            main_->household().delete_list(each);
        trigger(w, stock ? "mnu_view_stock" : "mnu_view_rcp");
        trigger(w, list ? "mnu_view_shoplist" : "mnu_view_rcpepages");
    }

    Key item() const { return item_; }
    QAction& action(const char* name) { return main_->commands().action(QString::fromLatin1(name)); }
    QString caption(const char* name) { return Commands::plain_caption(action(name)); }
    QToolButton& button(ToolButton which) { return *main_->findChild<QToolButton*>(tool_button(which)); }
    QTabBar& tabs(int index) { return *main_->findChild<QTabBar*>(QStringLiteral("TabStrip1(%1)").arg(index)); }

    QTreeWidgetItem* select(TreeView& tree, const QString& key)
    {
        QTreeWidgetItem* node = tree.node(key);
        if (node)
            tree.select(node);
        return node;
    }
    QTreeWidgetItem* select_recipe() { return select(main_->recipe_tree().view(), QStringLiteral("rcp0001")); }
    QTreeWidgetItem* select_stock(const QString& key) { return select(main_->stock_tree().view(), key); }

    TestWindow w;
    Key list_ = 0;
    std::vector<Key> lists_;
    Key category_ = 0;
    Key item_ = 0;
    frmmain* main_ = nullptr;
};

struct ListSide {
    const char* del;
    const char* print_item;
    const char* clear_item;
    const char* tool_tips[5]; ///< buttons 2, 10, 11, 12, 13
    bool any;
    bool single;
};

const ListSide& list_side(ListKind lists)
{
    static const ListSide sides[] = {
        {"Delete list",
         "Print lists",
         "Clear lists",
         {"Clear lists", "Print list", "Preview list", "Open list in word processor", "Send recipe by email"},
         false,
         false},
        {"Delete Weekly list",
         "Print Weekly list",
         "Clear Weekly list",
         {"Clear Weekly list", "Print Weekly list", "Preview Weekly list", "Open Weekly list in word processor",
          "Send Weeklylist by email"},
         true,
         true},
        {"Delete list",
         "Print all lists",
         "Clear lists",
         {"Clear lists", "Print all shopping lists", "Preview all shopping lists",
          "Open all shopping lists in word processor", "Send all lists by email"},
         true,
         false},
    };
    return sides[lists];
}

} // namespace

class tst_view_state : public QObject {
    Q_OBJECT
private slots:
    void every_state_of_the_window_data();
    void every_state_of_the_window();
    void with_no_list_only_the_named_buttons_stay_enabled_and_the_invitation_shows();
    void email_tool_tip_of_a_list_named_weekly_has_no_blank();
    void recipe_buttons_need_a_recipe_on_the_page();
    void remembered_recipe_is_set_when_the_page_shows_none();
    void left_tab_click_switches_the_tree_and_stores_it();
    void right_tab_click_stores_the_reverse_value();
    void a_click_on_the_tab_in_front_still_writes_its_setting();
    void the_wheel_over_a_tab_strip_changes_and_writes_nothing();
    void tool_tips_of_pencil_and_cross_follow_the_right_pane();
    void a_list_name_like_markup_stands_letter_by_letter_in_tool_tips();
    void views_and_tabs_agree_after_a_menu_choice();
    void sort_to_the_order_in_force_neither_reloads_nor_stores();
    void sort_reloads_ticks_and_stores();
    void menu_of_a_selected_recipe();
    void menu_of_a_selected_stock_item();
    void menu_of_a_selected_category();
    void menu_of_the_fixed_category();
    void menu_without_a_selection();
    void captions_fall_back_when_the_tab_strip_is_narrow();
    void ampersand_of_a_list_name_stands_on_tab_and_menu();
    void tab_key_moves_nothing();
    void words_follow_the_views_data();
    void words_follow_the_views();
    void loading_does_not_store_the_tree();
};

void tst_view_state::every_state_of_the_window_data()
{
    QTest::addColumn<bool>("stock");
    QTest::addColumn<bool>("list");
    QTest::addColumn<int>("lists");
    for (const bool stock : {true, false})
        for (const bool list : {true, false})
            for (const ListKind lists : {no_list, one_list, all_lists})
                QTest::addRow("%s, %s, %s", stock ? "stock" : "recipes", list ? "list" : "page",
                              lists == no_list        ? "no list"
                                  : lists == one_list ? "one list"
                                                      : "all lists")
                    << stock << list << static_cast<int>(lists);
}

void tst_view_state::every_state_of_the_window()
{
    QFETCH(bool, stock);
    QFETCH(bool, list);
    QFETCH(int, lists);
    const ListSide& side = list_side(static_cast<ListKind>(lists));
    Fixture f;
    frmmain& main = f.load();
    // From the opposite state, so that nothing is right by having been left alone.
    f.set_view(!stock, !list, one_list);
    f.set_view(stock, list, static_cast<ListKind>(lists));

    QCOMPARE(main.stock_tree().view().isVisible(), stock);
    QCOMPARE(main.recipe_tree().view().isVisible(), !stock);
    QCOMPARE(f.action("mnu_view_stock").isChecked(), stock);
    QCOMPARE(f.action("mnu_view_rcp").isChecked(), !stock);
    for (const char* name : {"mnu_view_sort", "mnu_view_sort_alpha", "mnu_view_sort_cat"})
        QCOMPARE(f.action(name).isEnabled(), stock);
    for (const char* name : {"mnu_view_sort_r", "mnu_view_sort_alpha_r", "mnu_view_sort_cat_r"})
        QCOMPARE(f.action(name).isEnabled(), !stock);
    QCOMPARE(f.tabs(0).currentIndex(), stock ? 0 : 1);
    QCOMPARE(f.w.pref(QStringLiteral("tv_view")), stock ? QStringLiteral("1") : QStringLiteral("0"));
    QCOMPARE(f.button(ToolButton::folders).toolTip(),
             stock ? QStringLiteral("Close all stock folders") : QStringLiteral("Close all recipe folders"));

    QCOMPARE(f.action("mnu_view_shoplist").isChecked(), list);
    QCOMPARE(f.action("mnu_view_rcpepages").isChecked(), !list);
    QCOMPARE(f.tabs(1).currentIndex(), list ? 0 : 1);
    QCOMPARE(f.button(ToolButton::ingredient).isEnabled(), !list);
    QCOMPARE(f.w.find<QLabel>(QStringLiteral("StatusBar1(6)"))->isVisible(), !list);
    QCOMPARE(f.action("mnu_recipe_add_ingred").isEnabled(), !list);
    QCOMPARE(f.action("mnu_view_cpn").isEnabled(), list);
    QCOMPARE(f.action("mnu_view_aisle").isEnabled(), list);
    QCOMPARE(main.list_pane().grid().isVisible(), list);
    QCOMPARE(main.recipe_page().frame4().isVisible(), !list);
    QCOMPARE(main.toolbar().tag(ToolButton::email), list ? QStringLiteral("list") : QStringLiteral("rcp"));

    QCOMPARE(f.action("mnu_list_RenameList").isVisible(), lists == one_list);
    QCOMPARE(f.caption("mnu_list_RenameList"), QStringLiteral("Rename list"));
    QCOMPARE(f.action("mnu_tv_ai").isEnabled(), lists != no_list);
    QCOMPARE(f.action("mnu_list_clear").isEnabled(), lists == one_list);
    if (stock) {
        QCOMPARE(f.caption("mnu_tv_ai"), QStringLiteral("Add to list"));
        QCOMPARE(f.caption("mnu_tv_air"), QStringLiteral("Add to recipe"));
    }

    const QString titles[] = {QStringLiteral("Tarnwick"), QStringLiteral("Tarnwick (Weekly list)"),
                              QStringLiteral("Tarnwick (viewing all lists)")};
    const QString tabs[] = {QStringLiteral("No shopping lists"), QStringLiteral("Shopping list: Weekly"),
                            QStringLiteral("All shopping lists")};
    QCOMPARE(main.windowTitle(), titles[lists]);
    QCOMPARE(f.tabs(1).tabText(0), tabs[lists]);

    if (!list) {
        const char* const tool_tips[]
            = {"Print recipe", "Preview recipe", "Open recipe in word processor", "Send recipe by email"};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(f.button(page_buttons[i]).toolTip(), QString::fromLatin1(tool_tips[i]));
            QCOMPARE(f.button(page_buttons[i]).isEnabled(), main.recipe_page().has_recipe());
        }
        if (stock)
            QVERIFY(!f.action("mnu_list_del").isEnabled());
        return;
    }
    QCOMPARE(f.caption("mnu_list_del"), QString::fromLatin1(side.del));
    QCOMPARE(f.action("mnu_list_del").isEnabled(), side.single);
    QCOMPARE(f.caption("mnu_list_Print"), QString::fromLatin1(side.print_item));
    QCOMPARE(f.action("mnu_list_Print").isEnabled(), side.any);
    QCOMPARE(f.caption("mnu_list_clear"), QString::fromLatin1(side.clear_item));
    QCOMPARE(f.button(ToolButton::clear).isEnabled(), side.single);
    QCOMPARE(f.button(ToolButton::clear).toolTip(), QString::fromLatin1(side.tool_tips[0]));
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(f.button(page_buttons[i]).toolTip(), QString::fromLatin1(side.tool_tips[i + 1]));
        QCOMPARE(f.button(page_buttons[i]).isEnabled(), side.any);
    }
}

void tst_view_state::with_no_list_only_the_named_buttons_stay_enabled_and_the_invitation_shows()
{
    Fixture f(false);
    frmmain& main = f.load();
    f.set_view(true, true, no_list);
    using enum ToolButton;
    for (const ToolButton disabled : {clear, ingredient, print, preview, word_processor, email})
        QVERIFY2(!f.button(disabled).isEnabled(), qPrintable(f.button(disabled).objectName()));
    for (const ToolButton enabled : {new_list, lists, new_recipe, stock, find, sort, folders, size})
        QVERIFY2(f.button(enabled).isEnabled(), qPrintable(f.button(enabled).objectName()));
    const auto* invitation = main.findChild<QWidget*>(QStringLiteral("frmCreateList"));
    QVERIFY(invitation && invitation->isVisible());
    f.set_view(true, false, no_list);
    QVERIFY(!invitation->isVisible());
    QVERIFY(!f.button(ToolButton::clear).isEnabled());
}

void tst_view_state::email_tool_tip_of_a_list_named_weekly_has_no_blank()
{
    Fixture f;
    f.load();
    f.set_view(true, true, one_list);
    QCOMPARE(f.button(ToolButton::email).toolTip(), QStringLiteral("Send Weeklylist by email"));
}

void tst_view_state::recipe_buttons_need_a_recipe_on_the_page()
{
    Fixture f;
    frmmain& main = f.load();
    f.set_view(false, false, one_list);
    QVERIFY(!main.recipe_page().has_recipe());
    for (const ToolButton button : page_buttons)
        QVERIFY(!f.button(button).isEnabled());
    TreeView& tree = main.recipe_tree().view();
    tree.ensure_visible(tree.node(QStringLiteral("rcp0001")));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      tree.text_rect(tree.node(QStringLiteral("rcp0001"))).center());
    QVERIFY(main.recipe_page().has_recipe());
    for (const ToolButton button : page_buttons)
        QVERIFY(f.button(button).isEnabled());
}

void tst_view_state::remembered_recipe_is_set_when_the_page_shows_none()
{
    Fixture f;
    f.w.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    frmmain& main = f.load();
    main.view_state().show_list_pane(false);
    QVERIFY(main.recipe_page().has_recipe());
    QCOMPARE(f.tabs(1).tabText(1), QStringLiteral("Recipe: Lentil soup"));
}

void tst_view_state::left_tab_click_switches_the_tree_and_stores_it()
{
    Fixture f;
    frmmain& main = f.load();
    QTest::mouseClick(&f.tabs(0), Qt::LeftButton, {}, f.tabs(0).tabRect(1).center());
    QVERIFY(!main.shared.stock_view);
    QVERIFY(main.recipe_tree().view().isVisible());
    QCOMPARE(f.w.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
    QTest::mouseClick(&f.tabs(0), Qt::LeftButton, {}, f.tabs(0).tabRect(0).center());
    QVERIFY(main.shared.stock_view);
    QCOMPARE(f.w.pref(QStringLiteral("tv_view")), QStringLiteral("1"));
}

void tst_view_state::right_tab_click_stores_the_reverse_value()
{
    Fixture f;
    f.w.set_pref(QStringLiteral("lv_view"), QStringLiteral("0"));
    frmmain& main = f.load();
    QTest::mouseClick(&f.tabs(1), Qt::LeftButton, {}, f.tabs(1).tabRect(0).center());
    QVERIFY(main.shared.list_pane_shown);
    QCOMPARE(f.w.pref(QStringLiteral("lv_view")), QStringLiteral("0"));
    QTest::mouseClick(&f.tabs(1), Qt::LeftButton, {}, f.tabs(1).tabRect(1).center());
    QVERIFY(!main.shared.list_pane_shown);
    QCOMPARE(f.w.pref(QStringLiteral("lv_view")), QStringLiteral("1"));
}

void tst_view_state::a_click_on_the_tab_in_front_still_writes_its_setting()
{
    Fixture f;
    frmmain& main = f.load();
    const QString settings[] = {QStringLiteral("tv_view"), QStringLiteral("lv_view")};
    for (const int tab : {0, 1}) {
        f.set_view(tab == 0, tab == 0, one_list);
        for (const int strip : {0, 1}) {
            QCOMPARE(f.tabs(strip).currentIndex(), tab);
            f.w.set_pref(settings[strip], QStringLiteral("untouched"));
            QTest::mouseClick(&f.tabs(strip), Qt::LeftButton, {}, f.tabs(strip).tabRect(tab).center());
            QCOMPARE(f.tabs(strip).currentIndex(), tab);
            // The sense of the right strip's setting is the reverse of the left one's.
            QCOMPARE(f.w.pref(settings[strip]), QString::number(strip == 0 ? 1 - tab : tab));
        }
        QCOMPARE(main.shared.stock_view, tab == 0);
        QCOMPARE(main.shared.list_pane_shown, tab == 0);
    }
}

void tst_view_state::the_wheel_over_a_tab_strip_changes_and_writes_nothing()
{
    Fixture f;
    frmmain& main = f.load();
    f.w.set_pref(QStringLiteral("tv_view"), QStringLiteral("untouched"));
    f.w.set_pref(QStringLiteral("lv_view"), QStringLiteral("untouched"));
    for (const int strip : {0, 1}) {
        QTabBar& tabs = f.tabs(strip);
        for (const int turn : {-120, 120, -120}) {
            const QPointF place = tabs.tabRect(0).center();
            QWheelEvent wheel(place, tabs.mapToGlobal(place), {}, QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&tabs, &wheel);
            QCOMPARE(tabs.currentIndex(), 0);
        }
    }
    QVERIFY(main.shared.stock_view && main.shared.list_pane_shown);
    QCOMPARE(f.w.pref(QStringLiteral("tv_view")), QStringLiteral("untouched"));
    QCOMPARE(f.w.pref(QStringLiteral("lv_view")), QStringLiteral("untouched"));
}

void tst_view_state::tool_tips_of_pencil_and_cross_follow_the_right_pane()
{
    Fixture f;
    frmmain& main = f.load();
    const auto check = [&main](const char* name, const QString& tool_tip) {
        const auto buttons = main.findChildren<QWidget*>(QLatin1String(name));
        QVERIFY(!buttons.isEmpty());
        for (const QWidget* button : buttons)
            QCOMPARE(button->toolTip(), tool_tip);
    };
    for (const bool list : {false, true, false}) {
        f.set_view(true, list, one_list);
        check("imgedit", list ? QStringLiteral("Edit item") : QStringLiteral("Edit ingredient"));
        check("imgScratch", list ? QStringLiteral("Delete item") : QStringLiteral("Delete ingredient"));
    }
}

void tst_view_state::a_list_name_like_markup_stands_letter_by_letter_in_tool_tips()
{
    Fixture f;
    frmmain& main = f.load();
    main.household().rename_list(f.list_, QStringLiteral("<b>x</b>"));
    QCOMPARE(f.button(ToolButton::clear).toolTip(), QStringLiteral("<qt>Clear &lt;b&gt;x&lt;/b&gt; list</qt>"));
    QCOMPARE(f.tabs(1).tabToolTip(0), QStringLiteral("<qt>Shopping list: &lt;b&gt;x&lt;/b&gt;</qt>"));
    QCOMPARE(f.tabs(1).tabText(0), QStringLiteral("Shopping list: <b>x</b>"));
    main.household().rename_list(f.list_, QStringLiteral("Fish & Chips"));
    QCOMPARE(f.button(ToolButton::clear).toolTip(), QStringLiteral("Clear Fish & Chips list"));
}

void tst_view_state::views_and_tabs_agree_after_a_menu_choice()
{
    Fixture f;
    f.load();
    QVERIFY(f.action("mnu_view_rcp").isEnabled());
    f.action("mnu_view_rcp").trigger();
    QCOMPARE(f.tabs(0).currentIndex(), 1);
    f.action("mnu_view_rcpepages").trigger();
    QCOMPARE(f.tabs(1).currentIndex(), 1);
    f.action("mnu_view_stock").trigger();
    QCOMPARE(f.tabs(0).currentIndex(), 0);
    f.action("mnu_view_shoplist").trigger();
    QCOMPARE(f.tabs(1).currentIndex(), 0);
}

void tst_view_state::sort_to_the_order_in_force_neither_reloads_nor_stores()
{
    Fixture f;
    frmmain& main = f.load();
    f.w.set_pref(QStringLiteral("sort"), QStringLiteral("untouched"));
    TreeView& tree = main.stock_tree().view();
    const QTreeWidgetItem* const own = tree.add_node(nullptr, QStringLiteral("mark"), QStringLiteral("x"), 0, {});
    QVERIFY(f.action("mnu_view_sort_cat").isEnabled());
    f.action("mnu_view_sort_cat").trigger();
    QCOMPARE(tree.node(QStringLiteral("mark")), own);
    QCOMPARE(f.w.pref(QStringLiteral("sort")), QStringLiteral("untouched"));
}

void tst_view_state::sort_reloads_ticks_and_stores()
{
    Fixture f;
    frmmain& main = f.load();
    TreeView& tree = main.stock_tree().view();
    tree.add_node(nullptr, QStringLiteral("mark"), QStringLiteral("x"), 0, {});
    QVERIFY(f.action("mnu_view_sort_alpha").isEnabled());
    f.action("mnu_view_sort_alpha").trigger();
    QVERIFY(!tree.node(QStringLiteral("mark")));
    QVERIFY(main.shared.stock_alpha);
    QVERIFY(f.action("mnu_view_sort_alpha").isChecked());
    QVERIFY(!f.action("mnu_view_sort_cat").isChecked());
    QVERIFY(!f.action("mnu_view_sort_alpha_r").isChecked());
    QCOMPARE(f.w.pref(QStringLiteral("sort")), QStringLiteral("alpha"));
    QCOMPARE(f.w.pref(QStringLiteral("sort_r")), QStringLiteral("(none)"));
    f.action("mnu_view_sort_cat").trigger();
    QVERIFY(!main.shared.stock_alpha);
    QCOMPARE(f.w.pref(QStringLiteral("sort")), QStringLiteral("cat"));
}

void tst_view_state::menu_of_a_selected_recipe()
{
    Fixture f;
    f.load();
    f.set_view(false, true, one_list);
    QVERIFY(f.select_recipe());
    QCOMPARE(f.caption("mnu_recipe_prnt"), QStringLiteral("Print Lentil soup recipe"));
    QCOMPARE(f.caption("mnu_recipe_del"), QStringLiteral("Delete Lentil soup recipe"));
    QCOMPARE(f.caption("mnu_recipe_move"), QStringLiteral("Move Lentil soup recipe"));
    for (const char* name : {"mnu_recipe_prnt", "mnu_recipe_del", "mnu_recipe_move"})
        QVERIFY(f.action(name).isEnabled());
    trigger(f.w, "mnu_view_sort_alpha_r");
    QVERIFY(f.select_recipe());
    QVERIFY(f.action("mnu_recipe_prnt").isEnabled());
    QVERIFY(!f.action("mnu_recipe_move").isEnabled());
    f.set_view(true, true, one_list);
    QCOMPARE(f.caption("mnu_recipe_prnt"), QStringLiteral("Print recipe"));
    QCOMPARE(f.caption("mnu_recipe_del"), QStringLiteral("Delete recipe"));
    QCOMPARE(f.caption("mnu_recipe_move"), QStringLiteral("Move recipe"));
    for (const char* name : {"mnu_recipe_prnt", "mnu_recipe_del", "mnu_recipe_move"})
        QVERIFY(!f.action(name).isEnabled());
}

void tst_view_state::menu_of_a_selected_stock_item()
{
    Fixture f;
    f.load();
    QVERIFY(f.select_stock(QStringLiteral("item") + key_str(f.item_)));
    QCOMPARE(f.caption("mnu_edit_move"), QStringLiteral("Move Milk to a different category"));
    QCOMPARE(f.caption("mnu_edit_stock_to_list"), QStringLiteral("Add Milk to shopping list"));
    QCOMPARE(f.caption("mnu_edit_del_cat"), QStringLiteral("Delete Category"));
    QCOMPARE(f.caption("mnu_edit_rn_cat"), QStringLiteral("Rename Category"));
    QVERIFY(f.action("mnu_edit_move").isEnabled() && f.action("mnu_edit_stock_to_list").isEnabled());
    QVERIFY(!f.action("mnu_edit_del_cat").isEnabled() && !f.action("mnu_edit_rn_cat").isEnabled());
    trigger(f.w, "mnu_view_sort_alpha");
    QVERIFY(f.select_stock(QStringLiteral("item") + key_str(f.item_)));
    QVERIFY(!f.action("mnu_edit_move").isEnabled());
    QVERIFY(f.action("mnu_edit_stock_to_list").isEnabled());
}

void tst_view_state::menu_of_a_selected_category()
{
    Fixture f;
    f.load();
    QVERIFY(f.select_stock(QStringLiteral("cat") + key_str(f.category_)));
    QCOMPARE(f.caption("mnu_edit_move"), QStringLiteral("Move item to a different category"));
    QCOMPARE(f.caption("mnu_edit_stock_to_list"), QStringLiteral("Add item to shopping list"));
    QCOMPARE(f.caption("mnu_edit_del_cat"), QStringLiteral("Delete Dairy category"));
    QCOMPARE(f.caption("mnu_edit_rn_cat"), QStringLiteral("Rename Dairy category"));
    QVERIFY(!f.action("mnu_edit_move").isEnabled() && !f.action("mnu_edit_stock_to_list").isEnabled());
    QVERIFY(f.action("mnu_edit_del_cat").isEnabled() && f.action("mnu_edit_rn_cat").isEnabled());
}

void tst_view_state::menu_of_the_fixed_category()
{
    Fixture f;
    f.load();
    QVERIFY(f.select_stock(QStringLiteral("cat0000")));
    QCOMPARE(f.caption("mnu_edit_del_cat"), QStringLiteral("Delete category"));
    QCOMPARE(f.caption("mnu_edit_rn_cat"), QStringLiteral("Rename category"));
    for (const char* name : {"mnu_edit_move", "mnu_edit_stock_to_list", "mnu_edit_del_cat", "mnu_edit_rn_cat"})
        QVERIFY(!f.action(name).isEnabled());
}

void tst_view_state::menu_without_a_selection()
{
    Fixture f;
    frmmain& main = f.load();
    QVERIFY(f.select_stock(QStringLiteral("item") + key_str(f.item_)));
    f.set_view(false, true, one_list);
    QCOMPARE(f.caption("mnu_edit_move"), QStringLiteral("Move item to a different category"));
    QCOMPARE(f.caption("mnu_edit_stock_to_list"), QStringLiteral("Add item to shopping list"));
    QCOMPARE(f.caption("mnu_edit_del_cat"), QStringLiteral("Delete Category"));
    QCOMPARE(f.caption("mnu_edit_rn_cat"), QStringLiteral("Rename Category"));
    for (const char* name : {"mnu_edit_move", "mnu_edit_stock_to_list", "mnu_edit_del_cat", "mnu_edit_rn_cat"})
        QVERIFY(!f.action(name).isEnabled());
    main.recipe_tree().view().clearSelection();
    QVERIFY(!f.action("mnu_recipe_del").isEnabled());
}

void tst_view_state::captions_fall_back_when_the_tab_strip_is_narrow()
{
    Fixture f;
    Query(f.w.db(), "UPDATE recipe_1 SET r_name = 'Lentil soup with a very long name indeed, and bread'").run();
    f.w.set_pref(QStringLiteral("arcp"), QStringLiteral("1"));
    frmmain& main = f.load();
    QCOMPARE(f.tabs(1).tabText(0), QStringLiteral("Shopping list: Weekly"));
    main.resize(main.minimumWidth(), 600);
    QApplication::processEvents();
    QCOMPARE(f.tabs(1).tabText(0), QStringLiteral("Shopping lists"));
    QCOMPARE(f.tabs(1).tabText(1), QStringLiteral("Recipes"));
    QCOMPARE(f.tabs(1).tabToolTip(0), QStringLiteral("Shopping list: Weekly"));
    main.resize(1000, 600);
    QApplication::processEvents();
    QCOMPARE(f.tabs(1).tabText(0), QStringLiteral("Shopping list: Weekly"));
}

void tst_view_state::ampersand_of_a_list_name_stands_on_tab_and_menu()
{
    Fixture f;
    frmmain& main = f.load();
    main.household().rename_list(f.list_, QStringLiteral("Fish & Chips"));
    QCOMPARE(f.tabs(1).tabText(0), QStringLiteral("Shopping list: Fish && Chips"));
    QCOMPARE(f.caption("mnu_list_del"), QStringLiteral("Delete Fish & Chips list"));
    QCOMPARE(f.action("mnu_list_del").text(), QStringLiteral("Delete Fish && Chips list"));
    QCOMPARE(main.windowTitle(), QStringLiteral("Tarnwick (Fish & Chips list)"));
}

void tst_view_state::tab_key_moves_nothing()
{
    Fixture f;
    frmmain& main = f.load();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    TreeView& tree = main.stock_tree().view();
    tree.setFocus();
    QVERIFY(tree.hasFocus());
    QTest::keyClick(&tree, Qt::Key_Tab);
    QVERIFY(tree.hasFocus());
}

/// The panel tells of the tree on show whichever view was changed, and by tab or command.
void tst_view_state::words_follow_the_views_data()
{
    QTest::addColumn<bool>("by_tab");
    QTest::newRow("by tab") << true;
    QTest::newRow("by command") << false;
}

void tst_view_state::words_follow_the_views()
{
    QFETCH(bool, by_tab);
    Fixture f;
    frmmain& main = f.load();
    const auto choose = [&](const char* tabs, int tab, const char* command) {
        main.set_status(QStringLiteral("of what is gone"));
        auto& strip = *f.w.find<QTabBar>(QLatin1String(tabs));
        if (by_tab)
            QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(tab).center());
        else
            f.action(command).trigger();
        return main.status_panels().text();
    };
    main.stock_tree().view().select(main.stock_tree().item_node(f.item()));
    const QString milk = QStringLiteral("Not listed :: Dairy category");
    const QString soup = QStringLiteral("Lentil soup recipe");
    QCOMPARE(main.status_panels().text(), milk);
    QCOMPARE(choose("TabStrip1(1)", 1, "mnu_view_rcpepages"), milk);
    QCOMPARE(choose("TabStrip1(0)", 1, "mnu_view_rcp"), QString());
    QVERIFY(main.recipe_tree().choose(1));
    QCOMPARE(main.status_panels().text(), soup);
    QCOMPARE(choose("TabStrip1(0)", 0, "mnu_view_stock"), milk);
    QCOMPARE(choose("TabStrip1(1)", 0, "mnu_view_shoplist"), milk);
    QCOMPARE(choose("TabStrip1(0)", 1, "mnu_view_rcp"), soup);
}

void tst_view_state::loading_does_not_store_the_tree()
{
    Fixture f;
    f.w.set_pref(QStringLiteral("tv_view"), QStringLiteral("0"));
    const frmmain& main = f.load(); // which refreshes the window before it reads the view
    QVERIFY(!main.shared.stock_view);
    QCOMPARE(f.w.pref(QStringLiteral("tv_view")), QStringLiteral("0"));
}

QTEST_MAIN(tst_view_state)
#include "tst_view_state.moc"
