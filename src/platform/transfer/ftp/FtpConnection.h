#pragma once

#include "FtpControl.h"
#include "LogOn.h"
#include "TlsContext.h"

#include <optional>

/// A connection that somebody is logged on by, and what was learned about its server.
class FtpConnection : public QObject
{
    Q_OBJECT

public:
    /// \a logOn names a server.
    explicit FtpConnection(const LogOn &logOn);

    /// Connects and logs on; loggedOn(), or failed() of the control connection follows.
    void logOn();
    bool isLoggedOn() const { return m_isLoggedOn; }

    FtpControl &control() { return m_control; }
    /// For data connections; null where they are not encrypted.
    const TlsContext *tls() const { return m_tls ? &*m_tls : nullptr; }
    const QByteArray &host() const { return m_logOn.address.host; }
    std::chrono::seconds timeout() const { return m_logOn.timeout; }

    /// Whether EPSV is worth a try; PASV is where it is not.
    bool usesEpsv() const { return m_usesEpsv; }
    /// PASV's reply has room for IPv4 addresses alone.
    bool canUsePasv() const;
    /// EPSV has failed. Returns false where nothing can replace it; elsewhere PASV can, which is used from
    /// now on where the failure \a isLasting.
    bool leaveEpsv(bool isLasting);

    bool knowsMlsd = true;         ///< until the server refuses it
    bool hasNarrowedFacts = false; ///< the server was asked to leave out the facts that are not used
    char type = '\0';              ///< of the data, "A" or "I", as last set; at first unknown

Q_SIGNALS:
    void loggedOn();

private:
    void greeted(const FtpReply &greeting);
    void authorized(const FtpReply &reply);
    void protectData();
    void sendUser();
    void answeredUser(const FtpReply &reply);
    void answeredPassword(const FtpReply &reply);
    void succeed();

    LogOn m_logOn;
    std::optional<TlsContext> m_tls;
    FtpControl m_control;
    bool m_isLoggedOn = false;
    bool m_usesEpsv = true;
};
