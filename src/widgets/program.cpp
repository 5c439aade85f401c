#include "widgets/program.h"

#include "data/runtime_error.h"
#include "widgets/shared_values.h"

namespace tarnwick {

void Program::show_stock(bool stock) const
{
    shared.stock_view = stock;
    l_r_refresh();
}

void Program::show_list_pane(bool list) const
{
    shared.list_pane_shown = list;
    l_r_refresh();
}

bool Program::end_after_error(const runtime_error& error) const
{
    if (error.is(runtime_error::subscript))
        return true;
    shut_down(error);
    return false;
}

} // namespace tarnwick
