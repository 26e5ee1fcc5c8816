#include "RealFtpServer.h"

#include <gtest/gtest.h>

namespace {

constexpr int patienceMs = 30000;

} // namespace

RealFtpServer::RealFtpServer(const QString &name)
    : m_name(name)
{}

RealFtpServer::~RealFtpServer()
{
    m_process.closeWriteChannel();
    EXPECT_TRUE(m_process.state() == QProcess::NotRunning || m_process.waitForFinished(patienceMs));
}

bool RealFtpServer::start(const QStringList &options)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The system's Python has python3-pyftpdlib.
    m_process.start(QStringLiteral("/usr/bin/python3"),
                    QStringList{QStringLiteral(QUILL_FTP_SERVER), m_name, m_root.path(), m_state.path()} +
                        options);
    const QByteArray line = readLine();
    if (line.startsWith("missing:")) {
        m_reason = QString::fromUtf8(line);
        return false;
    }
    const QStringList words = QString::fromUtf8(line).split(u' ');
    EXPECT_EQ(words.size(), 3) << line.constData();
    m_address = QStringLiteral("127.0.0.1:") + words.value(0);
    m_user = words.value(1);
    m_password = words.value(2);
    return true;
}

QString RealFtpServer::authority() const
{
    return m_state.path() + QStringLiteral("/ca.pem");
}

void RealFtpServer::endSessions()
{
    m_process.write("end\n");
    EXPECT_EQ(readLine(), "ended");
}

QByteArray RealFtpServer::readLine()
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead(patienceMs)) {
    }
    return m_process.readLine().trimmed();
}
