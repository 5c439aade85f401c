#pragma once

#include <QString>

#include <functional>
#include <optional>

// What is looked at in the database file and the files beside it before SQLite opens, and perhaps changes, any.
namespace tarnwick {

/// What tells one state of a file from another: SQLite counts every change in it, others leave another time.
struct FileState {
    quint64 device = 0;
    quint64 node = 0;
    qint64 size = 0;
    qint64 changed_s = 0;
    qint64 changed_ns = 0;
    quint32 change_count = 0;

    bool operator==(const FileState&) const = default;
};

/// The state that a file is in now; nothing when it cannot be read or is no database.
std::optional<FileState> file_state(const QString& path);

/// Throws a run-time error with SQLite's number and the path of the file in its text.
[[noreturn]] void refuse(int number, const QString& text, const QString& path);

/// Throws a run-time error (14) when the file is missing, cannot be reached or is no regular file, or when one that
/// SQLite keeps beside it is none: to open a pipe would wait for ever.
void refuse_irregular(const QString& path);

/// Reads the marks in the header of a file. Throws a run-time error (14, 26) when it cannot be read, is no
/// database, was made by another program or by a newer version of this one. `name` is the path told to the user.
void refuse_foreign(const QString& path, const QString& name);

/// An unfinished change waits beside the file: to open it would play that back into the file. Throws error 5 when
/// another program is in the middle of the change.
bool has_unfinished_change(const QString& path);

/// Throws a run-time error when a journal beside the file was written for another state of it than the present one
/// or the one before.
void refuse_foreign_journal(const QString& path);

/// Plays the unfinished change back into a copy and hands the copy to `examine`, which throws if it is not fit for
/// use. The files themselves are not touched. Throws what `examine` throws, or a run-time error that blames the
/// journal when the file is fit without it.
void rehearse_recovery(const QString& path, const std::function<void(const QString& copy)>& examine);

} // namespace tarnwick
