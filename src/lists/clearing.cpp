#include "lists/clearing.h"

#include "window/frmmain.h"
#include "widgets/message_box.h"
#include "widgets/update_lock.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "household/list_store.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_page.h"
#include "household/status.h"
#include "stock/stock_tree.h"

#include <algorithm>
#include <iterator>

namespace tarnwick {

Clearing::Clearing(frmmain& main)
    : main_(main)
{
}

void Clearing::clear_list(int mode)
{
    const Key list = main_.shared.current_list;
    if (!has_rows_to_clear(main_.connection(), list, mode)) {
        say_no_rows(mode);
        return;
    }
    const auto items = clear_rows(main_.connection(), list, mode);
    const UpdateLock lock(main_);
    show_cleared(mode, items);
}

void Clearing::say_no_rows(int mode)
{
    QString text;
    if (mode == clear_mode::uncheck)
        text = QStringLiteral("No 'buy-it' items in the ");
    else if (mode == clear_mode::delete_unchecked)
        text = QStringLiteral("No items in the ");
    else
        text = QStringLiteral("No unchecked items in the ");
    text += get_list_name(main_.connection(), main_.shared.current_list) + QStringLiteral(" list");
    msg_box(&main_, text, box::information, QStringLiteral("list info"));
}

void Clearing::show_cleared(int mode, const std::vector<ItemStatus>& items)
{
    clear_grid(mode);
    for (const ItemStatus& item : items) {
        show_in_tree(item, false);
        show_on_page(item);
    }
}

void Clearing::clear_grid(int mode)
{
    ListGrid& grid = main_.list_pane().grid();
    if (mode == clear_mode::uncheck) {
        grid.rows().change_all([](GridRow& row) { list_store::set_to_get(row, false); });
        return;
    }
    main_.row_editor().lv_edit_off();
    if (mode == clear_mode::delete_unchecked) {
        std::vector<GridRow> kept;
        const auto& rows = grid.rows().list_rows();
        std::copy_if(rows.begin(), rows.end(), std::back_inserter(kept),
                     [](const GridRow& row) { return row.to_get; });
        grid.rows().set_rows(std::move(kept));
        if (grid.rows().rows() > 0)
            grid.set_current(0, grid_column::item);
    } else {
        grid.rows().clear();
    }
    main_.list_pane().set_col_widths();
    main_.list_pane().set_headers();
}

void Clearing::show_in_tree(const ItemStatus& item, bool tag_too)
{
    StockTree& tree = main_.stock_tree();
    tree.set_item_picture(item.item, item.status, tag_too);
    tree.show_status_if_selected(item.item);
}

void Clearing::show_on_page(const ItemStatus& item)
{
    RecipePage& page = main_.recipe_page();
    if (page.has_recipe() && page.shows_item(item.item)) {
        page.set_item_status(item.item, item.status);
        page.set_item_tool_tip(item.item, get_status(main_.connection(), item.item));
    }
}

void Clearing::groc_del(Key groc_key, bool remove_from_grid, bool update_tree)
{
    show_removed(groc_key, remove_list_row(main_.connection(), groc_key), remove_from_grid, update_tree);
}

void Clearing::show_removed(Key groc_key, const std::optional<ItemStatus>& item, bool remove_from_grid,
                            bool update_tree)
{
    main_.row_editor().hide_line();
    if (remove_from_grid)
        main_.list_pane().remove_row(groc_key);
    if (!item)
        return;
    if (update_tree)
        show_in_tree(*item, true);
    show_on_page(*item);
}

} // namespace tarnwick
