#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantList>

/// The service of the system bus that has the mobile modems.
namespace ModemManager {

inline const QString service = QStringLiteral("org.freedesktop.ModemManager1");
inline const QString rootPath = QStringLiteral("/org/freedesktop/ModemManager1");
inline const QString objectManager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
inline const QString modemInterface = service + QStringLiteral(".Modem");
inline const QString voiceInterface = modemInterface + QStringLiteral(".Voice");
inline const QString callInterface = service + QStringLiteral(".Call");

QDBusConnection bus();

/// A call of \a method that does not start the service.
QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments = {});

} // namespace ModemManager
