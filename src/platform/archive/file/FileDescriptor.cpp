#include "FileDescriptor.h"

#include "FileFailure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

FileDescriptor::~FileDescriptor()
{
    if (isOpen())
        ::close(m_descriptor);
}

FileDescriptor::FileDescriptor(FileDescriptor &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{}

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FileDescriptor FileDescriptor::open(const QByteArray &path, int flags)
{
    FileDescriptor file(::open(path.constData(), flags | O_CLOEXEC));
    if (!file.isOpen())
        throw FileFailure();
    return file;
}

FileDescriptor FileDescriptor::openOrdinary(const QByteArray &path)
{
    FileDescriptor file = open(path, O_RDONLY | O_NONBLOCK);
    struct stat state = {};
    if (::fstat(file.get(), &state) != 0)
        throw FileFailure();
    if (!S_ISREG(state.st_mode))
        throw FileFailure(S_ISDIR(state.st_mode) ? EISDIR : ENOTSUP);
    return file;
}

FileDescriptor FileDescriptor::openFolderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return open(slash < 0 ? QByteArray(".") : path.left(slash + 1), O_RDONLY | O_DIRECTORY);
}

FileDescriptor FileDescriptor::duplicateOf(int descriptor)
{
    FileDescriptor copy(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    if (!copy.isOpen())
        throw FileFailure();
    return copy;
}

qint64 FileDescriptor::size() const
{
    struct stat state = {};
    if (::fstat(m_descriptor, &state) != 0)
        throw FileFailure();
    return state.st_size;
}

qsizetype FileDescriptor::readAt(qint64 offset, char *to, qsizetype size) const
{
    qsizetype done = 0;
    while (done < size) {
        const ssize_t got = ::pread(m_descriptor, to + done, size_t(size - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw FileFailure();
        if (got == 0)
            break;
        done += got;
    }
    return done;
}
