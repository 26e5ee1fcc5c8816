#pragma once

#include <QDBusVariant>
#include <QThread>

/// The desktop's settings portal, as far as light and dark go, on a thread and a connection of its
/// own: the suite waits for its answer.
class StandInPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit StandInPortal(uint scheme);
    ~StandInPortal() override;

    void turnTo(uint scheme);

public Q_SLOTS:
    QDBusVariant Read(const QString &nameSpace, const QString &key) const;

private:
    static void announce(const QString &key, uint value);

    QThread m_thread;
    uint m_scheme;
};
