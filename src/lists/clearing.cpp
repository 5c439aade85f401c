#include "lists/clearing.h"

#include "widgets/program.h"
#include "widgets/shared_values.h"
#include "widgets/message_box.h"
#include "widgets/update_lock.h"
#include "household/household.h"
#include "household/status.h"
#include "lists/placing.h"

namespace tarnwick {

Clearing::Clearing(Program& program, Placing& placing)
    : program_(program)
    , placing_(placing)
{
}

void Clearing::clear_list(ClearMode mode)
{
    const Key list = program_.shared.current_list;
    if (program_.household.refusal_of(list) == Refusal::no_list) {
        placing_.say_list_gone();
        return;
    }
    if (!has_rows_to_clear(program_.connection, list, mode)) {
        say_no_rows(mode);
        return;
    }
    const UpdateLock lock(program_.window);
    program_.household.clear_list(list, mode);
}

void Clearing::say_no_rows(ClearMode mode)
{
    QString text;
    if (mode == ClearMode::uncheck)
        text = QStringLiteral("No 'buy-it' items in the ");
    else if (mode == ClearMode::delete_unchecked)
        text = QStringLiteral("No items in the ");
    else
        text = QStringLiteral("No unchecked items in the ");
    text += get_list_name(program_.connection, program_.shared.current_list) + QStringLiteral(" list");
    msg_box(&program_.window, text, box::information, QStringLiteral("list info"));
}

void Clearing::groc_del(Key groc_key)
{
    program_.household.remove_row(groc_key);
}

} // namespace tarnwick
