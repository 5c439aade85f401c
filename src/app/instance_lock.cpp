#include "app/instance_lock.h"

#include "data/runtime_error.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnwick {
namespace {

constexpr int path_access_error = 75;
constexpr int never_waiting = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;

/// A descriptor of the file, made when it is not there; -1 when it can be neither opened nor made. Open to writing
/// where that is allowed, since some network file systems lock nothing else.
int open_or_make(const char* path)
{
    constexpr mode_t for_all = 0666;
    for (const int mode : {O_RDWR, O_RDONLY, O_RDWR | O_CREAT}) {
        const int descriptor = ::open(path, mode | never_waiting, for_all);
        if (descriptor >= 0)
            return descriptor;
    }
    return -1;
}

InstanceLock::State lock(int descriptor)
{
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return InstanceLock::State::taken;
    return errno == EWOULDBLOCK ? InstanceLock::State::held_by_another : InstanceLock::State::impossible;
}

/// Whether the file that is open still stands under the name: its last owner may have removed it.
bool stands_under(const char* path, int descriptor)
{
    struct stat open = {};
    struct stat named = {};
    return ::fstat(descriptor, &open) == 0 && ::stat(path, &named) == 0 && open.st_ino == named.st_ino
        && open.st_dev == named.st_dev;
}

void close_descriptor(int& descriptor)
{
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}

} // namespace

InstanceLock::InstanceLock(const QString& file)
    : file_(file)
{
}

InstanceLock::~InstanceLock()
{
    release();
}

QString InstanceLock::folder() const
{
    return QFileInfo(file_).path();
}

InstanceLock::State InstanceLock::take()
{
    State state = take_file();
    if (state != State::held_by_another) {
        const State of_folder = take_folder();
        state = of_folder == State::impossible ? state : of_folder;
    }
    if (state != State::taken) {
        close_descriptor(file_descriptor_);
        close_descriptor(folder_descriptor_);
    }
    return state;
}

InstanceLock::State InstanceLock::take_file()
{
    const QByteArray path = QFile::encodeName(file_);
    struct stat there = {};
    if (::stat(path.constData(), &there) == 0 && !S_ISREG(there.st_mode))
        throw runtime_error(path_access_error, QStringLiteral("The lock file is no file\n(%1)").arg(file_));
    for (;;) {
        file_descriptor_ = open_or_make(path.constData());
        if (file_descriptor_ < 0)
            return State::impossible;
        const State state = lock(file_descriptor_);
        if (state != State::taken || stands_under(path.constData(), file_descriptor_))
            return state;
        close_descriptor(file_descriptor_);
    }
}

InstanceLock::State InstanceLock::take_folder()
{
    const QByteArray path = QFile::encodeName(folder());
    folder_descriptor_ = ::open(path.constData(), O_RDONLY | O_DIRECTORY | never_waiting);
    return folder_descriptor_ < 0 ? State::impossible : lock(folder_descriptor_);
}

void InstanceLock::release()
{
    if (file_descriptor_ >= 0)
        ::unlink(QFile::encodeName(file_).constData());
    close_descriptor(file_descriptor_);
    close_descriptor(folder_descriptor_);
}

} // namespace tarnwick
