#include "Publisher.h"

#include "Paths.h"

#include <QSettings>

namespace {

QString host(const QString &key)
{
    const QSettings file(Paths::native(Paths::appPath() + QStringLiteral("\\publisher.ini")),
                         QSettings::IniFormat);
    return file.value(key).toString();
}

} // namespace

QString Publisher::webAddress(const QString &path)
{
    return QStringLiteral("http://") + host(QStringLiteral("hosts/web")) + path;
}

QString Publisher::updateAddress(const QString &path)
{
    return QStringLiteral("http://") + host(QStringLiteral("hosts/update")) + path;
}
