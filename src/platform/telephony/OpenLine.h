#pragma once

#include "LineLimits.h"

#include <QTimer>

class LineMessageQueue;
class PhoneNumber;
class TelephoneLine;

/// A line that has been opened, and the call on it: turns what the line reports into messages of the line
/// service, in an order that does not depend on the kind of line. Each request has its reply, and a call that
/// has been accepted ends with Disconnected and Idle, even if the line no longer answers.
class OpenLine : public QObject
{
    Q_OBJECT

public:
    /// What messages say of the line.
    struct Address
    {
        quint32 device;
        quintptr instance;
    };

    /// \a line is open.
    OpenLine(TelephoneLine &line, const Address &address, LineMessageQueue &messages,
             const LineLimits &limits);
    /// Closes the line.
    ~OpenLine() override;

    // These return a LineError or 0; \a request identifies the request, to which a reply comes after a 0.
    qint32 dial(const PhoneNumber &number, qint32 request);
    qint32 drop(qint32 request);
    qint32 sendTones(const QString &digits);

private:
    enum class State {
        NoCall,
        Requested, ///< the line has not accepted the call yet
        Dialling,
        Connected,
        GivingUp,     ///< nobody has answered, and the line is hanging up
        Dropping,     ///< the line is hanging up because of a request
        Disconnected, ///< the far end is gone, and the call waits for its drop
    };

    void accepted();
    void refused(qint32 error);
    void connected();
    void ended();
    void limitReached();

    void hangUp(State state);
    void reportEnd();
    void finishDrop();
    void reply(qint32 request, qint32 result);
    void report(quint32 callState);

    TelephoneLine &m_line;
    Address m_address;
    LineMessageQueue &m_messages;
    LineLimits m_limits;
    QTimer m_limit;
    State m_state = State::NoCall;
    qint32 m_dialRequest = 0;
    qint32 m_dropRequest = 0;
};
