#include "OldArchive.h"

#include "FileFailure.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

bool isSame(const timespec &a, const timespec &b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

} // namespace

OldArchive::OldArchive(const QByteArray &path)
{
    if (::access(path.constData(), F_OK) != 0 && errno == ENOENT)
        return;
    m_file = FileDescriptor::openOrdinary(path);
    if (::access(path.constData(), W_OK) != 0 || ::fstat(m_file.get(), &m_state) != 0)
        throw FileFailure();
}

bool OldArchive::isUnchangedAt(const FileDescriptor &folder, const QByteArray &name) const
{
    struct stat now = {};
    if (::fstatat(folder.get(), name.constData(), &now, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT && !m_file.isOpen();
    return m_file.isOpen() && now.st_dev == m_state.st_dev && now.st_ino == m_state.st_ino &&
           now.st_size == m_state.st_size && isSame(now.st_mtim, m_state.st_mtim) &&
           isSame(now.st_ctim, m_state.st_ctim);
}
