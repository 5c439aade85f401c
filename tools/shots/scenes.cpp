#include "shots/scenes.h"

#include "shots/drag_scenes.h"
#include "shots/looks_scenes.h"
#include "shots/print_scenes.h"
#include "shots/stock_scenes.h"
#include "shots/studio.h"
#include "shots/window_scenes.h"

#include "window/frmsplash.h"
#include "window/frmmain.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "window/commands.h"
#include "widgets/tree_view.h"
#include "dialogs/l_item_edit.h"
#include "stock/stock_tree.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <array>

namespace tarnwick::shots {
namespace {

using Prefs = QHash<QString, QString>;

constexpr int first_list = 1;
constexpr int first_recipe = 1;
constexpr int narrow_width = 560;

/// The settings of a run on the first list and recipe at a type size and page colour.
Prefs look(int points, int color = 3)
{
    return {{QStringLiteral("font"), QString::number(points)},
            {QStringLiteral("color"), QString::number(color)},
            {QStringLiteral("alist"), QString::number(first_list)},
            {QStringLiteral("arcp"), QString::number(first_recipe)}};
}

Prefs with(Prefs prefs, const char* key, const char* value)
{
    prefs.insert(QLatin1String(key), QLatin1String(value));
    return prefs;
}

QString sized(const char* name, int points)
{
    return QStringLiteral("%1-%2pt").arg(QLatin1String(name)).arg(points);
}

/// The first item of the first folder that has one, with its folder open.
QTreeWidgetItem* some_item(Studio& studio)
{
    TreeView& tree = studio.main().stock_tree().view();
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        QTreeWidgetItem* node = tree.topLevelItem(i);
        if (TreeView::key(node).startsWith(QLatin1String("item")))
            return node;
        if (node->childCount() > 1) {
            node->setExpanded(true);
            studio.settle();
            return node->child(1);
        }
    }
    studio.fault(QStringLiteral("the stock tree has no item"));
    return nullptr;
}

void click_cell(Studio& studio, int row, GridColumn column, Qt::MouseButton button = Qt::LeftButton)
{
    ListGrid& grid = studio.main().list_pane().grid();
    if (row >= grid.rows().rows()) {
        studio.fault(QStringLiteral("the list has no row %1").arg(row));
        return;
    }
    const QPoint middle = grid.cell_rect(row, column).center();
    studio.click(grid.viewport(), grid.viewport()->mapFrom(grid.parentWidget(), middle), button);
}

/// Opens the first row that has a coupon, and the calendar of its date.
void open_calendar(Studio& studio)
{
    const GridModel& rows = studio.main().list_pane().grid().rows();
    for (int row = 0; row < rows.rows(); ++row) {
        if (trim(rows.cell_text(row, GridColumn::date)).isEmpty())
            continue;
        click_cell(studio, row, GridColumn::item);
        studio.click(studio.visible_child(QStringLiteral("dtp_btn")));
        return;
    }
    studio.fault(QStringLiteral("no row has a coupon"));
}

void dialog_shot(Studio& studio, const QString& command, const QString& name)
{
    studio.with_dialog([&] { studio.command(command); }, [&](QDialog&) { studio.shot(name); });
}

void empty_program(Studio& studio, int points)
{
    studio.use_empty_folder();
    studio.start({{QStringLiteral("font"), QString::number(points)}});
    studio.shot(sized("empty", points));
    studio.menu_shot(QStringLiteral("mnu_list"), sized("empty-menu", points));
    studio.use_household();
}

void stock_trees(Studio& studio, int points)
{
    studio.start(look(points));
    studio.click_node(some_item(studio));
    studio.shot(sized("stock-by-category", points));
    studio.start(with(look(points), "sort", "alpha"));
    studio.click_node(some_item(studio));
    studio.shot(sized("stock-by-name", points));
    studio.start(with(look(points), "tv_view", "0"));
    studio.shot(sized("recipe-tree-and-list", points));
}

void lists(Studio& studio, int points)
{
    Prefs all = with(look(points), "s_all", "1");
    all[QStringLiteral("alist")] = QStringLiteral("0");
    studio.start(all);
    studio.shot(sized("all-lists", points));
    click_cell(studio, 1, GridColumn::item);
    studio.shot(sized("all-lists-row-open", points));

    studio.start(look(points));
    click_cell(studio, 2, GridColumn::item);
    studio.shot(sized("row-open", points));
    open_calendar(studio);
    studio.shot(sized("calendar", points));
    click_cell(studio, 3, GridColumn::item, Qt::RightButton);
    studio.shot(sized("row-menu", points));
    if (QWidget* menu = QApplication::activePopupWidget())
        menu->close();
    studio.command(QStringLiteral("mnu_view_cpn"));
    studio.shot(sized("no-coupon-columns", points));
    studio.command(QStringLiteral("mnu_view_aisle"));
    studio.shot(sized("no-column-groups", points));
    click_cell(studio, 1, GridColumn::item);
    studio.shot(sized("no-column-groups-row-open", points));
    studio.start(look(points), {narrow_width, 480});
    studio.shot(sized("narrow", points));
    click_cell(studio, 1, GridColumn::item);
    studio.shot(sized("narrow-row-open", points));
    studio.start(look(points));
    ListGrid& grid = studio.main().list_pane().grid();
    grid.set_top_row(grid.rows().rows());
    studio.settle();
    click_cell(studio, grid.rows().rows() - 1, GridColumn::item);
    studio.shot(sized("last-row-open", points));
}

void menus(Studio& studio, int points)
{
    studio.start(look(points));
    studio.click_node(some_item(studio));
    for (const char* menu : {"mnu_list", "mnu_recipe", "mnu_edit", "mnu_tools", "mnu_view", "mnu_help", "mnu_tv",
                             "mnu_lv", "mnu_more"})
        studio.menu_shot(QLatin1String(menu), sized(menu, points));
}

void dialogs(Studio& studio, int points)
{
    studio.start(look(points));
    dialog_shot(studio, QStringLiteral("mnu_list_new"), sized("new-list", points));
    dialog_shot(studio, QStringLiteral("mnu_recipe_new"), sized("new-recipe", points));
    dialog_shot(studio, QStringLiteral("mnu_tv_nc"), sized("new-category", points));
    dialog_shot(studio, QStringLiteral("mnu_list_del"), sized("delete-list", points));
    dialog_shot(studio, QStringLiteral("mnu_list_RenameList"), sized("rename-list", points));
    studio.click_node(some_item(studio));
    dialog_shot(studio, QStringLiteral("mnu_tv_ni"), sized("new-item", points));
    studio.click_node(some_item(studio));
    dialog_shot(studio, QStringLiteral("mnu_tv_edit"), sized("edit-item", points));
    studio.click_node(
        studio.main().stock_tree().item_node(studio.main().list_pane().grid().rows().row(0).item_key));
    dialog_shot(studio, QStringLiteral("mnu_tv_ai"), sized("second-placing", points));
}

/// The clearing dialog, what it asks for each of its options, and what it says of a list without such rows.
void clearing(Studio& studio, int points)
{
    studio.start(look(points));
    dialog_shot(studio, QStringLiteral("mnu_list_clear"), sized("clear-list", points));
    for (const int option : {1, 2, 3})
        studio.with_dialog(
            [&] { studio.command(QStringLiteral("mnu_list_clear")); },
            [&](QDialog& dialog) {
                studio.click(studio.visible_child(QStringLiteral("Option1(%1)").arg(option), &dialog));
                studio.with_dialog(
                    [&] { studio.click(studio.visible_child(QStringLiteral("Command1(0)"), &dialog)); },
                    [&](QDialog&) {
                        studio.shot(QStringLiteral("clear-list-question-%1-%2pt").arg(option).arg(points));
                    });
            });
    const auto clear
        = [&](QDialog& dialog) { studio.click(studio.visible_child(QStringLiteral("Command1(0)"), &dialog)); };
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_list_clear")); }, clear);
    studio.shot(sized("cleared-list", points));
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_list_clear")); },
                       [&](QDialog& dialog) {
                           studio.with_dialog([&] { clear(dialog); },
                                              [&](QDialog&) { studio.shot(sized("clear-list-no-rows", points)); });
                       });
}

/// The splash as it stands at a start, and with its warnings. The main window is not there yet then.
void splash(Studio& studio, int points)
{
    studio.start(look(points)).hide();
    for (const bool warns : {false, true}) {
        frmSplash splash;
        splash.show();
        if (warns)
            splash.show_warnings();
        splash.refresh();
        studio.shot(sized(warns ? "splash-with-warnings" : "splash", points));
    }
}

/// What stands before printing and sending: the notice, the question for the rows, the print setup.
void output_dialogs(Studio& studio, int points)
{
    studio.start(look(points));
    dialog_shot(studio, QStringLiteral("mnu_list_prntsetup"), sized("print-setup", points));
    dialog_shot(studio, QStringLiteral("mnu_tools_wp_rcp"), sized("virus-notice", points));
    studio.start(with(look(points), "av_warn", "1"));
    dialog_shot(studio, QStringLiteral("mnu_tools_wp_list"), sized("list-to-get", points));
}

void recipe_pages(Studio& studio, int points, int color)
{
    studio.start(with(with(look(points, color), "tv_view", "0"), "lv_view", "0"));
    studio.shot(QStringLiteral("recipe-page-%1pt-color-%2").arg(points).arg(color));
    if (color != 3)
        return;
    studio.menu_shot(QStringLiteral("mnu_tv_r"), sized("mnu_tv_r", points));
    studio.click(&studio.main().recipe_page().title());
    QTest::keyClick(&studio.main().recipe_page().title(), Qt::Key_End);
    studio.shot(sized("recipe-title", points));
    studio.start(with(with(look(points, color), "tv_view", "1"), "lv_view", "0"));
    studio.click_node(some_item(studio));
    studio.shot(sized("recipe-page-and-stock", points));
    studio.start(with(with(look(points, color), "tv_view", "0"), "lv_view", "0"), {narrow_width, 480});
    studio.shot(sized("recipe-narrow", points));
}

/// The item editor in each of its modes, on an item of the first recipe.
void item_editor_modes(Studio& studio, int points)
{
    studio.start(with(look(points), "lv_view", "0"));
    const auto& lines = studio.main().recipe_page().lines();
    if (lines.empty()) {
        studio.fault(QStringLiteral("the recipe has no line"));
        return;
    }
    for (int number = int(EditMode::new_item); number <= int(EditMode::non_stock_to_stock); ++number) {
        const auto mode = static_cast<EditMode>(number);
        const bool non_stock = mode == EditMode::non_stock_to_stock;
        const IngredientLine& line = non_stock ? lines.back() : lines.front();
        EditRequest request{mode, line.item_ref, line.key};
        request.name = line.item;
        request.category = studio.main().stock_tree().selected_category();
        request.list = studio.main().shared.current_list;
        studio.with_dialog(
            [&] { show_item_editor(studio.main().program(), request); },
            [&](QDialog&) { studio.shot(QStringLiteral("item-editor-mode-%1-%2pt").arg(number).arg(points)); });
    }
}

void line_editor(Studio& studio, int points)
{
    studio.start(with(with(look(points), "tv_view", "0"), "lv_view", "0"));
    studio.click(studio.visible_child(QStringLiteral("ingred(1)")));
    studio.shot(sized("line-editor-quantities", points));
    studio.click(studio.visible_child(QStringLiteral("ing_flt_txtMeasure")));
    studio.shot(sized("line-editor-measures", points));
    QWidget* item = studio.visible_child(QStringLiteral("ing_flt_txtItem"));
    studio.click(item);
    if (item) {
        QTest::keyClick(item, Qt::Key_End);
        QTest::keyClick(item, Qt::Key_Backspace);
    }
    studio.settle();
    studio.shot(sized("line-editor-items", points));
    studio.start(with(with(look(points), "tv_view", "0"), "lv_view", "0"));
    studio.command(QStringLiteral("mnu_recipe_add_ingred"));
    studio.shot(sized("line-editor-new-line", points));
}

void other_recipe_pages(Studio& studio, int points)
{
    const Prefs recipes = with(with(look(points), "tv_view", "0"), "lv_view", "0");
    studio.start(with(recipes, "arcp", "-1"));
    studio.shot(sized("no-recipe", points));
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_recipe_new")); },
                       [&](QDialog& dialog) {
                           if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))) {
                               QTest::keyClicks(name, QStringLiteral("Plum jam"));
                               QTest::keyClick(name, Qt::Key_Return);
                           }
                       });
    studio.shot(sized("empty-recipe", points));
    studio.start(recipes, {900, 420});
    if (auto* bar = qobject_cast<QScrollBar*>(studio.visible_child(QStringLiteral("VScroll1"))))
        bar->setValue(60);
    studio.settle();
    studio.shot(sized("long-recipe-scrolled", points));
}

} // namespace

void play_all(Studio& studio)
{
    for (const int points : {9, 10, 12}) {
        stock_trees(studio, points);
        lists(studio, points);
        dialogs(studio, points);
        clearing(studio, points);
        splash(studio, points);
        output_dialogs(studio, points);
        menus(studio, points);
        for (const int color : {0, 1, 2, 3})
            recipe_pages(studio, points, color);
        item_editor_modes(studio, points);
        line_editor(studio, points);
        other_recipe_pages(studio, points);
        stock_scenes(studio, points);
        for (const int color : {0, 1, 2}) {
            studio.start(look(points, color));
            click_cell(studio, 1, GridColumn::item);
            studio.shot(QStringLiteral("list-%1pt-color-%2").arg(points).arg(color));
        }
        empty_program(studio, points);
        small_windows(studio, points);
        drag_scenes(studio, points);
        looks_scenes(studio, points);
    }
    print_scenes(studio);
    help_pages(studio);
}

} // namespace tarnwick::shots
