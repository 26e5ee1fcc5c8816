#include "MobileModem.h"

#include "ModemManager.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QVariantMap>
#include <algorithm>

namespace {

using Interfaces = QMap<QString, QVariantMap>;

MobileModem modemFrom(const QString &path, const Interfaces &interfaces)
{
    const QVariantMap modem = interfaces.value(ModemManager::modemInterface);
    MobileModem found;
    found.path = path;
    found.identifier = modem.value(QStringLiteral("EquipmentIdentifier")).toString();
    found.maker = modem.value(QStringLiteral("Manufacturer")).toString();
    found.model = modem.value(QStringLiteral("Model")).toString();
    found.number = modem.value(QStringLiteral("OwnNumbers")).toStringList().value(0);
    found.network = interfaces.value(ModemManager::modemInterface + QStringLiteral(".Modem3gpp"))
                        .value(QStringLiteral("OperatorName"))
                        .toString();
    found.hasVoice = interfaces.contains(ModemManager::voiceInterface);
    return found;
}

QList<MobileModem> modemsFrom(const QDBusArgument &objects)
{
    QList<MobileModem> modems;
    objects.beginMap();
    while (!objects.atEnd()) {
        QDBusObjectPath path;
        Interfaces interfaces;
        objects.beginMapEntry();
        objects >> path >> interfaces;
        objects.endMapEntry();
        if (interfaces.contains(ModemManager::modemInterface))
            modems.append(modemFrom(path.path(), interfaces));
    }
    objects.endMap();
    return modems;
}

} // namespace

QList<MobileModem> MobileModem::listFrom(const QDBusMessage &objects)
{
    if (objects.type() != QDBusMessage::ReplyMessage ||
        objects.signature() != QStringLiteral("a{oa{sa{sv}}}"))
        return {};
    QList<MobileModem> found = modemsFrom(objects.arguments().constFirst().value<QDBusArgument>());
    std::sort(found.begin(), found.end(), [](const MobileModem &one, const MobileModem &other) {
        return one.identifier < other.identifier;
    });
    return found;
}
