#include "FileOperations.h"

#include "Descriptor.h"
#include "FileAttributes.h"
#include "FileNames.h"
#include "Files.h"
#include "PendingFile.h"
#include "RuntimeError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace {

constexpr mode_t privateMode = 0600;
constexpr mode_t permissions = 0777;

void check(bool isDone, const QString &path)
{
    if (!isDone)
        throw RuntimeError::fromErrno(errno, path);
}

[[noreturn]] void refuse(int number, const QString &path)
{
    throw RuntimeError(number, {}, path);
}

void requireRegular(const struct stat &state, const QString &path)
{
    if (!S_ISREG(state.st_mode))
        refuse(ErrorNumber::PathFileAccessError, path);
}

struct Source
{
    Descriptor file;
    struct stat state;
};

Source openSource(const QString &path)
{
    // Not blocking, so that a pipe without a writer is refused instead of waited for.
    Source source{Descriptor(::open(FileNames::toBytes(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)),
                  {}};
    check(source.file.isOpen() && ::fstat(source.file.get(), &source.state) == 0, path);
    requireRegular(source.state, path);
    return source;
}

/// \a target may be replaced by a copy of \a source.
void requireReplaceable(const QByteArray &target, const struct stat &source, const QString &path)
{
    struct stat old = {};
    if (::stat(target.constData(), &old) != 0) {
        check(errno == ENOENT, path);
        return;
    }
    requireRegular(old, path);
    if (old.st_dev == source.st_dev && old.st_ino == source.st_ino)
        refuse(ErrorNumber::PermissionDenied, path);
    check(::access(target.constData(), W_OK) == 0, path);
}

Descriptor openFolderOf(const QByteArray &target, const QString &path)
{
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? QByteArray(".") : target.left(slash + 1);
    Descriptor opened(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen() && errno == ENOENT)
        refuse(ErrorNumber::PathNotFound, path);
    check(opened.isOpen(), path);
    return opened;
}

void copyData(const Source &source, PendingFile &to)
{
    constexpr qsizetype pieceSize = 1 << 20;
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (;;) {
        const ssize_t size = ::read(source.file.get(), piece.data(), pieceSize);
        if (size == 0)
            return;
        if (size > 0)
            to.write(QByteArrayView(piece).first(size));
        else if (errno != EINTR)
            throw std::system_error(errno, std::generic_category());
    }
}

/// The permissions come last: a file without permission to write takes no attributes.
void copyState(const Source &source, PendingFile &to)
{
    FileAttributes::copyKept(source.file.get(), to.file());
    to.setModified(source.state.st_mtime);
    if (::fchmod(to.file(), source.state.st_mode & permissions) != 0)
        throw std::system_error(errno, std::generic_category());
}

void sync(const PendingFile &file)
{
    if (const int error = file.syncing()())
        throw std::system_error(error, std::generic_category());
}

} // namespace

void FileOperations::copy(const QString &from, const QString &to)
{
    const Source source = openSource(from);
    const QByteArray target = Files::targetOf(to);
    requireReplaceable(target, source.state, to);
    const Descriptor folder = openFolderOf(target, to);
    try {
        PendingFile::sweep(folder.get());
        PendingFile file(folder.get(), privateMode);
        copyData(source, file);
        copyState(source, file);
        sync(file);
        file.publish(target.mid(target.lastIndexOf('/') + 1), PendingFile::Existing::Replace);
        file.syncingFolder()();
    } catch (const std::system_error &error) {
        throw RuntimeError::fromErrno(error.code().value(), to);
    }
}

void FileOperations::remove(const QString &path)
{
    check(::unlink(FileNames::toBytes(path).constData()) == 0, path);
}
