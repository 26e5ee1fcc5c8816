#include "Volume.h"

#include "FileNames.h"
#include "Folder.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace {

const char *const networkTypes[] = {"nfs", "nfs4", "cifs", "smb3", "9p", "davfs", "fuse.sshfs"};
const char *const removableFolders[] = {"/media", "/run/media"};
const char *const systemFolders[] = {"/boot", "/dev",  "/efi", "/etc", "/nix", "/opt", "/proc",
                                     "/run",  "/snap", "/sys", "/tmp", "/usr", "/var"};

/// In the table of mounts "\040" is a blank; tabs, line feeds and backslashes are written alike.
QByteArray unescaped(const QByteArray &field)
{
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool isCode = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&isCode, 8) : 0;
        text += isCode ? char(code) : field[i];
        i += isCode ? 3 : 0;
    }
    return text;
}

bool isIn(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(Folder::join(folder, {}));
}

template<std::size_t Count>
bool isInOneOf(const QString &path, const char *const (&folders)[Count])
{
    return std::any_of(std::begin(folders), std::end(folders),
                       [&](const char *folder) { return isIn(path, QString::fromLatin1(folder)); });
}

bool isNetwork(const QByteArray &type)
{
    return std::find(std::begin(networkTypes), std::end(networkTypes), type) != std::end(networkTypes);
}

/// Whether \a volume, which is on \a device, is of interest to the user.
bool isOffered(const Volume &volume, const QByteArray &device, const QString &home)
{
    if (volume.kind == Volume::Kind::Removable)
        return true;
    const bool holdsFiles = volume.kind == Volume::Kind::Network || device.startsWith("/dev/");
    return holdsFiles && !isInOneOf(volume.path, systemFolders) && !isIn(home, volume.path);
}

Volume::Kind kindOf(const QString &path, const QByteArray &type)
{
    if (isNetwork(type))
        return Volume::Kind::Network;
    return isInOneOf(path, removableFolders) ? Volume::Kind::Removable : Volume::Kind::Disk;
}

bool contains(const QList<Volume> &volumes, const QString &path)
{
    return std::any_of(volumes.begin(), volumes.end(),
                       [&](const Volume &volume) { return volume.path == path; });
}

} // namespace

QList<Volume> Volume::of(const QByteArray &mounts, const QString &home)
{
    QList<Volume> volumes = {{Kind::System, QStringLiteral("/"), QStringLiteral("File System")},
                             {Kind::Home, home, QStringLiteral("Home")}};
    for (const QByteArray &line : mounts.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 3)
            continue;
        const QString path = FileNames::fromBytes(unescaped(fields[1]));
        const Volume volume{kindOf(path, fields[2]), path, path.section(u'/', -1)};
        if (isOffered(volume, fields[0], home) && !contains(volumes, path))
            volumes += volume;
    }
    return volumes;
}

QList<Volume> Volume::all()
{
    QFile mounts(QStringLiteral("/proc/self/mounts"));
    const bool isOpen = mounts.open(QIODevice::ReadOnly);
    return of(isOpen ? mounts.readAll() : QByteArray(), QDir::homePath());
}
