#include "FtpServer.h"

#include "FileNames.h"
#include "FtpServerSession.h"

#include <algorithm>
#include <gtest/gtest.h>

FtpServer::FtpServer(const QString &root, const QHostAddress &host)
    : m_root(FileNames::toBytes(root))
{
    EXPECT_TRUE(listen(host)) << qPrintable(errorString());
}

FtpServer::~FtpServer()
{
    for (const auto &session : std::as_const(m_sessions))
        delete session;
}

QString FtpServer::address() const
{
    const bool isIp6 = serverAddress().protocol() == QAbstractSocket::IPv6Protocol;
    return (isIp6 ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(serverAddress().toString())
        .arg(port());
}

QByteArrayList FtpServer::commands(const QByteArray &verb) const
{
    QByteArrayList found;
    for (const QByteArray &line : m_commands) {
        if (line == verb || line.startsWith(verb + ' '))
            found.append(line);
    }
    return found;
}

int FtpServer::openConnections() const
{
    return int(
        std::count_if(m_sessions.cbegin(), m_sessions.cend(), [](const auto &session) { return session; }));
}

bool FtpServer::isHolding() const
{
    return std::any_of(m_sessions.cbegin(), m_sessions.cend(),
                       [](const auto &session) { return session && session->isHeld(); });
}

void FtpServer::reply(const QByteArray &stage, const QByteArray &text)
{
    m_faults[stage].reply = text;
}

void FtpServer::keepSilent(const QByteArray &stage)
{
    m_faults[stage].isSilent = true;
}

void FtpServer::dropBefore(const QByteArray &stage)
{
    m_faults[stage].dropsBefore = true;
}

void FtpServer::dropAfter(const QByteArray &stage)
{
    m_faults[stage].dropsAfter = true;
}

void FtpServer::hold(const QByteArray &stage)
{
    m_faults[stage].isHeld = true;
}

void FtpServer::release()
{
    for (FtpFault &fault : m_faults)
        fault.isHeld = false;
    for (const auto &session : QList(m_sessions)) {
        if (session)
            session->release();
    }
}

void FtpServer::cutDataAt(qint64 bytes, bool all)
{
    m_cutAt = bytes;
    m_cutsAll = all;
}

void FtpServer::dropConnections(const QByteArray &text)
{
    for (const auto &session : QList(m_sessions)) {
        if (session)
            session->drop(text);
    }
}

void FtpServer::sendUnasked(const QByteArray &bytes)
{
    for (const auto &session : std::as_const(m_sessions)) {
        if (session)
            session->send(bytes);
    }
}

bool FtpServer::isDelivered() const
{
    return std::all_of(m_sessions.cbegin(), m_sessions.cend(),
                       [](const auto &session) { return !session || session->isDelivered(); });
}

void FtpServer::incomingConnection(qintptr socket)
{
    ++m_connections;
    m_sessions.removeAll(nullptr);
    m_sessions.append(new FtpServerSession(*this, socket));
}
