#pragma once

#include "FtpFault.h"

#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QPointer>
#include <QSslConfiguration>
#include <QTcpServer>
#include <functional>

class FtpServerSession;

/// An FTP server on 127.0.0.1, or on ::1, that serves a folder and makes the faults that a test asks for. It
/// runs in the test's own event loop.
///
/// A fault belongs to a stage: a verb ("RETR"), Greeting, or EndOfData, which is the last reply of a
/// transfer. It happens each time until it is replaced or forgotten.
class FtpServer : public QTcpServer
{
public:
    static constexpr const char *Greeting = "greeting";
    static constexpr const char *EndOfData = "end of data";

    /// Serves \a root, a native path. Users are "tester" with the password "secret", and "anonymous".
    explicit FtpServer(const QString &root, const QHostAddress &host = QHostAddress::LocalHost);
    ~FtpServer() override;

    quint16 port() const { return serverPort(); }
    /// "127.0.0.1:port" or "[::1]:port", as a user types it.
    QString address() const;

    /// Every line that a client sent, on whatever connection, without its line end.
    const QByteArrayList &commands() const { return m_commands; }
    /// Those that begin with \a verb.
    QByteArrayList commands(const QByteArray &verb) const;
    void forgetCommands() { m_commands.clear(); }
    /// How many control connections were accepted so far.
    int connections() const { return m_connections; }
    /// How many of them are open, as far as the server has noticed.
    int openConnections() const;
    /// True when a stage is held up.
    bool isHolding() const;

    void reply(const QByteArray &stage, const QByteArray &text);
    void keepSilent(const QByteArray &stage);
    void dropBefore(const QByteArray &stage);
    void dropAfter(const QByteArray &stage);
    void hold(const QByteArray &stage);
    void forgetFault(const QByteArray &stage) { m_faults.remove(stage); }
    /// Lets what is held up happen, and holds nothing more.
    void release();
    /// \a step runs once, as an event of its own, when the next client reaches \a stage. The client is held
    /// up meanwhile, and behind it too where the stage is held.
    void during(const QByteArray &stage, const std::function<void()> &step) { m_steps[stage] = step; }

    /// MLSD, or EPSV, is an unknown command.
    void refuseMlsd() { reply("MLSD", "500 Unknown command."); }
    void refuseEpsv() { reply("EPSV", "500 Unknown command."); }
    /// The address and the port that PASV, and the port that EPSV answers in place of the right ones.
    void setPassiveHost(const QByteArray &commas) { m_passiveHost = commas; }
    void setPassivePort(quint16 port) { m_passivePort = port; }
    /// What LIST and MLSD send in place of the folder's entries.
    void setListing(const QByteArray &bytes) { m_listing = bytes; }
    /// LIST and MLSD send \a line again and again, without an end.
    void setEndlessListing(const QByteArray &line) { m_endlessLine = line + "\r\n"; }
    /// Lists begin with "." and "..".
    void setDotRows(bool shown) { m_dotRows = shown; }
    /// After so many bytes of data, in either direction, the data connection is closed; with \a all the
    /// control connection too, otherwise EndOfData follows. -1 for never.
    void cutDataAt(qint64 bytes, bool all);
    /// The last reply of a transfer is sent before its data.
    void setReplyBeforeData(bool before) { m_replyBeforeData = before; }
    /// Encrypted data that the server sends ends as the connection does, without TLS's notice of its end.
    void setEndsAbruptly(bool abruptly) { m_endsAbruptly = abruptly; }
    /// Closes all connections, or with \a text sends it first on those of control.
    void dropConnections(const QByteArray &text = {});
    /// Sends \a bytes on each control connection, without having been asked.
    void sendUnasked(const QByteArray &bytes);
    /// All that was sent on control connections can be read at their other ends.
    bool isDelivered() const;
    /// AUTH TLS is understood from now on, with this certificate.
    void setTls(const QSslConfiguration &configuration) { m_tls = configuration; }

protected:
    void incomingConnection(qintptr socket) override;

private:
    friend class FtpServerSession;

    FtpFault fault(const QByteArray &stage) const { return m_faults.value(stage); }

    QByteArray m_root;
    QByteArrayList m_commands;
    QHash<QByteArray, FtpFault> m_faults;
    QHash<QByteArray, std::function<void()>> m_steps;
    QList<QPointer<FtpServerSession>> m_sessions;
    QSslConfiguration m_tls;
    QByteArray m_passiveHost = "127,0,0,1";
    QByteArray m_listing;
    QByteArray m_endlessLine;
    qint64 m_cutAt = -1;
    int m_connections = 0;
    quint16 m_passivePort = 0; // 0 for the right one
    bool m_cutsAll = false;
    bool m_dotRows = false;
    bool m_replyBeforeData = false;
    bool m_endsAbruptly = false;
};
