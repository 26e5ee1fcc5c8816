#include "PendingFile.h"

#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

const QByteArray prefix = QByteArrayLiteral(".quill-");
const QByteArray suffix = QByteArrayLiteral(".part");
constexpr int base = 36;
constexpr qsizetype figures = 13; // of a 64-bit number in that base

[[noreturn]] void fail(int error = errno)
{
    throw std::system_error(error, std::generic_category());
}

void check(bool isDone)
{
    if (!isDone)
        fail();
}

QByteArray randomName()
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), base);
    return prefix + number.rightJustified(figures, '0') + suffix;
}

/// Whether \a name is one that randomName() makes.
bool isRandomName(QByteArrayView name)
{
    if (name.size() != prefix.size() + figures + suffix.size() || !name.startsWith(prefix) ||
        !name.endsWith(suffix))
        return false;
    const QByteArrayView number = name.sliced(prefix.size(), figures);
    return std::all_of(number.begin(), number.end(), [](char figure) {
        return (figure >= '0' && figure <= '9') || (figure >= 'a' && figure <= 'z');
    });
}

/// Whether \a name is a file of this user, and no link or pipe.
bool isOwnFile(int folder, const char *name)
{
    struct stat state = {};
    return ::fstatat(folder, name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(state.st_mode) &&
           state.st_uid == ::geteuid();
}

bool lock(const Descriptor &file)
{
    return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Locks the new file \a name. True where a sweep is removing it, or has done so.
bool isSwept(const Descriptor &file, int folder, const QByteArray &name)
{
    struct stat state = {};
    return (!lock(file) && errno == EWOULDBLOCK) ||
           (::fstatat(folder, name.constData(), &state, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT);
}

/// The file system has no such operation.
bool isMissing(int error)
{
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

/// Renames over an empty file that is made for that. Where this fails, nothing of it is left.
void renameOverPlaceholder(int folder, const QByteArray &from, const QByteArray &to)
{
    const Descriptor placeholder(
        ::openat(folder, to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0));
    check(placeholder.isOpen());
    if (::renameat(folder, from.constData(), folder, to.constData()) == 0)
        return;
    const int error = errno;
    ::unlinkat(folder, to.constData(), 0);
    fail(error);
}

/// Some file systems report what they could not write only here. The lock stays with \a file.
void closeDuplicate(const Descriptor &file)
{
    Descriptor duplicate(::fcntl(file.get(), F_DUPFD_CLOEXEC, 0));
    check(duplicate.isOpen() && duplicate.close());
}

/// Not every file system can rename to a free name in one step, nor give a file a second name. Returns false
/// where the file has both names now.
bool renameToFree(int folder, const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(folder, from.constData(), folder, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    check(isMissing(errno));
    if (::linkat(folder, from.constData(), folder, to.constData(), 0) == 0)
        return false;
    renameOverPlaceholder(folder, from, to);
    return true;
}

} // namespace

PendingFile::PendingFile(int folder, mode_t mode)
    : m_folder(::fcntl(folder, F_DUPFD_CLOEXEC, 0))
{
    check(m_folder.isOpen());
    // A sweep that comes between making and locking takes the file; then another one is made.
    do {
        m_hidden = randomName();
        m_file = Descriptor(::openat(m_folder.get(), m_hidden.constData(),
                                     O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        check(m_file.isOpen());
    } while (isSwept(m_file, m_folder.get(), m_hidden));
}

PendingFile::~PendingFile()
{
    if (!m_hidden.isEmpty())
        ::unlinkat(m_folder.get(), m_hidden.constData(), 0);
}

void PendingFile::write(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t taken = ::write(m_file.get(), bytes.data(), size_t(bytes.size()));
        if (taken < 0 && errno == EINTR)
            continue;
        check(taken >= 0);
        bytes = bytes.sliced(taken);
    }
}

void PendingFile::setModified(time_t time)
{
    const timespec times[] = {{0, UTIME_OMIT}, {time, 0}};
    ::futimens(m_file.get(), times); // the data is what counts
}

std::function<int()> PendingFile::syncing() const
{
    const auto file = std::make_shared<Descriptor>(::fcntl(m_file.get(), F_DUPFD_CLOEXEC, 0));
    return [file] { return ::fsync(file->get()) == 0 || isMissing(errno) ? 0 : errno; };
}

void PendingFile::publish(const QByteArray &name, Existing existing)
{
    closeDuplicate(m_file);
    const int folder = m_folder.get();
    if (existing == Existing::Replace)
        check(::renameat(folder, m_hidden.constData(), folder, name.constData()) == 0);
    else if (!renameToFree(folder, m_hidden, name))
        return; // the destructor removes the hidden name; the file is whole even where it cannot
    m_hidden.clear();
}

void PendingFile::sweep(int folder)
{
    const int listed = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(listed < 0 ? nullptr : ::fdopendir(listed),
                                                       ::closedir);
    while (const dirent *entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (!isRandomName(entry->d_name) || !isOwnFile(folder, entry->d_name))
            continue;
        const Descriptor file(
            ::openat(folder, entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file.isOpen() && lock(file))
            ::unlinkat(folder, entry->d_name, 0);
    }
}
