#pragma once

#include "data/runtime_error.h"

namespace tarnwick {

/// The number of the error that a call ends in; 0 when it ends well.
template <typename Call> int error_number(Call call)
{
    try {
        call();
    } catch (...) {
        return current_error().number();
    }
    return 0;
}

} // namespace tarnwick
