#include "ModemManager.h"

QDBusConnection ModemManager::bus()
{
    return QDBusConnection::systemBus();
}

QDBusMessage ModemManager::call(const QString &path, const QString &interface, const QString &method,
                                const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}
