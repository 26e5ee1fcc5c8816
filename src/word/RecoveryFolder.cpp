#include "RecoveryFolder.h"

#include "Paths.h"

#include <QDateTime>
#include <QDir>
#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString copyName = QStringLiteral("copy-XXXXXX");

QString stateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
}

QString suiteFolder()
{
    return stateFolder() + u'/' + Paths::applicationTitle;
}

void makeFolder()
{
    QDir().mkpath(stateFolder());
    for (const QString &folder : {suiteFolder(), RecoveryFolder::path()})
        ::mkdir(QFile::encodeName(folder).constData(), 0700);
}

/// Held while copies are made or looked for, so that no process takes one that is just being made.
FileLock lockFolder()
{
    return FileLock(RecoveryFolder::path() + QStringLiteral("/lock"));
}

/// The paths of all copies, also of those of which nothing but a lock or half a write is left.
QStringList copies()
{
    const QDir folder(RecoveryFolder::path());
    QStringList paths;
    for (const QString &name : folder.entryList({QStringLiteral("copy-??????*")}, QDir::Files))
        paths.append(folder.filePath(name.left(copyName.size())));
    paths.removeDuplicates();
    std::stable_sort(paths.begin(), paths.end(), [](const QString &a, const QString &b) {
        return QFileInfo(a).lastModified() < QFileInfo(b).lastModified();
    });
    return paths;
}

} // namespace

QString RecoveryFolder::path()
{
    return suiteFolder() + QStringLiteral("/recovery");
}

std::unique_ptr<RecoveryCopy> RecoveryFolder::makeCopy()
{
    makeFolder();
    const FileLock folder = lockFolder();
    QByteArray name = QFile::encodeName(path() + u'/' + copyName);
    const int file = folder.isHeld() ? ::mkstemp(name.data()) : -1; // its mode, 0600, is kept by each write
    if (file < 0)
        return nullptr;
    ::close(file);
    auto copy = std::make_unique<RecoveryCopy>(QFile::decodeName(name));
    return copy->isHeld() ? std::move(copy) : nullptr;
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryFolder::takeOrphans()
{
    std::vector<std::unique_ptr<RecoveryCopy>> orphans;
    if (!QFileInfo::exists(path()))
        return orphans;
    const FileLock folder = lockFolder();
    if (!folder.isHeld())
        return orphans;
    for (const QString &name : copies()) {
        auto copy = std::make_unique<RecoveryCopy>(name);
        if (!copy->isHeld())
            continue;
        if (QFileInfo(name).size() > 0)
            orphans.push_back(std::move(copy));
        else
            copy->remove();
    }
    return orphans;
}
