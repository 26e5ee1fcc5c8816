#pragma once

#include <QString>

/// A lock against other processes, held as long as it lives. The kernel frees it when its process dies,
/// however it dies.
class FileLock
{
public:
    /// Makes the file \a path where it is missing and waits until nobody else holds it.
    explicit FileLock(const QString &path);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_error == 0; }
    /// The C library's code of what went wrong; 0 when it is held.
    int error() const { return m_error; }

private:
    int m_fd;
    int m_error = 0;
};
