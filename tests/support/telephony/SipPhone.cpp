#include "SipPhone.h"

#include "EventGate.h"
#include "FreeUdpPort.h"
#include "SilentSound.h"

#include <QTcpServer>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

namespace {

constexpr int phonePatience = 30000; // milliseconds

quint16 freeTcpPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

} // namespace

SipPhone::SipPhone()
    : m_port(freeUdpPort())
{
    const quint16 controlPort = freeTcpPort();
    const QByteArray sound = m_folder.file("silence.wav");
    m_folder.addFile("silence.wav", silentSound());
    m_folder.addFile("contacts");
    QByteArray accounts;
    for (const char *number : {"1234", "12", "99", "1"})
        accounts += "<sip:" + QByteArray(number) + "@127.0.0.1:" + QByteArray::number(m_port) +
                    ">;regint=0;answermode=auto\n";
    m_folder.addFile("accounts", accounts);
    m_folder.addFile("config", "poll_method epoll\nnet_interface 127.0.0.1\nsip_listen 127.0.0.1:" +
                                   QByteArray::number(m_port) + "\naudio_source aufile," + sound +
                                   "\naudio_player nullplay,none\naudio_alert nullplay,none\n"
                                   "module_path /usr/lib/baresip/modules\nmodule g711.so\nmodule aufile.so\n"
                                   "module_tmp account.so\nmodule_app menu.so\nmodule_app ctrl_tcp.so\n"
                                   "ctrl_tcp_listen 127.0.0.1:" +
                                   QByteArray::number(controlPort) + '\n');
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    on(&m_control, &ControlConnection::opened, &m_control, [this] { m_isOpen = true; });
    on(&m_control, &ControlConnection::eventCame, &m_control,
       [this](const QString &type, bool, const QString &, const QString &detail) {
           if (type == QStringLiteral("CALL_ESTABLISHED"))
               m_isInCall = true;
           else if (type == QStringLiteral("CALL_CLOSED"))
               m_isInCall = false, ++m_endedCalls;
           else if (type == QStringLiteral("CALL_DTMF_START"))
               m_tones += detail;
       });
    m_process.start(QStringLiteral("baresip"), {QStringLiteral("-f"), m_folder.path()});
    m_control.open(controlPort, m_process.processId());
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_isOpen; }, phonePatience));
}

SipPhone::~SipPhone()
{
    m_process.kill();
    m_process.waitForFinished(phonePatience);
}

QString SipPhone::address() const
{
    return QStringLiteral("127.0.0.1:") + QString::number(m_port);
}

void SipPhone::hangUp()
{
    m_control.send(QStringLiteral("hangup"), {}, {});
}

void SipPhone::call(const QString &address)
{
    m_control.send(QStringLiteral("dial"), address, {});
}
