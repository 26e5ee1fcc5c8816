#pragma once

#include "ScratchFolder.h"

#include <QProcess>
#include <QString>

/// One of Debian's FTP servers on 127.0.0.1, which serves a folder of its own until this object is deleted.
/// scripts/unpack-servers.sh fetches the servers; without it they are missing.
class RealFtpServer
{
public:
    /// \a name is that of ftp_server.py. Fill root() before start().
    explicit RealFtpServer(const QString &name);
    ~RealFtpServer();

    /// Starts the server with ftp_server.py's \a options. All in root() is its own from then on. False where
    /// it is missing.
    bool start(const QStringList &options = {});
    /// Why it is missing.
    QString reason() const { return m_reason; }

    /// What the server serves.
    const ScratchFolder &root() const { return m_root; }
    /// "127.0.0.1:port".
    QString address() const { return m_address; }
    QString user() const { return m_user; }
    QString password() const { return m_password; }
    /// The certificate of the authority, with the option "--tls".
    QString authority() const;

    /// Ends all sessions, as a server does that is stopped; it can be connected to again.
    void endSessions();

private:
    QByteArray readLine();

    QString m_name;
    ScratchFolder m_root;
    ScratchFolder m_state; ///< its configuration
    QProcess m_process;
    QString m_reason;
    QString m_address;
    QString m_user;
    QString m_password;
};
