#pragma once

#include "FtpReplyReader.h"
#include "ServerAddress.h"
#include "SocketStream.h"

#include <functional>

/// The control connection: sends one request at a time and hands its reply to whoever asked. It does not know
/// what the requests mean.
class FtpControl : public QObject
{
    Q_OBJECT

public:
    /// Gets the last reply to a request. A TransferFailure that it throws ends the connection.
    using Handler = std::function<void(const FtpReply &)>;
    using Step = std::function<void()>;

    explicit FtpControl(QObject *parent = nullptr);
    /// As close().
    ~FtpControl() override;

    /// The server's greeting follows, for which awaitReply() is called before. All addresses of the host are
    /// tried within \a time.
    void open(const ServerAddress &address, std::chrono::milliseconds time);
    /// encrypted() follows. Throws TransferFailure 12152 where the server has sent something that nobody
    /// asked for.
    void encrypt(const TlsContext &context, const QByteArray &host);

    void awaitReply(Handler handler, Step preliminary = {});
    /// Sends \a request, which has no line end in it. \a preliminary is run where the server says that it
    /// has begun, before its last reply. Byte 0xFF is sent as it is: pure-ftpd and vsftpd take
    /// it for part of a name, and two of them for two. proftpd does so too, except before a byte from 0xF0
    /// on, where it reads a Telnet command; names with that are out of reach there.
    void ask(const QByteArray &request, Handler handler, Step preliminary = {});

    /// From now on a connection that is gone, or that the server says it closes, is reported as lost. Before
    /// somebody is logged on, nothing is lost.
    void setLoggedOn();

    /// The reply that is awaited, if any, is for nobody any more.
    void forgetHandlers();

    /// Closes at once, and sends QUIT before where no reply is awaited. No signal follows.
    void close();

    const SocketStream &stream() const { return m_stream; }
    /// The server has greeted.
    bool isGreeted() const { return m_isGreeted; }

Q_SIGNALS:
    void encrypted();
    /// A TransferState.
    void stateChanged(int state);
    /// Something came from the server, or was taken by it.
    void heard();
    /// The connection has ended, and is closed by now.
    void failed(const TransferFailure &failure);

private:
    void connectTo(const SocketAddresses &addresses, std::chrono::milliseconds time);
    void startReading();
    void send();
    void discardInput();
    bool receive();
    void takeReplies();
    void dispatch(const FtpReply &reply);
    void fail(const TransferFailure &failure);
    void guarded(const Step &step);

    SocketStream m_stream;
    FtpReplyReader m_reader;
    QByteArray m_request; ///< what of it has not been sent
    Handler m_handler;
    Step m_preliminary;
    int m_codeIfGone;  ///< for a connection that is gone
    int m_codeIfEnded; ///< for one that the server says it closes
    bool m_isGreeted = false;
    bool m_isReceiving = false; ///< the reply has begun
    qint64 m_unanswered = 0;    ///< bytes received since the request or its reply
};
