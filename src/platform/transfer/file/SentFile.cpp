#include "SentFile.h"

#include "TransferError.h"
#include "TransferFailure.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

SentFile::SentFile(const QByteArray &path)
    : m_file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) // so that a pipe is not waited for
{
    if (m_file < 0)
        throw TransferFailure::ofErrno(errno);
    struct stat state = {};
    if (::fstat(m_file, &state) != 0 || !S_ISREG(state.st_mode)) {
        ::close(m_file);
        throw TransferFailure(TransferError::AccessDenied);
    }
}

SentFile::~SentFile()
{
    ::close(m_file);
}

QByteArray SentFile::read(qsizetype most)
{
    QByteArray bytes(most, Qt::Uninitialized);
    ssize_t got = 0;
    do
        got = ::read(m_file, bytes.data(), size_t(most));
    while (got < 0 && errno == EINTR);
    if (got < 0)
        throw TransferFailure::ofErrno(errno);
    bytes.truncate(got);
    return bytes;
}
