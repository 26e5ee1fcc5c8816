#include "AccountFolder.h"

#include <QDir>
#include <QFileInfo>
#include <unistd.h>

namespace {

const QString prefix = QStringLiteral("quill-office-tools-sip-"); // the suite's process comes behind it

/// The user's own folder in memory where the desktop has one, so that no password reaches a disk.
QString place()
{
    const QString own = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return QFileInfo(own).isDir() ? own : QDir::tempPath();
}

bool isRunning(const QString &process)
{
    return QFileInfo::exists(QStringLiteral("/proc/") + process);
}

void removeLeftFolders()
{
    const QDir folders(place());
    for (const QFileInfo &folder : folders.entryInfoList({prefix + u'*'}, QDir::Dirs | QDir::NoSymLinks)) {
        const QString process = folder.fileName().mid(prefix.size()).section(u'-', 0, 0);
        if (folder.ownerId() == ::getuid() && !isRunning(process))
            QDir(folder.filePath()).removeRecursively();
    }
}

QString newName()
{
    removeLeftFolders();
    return place() + u'/' + prefix + QString::number(::getpid()) + QStringLiteral("-XXXXXX");
}

} // namespace

AccountFolder::AccountFolder()
    : m_folder(newName())
{}
