#pragma once

#include <QProcess>
#include <csignal>
#include <sys/prctl.h>

/// A session bus of the tests' own for the life of their process: Qt keeps its connection to the session's
/// bus, and a bus that ends earlier takes the process along.
class PrivateBus
{
public:
    static bool isRunning()
    {
        static const auto *bus = new PrivateBus;
        return bus->m_daemon.state() == QProcess::Running;
    }

private:
    PrivateBus()
    {
        m_daemon.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead())
            qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
    }

    QProcess m_daemon;
};
