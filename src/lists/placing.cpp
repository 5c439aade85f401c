#include "lists/placing.h"

#include "window/frmmain.h"
#include "widgets/message_box.h"
#include "data/runtime_error.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "household/list_store.h"
#include "widgets/row_editor.h"
#include "recipes/recipe_page.h"
#include "stock/floating_buttons.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"
#include "stock/stock_tree.h"

#include <QApplication>
#include <QScopedValueRollback>

namespace tarnwick {

Placing::Placing(frmmain& main)
    : main_(main)
{
}

bool Placing::chck_item(Key item_key, Key list_key)
{
    Connection& connection = main_.connection();
    const auto listed = item_on_list(connection, item_key, list_key);
    if (!listed)
        return false;
    const QString word = listed->to_get ? QStringLiteral("active") : QStringLiteral("inactive");
    const QString text = QStringLiteral("There is already an ") + word + u' ' + trim(listed->item)
        + QStringLiteral("\n stock item on the ") + get_list_name(connection, list_key)
        + QStringLiteral(" list -\n\nDo you want to add another?\n\nChoose YES to add another, NO to Cancel:");
    return msg_box(&main_, text, box::yes_no | box::question | box::second_default, QStringLiteral("Question"))
        != Answer::yes;
}

void Placing::stock_to_list(Key item_key)
{
    SharedValues& shared = main_.shared;
    if (chck_item(item_key, shared.current_list))
        return;
    if (shared.current_list < 0) {
        msg_box(&main_,
                QStringLiteral("There are no lists to add to -\nTo create a new list click the\n"
                               "New list button on the toolbar\n(notepad icon marked 'New') or go to\n"
                               "Shopping List/New on the menu bar"),
                box::exclamation, QStringLiteral("No lists"));
        return;
    }
    if (shared.all_lists_view) {
        shared.item_in_work = item_key;
        shared.last_groc_key = -1;
        shared.editor_mode = edit_mode::place_item;
        show_item_editor(main_);
        return;
    }
    Placement placement;
    placement.list_key = shared.current_list;
    placement.item_key = item_key;
    placement.created = main_.today();
    placement.modified = main_.today();
    add_item(placement);
}

void Placing::add_item(const Placement& placement)
{
    try {
        place(placement);
    } catch (...) {
        end_after_error(current_error());
    }
}

bool Placing::end_after_error(const runtime_error& error)
{
    if (error.is(runtime_error::subscript))
        return true;
    main_.shut_down(error);
    return false;
}

void Placing::place(const Placement& placement)
{
    const auto placed = insert_list_row(main_.connection(), placement);
    if (!placed) {
        msg_box(&main_, QStringLiteral("Stock item not found"), box::ok, QStringLiteral("Warning"));
        return;
    }
    show_placed(placement, *placed);
}

void Placing::show_placed(const Placement& placement, const PlacedRow& placed)
{
    main_.shared.last_groc_key = placed.groc_key;
    if (main_.shared.all_lists_view || placement.list_key == main_.shared.current_list)
        show_row(placement, placed);
    show_item(placement, placed.status);
}

void Placing::show_row(const Placement& placement, const PlacedRow& placed)
{
    const bool active = placed.status == status_code::buy_it || placed.status == status_code::buy_it_plus;
    const bool coupon = placed.status == status_code::unlisted;
    GridRow row;
    row.groc_key = placed.groc_key;
    row.list_key = placement.list_key;
    row.item_key = placement.item_key;
    row.to_get = placement.to_get;
    row.light = active ? picture_base::light_on : picture_base::light_off;
    row.check = active ? picture_base::check_on : picture_base::check_off;
    row.item = placed.item;
    row.desc = placement.desc.isEmpty() ? QStringLiteral(" ") : trim(placement.desc);
    row.qty = placement.qty > 0 ? QString::number(placement.qty) : QStringLiteral(" ");
    list_store::set_coupon_cells(row, coupon,
                                 coupon ? placement.created.toString(screen_date_format) : QStringLiteral(" "));
    row.aisle = trim(placement.aisle);

    RowEditor& editor = main_.row_editor();
    const bool editor_was_open = editor.is_open();
    const bool show = !placement.quiet && main_.shared.list_pane_shown;
    main_.list_pane().add_row(std::move(row), show);
    const bool window_enabled = main_.isEnabled() && !QApplication::activeModalWidget();
    const bool mark = show && window_enabled && main_.shared.placing_source < placing_source::manager_all_lists;
    if (mark || (show && editor_was_open))
        editor.show_l_line();
    main_.floating_buttons().hide_all();
}

void Placing::show_item(const Placement& placement, int status)
{
    if (main_.shared.stock_view && !placement.quiet)
        main_.set_status(get_status(main_.connection(), placement.item_key));
    main_.stock_tree().set_item_picture(placement.item_key, status, false);
}

void Placing::toggle_buy_it(int row)
{
    SharedValues& shared = main_.shared;
    const GridRow& grid_row = main_.list_pane().grid().rows().row(row);
    const QScopedValueRollback<Key> list_in_use(shared.current_list);
    if (shared.all_lists_view)
        shared.current_list = grid_row.list_key;
    const bool to_get = !grid_row.to_get;
    if (const auto item = write_buy_it(main_.connection(), grid_row.groc_key, shared.current_list, to_get))
        show_buy_it(row, *item, to_get);
}

void Placing::show_buy_it(int row, Key item, bool to_get)
{
    main_.list_pane().grid().rows().change_row(
        row, [to_get](GridRow& changed) { list_store::set_to_get(changed, to_get); });
    Connection& connection = main_.connection();
    main_.set_status(get_status(connection, item));
    const int status = lite_status(connection, item);
    main_.stock_tree().set_item_picture(item, status, false);
    if (main_.recipe_page().has_recipe())
        main_.recipe_page().set_item_status(item, status);
}

void Placing::show_row_status(int row)
{
    Connection& connection = main_.connection();
    if (const auto item = item_of_row(connection, main_.list_pane().grid().rows().row(row).groc_key))
        main_.set_status(get_status(connection, *item));
}

} // namespace tarnwick
