#include "dialogs/item_save.h"

#include "window/frmmain.h"
#include "data/integrity.h"
#include "data/runtime_error.h"
#include "lists/clearing.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "lists/placing.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_page.h"
#include "widgets/tree_view.h"
#include "stock/floating_buttons.h"
#include "dialogs/item_edit_grid.h"
#include "household/status.h"
#include "stock/stock_tree.h"

#include <limits>

namespace tarnwick {
namespace {

/// The expiry in a row's cells; invalid without a coupon.
QDate expiry_of(const EditRow& edit, const GridRow& cells)
{
    return edit.coupon ? QDate::fromString(trim(cells.date), screen_date_format) : QDate();
}

/// The number of a quantity as a placing takes it; 0 when it has none that fits.
Key number_of(const QString& qty)
{
    const double number = val(qty);
    constexpr double most = std::numeric_limits<Key>::max();
    return number >= 0 && number <= most ? to_int16(number) : Key(0);
}

} // namespace

ItemSave::ItemSave(frmmain& main, const ItemEditGrid& grid, ItemEntry entry)
    : main_(main)
    , store_(main.connection())
    , grid_(grid)
    , entry_(std::move(entry))
    , makes_item_(entry_.item < 0)
{
}

void ItemSave::run()
{
    try {
        Transaction transaction(main_.connection());
        write();
        transaction.commit();
    } catch (...) {
        if (!in_placing_)
            throw;
        main_.placing().end_after_error(current_error());
        return;
    }
    show();
}

void ItemSave::write()
{
    if (makes_item_)
        entry_.item = store_.add_item(entry_.name, entry_.category, main_.today());
    write_rows();
    if (!makes_item_)
        write_item();
    else if (entry_.mode == edit_mode::new_item)
        store_.link_lines(entry_.name, entry_.item);
    if (entry_.mode > edit_mode::edit_item)
        store_.link_line(entry_.line, entry_.item);
    code_ = store_.write_status(entry_.item);
}

void ItemSave::write_rows()
{
    const std::vector<EditRow>& rows = grid_.list_rows_edit();
    for (size_t i = 0; i < rows.size(); ++i) {
        const EditRow& edit = rows[i];
        const GridRow& cells = grid_.cells(static_cast<int>(i));
        switch (edit.action) {
        case RowAction::place:
            place(edit, cells);
            break;
        case RowAction::take_off:
            taken_off_.push_back({edit.groc_key, delete_list_row(main_.connection(), edit.groc_key)});
            break;
        case RowAction::rewrite:
            rewrite(edit, cells);
            break;
        case RowAction::none:
            break;
        }
    }
    if (!taken_off_.empty())
        data_integrity_check(main_.connection());
}

void ItemSave::place(const EditRow& edit, const GridRow& cells)
{
    const QDate expiry = expiry_of(edit, cells);
    const QString qty = trim(cells.qty);
    Placement placement;
    placement.list_key = edit.list_key;
    placement.desc = trim(cells.desc);
    placement.qty = number_of(qty);
    placement.to_get = edit.state == RowState::active;
    placement.created = expiry.isValid() ? expiry : main_.today();
    placement.modified = main_.today();
    placement.aisle = trim(cells.aisle);
    placement.item_key = entry_.item;
    placement.quiet = true;

    in_placing_ = true;
    const auto placed = insert_list_row(main_.connection(), placement);
    in_placing_ = false;
    if (!placed)
        return;
    placed_.push_back({placement, *placed, &edit, &cells});
    // A placing takes a whole number and no coupon; what the user entered beyond that is kept too.
    const bool more_than_number = !qty.isEmpty() && qty != QString::number(placement.qty);
    if (more_than_number || expiry.isValid())
        store_.complete_row(placed->groc_key, more_than_number ? qty : QString(), expiry);
}

void ItemSave::rewrite(const EditRow& edit, const GridRow& cells)
{
    RowChange change;
    change.groc_key = edit.groc_key;
    change.to_get = edit.state == RowState::active;
    change.desc = trim(cells.desc);
    change.qty = trim(cells.qty);
    change.aisle = trim(cells.aisle);
    change.cpn = edit.coupon;
    change.created = expiry_of(edit, cells);
    store_.change_row(change);
}

void ItemSave::write_item()
{
    if (entry_.renamed) {
        store_.rename_item(entry_.item, entry_.name, main_.today());
        store_.unlink_lines(entry_.item);
        store_.link_lines(entry_.name, entry_.item);
    }
    const auto stored = store_.item(entry_.item);
    moved_ = stored && stored->category != entry_.category;
    if (moved_)
        store_.move_item(entry_.item, entry_.category, main_.today());
}

void ItemSave::show()
{
    main_.shared.item_in_work = entry_.item;
    show_rows();
    // Boxes left open over a row would write their old text back with the next key.
    main_.row_editor().refresh();
    if (makes_item_)
        show_new_node();
    else
        show_node();
    show_lines();
    main_.set_status(get_status(main_.connection(), entry_.item));
}

void ItemSave::show_rows()
{
    for (const TakenOff& row : taken_off_)
        main_.clearing().show_removed(row.groc_key, row.item, true, true);
    for (const Placed& placed : placed_) {
        main_.placing().show_placed(placed.placement, placed.row);
        show_row(placed.row.groc_key, *placed.edit, *placed.cells);
    }
    const std::vector<EditRow>& rows = grid_.list_rows_edit();
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].action == RowAction::rewrite)
            show_row(rows[i].groc_key, rows[i], grid_.cells(static_cast<int>(i)));
    if (!entry_.renamed)
        return;
    GridModel& shown = main_.list_pane().grid().rows();
    for (int row = 0; row < shown.rows(); ++row)
        if (shown.row(row).item_key == entry_.item)
            shown.set_cell_text(row, grid_column::item, entry_.name);
}

/// Shows in the main grid what the dialog's row holds, if the row is on show there.
void ItemSave::show_row(Key groc_key, const EditRow& edit, const GridRow& cells)
{
    GridModel& shown = main_.list_pane().grid().rows();
    const int row = shown.find_row(groc_key);
    if (row < 0)
        return;
    shown.change_row(row, [&edit, &cells](GridRow& target) {
        target.to_get = edit.state == RowState::active;
        target.light = cells.light;
        target.check = cells.check;
        target.coupon = edit.coupon ? picture_base::coupon_on : picture_base::coupon_off;
        target.date = cells.date;
        target.desc = or_blank(trim(cells.desc));
        target.qty = or_blank(trim(cells.qty));
        target.aisle = or_blank(trim(cells.aisle));
    });
}

void ItemSave::show_new_node()
{
    QTreeWidgetItem* node = main_.stock_tree().add_item_node(entry_.item, entry_.category, entry_.name, code_);
    if (node && placed_.empty() && main_.shared.stock_view)
        main_.floating_buttons().show_for_recipe(*node);
}

void ItemSave::show_node()
{
    StockTree& tree = main_.stock_tree();
    if (QTreeWidgetItem* node = tree.item_node(entry_.item))
        node->setText(0, get_ingred_name(main_.connection(), entry_.item));
    // The node's new place goes by its new name.
    if (moved_)
        tree.move_item_node(entry_.item, entry_.category);
    tree.set_item_picture(entry_.item, code_, true);
}

/// Links, lights and tool tips of the recipe page.
void ItemSave::show_lines()
{
    const bool by_name = entry_.mode == edit_mode::new_item;
    main_.recipe_page().follow_links(entry_.item, code_, by_name ? QStringLiteral(": ") : QStringLiteral(" - "),
                                     get_status(main_.connection(), entry_.item), QStringLiteral("Non-stock item"));
}

} // namespace tarnwick
