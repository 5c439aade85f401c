#include "app/desktop_environment.h"

#include "data/settings.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QUrl>

#include <cstdlib>

namespace tarnwick {
namespace {

std::unique_ptr<QPagedPaintDevice> default_printer()
{
    // Without a default the first printer there is takes its place.
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return nullptr;
    return std::make_unique<QPrinter>(QPrinter::HighResolution);
}

} // namespace

Environment desktop_environment()
{
    Environment environment;
    environment.program_folder = QCoreApplication::applicationDirPath();
    environment.settings_file = settings_file();
    environment.today = [] { return QDate::currentDate(); };
    environment.open_url = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
    environment.printer = default_printer;
    environment.documents_folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    environment.end_program = [](int exit_code) { std::_Exit(exit_code); };
    return environment;
}

} // namespace tarnwick
