#include "PartFile.h"

#include "FileFailure.h"

#include <QRandomGenerator>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t privateMode = 0600;
const QByteArray partPrefix = QByteArrayLiteral(".quill-");
const QByteArray partSuffix = QByteArrayLiteral(".part");

QByteArray randomName()
{
    return partPrefix + QByteArray::number(QRandomGenerator::system()->generate64(), 36) + partSuffix;
}

bool lock(const FileDescriptor &file)
{
    return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Locks a new file. True where a sweep is removing it, or has done so.
bool isSwept(const FileDescriptor &file)
{
    struct stat state = {};
    return (!lock(file) && errno == EWOULDBLOCK) || (::fstat(file.get(), &state) == 0 && state.st_nlink == 0);
}

/// An empty file takes the name, if that is free, and is then replaced.
bool renameToTaken(int folder, const QByteArray &from, const QByteArray &to)
{
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    if (!FileDescriptor(::openat(folder, to.constData(), flags, privateMode)).isOpen())
        return false;
    if (::renameat(folder, from.constData(), folder, to.constData()) == 0)
        return true;
    const FileFailure failure;
    ::unlinkat(folder, to.constData(), 0);
    throw failure;
}

/// Not every file system can rename in one step to a name that is free; there a second name is made. Not
/// every one of those has second names.
bool renameToFree(int folder, const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(folder, from.constData(), folder, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    if (::linkat(folder, from.constData(), folder, to.constData(), 0) == 0)
        return ::unlinkat(folder, from.constData(), 0) == 0;
    return errno != EEXIST && renameToTaken(folder, from, to);
}

} // namespace

PartFile::PartFile(const FileDescriptor &folder)
    : m_folder(folder)
{
    // A sweep that comes between making and locking takes the file; then another one is made.
    do {
        m_hidden = randomName();
        m_file = FileDescriptor(::openat(folder.get(), m_hidden.constData(),
                                         O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, privateMode));
        if (!m_file.isOpen())
            throw FileFailure();
    } while (isSwept(m_file));
}

PartFile::~PartFile()
{
    if (!m_hidden.isEmpty())
        ::unlinkat(m_folder.get(), m_hidden.constData(), 0);
}

void PartFile::publish(const QByteArray &name, Existing existing)
{
    m_file.duplicate().close(); // the lock stays with the other descriptor
    const int folder = m_folder.get();
    const bool isDone = existing == Existing::Replace
                            ? ::renameat(folder, m_hidden.constData(), folder, name.constData()) == 0
                            : renameToFree(folder, m_hidden, name);
    if (!isDone)
        throw FileFailure();
    m_hidden.clear();
}

void PartFile::sweep(const FileDescriptor &folder)
{
    const int listed = ::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(listed < 0 ? nullptr : ::fdopendir(listed),
                                                       ::closedir);
    while (const dirent *entry = entries ? ::readdir(entries.get()) : nullptr) {
        const QByteArrayView name(entry->d_name);
        if (!name.startsWith(partPrefix) || !name.endsWith(partSuffix))
            continue;
        const FileDescriptor file(
            ::openat(folder.get(), entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file.isOpen() && lock(file))
            ::unlinkat(folder.get(), entry->d_name, 0);
    }
}
