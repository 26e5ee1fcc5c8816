#include "FileAttributes.h"

#include "Descriptor.h"
#include "DosRecord.h"
#include "FileNames.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QtEndian>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

using namespace FileAttributes;

constexpr int inRecord = Hidden | System | Archive | Temporary;
constexpr int settable = ReadOnly | inRecord;
constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t allBits = 07777;

constexpr const char *ntfsName = "system.ntfs_attrib"; // of the driver of NTFS
constexpr const char *modeName = "user.quill.mode";    // the permissions before Read-Only, as an octal number

void check(bool isDone, const QByteArray &path)
{
    if (!isDone)
        throw RuntimeError::fromErrno(errno, FileNames::fromBytes(path));
}

QByteArray extended(const QByteArray &path, const char *name)
{
    QByteArray value(256, Qt::Uninitialized);
    const ssize_t size = ::getxattr(path.constData(), name, value.data(), size_t(value.size()));
    return value.left(qMax<ssize_t>(0, size));
}

bool setExtended(const QByteArray &path, const char *name, const QByteArray &value)
{
    return ::setxattr(path.constData(), name, value.constData(), size_t(value.size()), 0) == 0;
}

struct stat stateOf(const QByteArray &path, int (*ask)(const char *, struct stat *) = ::stat)
{
    struct stat state = {};
    check(ask(path.constData(), &state) == 0, path);
    return state;
}

/// NTFS's own attributes; nothing on other file systems.
std::optional<quint32> ntfsAttributes(const QByteArray &path)
{
    const QByteArray value = extended(path, ntfsName);
    if (value.size() != sizeof(quint32))
        return {};
    return qFromLittleEndian<quint32>(value.constData());
}

// ---- Reading

bool isListedAsHidden(const QByteArray &folder, const QByteArray &name)
{
    try {
        return Files::read(FileNames::fromBytes(folder + "/.hidden")).split('\n').contains(name);
    } catch (const RuntimeError &) {
        return false; // mostly there is no list
    }
}

bool isHiddenByName(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray name = path.mid(slash + 1);
    return name.startsWith('.') || isListedAsHidden(slash < 0 ? "." : path.left(slash), name);
}

/// What the file system marks a file with.
int flags(const QByteArray &path)
{
    const Descriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    int marks = 0;
    if (!file.isOpen() || ::ioctl(file.get(), FS_IOC_GETFLAGS, &marks) != 0)
        return 0;
    return (marks & FS_COMPR_FL ? Compressed : 0) | (marks & FS_IMMUTABLE_FL ? ReadOnly : 0);
}

int keptOf(const QByteArray &path)
{
    return int(DosRecord::attributesIn(extended(path, DosRecord::name)).value_or(0)) & settable;
}

// ---- Writing

quint64 createdAt(const QByteArray &path)
{
    constexpr quint64 from1601To1970 = 11'644'473'600; // seconds
    constexpr quint64 tenthsOfMicrosecond = 10'000'000;
    struct statx state = {};
    ::statx(AT_FDCWD, path.constData(), 0, STATX_BTIME | STATX_MTIME, &state);
    const statx_timestamp &time = state.stx_mask & STATX_BTIME ? state.stx_btime : state.stx_mtime;
    return (quint64(time.tv_sec) + from1601To1970) * tenthsOfMicrosecond + time.tv_nsec / 100;
}

/// A file without a record gets none for no attribute.
bool writeRecord(const QByteArray &path, int bits)
{
    const QByteArray old = extended(path, DosRecord::name);
    if (old.isEmpty() && bits == 0)
        return true;
    return setExtended(path, DosRecord::name, DosRecord::with(quint32(bits), old, createdAt(path)));
}

/// The permissions to write that Read-Only has taken away; the owner's where nothing is known.
mode_t rememberedMode(const QByteArray &path)
{
    constexpr int octal = 8;
    const mode_t mode = mode_t(extended(path, modeName).toUInt(nullptr, octal)) & writeBits;
    return mode ? mode : S_IWUSR;
}

void setNtfs(const QByteArray &path, quint32 old, int bits)
{
    QByteArray value(sizeof(quint32), '\0');
    qToLittleEndian((old & ~quint32(settable)) | quint32(bits), value.data());
    check(setExtended(path, ntfsName, value), path);
}

void setOrdinary(const QByteArray &path, int bits)
{
    const mode_t mode = stateOf(path).st_mode & allBits;
    const bool wasReadOnly = !(mode & writeBits);
    const mode_t writable = wasReadOnly ? mode | rememberedMode(path) : mode;
    // Only a file with permission to write takes extended attributes.
    check(!wasReadOnly || ::chmod(path.constData(), writable) == 0, path);
    if (bits & ReadOnly)
        setExtended(path, modeName, QByteArray::number(writable, 8));
    else
        ::removexattr(path.constData(), modeName);
    const int failure = writeRecord(path, bits) ? 0 : errno;
    check(!(bits & ReadOnly) || ::chmod(path.constData(), writable & ~writeBits) == 0, path);
    errno = failure;
    check(failure == 0, path);
}

} // namespace

int FileAttributes::of(const QString &path)
{
    const QByteArray name = FileNames::toBytes(path);
    const bool isLink = S_ISLNK(stateOf(name, ::lstat).st_mode);
    const int alias = isLink ? Alias : 0;
    struct stat state = {};
    if (::stat(name.constData(), &state) != 0)
        return alias; // a link to nothing
    const int kind = alias | (S_ISDIR(state.st_mode) ? Directory : 0);
    if (const auto ntfs = ntfsAttributes(name))
        return kind | int(*ntfs & quint32(settable | Compressed));
    const bool hasFlags = S_ISREG(state.st_mode) || S_ISDIR(state.st_mode);
    return kind | (state.st_mode & writeBits ? 0 : ReadOnly) | keptOf(name) |
           (isHiddenByName(name) ? Hidden : 0) | (hasFlags ? flags(name) : 0);
}

void FileAttributes::set(const QString &path, int bits)
{
    const QByteArray name = FileNames::toBytes(path);
    if (const auto ntfs = ntfsAttributes(name))
        setNtfs(name, *ntfs, bits & settable);
    else
        setOrdinary(name, bits & settable);
}

void FileAttributes::copyKept(int from, int to)
{
    for (const char *name : {DosRecord::name, modeName}) {
        QByteArray value(256, Qt::Uninitialized);
        const ssize_t size = ::fgetxattr(from, name, value.data(), size_t(value.size()));
        if (size > 0)
            ::fsetxattr(to, name, value.constData(), size_t(size), 0);
    }
}
