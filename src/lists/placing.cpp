#include "lists/placing.h"

#include "widgets/message_box.h"
#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "data/runtime_error.h"
#include "widgets/list_grid.h"
#include "lists/list_pane.h"
#include "household/household.h"
#include "dialogs/l_item_edit.h"
#include "household/status.h"

namespace tarnwick {

Placing::Placing(Program& program, ListPane& pane)
    : program_(program)
    , pane_(pane)
{
}

PlacingAnswer Placing::chck_item(Key item_key, Key list_key)
{
    Connection& connection = program_.connection;
    const auto listed = item_on_list(connection, item_key, list_key);
    if (!listed)
        return PlacingAnswer::go_on;
    const QString word = listed->to_get ? QStringLiteral("active") : QStringLiteral("inactive");
    const QString text = QStringLiteral("There is already an ") + word + u' ' + trim(listed->item)
        + QStringLiteral("\n stock item on the ") + get_list_name(connection, list_key)
        + QStringLiteral(" list -\n\nDo you want to add another?\n\nChoose YES to add another, NO to Cancel:");
    const Answer answer = msg_box(&program_.window, text, box::yes_no | box::question | box::second_default,
                                  QStringLiteral("Question"));
    return answer == Answer::yes ? PlacingAnswer::go_on : PlacingAnswer::cancelled;
}

void Placing::stock_to_list(Key item_key)
{
    const SharedValues& shared = program_.shared;
    if (shared.current_list > 0 && program_.household.refusal_of(shared.current_list) != Refusal::none) {
        say_list_gone();
        return;
    }
    if (chck_item(item_key, shared.current_list) == PlacingAnswer::cancelled)
        return;
    if (shared.current_list < 0) {
        msg_box(&program_.window,
                QStringLiteral("There are no lists to add to -\nTo create a new list click the\n"
                               "New list button on the toolbar\n(notepad icon marked 'New') or go to\n"
                               "Shopping List/New on the menu bar"),
                box::exclamation, QStringLiteral("No lists"));
        return;
    }
    if (shared.all_lists_view) {
        EditRequest request{EditMode::place_item, item_key};
        request.list = shared.current_list;
        show_item_editor(program_, request);
        return;
    }
    Placement placement;
    placement.list_key = shared.current_list;
    placement.item_key = item_key;
    placement.created = program_.today();
    placement.modified = program_.today();
    add_item(placement);
}

void Placing::add_item(const Placement& placement)
{
    try {
        place(placement);
    } catch (...) {
        program_.end_after_error(current_error());
    }
}

void Placing::place(const Placement& placement)
{
    switch (program_.household.place(placement)) {
    case Refusal::no_list:
        say_list_gone();
        break;
    case Refusal::no_item:
        msg_box(&program_.window, QStringLiteral("Stock item not found"), box::ok, QStringLiteral("Warning"));
        break;
    case Refusal::none:
        break;
    }
}

void Placing::say_list_gone()
{
    msg_box(&program_.window,
            QStringLiteral("This list no longer exists. Choose another one from the Shopping lists menu."),
            box::exclamation, QStringLiteral("Shopping list"));
}

void Placing::toggle_buy_it(int row)
{
    const GridRow& ticked = pane_.grid().rows().row(row);
    const Key list = program_.shared.all_lists_view ? ticked.list_key : program_.shared.current_list;
    program_.household.tick(ticked.groc_key, list, !ticked.to_get);
}

void Placing::show_row_status(int row)
{
    Connection& connection = program_.connection;
    if (const auto item = item_of_row(connection, pane_.grid().rows().row(row).groc_key))
        program_.set_status(get_status(connection, *item));
}

} // namespace tarnwick
