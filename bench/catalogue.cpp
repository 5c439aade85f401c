#include "catalogue.h"

#include "household_loader.h"

#include "app/desktop_environment.h"
#include "data/settings.h"
#include "data/connection.h"
#include "data/schema.h"

#include <QUrl>

namespace tarnwick::bench {

Catalogue::Catalogue(const Counts& counts)
{
    const Environment made = environment();
    make_database(made.database_file());
    Connection connection;
    connection.open(made.database_file());
    sample::make_large_catalogue(connection.db(), counts.items, counts.categories, counts.lists,
                                 counts.rows_per_list, QDate(2026, 3, 14));
    Settings settings(made.settings_file);
    settings.set_reg();
    settings.set_pref(QStringLiteral("wstate"), QStringLiteral("0"));
    settings.set_pref(QStringLiteral("fwidth"), QStringLiteral("15000"));
    settings.set_pref(QStringLiteral("fheight"), QStringLiteral("10500"));
    settings.set_pref(QStringLiteral("alist"), QStringLiteral("1"));
}

Environment Catalogue::environment() const
{
    return environment_of(folder_.path());
}

Environment environment_of(const QString& folder)
{
    Environment environment = desktop_environment();
    environment.program_folder = folder;
    environment.settings_file = folder + QStringLiteral("/settings.ini");
    environment.today = [] { return QDate(2026, 3, 14); };
    environment.open_url = [](const QUrl&) { return true; };
    environment.end_program = [](int) {};
    return environment;
}

} // namespace tarnwick::bench
