#include "data/database_file.h"

#include "data/runtime_error.h"
#include "data/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick {
namespace {

// SQLite's file format: a header of 100 bytes.
constexpr qsizetype header_size = 100;
constexpr qsizetype write_version_offset = 18;
constexpr qsizetype change_counter_offset = 24;
constexpr qsizetype version_offset = 60;
constexpr qsizetype application_offset = 68;
constexpr char file_magic[] = "SQLite format 3";

constexpr const char* journal_suffix = "-journal";
constexpr const char* log_suffix = "-wal";
constexpr std::array beside = {journal_suffix, log_suffix, "-shm"};

quint32 number_at(const QByteArray& bytes, qsizetype offset)
{
    quint32 number = 0;
    for (qsizetype i = 0; i < 4; ++i)
        number = number << 8 | static_cast<quint8>(bytes[offset + i]);
    return number;
}

/// SQLite keeps its files beside the real file, wherever a link to it lies.
QString file_beside(const QString& path, const char* suffix)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return (real.isEmpty() ? path : real) + QLatin1String(suffix);
}

QString kind_of(mode_t mode)
{
    if (S_ISDIR(mode))
        return QStringLiteral("a folder");
    if (S_ISFIFO(mode))
        return QStringLiteral("a pipe");
    if (S_ISSOCK(mode))
        return QStringLiteral("a socket");
    return S_ISLNK(mode) ? QStringLiteral("a link") : QStringLiteral("a device");
}

QByteArray header_of(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(SQLITE_CANTOPEN, QStringLiteral("The database file cannot be opened: ") + file.errorString(), path);
    return file.read(header_size);
}

bool is_header(const QByteArray& header)
{
    return header.size() == header_size && header.startsWith(file_magic);
}

/// Whether another process is writing to the file, by the byte that SQLite locks for it.
bool has_writer(const QString& path)
{
    constexpr off_t reserved_byte = 0x40000001;
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    struct flock lock { };
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = reserved_byte;
    lock.l_len = 1;
    const bool held = fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    ::close(file);
    return held;
}

/// The rollback journal of SQLite's file format: segments of a header and of pages as they were before a change.
class Journal {
public:
    explicit Journal(const QString& path)
        : file_(path)
    {
        file_.open(QIODevice::ReadOnly);
    }

    /// The first page as it was; nothing when the journal does not hold it.
    std::optional<QByteArray> first_page()
    {
        for (qint64 at = 0; read_segment(at); at = next_segment()) {
            for (quint32 i = 0; i < records_; ++i) {
                const QByteArray record = file_.read(record_size());
                if (record.size() < record_size() || !is_sound(record))
                    return std::nullopt;
                if (number_at(record, 0) == 1)
                    return record.mid(4, page_size_);
            }
        }
        return std::nullopt;
    }

private:
    qint64 record_size() const { return qint64(page_size_) + 8; }

    bool read_segment(qint64 at)
    {
        constexpr char magic[] = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
        constexpr quint32 largest_page = 65536;
        if (!file_.seek(at))
            return false;
        const QByteArray header = file_.read(28);
        if (header.size() < 28 || !header.startsWith(magic))
            return false;
        records_ = number_at(header, 8);
        nonce_ = number_at(header, 12);
        if (at == 0) {
            sector_size_ = number_at(header, 20);
            page_size_ = static_cast<int>(number_at(header, 24));
        }
        if (sector_size_ < 28 || sector_size_ > largest_page || page_size_ < 512
            || page_size_ > static_cast<int>(largest_page))
            return false;
        start_ = at + sector_size_;
        return file_.seek(start_);
    }

    qint64 next_segment() const
    {
        const qint64 end = start_ + records_ * record_size();
        return records_ == 0 ? file_.size() : (end + sector_size_ - 1) / sector_size_ * sector_size_;
    }

    bool is_sound(const QByteArray& record) const
    {
        constexpr int stride = 200;
        quint32 sum = nonce_;
        for (int i = page_size_ - stride; i > 0; i -= stride)
            sum += static_cast<quint8>(record[4 + i]);
        return sum == number_at(record, 4 + page_size_);
    }

    QFile file_;
    quint32 records_ = 0;
    quint32 nonce_ = 0;
    quint32 sector_size_ = 0;
    int page_size_ = 0;
    qint64 start_ = 0;
};

/// A folder with room for a copy of the files; null when there is none.
std::unique_ptr<QTemporaryDir> copy_files(const QString& path)
{
    for (const QString& place : {QDir::tempPath(), QFileInfo(path).path()}) {
        auto folder = std::make_unique<QTemporaryDir>(place + QStringLiteral("/tarnwick-XXXXXX"));
        const QString copy = folder->filePath(QStringLiteral("copy"));
        bool whole = folder->isValid() && QFile::copy(path, copy);
        for (const char* suffix : {journal_suffix, log_suffix}) {
            const QString other = file_beside(path, suffix);
            whole = whole && (!QFile::exists(other) || QFile::copy(other, copy + QLatin1String(suffix)));
        }
        if (whole)
            return folder;
    }
    return nullptr;
}

} // namespace

std::optional<FileState> file_state(const QString& path)
{
    struct stat found { };
    QFile file(path);
    if (::stat(QFile::encodeName(path).constData(), &found) != 0 || !S_ISREG(found.st_mode)
        || !file.open(QIODevice::ReadOnly) || ::fstat(file.handle(), &found) != 0)
        return std::nullopt;
    const QByteArray header = file.read(header_size);
    if (!is_header(header))
        return std::nullopt;
    return FileState{found.st_dev,         found.st_ino,          found.st_size,
                     found.st_mtim.tv_sec, found.st_mtim.tv_nsec, number_at(header, change_counter_offset)};
}

void refuse(int number, const QString& text, const QString& path)
{
    throw runtime_error(number, text + QStringLiteral("\n(") + path + u')');
}

void refuse_irregular(const QString& path)
{
    struct stat found { };
    if (::stat(QFile::encodeName(path).constData(), &found) != 0) {
        if (errno == ENOENT)
            refuse(SQLITE_CANTOPEN, QStringLiteral("The database file is missing"), path);
        refuse(SQLITE_CANTOPEN,
               QStringLiteral("The database file cannot be reached: ")
                   + QString::fromLocal8Bit(std::strerror(errno)),
               path);
    }
    if (!S_ISREG(found.st_mode))
        refuse(SQLITE_CANTOPEN, QStringLiteral("The database is no file but ") + kind_of(found.st_mode), path);
    for (const char* suffix : beside) {
        const QString other = file_beside(path, suffix);
        if (::lstat(QFile::encodeName(other).constData(), &found) == 0 && !S_ISREG(found.st_mode))
            refuse(SQLITE_CANTOPEN,
                   QStringLiteral("The journal of the database is no file but ") + kind_of(found.st_mode), other);
    }
}

void refuse_foreign(const QString& path, const QString& name)
{
    const QByteArray header = header_of(path);
    if (!is_header(header))
        refuse(SQLITE_NOTADB, QStringLiteral("The file is not a database"), name);
    if (number_at(header, application_offset) != schema_application_id || number_at(header, version_offset) == 0)
        refuse(SQLITE_NOTADB, QStringLiteral("The database was not made by this program"), name);
    if (number_at(header, version_offset) > schema_version)
        refuse(SQLITE_NOTADB, QStringLiteral("The database was made by a newer version of this program"), name);
}

bool has_unfinished_change(const QString& path)
{
    constexpr char logged_change = 2;
    QFile journal(file_beside(path, journal_suffix));
    if (journal.open(QIODevice::ReadOnly) && journal.size() > 0 && journal.read(1) != QByteArray(1, '\0')) {
        if (has_writer(path))
            refuse(SQLITE_BUSY, QStringLiteral("database is locked"), path);
        return true;
    }
    const QByteArray header = header_of(path);
    return QFileInfo(file_beside(path, log_suffix)).size() > 0
        || (is_header(header) && header[write_version_offset] == logged_change);
}

void refuse_foreign_journal(const QString& path)
{
    const QByteArray header = header_of(path);
    const std::optional<QByteArray> before = Journal(file_beside(path, journal_suffix)).first_page();
    if (!is_header(header) || !before)
        return;
    // A change counts itself in the first page, which the file has from before the change or from the change.
    const quint32 count = number_at(header, change_counter_offset);
    const quint32 count_before = number_at(*before, change_counter_offset);
    if (count != count_before && count != count_before + 1)
        refuse(SQLITE_CORRUPT,
               QStringLiteral("The journal beside the database belongs to another copy of it.\n"
                              "If a backup was put in place of the database, move the journal elsewhere."),
               file_beside(path, journal_suffix));
}

void rehearse_recovery(const QString& path, const std::function<void(const QString& copy)>& examine)
{
    const std::unique_ptr<QTemporaryDir> folder = copy_files(path);
    if (!folder)
        refuse(SQLITE_FULL, QStringLiteral("There is no room to test the journal of the database on a copy"), path);
    const QString copy = folder->filePath(QStringLiteral("copy"));
    try {
        examine(copy);
    } catch (...) {
        bool sound_without = false;
        QFile::remove(copy);
        for (const char* suffix : beside)
            QFile::remove(copy + QLatin1String(suffix));
        try {
            if (QFile::copy(path, copy)) {
                examine(copy);
                sound_without = true;
            }
        } catch (...) {
        }
        if (!sound_without)
            throw;
        refuse(SQLITE_CORRUPT,
               QStringLiteral("The journal beside the database is damaged or belongs to another file.\n"
                              "The database is sound without it: move the journal elsewhere."),
               file_beside(path, journal_suffix));
    }
}

} // namespace tarnwick
