#include "Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {

QString dataFolder()
{
    const QString beside = QCoreApplication::applicationDirPath();
    if (QDir(beside + QStringLiteral("/help")).exists())
        return beside;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' +
           Paths::applicationTitle;
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
