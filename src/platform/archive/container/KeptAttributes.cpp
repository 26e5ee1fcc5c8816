#include "KeptAttributes.h"

#include "FileDescriptor.h"
#include "FileFailure.h"

#include <QByteArrayList>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr mode_t allBits = 07777; // with the set-id bits
constexpr mode_t permissions = 0777;
constexpr mode_t ofOwner = 0700;
constexpr mode_t ofGroup = 0070;
constexpr int perClass = 3; // bits

struct stat stateOf(const FileDescriptor &file)
{
    struct stat state = {};
    if (::fstat(file.get(), &state) != 0)
        throw FileFailure();
    return state;
}

/// Those of the system are access lists.
bool isAccessList(const QByteArray &attribute)
{
    return attribute.startsWith("system.");
}

QByteArrayList attributesOf(const FileDescriptor &file)
{
    QByteArray names(qMax<ssize_t>(0, ::flistxattr(file.get(), nullptr, 0)), Qt::Uninitialized);
    names.resize(qMax<ssize_t>(0, ::flistxattr(file.get(), names.data(), size_t(names.size()))));
    QByteArrayList attributes = names.split('\0');
    attributes.removeAll({});
    return attributes;
}

bool copyAttribute(const QByteArray &name, const FileDescriptor &from, const FileDescriptor &to)
{
    const ssize_t size = ::fgetxattr(from.get(), name.constData(), nullptr, 0);
    if (size < 0)
        return false;
    QByteArray value(size, Qt::Uninitialized);
    return ::fgetxattr(from.get(), name.constData(), value.data(), size_t(size)) == size &&
           ::fsetxattr(to.get(), name.constData(), value.constData(), size_t(size), 0) == 0;
}

/// A new file has a list of its own where its folder has one for new files. The group's permissions would be
/// the mask of that list, and open it to all that it names. Returns false where there still may be one.
bool removeAccessList(const FileDescriptor &file)
{
    return ::fremovexattr(file.get(), "system.posix_acl_access") == 0 || errno == ENODATA || errno == ENOTSUP;
}

/// Returns false where an access list could not be kept. Other attributes may be the system's own, which
/// cannot be set.
bool copyAttributes(const FileDescriptor &from, const FileDescriptor &to, bool hasSameOwners)
{
    bool areListsKept = true;
    for (const QByteArray &name : attributesOf(from)) {
        const bool isKept = (hasSameOwners || !isAccessList(name)) && copyAttribute(name, from, to);
        areListsKept = areListsKept && (isKept || !isAccessList(name));
    }
    return areListsKept;
}

void setOwners(const FileDescriptor &file, const struct stat &old)
{
    constexpr auto unchanged = uid_t(-1);
    if (::fchown(file.get(), old.st_uid, old.st_gid) != 0)
        ::fchown(file.get(), unchanged, old.st_gid);
}

/// Whoever owned the old file, or was in its group, is among the group or the others of the new one.
mode_t narrowed(mode_t mode, bool isOwnerKept, bool isGroupKept)
{
    mode_t group = (mode & ofGroup) >> perClass;
    mode_t others = mode & permissions & ~(ofOwner | ofGroup);
    if (!isOwnerKept) {
        group &= (mode & ofOwner) >> (2 * perClass);
        others &= (mode & ofOwner) >> (2 * perClass);
    }
    if (!isGroupKept) {
        others &= group;
        group = 0;
    }
    return (mode & ofOwner) | group << perClass | others;
}

} // namespace

void KeptAttributes::copy(const FileDescriptor &from, const FileDescriptor &to)
{
    const struct stat old = stateOf(from);
    const bool hasNoList = removeAccessList(to);
    setOwners(to, old);
    const struct stat now = stateOf(to);
    const bool isOwnerKept = now.st_uid == old.st_uid;
    const bool isGroupKept = now.st_gid == old.st_gid;
    const bool hasSameOwners = isOwnerKept && isGroupKept;
    mode_t mode = hasSameOwners ? old.st_mode & allBits : narrowed(old.st_mode, isOwnerKept, isGroupKept);
    // Before the mode: the group's bits are the mask of an access list, and the whole list needs it.
    if (!copyAttributes(from, to, hasSameOwners) || !hasNoList)
        mode &= ofOwner;
    if (::fchmod(to.get(), mode) != 0)
        throw FileFailure();
}
