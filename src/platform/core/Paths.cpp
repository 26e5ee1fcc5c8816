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

} // namespace

QString Paths::appPath()
{
    static const QString path = dataFolder();
    return path;
}

QString Paths::native(const QString &name)
{
    QString path = name;
    return path.replace(u'\\', u'/');
}
