#include "OpenLine.h"

#include "EventGate.h"
#include "LineMessageQueue.h"
#include "TelephoneLine.h"

OpenLine::OpenLine(TelephoneLine &line, const Address &address, LineMessageQueue &messages,
                   const LineLimits &limits)
    : m_line(line)
    , m_address(address)
    , m_messages(messages)
    , m_limits(limits)
{
    m_limit.setSingleShot(true);
    on(&m_limit, &QTimer::timeout, this, &OpenLine::limitReached);
    on(&line, &TelephoneLine::accepted, this, &OpenLine::accepted);
    on(&line, &TelephoneLine::refused, this, &OpenLine::refused);
    on(&line, &TelephoneLine::connected, this, &OpenLine::connected);
    on(&line, &TelephoneLine::ended, this, &OpenLine::ended);
}

OpenLine::~OpenLine()
{
    m_line.close();
}

qint32 OpenLine::dial(const PhoneNumber &number, qint32 request)
{
    if (m_state != State::NoCall)
        return LineError::CallUnavailable;
    m_state = State::Requested;
    m_dialRequest = request;
    m_limit.start(m_limits.accept);
    const qint32 error = m_line.dial(number);
    if (error != LineError::None) {
        m_state = State::NoCall;
        m_limit.stop();
    }
    return error;
}

qint32 OpenLine::drop(qint32 request)
{
    switch (m_state) {
    case State::NoCall:
    case State::Dropping:
        return LineError::InvalidCallState;
    case State::Disconnected:
        m_state = State::NoCall;
        reply(request, LineError::None);
        report(LineMessage::Idle);
        return LineError::None;
    case State::Requested:
        reply(m_dialRequest, LineError::None);
        [[fallthrough]];
    case State::Dialling:
    case State::Connected:
        m_dropRequest = request;
        hangUp(State::Dropping);
        return LineError::None;
    case State::GivingUp:
        m_dropRequest = request;
        m_state = State::Dropping;
        return LineError::None;
    }
    Q_UNREACHABLE();
}

qint32 OpenLine::sendTones(const QString &digits)
{
    if (m_state != State::Connected)
        return LineError::InvalidCallState;
    if (!PhoneNumber::areTones(digits))
        return LineError::InvalidDigits;
    m_line.sendTones(digits);
    return LineError::None;
}

void OpenLine::accepted()
{
    if (m_state != State::Requested)
        return;
    m_state = State::Dialling;
    m_limit.start(m_limits.answer);
    reply(m_dialRequest, LineError::None);
}

void OpenLine::refused(qint32 error)
{
    if (m_state != State::Requested) {
        ended();
        return;
    }
    m_state = State::NoCall;
    m_limit.stop();
    reply(m_dialRequest, error);
}

void OpenLine::connected()
{
    if (m_state != State::Dialling)
        return;
    m_state = State::Connected;
    m_limit.stop();
    report(LineMessage::Connected);
}

void OpenLine::ended()
{
    switch (m_state) {
    case State::Requested:
        refused(LineError::OperationFailed);
        break;
    case State::Dialling:
    case State::Connected:
    case State::GivingUp:
        reportEnd();
        break;
    case State::Dropping:
        finishDrop();
        break;
    case State::NoCall:
    case State::Disconnected:
        break;
    }
}

void OpenLine::limitReached()
{
    if (m_state == State::Dialling) {
        hangUp(State::GivingUp);
        return;
    }
    m_line.close(); // it does not answer
    ended();
}

void OpenLine::hangUp(State state)
{
    m_state = state;
    m_limit.start(m_limits.hangUp);
    m_line.hangUp();
}

void OpenLine::reportEnd()
{
    m_state = State::Disconnected;
    m_limit.stop();
    report(LineMessage::Disconnected);
}

void OpenLine::finishDrop()
{
    m_state = State::NoCall;
    m_limit.stop();
    reply(m_dropRequest, LineError::None);
    report(LineMessage::Disconnected);
    report(LineMessage::Idle);
}

void OpenLine::reply(qint32 request, qint32 result)
{
    m_messages.post(
        {m_address.device, LineMessage::Reply, m_address.instance, quint32(request), quint32(result), 0});
}

void OpenLine::report(quint32 callState)
{
    m_messages.post({m_address.device, LineMessage::CallState, m_address.instance, callState, 0, 0});
}
