#include "ReceivedFile.h"

#include "TransferFailure.h"

#include <QRandomGenerator>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr mode_t ordinaryMode = 0666;

[[noreturn]] void fail(int error = errno)
{
    throw TransferFailure::ofErrno(error);
}

/// ".name.XXXXXX.part", with as much of the name as there is room for.
QByteArray hiddenName(const QByteArray &name)
{
    const QByteArray end = '.' + QByteArray::number(QRandomGenerator::global()->generate64(), 36) + ".part";
    return '.' + name.left(NAME_MAX - 1 - end.size()) + end;
}

bool isMissing(int error)
{
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

/// Renames where the new name is free. Not every file system can do that in one step; there a second name is
/// made.
bool renameToFree(int folder, const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(folder, from.constData(), folder, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    return isMissing(errno) && ::linkat(folder, from.constData(), folder, to.constData(), 0) == 0 &&
           ::unlinkat(folder, from.constData(), 0) == 0;
}

} // namespace

ReceivedFile::ReceivedFile(const QByteArray &folder, const QByteArray &name)
    : m_name(name)
    , m_hidden(hiddenName(name))
    , m_folder(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_folder < 0)
        fail(errno == ENOENT ? ENOTDIR : errno);
    struct stat state = {};
    const bool isTaken = ::fstatat(m_folder, name.constData(), &state, AT_SYMLINK_NOFOLLOW) == 0;
    int error = isTaken ? EEXIST : errno == ENOENT ? 0 : errno;
    if (error == 0) {
        m_file =
            ::openat(m_folder, m_hidden.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ordinaryMode);
        error = m_file < 0 ? errno : 0;
    }
    if (error != 0) {
        ::close(m_folder);
        fail(error);
    }
}

ReceivedFile::~ReceivedFile()
{
    if (!m_hidden.isEmpty())
        ::unlinkat(m_folder, m_hidden.constData(), 0);
    ::close(m_file);
    ::close(m_folder);
}

void ReceivedFile::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t taken = ::write(m_file, bytes.data(), size_t(bytes.size()));
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken < 0)
            fail();
        bytes = bytes.sliced(taken);
    }
}

void ReceivedFile::setModified(time_t time)
{
    const timespec times[] = {{0, UTIME_OMIT}, {time, 0}};
    ::futimens(m_file, times); // not every file system keeps times; the data is what counts
}

std::function<int()> ReceivedFile::syncing() const
{
    const auto close = [](const int *file) {
        ::close(*file);
        delete file;
    };
    const std::shared_ptr<int> file(new int(::fcntl(m_file, F_DUPFD_CLOEXEC, 0)), close);
    return [file] { return ::fsync(*file) == 0 || isMissing(errno) ? 0 : errno; };
}

void ReceivedFile::publish()
{
    if (!renameToFree(m_folder, m_hidden, m_name))
        fail();
    m_hidden.clear();
}
