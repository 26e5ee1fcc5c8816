#pragma once

#include "LogOn.h"
#include "TransferState.h"

#include <QObject>
#include <QString>
#include <memory>

class TransferSession;

/// A session with an Internet server, controlled by text commands. It runs one command at a time in the
/// background of the event loop and reports by StateChanged. It keeps one connection: the first command logs
/// on, the following ones act in the server's current folder.
///
/// - DIR lists the current folder. Its response has a row for each entry, ended by CR LF; a folder's name has
///   a "/" behind it. "." and ".." are rows where the server sends them.
/// - CD "name" and CDUP change the current folder.
/// - GET "name" "folder\local" receives a file. What exists locally is never overwritten, and no part of a
///   file appears under its name.
/// - PUT "folder\local" "name" sends a file and overwrites what the server has.
/// - SIZE "name" asks for the size of a file. The response is the number of bytes in decimal.
/// - DELETE "name" removes a file, RMDIR "name" a folder. MKDIR "name" makes a folder.
/// - RENAME "name" "name" renames a file or a folder.
/// - CLOSE ends the connection.
///
/// Names are as FileNames has them. They may hold quotation marks, and a folder's may end in "/".
///
/// A connection that is lost stays lost: commands end with 12030, and nothing is sent, until Cancel or CLOSE.
/// After these the next command logs on again. So no command that was meant for one folder runs in another.
class InternetTransfer : public QObject
{
    Q_OBJECT

public:
    enum ProtocolNumber { icFTP = 2 };

    using State = TransferState::State;
    using enum TransferState::State;

    explicit InternetTransfer(QObject *parent = nullptr);
    /// As Cancel.
    ~InternetTransfer() override;

    /// icFTP, the one protocol there is. Throws RuntimeError 380 for any other.
    int Protocol() const { return icFTP; }
    void setProtocol(int protocol);

    /// "host", "host:port", or an address: "ftp://host:port/", or "ftps://host:port/" for a server that has
    /// to encrypt both control and data connection and to prove its name. An IPv6 address is in brackets;
    /// empty text is no server. This and the following properties take effect with the next log-on.
    /// Throws RuntimeError 12005 or 12006 where \a server cannot be read; then there is no server.
    QString RemoteHost() const { return m_server; }
    void setRemoteHost(const QString &server);

    QString UserName() const { return m_logOn.user; }
    void setUserName(const QString &name) { m_logOn.user = name; }

    QString Password() const { return m_logOn.password; }
    void setPassword(const QString &password) { m_logOn.password = password; }

    /// After how many seconds without a sign of the server the next commands end with 12002; 60 at first.
    /// Only DIR has a limit for the whole command: ten minutes, and a second more for each thousand bytes.
    /// Throws RuntimeError 380 for less than 1.
    int RequestTimeout() const { return int(m_logOn.timeout.count()); }
    void setRequestTimeout(int seconds);

    /// A file of PEM certificates to trust in place of the system's, for ftps; empty for the system's.
    QString TrustedAuthorities() const { return m_logOn.authorities; }
    void setTrustedAuthorities(const QString &file) { m_logOn.authorities = file; }

    /// Starts \a command and returns. The response and the code of the command before are discarded. Whatever
    /// becomes of it is reported by StateChanged, never before this function has returned:
    /// 12030 where there is neither a connection nor a server, 87 for a command or a name that cannot be
    /// sent. Throws RuntimeError, with nothing started, for what only the caller can get wrong: 12110 while a
    /// command runs, 5 where \a address is not empty.
    void Execute(const QString &address, const QString &command);

    /// True from Execute until all handlers of the command's last state have returned, or until Cancel. So a
    /// handler that runs pending events while it reads the response cannot lose the response to another
    /// command.
    bool StillExecuting() const;

    /// Ends the command and the connection at once, without waiting for the server. No state of the command
    /// is reported any more, a file that was being received is removed, and the response is empty.
    /// ResponseCode and ResponseInfo stay. May be called at any time, also by a handler of StateChanged.
    void Cancel();

    /// The next \a size characters of the response, fewer at its end; empty behind it.
    QString GetChunk(int size);

    /// Number and text of the last command's error; 0 and empty while there is none. With 12003 the text is
    /// the server's reply, its lines separated by CR LF. It is text from outside.
    int ResponseCode() const;
    QString ResponseInfo() const;

Q_SIGNALS:
    /// A TransferState, from the event loop. A handler may run pending events, in which the following states
    /// are reported, and it may call Cancel or delete this object.
    void StateChanged(int state);

private:
    QString m_server; ///< as it was set
    LogOn m_logOn;
    std::unique_ptr<TransferSession> m_session;
};
