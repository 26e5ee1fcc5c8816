#include "MobileModem.h"

#include "ModemManager.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QVariantMap>
#include <algorithm>

namespace {

constexpr int listPatience = 1000; // milliseconds

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

QList<MobileModem> MobileModem::all()
{
    if (!ModemManager::bus().isConnected())
        return {};
    const QDBusMessage answer =
        ModemManager::bus().call(ModemManager::call(ModemManager::rootPath, ModemManager::objectManager,
                                                    QStringLiteral("GetManagedObjects")),
                                 QDBus::Block, listPatience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QStringLiteral("a{oa{sa{sv}}}"))
        return {};
    QList<MobileModem> found = modemsFrom(answer.arguments().constFirst().value<QDBusArgument>());
    std::sort(found.begin(), found.end(), [](const MobileModem &one, const MobileModem &other) {
        return one.identifier < other.identifier;
    });
    return found;
}
