#pragma once

#include <QString>

namespace tarnwick {

/// The sign that an instance runs on a program folder: kernel locks on the file `groc.lock` and on the folder that
/// it stands in. They go with the process, however it ends, and need nothing to be written; the folder's alone
/// serves where the file cannot be made.
class InstanceLock {
public:
    enum class State { taken, held_by_another, impossible };

    /// The file need not exist, its content and owner do not matter.
    explicit InstanceLock(const QString& file);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// Takes the lock without waiting. `impossible`: there is nothing that can be locked, which says nothing of
    /// another process. Throws error 75 when the file's place is taken by what is no regular file.
    State take();

    /// Gives the lock back and removes the file.
    void release();

    /// The folder that is locked.
    QString folder() const;

private:
    State take_file();
    State take_folder();

    QString file_;
    int file_descriptor_ = -1;
    int folder_descriptor_ = -1;
};

} // namespace tarnwick
