#pragma once

#include <QDate>
#include <QString>

#include <functional>
#include <memory>

class QPagedPaintDevice;
class QUrl;

namespace tarnwick {

/// What the program takes from the machine it runs on; tests give their own.
struct Environment {
    std::function<void()> wait_for_fonts = [] {}; ///< called before the first text is laid out
    QString program_folder; ///< holds `twdata`, `ico` and `help`
    QString settings_file; ///< the INI file of the settings
    std::function<QDate()> today; ///< the present date
    std::function<bool(const QUrl&)>
        open_url; ///< opens a file or address with the desktop; false when it could not
    /// Bytes of the longest address that `open_url` hands over whole. It becomes one argument of a program, which
    /// Linux limits to 128 KiB with its end; 1 KiB is left to what launchers put around it.
    qsizetype longest_url = qsizetype{127} * 1024;
    std::function<std::unique_ptr<QPagedPaintDevice>()>
        printer; ///< the default printer with its paper; null where there is none
    QString documents_folder; ///< where a file dialog begins that saves a document
    std::function<void(int exit_code)> end_program; ///< ends the process at once; returns only in tests

    QString database_file() const { return program_folder + QStringLiteral("/twdata/groc.mdb"); }
    QString icon_file(const QString& name) const { return program_folder + QStringLiteral("/ico/") + name; }
};

} // namespace tarnwick
