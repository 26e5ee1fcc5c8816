#include "SipServer.h"

#include "Files.h"
#include "FreeUdpPort.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

namespace {

constexpr int serverPatience = 30000; // milliseconds

} // namespace

SipServer::SipServer(const QString &scenario, const QString &answer)
    : m_port(freeUdpPort())
{
    const QString file = m_folder.path() + QStringLiteral("/scenario.xml");
    QByteArray text = Files::read(QStringLiteral(QUILL_TEST_SIP) + u'/' + scenario + QStringLiteral(".xml"));
    Files::write(file, text.replace("ANSWER", answer.toLatin1()));
    m_process.setWorkingDirectory(m_folder.path());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(QStringLiteral("sipp"),
                    {QStringLiteral("-sf"), file, QStringLiteral("-i"), QStringLiteral("127.0.0.1"),
                     QStringLiteral("-p"), QString::number(m_port), QStringLiteral("-nostdin"),
                     QStringLiteral("-trace_msg"), QStringLiteral("-message_file"),
                     m_folder.path() + QStringLiteral("/messages")});
    EXPECT_TRUE(m_process.waitForStarted(serverPatience));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isFree(m_port); }, serverPatience));
}

SipServer::~SipServer()
{
    m_process.kill();
    m_process.waitForFinished(serverPatience);
}

QString SipServer::address() const
{
    return QStringLiteral("127.0.0.1:") + QString::number(m_port);
}

QStringList SipServer::requests() const
{
    QFile file(m_folder.path() + QStringLiteral("/messages"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll())
        .split(QRegularExpression(QStringLiteral("\r?\n")))
        .filter(QRegularExpression(QStringLiteral("^[A-Z]+ sip:\\S+ SIP/2.0$")));
}
