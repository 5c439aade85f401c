#include "support/table_dump.h"

#include "data/query.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>

namespace tarnwick {

QStringList table_dump(Connection& connection)
{
    QStringList lines;
    for (const char* table : {"cat", "items_1", "groc_1", "tie", "list_name", "recipe_1", "recipe_2"}) {
        SQLite::Statement rows(connection.db(), std::string("SELECT * FROM ") + table + " ORDER BY key_id");
        while (rows.executeStep()) {
            QString line = QString::fromUtf8(table);
            for (int i = 0; i < rows.getColumnCount(); ++i)
                line += u'|' + QString::fromUtf8(rows.getColumn(i).getText(""));
            lines += line;
        }
    }
    return lines;
}

} // namespace tarnwick
