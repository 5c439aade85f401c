#pragma once

#include "data/connection.h"
#include "data/runtime_error.h"

namespace tarnwick {

/// "number: description" of the error that opening a database file gives; "opened" when it gives none.
inline QString verdict(const QString& path)
{
    Connection connection;
    try {
        connection.open(path);
    } catch (...) {
        const runtime_error error = current_error();
        if (connection.is_open())
            return QStringLiteral("left open");
        return QStringLiteral("%1: %2").arg(error.number()).arg(error.description());
    }
    return QStringLiteral("opened");
}

} // namespace tarnwick
