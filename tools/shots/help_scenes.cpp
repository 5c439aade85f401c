#include "shots/help_scenes.h"

#include "shots/studio.h"

#include "lists/list_pane.h"
#include "recipes/recipe_page.h"
#include "stock/stock_tree.h"
#include "household/status.h"
#include "widgets/list_grid.h"
#include "widgets/pictures.h"
#include "widgets/tree_view.h"
#include "window/frmmain.h"
#include "window/layout.h"
#include "window/output_commands.h"

#include <QDialog>
#include <QFrame>
#include <QScrollBar>

namespace tarnwick::shots {
namespace {

using Prefs = QHash<QString, QString>;

constexpr QSize window_size(900, 560);

Prefs look(bool list)
{
    return {{QStringLiteral("font"), QStringLiteral("10")},
            {QStringLiteral("alist"), QStringLiteral("1")},
            {QStringLiteral("arcp"), QStringLiteral("1")},
            {QStringLiteral("cpn"), QStringLiteral("0")},
            {QStringLiteral("tv_view"), list ? QStringLiteral("1") : QStringLiteral("0")},
            {QStringLiteral("lv_view"), list ? QStringLiteral("1") : QStringLiteral("0")}};
}

/// A part of the main window's area as it is seen in a scene with nothing but the main window.
QImage part(Studio& studio, const QRect& of_area)
{
    const QWidget* area = studio.main().centralWidget();
    const QRect place(area->mapTo(&studio.main(), of_area.topLeft()), of_area.size());
    return studio.main().grab(place).toImage();
}

void window_and_row(Studio& studio)
{
    studio.start(look(true), window_size);
    TreeView& tree = studio.main().stock_tree().view();
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        tree.topLevelItem(i)->setExpanded(i == 1 || i == 2);
    studio.settle();
    studio.keep(QStringLiteral("window"), studio.main().grab().toImage());

    ListGrid& grid = studio.main().list_pane().grid();
    const QPoint name = grid.cell_rect(2, GridColumn::item).center();
    studio.click(grid.viewport(), grid.viewport()->mapFrom(grid.parentWidget(), name));
    studio.settle();
    constexpr int rows = 6;
    QRect top = studio.main().layout_manager().header_row();
    top.setBottom(grid.y() + rows * grid.row_height());
    studio.keep(QStringLiteral("row"), part(studio, top));
}

void item_and_manager(Studio& studio)
{
    studio.start(look(true), window_size);
    studio.click_node(
        studio.main().stock_tree().item_node(studio.main().list_pane().grid().rows().row(0).item_key));
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_tv_edit")); },
                       [&](QDialog& dialog) { studio.keep(QStringLiteral("item"), dialog.grab().toImage()); });
    studio.with_dialog([&] { studio.command(QStringLiteral("mnu_tools_listlist")); },
                       [&](QDialog& dialog) { studio.keep(QStringLiteral("manager"), dialog.grab().toImage()); });
}

void recipe(Studio& studio)
{
    studio.start(look(false), window_size);
    QRect page = studio.main().layout_manager().header_row();
    page.setBottom(studio.main().list_pane().grid().geometry().bottom());
    studio.keep(QStringLiteral("recipe"), part(studio, page));
}

void preview(Studio& studio)
{
    studio.start(look(true), window_size);
    studio.main().output().reports() = {ReportSort::by_category, 2, 0, 1};
    studio.with_dialog(
        [&] {
            studio.click(studio.visible_child(QStringLiteral("Toolbar1(11)")), {10, 20});
        },
        [&](QDialog& dialog) {
            dialog.resize(860, 480);
            studio.settle();
            studio.keep(QStringLiteral("preview"), dialog.grab().toImage());
        });
}

/// As the tree shows them, with twice the pixels.
void lights(Studio& studio)
{
    constexpr qreal scale = 2;
    for (int code = code_number(StatusCode::unlisted); code <= code_number(StatusCode::non_stock); ++code)
        studio.keep(QStringLiteral("light_%1").arg(code), list_image(ImageList::stock_tree, code, scale).toImage());
}

} // namespace

void help_pictures(Studio& studio)
{
    window_and_row(studio);
    item_and_manager(studio);
    recipe(studio);
    preview(studio);
    lights(studio);
}

} // namespace tarnwick::shots
