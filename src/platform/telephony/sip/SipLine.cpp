#include "SipLine.h"

#include "EventGate.h"

#include <utility>

namespace {

constexpr int watchTime = 5000; // milliseconds; a process that does not answer for so long hangs

const QString dialToken = QStringLiteral("dial");
const QString registrationToken = QStringLiteral("registration");
const QString watchToken = QStringLiteral("watch");
const QString incomingToken = QStringLiteral("incoming");
const QString hangUpCommand = QStringLiteral("hangup");
const QString statusCommand = QStringLiteral("reginfo");

// The colors in which baresip writes the state of a registration, and its words for it.
const QString registered = QStringLiteral("\x1B[32mOK");
const QString notRegistered = QStringLiteral("\x1B[31mERR");

} // namespace

SipLine::SipLine(const LineSettings &settings)
    : m_settings(settings)
    , m_account(settings)
{
    on(&m_process, &BaresipProcess::ended, this, [this] { fail(LineError::OperationFailed); });
    on(&m_control, &ControlConnection::opened, this, &SipLine::controlOpened);
    on(&m_control, &ControlConnection::replied, this, &SipLine::replied);
    on(&m_control, &ControlConnection::eventCame, this, &SipLine::eventCame);
    on(&m_control, &ControlConnection::lost, this, [this] { fail(LineError::OperationFailed); });
    on(&m_tones, &ToneSequence::toneDue, this, &SipLine::sendTone);
    on(&m_watch, &QTimer::timeout, this, &SipLine::checkProcess);
}

SipLine::~SipLine()
{
    close();
}

/// A line without a server that puts calls through to telephones is for computers only, and says so by its
/// name.
LineTraits SipLine::traits() const
{
    LineTraits traits;
    traits.name = (m_settings.registers ? QStringLiteral("SIP line ") : QStringLiteral("IPCONF line ")) +
                  m_settings.label;
    traits.provider = QStringLiteral("SIP, ") + m_settings.user + u'@' + m_settings.server;
    traits.switchInfo = m_settings.server;
    traits.identity = QStringLiteral("sip ") + m_settings.user + u'@' + m_settings.server;
    traits.icon = QStringLiteral("call-start");
    return traits;
}

qint32 SipLine::open()
{
    if (!BaresipProcess::isInstalled())
        return LineError::NoDriver;
    if (!m_account.isValid())
        return LineError::InvalidParameter;
    if (!m_process.start(m_account))
        return LineError::ResourceUnavailable;
    m_state = State::Starting;
    m_control.open(m_process.controlPort(), m_process.processId());
    return LineError::None;
}

/// The process ends a call that is left as it ends itself.
void SipLine::close()
{
    m_state = State::Closed;
    m_call = Call::None;
    m_tones.stop();
    m_watch.stop();
    m_control.close();
    m_process.release();
}

/// The process has read its files before it listens. Its registration may be decided already, in which case
/// no event comes any more.
void SipLine::controlOpened()
{
    m_process.removeFiles();
    m_isWatched = false;
    m_watch.start(watchTime);
    if (!m_settings.registers) {
        becomeReady();
        return;
    }
    m_state = State::Registering;
    m_control.send(statusCommand, {}, registrationToken);
}

void SipLine::takeRegistration(const QString &status)
{
    if (m_state != State::Registering)
        return;
    if (status.contains(registered))
        becomeReady();
    else if (status.contains(notRegistered))
        fail(LineError::NotRegistered);
}

void SipLine::becomeReady()
{
    m_state = State::Ready;
    if (m_call == Call::Waiting)
        requestCall();
}

qint32 SipLine::dial(const PhoneNumber &number)
{
    if (m_state == State::Closed)
        return LineError::OperationFailed; // the process has ended since the line was opened
    m_number = number;
    m_call = Call::Waiting;
    if (m_state == State::Ready)
        requestCall();
    return LineError::None;
}

void SipLine::requestCall()
{
    m_call = Call::Requested;
    m_control.send(QStringLiteral("dial"), m_account.addressOf(m_number), dialToken);
}

void SipLine::replied(const QString &token, bool isDone, const QString &text)
{
    if (token == watchToken)
        m_isWatched = false;
    else if (token == incomingToken && isDone) // it is the current call now, and the user's own again later
        m_control.send(hangUpCommand, {}, {});
    else if (token == registrationToken)
        takeRegistration(text);
    else if (token == dialToken && m_call == Call::Requested) {
        if (!isDone) {
            callIsOver(LineError::OperationFailed);
            return;
        }
        m_call = Call::Dialling;
        Q_EMIT accepted();
    }
}

void SipLine::eventCame(const QString &type, bool isIncomingCall, const QString &call)
{
    if (m_state == State::Registering && type == QStringLiteral("REGISTER_OK"))
        becomeReady();
    else if (m_state == State::Registering && type == QStringLiteral("REGISTER_FAIL"))
        fail(LineError::NotRegistered);
    else if (isIncomingCall && type == QStringLiteral("CALL_INCOMING"))
        m_control.send(QStringLiteral("callfind"), call, incomingToken);
    else if (!isIncomingCall && m_call >= Call::Requested)
        callEvent(type);
}

void SipLine::callEvent(const QString &type)
{
    if (type == QStringLiteral("CALL_CLOSED")) {
        callIsOver(LineError::OperationFailed);
    } else if (type == QStringLiteral("CALL_ESTABLISHED") && m_call == Call::Dialling) {
        m_call = Call::Connected;
        m_tones.add(m_number.tones());
        Q_EMIT connected();
    }
}

void SipLine::hangUp()
{
    if (m_call > Call::Waiting)
        m_control.send(hangUpCommand, {}, {});
    else
        callIsOver(LineError::OperationFailed);
}

void SipLine::sendTones(const QString &digits)
{
    if (m_call == Call::Connected)
        m_tones.add(digits);
}

void SipLine::sendTone(QChar tone)
{
    m_control.send(QStringLiteral("sndcode"), tone, {});
}

/// A check that the next one overtakes was not answered.
void SipLine::checkProcess()
{
    if (std::exchange(m_isWatched, true))
        fail(LineError::OperationFailed);
    else
        m_control.send(statusCommand, {}, watchToken);
}

void SipLine::callIsOver(qint32 error)
{
    m_tones.stop();
    const Call call = std::exchange(m_call, Call::None);
    if (call >= Call::Dialling)
        Q_EMIT ended();
    else if (call != Call::None)
        Q_EMIT refused(error);
}

void SipLine::fail(qint32 error)
{
    m_state = State::Closed;
    m_watch.stop();
    m_control.close();
    m_process.kill();
    callIsOver(error);
}
