#pragma once

#include "data/connection.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace tarnwick {

/// How many tens of steps of the database's machine a call takes on a connection. They do not depend on how busy
/// the computer is.
template <typename Call> int database_steps(Connection& connection, Call call)
{
    int counted = 0;
    sqlite3* handle = connection.db().getHandle();
    sqlite3_progress_handler(
        handle, 10,
        [](void* count) {
            ++*static_cast<int*>(count);
            return 0;
        },
        &counted);
    call();
    sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    return counted;
}

} // namespace tarnwick
