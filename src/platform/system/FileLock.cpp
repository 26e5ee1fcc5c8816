#include "FileLock.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

// Only the owner has access: any process that can open the file could hold the lock for ever.
FileLock::FileLock(const QString &path, IfTaken ifTaken)
    : m_fd(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
{
    if (m_fd < 0) {
        m_error = errno;
        return;
    }
    const int operation = ifTaken == IfTaken::Wait ? LOCK_EX : LOCK_EX | LOCK_NB;
    while (::flock(m_fd, operation) != 0) {
        if (errno != EINTR) {
            m_error = errno;
            return;
        }
    }
}

FileLock::~FileLock()
{
    if (m_fd >= 0)
        ::close(m_fd);
}
