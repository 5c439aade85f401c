#include "data/settings_guard.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QSettings>
#include <QStringDecoder>

#include <algorithm>
#include <sys/stat.h>

namespace tarnwick::settings_guard {
namespace {

constexpr int longest_wait_ms = 2000;
constexpr int dead_lock_age_ms = 1500; ///< below the wait, within which a dead lock is taken over
constexpr char byte_order_mark[] = "\xef\xbb\xbf";

QString with_path(const QString& text, const QString& path)
{
    return text + QStringLiteral("\n(") + path + u')';
}

/// To open anything else, such as a FIFO, may take for ever.
bool is_no_file(const QString& path)
{
    struct stat there = {};
    return ::stat(QFile::encodeName(path).constData(), &there) == 0 && !S_ISREG(there.st_mode);
}

QByteArray without_foreign_lines(QByteArray content)
{
    if (content.startsWith(byte_order_mark))
        content.remove(0, qsizetype(sizeof byte_order_mark) - 1);
    QByteArray kept;
    for (qsizetype begin = 0; begin < content.size();) {
        const qsizetype feed = content.indexOf('\n', begin);
        const qsizetype end = feed < 0 ? content.size() : feed + 1;
        const QByteArray line = content.mid(begin, end - begin);
        if (!line.trimmed().startsWith('#'))
            kept += line;
        begin = end;
    }
    return kept;
}

/// Whether each line is blank, a comment, a section or an entry.
bool has_sound_lines(const QByteArray& content)
{
    const QList<QByteArray> lines = content.split('\n');
    return std::all_of(lines.begin(), lines.end(), [](const QByteArray& one) {
        const QByteArray line = one.trimmed();
        return line.isEmpty() || line.startsWith(';')
            || (line.startsWith('[') ? line.contains(']') : line.contains('='));
    });
}

bool is_text(const QByteArray& content)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(content);
    return !decoder.hasError() && !text.contains(QChar::Null);
}

bool can_be_parsed(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    settings.allKeys(); // until then a section is only looked over
    return settings.status() == QSettings::NoError;
}

bool replace(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

QString set_aside(const QString& path)
{
    constexpr int most = 1000;
    for (int number = 1; number < most; ++number) {
        QString name = path + QStringLiteral(".damaged")
            + (number == 1 ? QString() : QLatin1Char('-') + QString::number(number));
        if (!QFileInfo(name).isSymLink() && !QFileInfo::exists(name) && QFile::rename(path, name))
            return name;
    }
    throw Refused(with_path(QStringLiteral("The settings file cannot be read, nor set aside"), path));
}

} // namespace

Refused::Refused(const QString& why)
    : std::runtime_error(why.toStdString())
{
}

QString prepare(const QString& path)
{
    if (is_no_file(path))
        throw Refused(
            with_path(QStringLiteral("The place of the settings file is taken by what is no file"), path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {}; // none, or one that the first read will refuse
    const QByteArray content = file.readAll();
    file.close();
    if (!is_text(content))
        return set_aside(path);
    const QByteArray plain = without_foreign_lines(content);
    if (plain == content)
        return can_be_parsed(path) ? QString() : set_aside(path);
    if (!has_sound_lines(plain))
        return set_aside(path);
    if (QFileInfo(path).isWritable())
        replace(path, plain); // where this fails the first read or write is refused and told
    return {};
}

void wait_until_writable(const QString& path)
{
    if (is_no_file(path))
        throw Refused(
            with_path(QStringLiteral("The place of the settings file is taken by what is no file"), path));
    const QString lock_path = path + QStringLiteral(".lock"); // as QSettings names it
    if (is_no_file(lock_path))
        throw Refused(with_path(QStringLiteral("The lock of the settings is no file"), lock_path));
    if (!QFileInfo::exists(lock_path))
        return;
    QLockFile lock(lock_path);
    lock.setStaleLockTime(dead_lock_age_ms);
    if (!lock.tryLock(longest_wait_ms) && lock.error() == QLockFile::LockFailedError)
        throw Refused(with_path(QStringLiteral("Another program holds the settings"), lock_path));
}

} // namespace tarnwick::settings_guard
