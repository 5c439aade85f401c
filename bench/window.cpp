#include "window.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace tarnwick::bench {

void take_all(Connection& connection, const char* sql, int key)
{
    SQLite::Statement query(connection.db(), sql);
    if (query.getBindParameterCount() > 0)
        query.bind(1, key);
    qsizetype taken = 0;
    while (query.executeStep()) {
        for (int column = 0; column < query.getColumnCount(); ++column) {
            const SQLite::Column value = query.getColumn(column);
            if (value.isInteger())
                taken += value.getInt();
            else
                taken += QString::fromUtf8(value.getText(""), value.getBytes()).size();
        }
    }
    if (taken == 0)
        qFatal("the bare query gave nothing");
}

} // namespace tarnwick::bench
