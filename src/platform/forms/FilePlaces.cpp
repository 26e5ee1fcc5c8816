#include "FilePlaces.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>

namespace {

/// Where desktops and administrators mount sticks, disks and shares; the system's own file systems are
/// elsewhere.
const QStringList driveFolders = {QStringLiteral("/media/"), QStringLiteral("/run/media/"),
                                  QStringLiteral("/mnt/")};

bool isDrive(const QString &mountPoint)
{
    return std::ranges::any_of(driveFolders,
                               [&](const QString &folder) { return mountPoint.startsWith(folder); });
}

QStringList standardFolders()
{
    return {QStandardPaths::writableLocation(QStandardPaths::HomeLocation),
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
            QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)};
}

/// The address of the whole computer has no path.
bool isThere(const QUrl &place)
{
    return place.path().isEmpty() || QFileInfo::exists(place.toLocalFile());
}

} // namespace

QList<QUrl> FilePlaces::complete(const QList<QUrl> &offered, const QStringList &mountPoints)
{
    QList<QUrl> wanted = offered;
    for (const QString &folder : standardFolders())
        wanted << QUrl::fromLocalFile(folder);
    for (const QString &mountPoint : mountPoints) {
        if (isDrive(mountPoint))
            wanted << QUrl::fromLocalFile(mountPoint);
    }
    QList<QUrl> places;
    for (const QUrl &place : wanted) {
        if (isThere(place) && !places.contains(place))
            places << place;
    }
    return places;
}

QStringList FilePlaces::mountPoints()
{
    QStringList points;
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes())
        points << volume.rootPath();
    return points;
}
