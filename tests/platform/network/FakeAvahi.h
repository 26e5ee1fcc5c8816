#pragma once

#include "PrivateSystemBus.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QList>
#include <QMap>
#include <QStringList>

/// The service Avahi on the private bus, as far as the search for computers needs it.
class FakeAvahi : public QDBusVirtualObject
{
public:
    struct Service
    {
        QString name;
        QString host; ///< empty where it cannot be resolved
        QString address;
    };

    FakeAvahi();
    ~FakeAvahi() override;

    QMap<QString, QList<Service>> services; ///< by type
    bool dies = false;                      ///< when it has announced the services
    bool fails = false;                     ///< instead of saying that all are told
    QStringList calls;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void start(const QString &browser);
    void resolve(const QDBusMessage &message);

    PrivateSystemBus m_private;
    QDBusConnection m_bus;
    QStringList m_types; ///< of the browsers, by their numbers
};
