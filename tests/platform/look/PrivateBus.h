#pragma once

#include <QProcess>

/// A session bus of the test's own, used as the session's as long as this exists.
class PrivateBus
{
public:
    PrivateBus()
    {
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead())
            qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
    }
    ~PrivateBus()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    bool isRunning() const { return m_daemon.state() == QProcess::Running; }

private:
    QProcess m_daemon;
};
