#include "TransferProbe.h"

#include "EventGate.h"
#include "FtpServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr int hangMs = 60000;

} // namespace

LogOn TransferProbe::logOnTo(const FtpServer &server)
{
    LogOn logOn;
    logOn.address = ServerAddress::parse(server.address());
    logOn.user = QStringLiteral("tester");
    logOn.password = QStringLiteral("secret");
    return logOn;
}

TransferProbe::TransferProbe(const FtpServer &server)
    : TransferProbe(server.address(), logOnTo(server).user, logOnTo(server).password)
{}

TransferProbe::TransferProbe(const QString &address, const QString &user, const QString &password)
    : m_session(std::make_unique<InternetTransfer>())
{
    m_session->setProtocol(InternetTransfer::icFTP);
    m_session->setRemoteHost(address);
    m_session->setUserName(user);
    m_session->setPassword(password);
    on(m_session.get(), &InternetTransfer::StateChanged, m_session.get(),
       [this](int state) { m_states.append(state); });
}

int TransferProbe::run(const QString &command)
{
    m_session->Execute({}, command);
    wait();
    return m_states.isEmpty() ? 0 : m_states.constLast();
}

int TransferProbe::codeOf(const QString &command)
{
    const int last = run(command);
    EXPECT_EQ(last,
              m_session->ResponseCode() == 0 ? InternetTransfer::ResponseCompleted : InternetTransfer::Error);
    return m_session->ResponseCode();
}

void TransferProbe::wait()
{
    waitFor([this] { return !m_session->StillExecuting(); });
}

void TransferProbe::waitFor(const std::function<bool()> &condition)
{
    QDeadlineTimer hangs(hangMs);
    QTimer wakes;
    wakes.start(hangMs);
    while (!condition() && !hangs.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(condition());
}

QString TransferProbe::response(int size)
{
    QString all;
    for (QString part = m_session->GetChunk(size); !part.isEmpty(); part = m_session->GetChunk(size)) {
        EXPECT_LE(part.size(), size);
        all += part;
    }
    return all;
}

QStringList TransferProbe::rows()
{
    QString text = response();
    if (text.isEmpty())
        return {};
    EXPECT_TRUE(text.endsWith(QStringLiteral("\r\n")));
    text.chop(2);
    return text.split(QStringLiteral("\r\n"));
}
