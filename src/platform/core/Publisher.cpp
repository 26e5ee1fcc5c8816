#include "Publisher.h"

#include "Paths.h"

#include <QSettings>

namespace {

QString entry(const QString &key)
{
    const QSettings file(Paths::native(Paths::appPath() + QStringLiteral("\\publisher.ini")),
                         QSettings::IniFormat);
    return file.value(key).toStringList().join(u','); // a comma divides, and belongs to an address
}

} // namespace

QString Publisher::webAddress(const QString &path)
{
    return QStringLiteral("http://") + entry(QStringLiteral("hosts/web")) + path;
}

QString Publisher::page(const QString &name)
{
    const QString address = entry(QStringLiteral("pages/") + name);
    return address.startsWith(u'/') ? webAddress(address) : address;
}

QString Publisher::updateAddress(const QString &path)
{
    return QStringLiteral("http://") + entry(QStringLiteral("hosts/update")) + path;
}
