#pragma once

#include <QString>

/// A lock against other processes, held as long as this object exists. The kernel frees it when its process
/// ends, however it ends. Its holder may remove the file; who waits for it then gets a lock on a new one.
class FileLock
{
public:
    enum class IfTaken { Wait, GiveUp };

    /// Makes the file \a path where it is missing. Where somebody else holds it, waits for its end or, with
    /// GiveUp, is left unheld with EWOULDBLOCK.
    explicit FileLock(const QString &path, IfTaken ifTaken = IfTaken::Wait);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_error == 0; }
    /// The C library's code of what went wrong; 0 when it is held.
    int error() const { return m_error; }

private:
    bool isRemoved() const;
    void close();

    int m_fd = -1;
    int m_error = 0;
};
