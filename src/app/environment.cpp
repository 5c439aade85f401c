#include "app/environment.h"

#include "data/settings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

#include <cstdlib>

namespace tarnwick {

Environment desktop_environment()
{
    Environment environment;
    environment.program_folder = QCoreApplication::applicationDirPath();
    environment.settings_file = settings_file();
    environment.today = [] { return QDate::currentDate(); };
    environment.open_url = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    environment.end_program = [](int exit_code) { std::_Exit(exit_code); };
    return environment;
}

} // namespace tarnwick
