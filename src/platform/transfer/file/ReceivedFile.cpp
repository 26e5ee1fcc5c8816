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

[[noreturn]] void failWith(int error = errno)
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

/// Renames over an empty file that is made for that. Where this fails, nothing of it is left.
void renameOverPlaceholder(int folder, const QByteArray &from, const QByteArray &to)
{
    const int placeholder = ::openat(folder, to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0);
    if (placeholder < 0)
        failWith();
    ::close(placeholder);
    if (::renameat(folder, from.constData(), folder, to.constData()) == 0)
        return;
    const int error = errno;
    ::unlinkat(folder, to.constData(), 0);
    failWith(error);
}

} // namespace

ReceivedFile::ReceivedFile(const QByteArray &folder, const QByteArray &name)
    : m_name(name)
    , m_hidden(hiddenName(name))
    , m_folder(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_folder < 0)
        failWith(errno == ENOENT ? ENOTDIR : errno);
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
        failWith(error);
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
            failWith();
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

/// Not every file system can rename to a free name in one step, nor give a file a second name.
void ReceivedFile::publish()
{
    if (::renameat2(m_folder, m_hidden.constData(), m_folder, m_name.constData(), RENAME_NOREPLACE) != 0) {
        if (!isMissing(errno))
            failWith();
        if (::linkat(m_folder, m_hidden.constData(), m_folder, m_name.constData(), 0) == 0)
            return; // the destructor removes the hidden name; the file is whole even where it cannot
        renameOverPlaceholder(m_folder, m_hidden, m_name);
    }
    m_hidden.clear();
}
