#include "FileLock.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The C library's code of what went wrong, else 0.
int lock(int fd, int operation)
{
    while (::flock(fd, operation) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

} // namespace

FileLock::FileLock(const QString &path, IfTaken ifTaken)
{
    const int operation = ifTaken == IfTaken::Wait ? LOCK_EX : LOCK_EX | LOCK_NB;
    do {
        close();
        // Only the owner has access: any process that can open the file could hold the lock for ever.
        m_fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        m_error = m_fd < 0 ? errno : lock(m_fd, operation);
    } while (isHeld() && isRemoved());
}

FileLock::~FileLock()
{
    close();
}

/// True when the file that is open is no longer in its folder, so that nobody else can meet this lock.
bool FileLock::isRemoved() const
{
    struct stat state = {};
    return ::fstat(m_fd, &state) == 0 && state.st_nlink == 0;
}

void FileLock::close()
{
    if (m_fd >= 0)
        ::close(m_fd);
}
