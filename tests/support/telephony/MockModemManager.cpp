#include "MockModemManager.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

namespace {

constexpr int mockPatience = 60000; // milliseconds
const QString service = QStringLiteral("org.freedesktop.ModemManager1");

bool isThere()
{
    return QDBusConnection::systemBus().interface()->isServiceRegistered(service);
}

} // namespace

MockModemManager::MockModemManager()
{
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    // The system's Python has python3-dbusmock.
    m_process.start(QStringLiteral("/usr/bin/python3"),
                    {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--system"),
                     QStringLiteral("--template"), QStringLiteral(QUILL_MODEM_MANAGER)});
    EXPECT_TRUE(QTest::qWaitFor(isThere, mockPatience));
}

MockModemManager::~MockModemManager()
{
    kill();
}

void MockModemManager::kill()
{
    m_process.kill();
    m_process.waitForFinished(mockPatience);
    EXPECT_TRUE(QTest::qWaitFor([] { return !isThere(); }, mockPatience));
}

void MockModemManager::freeze() const
{
    ::kill(pid_t(m_process.processId()), SIGSTOP);
}

QVariant MockModemManager::test(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/freedesktop/ModemManager1"), QStringLiteral("suite.Test"), method);
    message.setArguments(arguments);
    const QDBusMessage reply = QDBusConnection::systemBus().call(message, QDBus::Block, mockPatience);
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
    return reply.arguments().value(0);
}

void MockModemManager::addModem(const QString &identifier, const QString &model, bool hasVoice)
{
    test(QStringLiteral("AddModem"), {identifier, model, hasVoice});
}

void MockModemManager::unplug(const QString &identifier)
{
    test(QStringLiteral("Unplug"), {identifier});
}

void MockModemManager::changeCall(CallState state)
{
    test(QStringLiteral("ChangeCall"), {int(state)});
}

void MockModemManager::fail(const QString &method)
{
    test(QStringLiteral("Fail"), {method});
}

QString MockModemManager::seen()
{
    return test(QStringLiteral("Seen")).toStringList().join(QStringLiteral(", "));
}
