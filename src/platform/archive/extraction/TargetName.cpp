#include "TargetName.h"

#include "BadArchive.h"

#include <QByteArrayList>

namespace {

/// Windows separates by both slashes, and its paths may begin with a drive.
QByteArray withoutDrive(const ArchiveEntry &entry)
{
    QByteArray name = entry.name;
    if (entry.isUnixMade())
        return name;
    name.replace('\\', '/');
    return name.size() > 1 && name[1] == ':' ? name.sliced(2) : name;
}

QByteArrayList partsOf(const QByteArray &name)
{
    QByteArrayList parts = name.split('/');
    parts.removeIf([](const QByteArray &part) { return part.isEmpty() || part == "."; });
    return parts;
}

} // namespace

TargetName TargetName::of(const ArchiveEntry &entry, int options)
{
    QByteArray name = withoutDrive(entry);
    if (name.contains('\0'))
        throw BadArchive{"its name is not allowed"};
    if (options & SpaceToUnderscore)
        name.replace(' ', '_');
    QByteArrayList parts = partsOf(name);
    if (parts.contains("..") || (parts.isEmpty() && !entry.isFolder()))
        throw BadArchive{"its name is not allowed"};
    TargetName target;
    if (!entry.isFolder())
        target.name = parts.takeLast();
    if (options & UseFolders)
        target.folder = parts.join('/');
    return target;
}
