#pragma once

#include "Descriptor.h"

#include <QByteArray>
#include <functional>
#include <sys/types.h>

/// A file that is being written. It has a hidden name of its own in its folder until all of its data is
/// there; then it gets its real name. Until then the destructor removes it. What a killed process left is
/// removed by the next sweep(): the process that writes the file holds a lock on it.
///
/// The functions throw std::system_error with an errno value.
class PendingFile
{
public:
    enum class Existing { Keep, Replace };

    /// Makes the file in the open folder \a folder, which may be closed afterwards. \a mode are its
    /// permissions, without those that the user's mask takes away.
    PendingFile(int folder, mode_t mode);
    ~PendingFile();
    PendingFile(const PendingFile &) = delete;
    PendingFile &operator=(const PendingFile &) = delete;

    /// The open file, for reading and writing.
    int file() const { return m_file.get(); }
    void write(QByteArrayView bytes);
    /// Sets the time of the last change, in seconds since 1970, where the file system keeps times.
    void setModified(time_t time);

    /// A function, for any thread, that writes to the disk what the system still holds, and returns an errno
    /// value or 0. It may outlive this object.
    std::function<int()> syncing() const;

    /// Gives the file its name. With Existing::Keep it fails with EEXIST where the name is taken, whatever
    /// the file system is able to do in one step.
    void publish(const QByteArray &name, Existing existing);

    /// Removes from the open folder \a folder what killed processes of this user left there: files with such
    /// a hidden name that nobody has locked. It reads the whole folder and never fails.
    static void sweep(int folder);

private:
    Descriptor m_folder;
    QByteArray m_hidden; ///< the name until publish()
    Descriptor m_file;
};
