#include "TargetFolder.h"

#include "FileFailure.h"
#include "PendingFile.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr mode_t folderMode = 0777;
constexpr qsizetype mostOpen = 64;

void makeFolders(const QByteArray &path)
{
    for (qsizetype slash = path.indexOf('/', 1); slash >= 0; slash = path.indexOf('/', slash + 1))
        ::mkdir(path.left(slash).constData(),
                folderMode); // what cannot be made is noticed by the last step
    if (::mkdir(path.constData(), folderMode) != 0 && errno != EEXIST)
        throw FileFailure();
}

FileDescriptor openBelow(const FileDescriptor &folder, const QByteArray &path)
{
    open_how how = {};
    how.flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS;
    return FileDescriptor(int(::syscall(SYS_openat2, folder.get(), path.constData(), &how, sizeof how)));
}

} // namespace

TargetFolder::TargetFolder(const QByteArray &path)
{
    const QByteArray folder = path.isEmpty() ? QByteArray(".") : path;
    makeFolders(folder);
    m_target = std::make_shared<FileDescriptor>(FileDescriptor::open(folder, O_PATH | O_DIRECTORY));
    PendingFile::sweep(m_target->get());
}

TargetFolder::Folder TargetFolder::folder(const QByteArray &path)
{
    if (path.isEmpty())
        return m_target;
    if (const auto found = m_folders.constFind(path); found != m_folders.cend())
        return *found;
    if (m_folders.size() >= mostOpen)
        m_folders.clear();
    return *m_folders.insert(path, open(path));
}

TargetFolder::Folder TargetFolder::open(const QByteArray &path)
{
    FileDescriptor found = openBelow(*m_target, path);
    if (!found.isOpen() && errno == ENOENT)
        return make(path);
    if (!found.isOpen())
        throw FileFailure();
    if (!m_swept.contains(path)) {
        m_swept.insert(path);
        PendingFile::sweep(found.get());
    }
    return std::make_shared<FileDescriptor>(std::move(found));
}

TargetFolder::Folder TargetFolder::make(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const Folder parent = folder(path.left(qMax<qsizetype>(slash, 0)));
    const QByteArray name = path.sliced(slash + 1);
    const bool isMade = ::mkdirat(parent->get(), name.constData(), folderMode) == 0;
    if (!isMade && errno != EEXIST)
        throw FileFailure();
    FileDescriptor made = openBelow(*parent, name);
    if (!made.isOpen())
        throw FileFailure();
    m_swept.insert(path);
    if (isMade)
        m_made.insert(path);
    return std::make_shared<FileDescriptor>(std::move(made));
}

bool TargetFolder::exists(const QByteArray &path) const
{
    return openBelow(*m_target, path).isOpen();
}

void TargetFolder::restore(const QByteArray &path, const ArchiveEntry &entry)
{
    const Folder found = folder(path);
    const FileDescriptor opened(::openat(found->get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const timespec times[] = {{0, UTIME_OMIT}, {time_t(entry.modified()), 0}};
    ::futimens(opened.get(), times);
    if (const int permissions = entry.permissions(); permissions != 0)
        ::fchmod(opened.get(), mode_t(permissions));
}
