#pragma once

#include <QDBusMessage>
#include <QDBusVariant>
#include <QThread>

/// The desktop's settings portal, as far as light and dark go, on a thread and a connection of its
/// own: the suite waits for its answer.
class StandInPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    /// Answers \a delay milliseconds after the question.
    explicit StandInPortal(uint scheme, int delay = 0);
    ~StandInPortal() override;

    void turnTo(uint scheme);

public Q_SLOTS:
    QDBusVariant Read(const QString &nameSpace, const QString &key, const QDBusMessage &question);

private:
    static void announce(const QString &key, uint value);

    QThread m_thread;
    uint m_scheme;
    int m_delay;
};
