#pragma once

#include "FtpJob.h"

/// A job with a data connection, which the server waits for (passive mode). It is done when the data has
/// ended and the server has confirmed that, in whichever order.
class FtpTransfer : public FtpJob
{
    Q_OBJECT

public:
    /// An upload that is not whole is aborted.
    ~FtpTransfer() override;

    void cleanUp() override;
    bool hasInput() const override;
    bool hasNewAcknowledgement() override;

protected:
    enum class Direction { Receive, Send };

    static constexpr qsizetype pieceSize = 262144; ///< of data that is moved at once

    explicit FtpTransfer(Direction direction);

    /// Opens a data connection, sends \a request and moves the data. done() follows.
    void transfer(const QByteArray &request);

    /// The next data received. A TransferFailure that it throws ends the data, and the job when the server's
    /// last reply is there; so with give().
    virtual void take(QByteArrayView bytes);
    /// The next data to send, none at the end.
    virtual QByteArray give();
    /// Goes on in another way after the server has refused the request, or returns false where the job fails.
    virtual bool recoverFrom(const FtpReply &refusal);
    /// All data was moved, and the server has confirmed it.
    virtual void done() = 0;

private:
    void openData();
    void answeredExtended(const FtpReply &reply);
    void leaveExtended(const TransferFailure &failure, bool isLasting);
    void askPlain();
    void answeredPlain(const FtpReply &reply);
    void connectData(quint16 port);
    void dataConnectFailed();
    void sendRequest();
    void answered(const FtpReply &reply);
    void beginData();
    void encrypt();
    void pump();
    void receive();
    void takeOver(qint64 count);
    void send();
    void refill();
    void encryptFailed(const TransferFailure &failure);
    void endData(bool isBroken = false);
    void closeData();
    void settle();

    Direction m_direction;
    QByteArray m_request;
    SocketStream m_data;
    QByteArray m_buffer;
    qsizetype m_sent = 0;       ///< of the buffer
    quint64 m_acknowledged = 0; ///< bytes when data was last sent, or hasNewAcknowledgement() asked
    std::optional<FtpReply> m_lastReply;
    bool m_isExtended = false;    ///< the port was asked for by EPSV
    bool m_isUnreachable = false; ///< EPSV's port was
    bool m_hasBegun = false;
    bool m_hasEnded = false;
    bool m_isBroken = false; ///< the data connection ended in the middle
};
