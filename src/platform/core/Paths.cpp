#include "Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <sys/stat.h>

namespace {

QString dataFolder()
{
    const QString beside = QCoreApplication::applicationDirPath();
    if (QDir(beside + QStringLiteral("/help")).exists())
        return beside;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' +
           Paths::applicationTitle;
}

QString userStateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
}

QString &replacedFolder()
{
    static QString path;
    return path;
}

} // namespace

QString Paths::appPath()
{
    static const QString path = dataFolder();
    return replacedFolder().isEmpty() ? path : replacedFolder();
}

void Paths::setAppPath(const QString &path)
{
    replacedFolder() = path;
}

QString Paths::native(const QString &name)
{
    QString path = name;
    return path.replace(u'\\', u'/');
}

QString Paths::stateFolder()
{
    return userStateFolder() + u'/' + applicationTitle;
}

void Paths::makeStateFolder()
{
    QDir().mkpath(userStateFolder());
    ::mkdir(QFile::encodeName(stateFolder()).constData(), 0700);
}
