#pragma once

#include <QString>

#include <stdexcept>

/// What happens to the file of the settings around QSettings, which reads and writes it.
namespace tarnwick::settings_guard {

/// Why the file cannot be used; the text ends with the path in question.
class Refused : public std::runtime_error {
public:
    explicit Refused(const QString& why);
};

/// Makes a file that is there fit for reading: takes out what other programs may have put in, a byte order mark and
/// lines that begin with "#". A file that cannot be parsed even so gets another name in its folder, which is
/// returned; else the result is empty. Throws Refused when this cannot be done and when the path is taken by what
/// is no file.
QString prepare(const QString& path);

/// Returns when the file may be written: it is a file or not there, and its lock is free. A lock is waited for up
/// to 2 s; a dead one is taken away then. Throws Refused otherwise.
void wait_until_writable(const QString& path);

} // namespace tarnwick::settings_guard
