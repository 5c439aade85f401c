#include "widgets/program.h"

#include "data/runtime_error.h"

namespace tarnwick {

bool Program::end_after_error(const runtime_error& error) const
{
    if (error.is(runtime_error::subscript))
        return true;
    shut_down(error);
    return false;
}

} // namespace tarnwick
