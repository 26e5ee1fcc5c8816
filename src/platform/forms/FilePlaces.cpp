#include "FilePlaces.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace {

QStringList standardFolders()
{
    return {QStandardPaths::writableLocation(QStandardPaths::HomeLocation),
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
            QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)};
}

bool isDrive(const Volume &volume)
{
    // Intended: no network shares. Qt's dialog asks each place whether it is there, and a share whose server
    // is gone does not answer.
    return volume.kind == Volume::Kind::Disk || volume.kind == Volume::Kind::Removable;
}

void addOnce(QList<QUrl> &places, const QUrl &place)
{
    if (!places.contains(place))
        places << place;
}

} // namespace

QList<QUrl> FilePlaces::complete(const QList<QUrl> &offered, const QList<Volume> &volumes)
{
    QList<QUrl> places;
    for (const QUrl &place : offered)
        addOnce(places, place);
    for (const QString &folder : standardFolders()) {
        if (QFileInfo::exists(folder))
            addOnce(places, QUrl::fromLocalFile(folder));
    }
    for (const Volume &volume : volumes) {
        if (isDrive(volume))
            addOnce(places, QUrl::fromLocalFile(volume.path));
    }
    return places;
}
