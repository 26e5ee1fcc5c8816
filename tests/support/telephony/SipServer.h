#pragma once

#include "ScratchFolder.h"

#include <QProcess>
#include <QString>

/// A SIP server on 127.0.0.1 that follows one of the scenarios in tests/data/sip. It is a sip-tester.
class SipServer
{
public:
    /// \a scenario is the file's name without its ending. \a answer is the status with which it refuses
    /// calls.
    explicit SipServer(const QString &scenario, const QString &answer = QStringLiteral("486 Busy Here"));
    ~SipServer();
    SipServer(const SipServer &) = delete;
    SipServer &operator=(const SipServer &) = delete;

    /// "127.0.0.1:port".
    QString address() const;
    /// The requests so far, each a first line such as "INVITE sip:12@127.0.0.1:5060 SIP/2.0".
    QStringList requests() const;

private:
    ScratchFolder m_folder;
    quint16 m_port;
    QProcess m_process;
};
