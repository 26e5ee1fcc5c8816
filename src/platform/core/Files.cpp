#include "Files.h"

#include "FileNames.h"
#include "RuntimeError.h"

#include <QRandomGenerator>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t privateMode = 0600;
constexpr mode_t ordinaryMode = 0666; // of which the system takes what the user's mask forbids

/// The folder that \a name is in, with a slash at its end.
QByteArray folderOf(const QByteArray &name)
{
    const qsizetype slash = name.lastIndexOf('/');
    return slash < 0 ? QByteArray("./") : name.left(slash + 1);
}

/// The new file in the folder of its target; removed unless it is renamed into place.
class TemporaryFile
{
public:
    /// Its name begins with that of \a target, as far as there is room.
    static TemporaryFile unique(const QByteArray &target, mode_t mode);
    static TemporaryFile fixed(const QByteArray &target, mode_t mode)
    {
        const QByteArray name = target + ".new";
        return TemporaryFile(
            name, ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, mode));
    }
    ~TemporaryFile()
    {
        if (m_pending)
            ::unlink(m_name.constData());
    }

    bool isOpen() const { return m_fd.isOpen(); }
    bool write(const QByteArray &bytes);
    bool sync() { return ::fsync(m_fd.get()) == 0; }
    bool setMode(mode_t mode) { return ::fchmod(m_fd.get(), mode) == 0; }
    bool replace(const QByteArray &target);

private:
    TemporaryFile(const QByteArray &name, int fd)
        : m_name(name)
        , m_fd(fd)
        , m_pending(m_fd.isOpen())
    {}

    QByteArray m_name;
    Descriptor m_fd;
    bool m_pending;
};

TemporaryFile TemporaryFile::unique(const QByteArray &target, mode_t mode)
{
    const QByteArray folder = folderOf(target);
    for (;;) {
        const QByteArray suffix = "." + QByteArray::number(QRandomGenerator::global()->generate(), 36);
        const QByteArray name =
            folder + target.mid(target.lastIndexOf('/') + 1).left(NAME_MAX - suffix.size()) + suffix;
        const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST)
            return TemporaryFile(name, fd);
    }
}

bool TemporaryFile::write(const QByteArray &bytes)
{
    const char *next = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t taken = ::write(m_fd.get(), next, size_t(left));
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken < 0)
            return false;
        next += taken;
        left -= taken;
    }
    return true;
}

bool TemporaryFile::replace(const QByteArray &target)
{
    if (!m_fd.close() || ::rename(m_name.constData(), target.constData()) != 0)
        return false;
    m_pending = false;
    return true;
}

[[noreturn]] void fail(const QString &path, int code = errno)
{
    throw RuntimeError::fromErrno(code, path);
}

QByteArray targetOfName(const QByteArray &name)
{
    char *resolved = ::realpath(name.constData(), nullptr);
    if (resolved) {
        const QByteArray target(resolved);
        ::free(resolved);
        return target;
    }
    if (errno != ENOENT)
        fail(FileNames::fromBytes(name));
    char link[PATH_MAX];
    const ssize_t length = ::readlink(name.constData(), link, sizeof link);
    if (length < 0)
        return name;
    const QByteArray next(link, length);
    return targetOfName(next.startsWith('/') ? next : folderOf(name) + next);
}

enum class Sync { Yes, No };

/// \a mode is the new file's; without one the old file's is kept, or the ordinary one taken.
void writeBy(TemporaryFile (*make)(const QByteArray &target, mode_t mode), const QString &path,
             const QByteArray &bytes, std::optional<mode_t> mode = {}, Sync sync = Sync::Yes)
{
    const QByteArray target = Files::targetOf(path);
    struct stat old = {};
    const bool replaces = ::stat(target.constData(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode))
        throw RuntimeError(ErrorNumber::PathFileAccessError, {}, path);
    if (replaces && ::access(target.constData(), W_OK) != 0)
        fail(path);
    if (!mode && replaces)
        mode = old.st_mode & 07777;

    TemporaryFile file = make(target, mode ? privateMode : ordinaryMode);
    if (!file.isOpen())
        fail(path, errno == ENOENT ? ENOTDIR : errno);
    const bool isSynced = sync == Sync::Yes;
    if ((mode && !file.setMode(*mode)) || !file.write(bytes) || (isSynced && !file.sync()) ||
        !file.replace(target))
        fail(path);
    if (!isSynced)
        return;

    const Descriptor folder(::open(folderOf(target).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get()); // the rename itself has to last; not every file system offers it
}

} // namespace

Descriptor Files::open(const QString &path)
{
    // Not blocking, so that a pipe without a writer is refused instead of waited for.
    Descriptor file(::open(FileNames::toBytes(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        fail(path);
    struct stat state = {};
    if (::fstat(file.get(), &state) != 0)
        fail(path);
    if (!S_ISREG(state.st_mode))
        throw RuntimeError(ErrorNumber::PathFileAccessError, {}, path);
    return file;
}

QByteArray Files::read(const QString &path)
{
    const Descriptor file = open(path);
    struct stat state = {};
    if (::fstat(file.get(), &state) != 0)
        fail(path);
    QByteArray bytes(state.st_size, Qt::Uninitialized);
    qsizetype size = 0;
    for (;;) {
        if (size == bytes.size())
            bytes.resize(size + 65536); // the file grew, or does not report its size
        const ssize_t got = ::read(file.get(), bytes.data() + size, size_t(bytes.size() - size));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            fail(path);
        if (got == 0)
            break;
        size += got;
    }
    bytes.truncate(size);
    return bytes;
}

void Files::write(const QString &path, const QByteArray &bytes)
{
    writeBy(&TemporaryFile::unique, path, bytes);
}

void Files::writeWithoutSync(const QString &path, const QByteArray &bytes)
{
    writeBy(&TemporaryFile::unique, path, bytes, {}, Sync::No);
}

void Files::writePrivate(const QString &path, const QByteArray &bytes)
{
    writeBy(&TemporaryFile::unique, path, bytes, privateMode);
}

void Files::writeLocked(const QString &path, const QByteArray &bytes)
{
    writeBy(&TemporaryFile::fixed, path, bytes);
}

QByteArray Files::targetOf(const QString &path)
{
    return targetOfName(FileNames::toBytes(path));
}
