#include "PrivateSystemBus.h"

#include <QProcess>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

namespace {

constexpr int busPatience = 30000; // milliseconds

/// To the end of this process. What refers to it is kept, so that it is no leak.
[[gnu::used]] QProcess *daemon = nullptr;

bool start()
{
    daemon = new QProcess;
    daemon->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    daemon->start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                  QStringLiteral("--print-address")});
    while (!daemon->canReadLine() && daemon->waitForReadyRead(busPatience)) {
    }
    const QByteArray address = daemon->readLine().trimmed();
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
    return !address.isEmpty();
}

} // namespace

PrivateSystemBus::PrivateSystemBus()
{
    static const bool isStarted = start();
    EXPECT_TRUE(isStarted);
}
