#include "SerialLine.h"

#include "EventGate.h"
#include "FileNames.h"

#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int commandTime = 3000;  // milliseconds
constexpr int interruptTime = 100; // milliseconds from the end of a dial to the next command
constexpr QByteArrayView farEndIsGone =
    "bdhls"; // busy, dial tone, hung up, loop current interrupted, silence

qint32 lineError(int code)
{
    switch (code) {
    case 0:
        return LineError::None;
    case ENOENT:
    case ENXIO:
    case ENODEV:
    case ENOTDIR:
    case EIO:
        return LineError::NoDevice;
    case EBUSY:
        return LineError::InUse;
    case EINVAL:
        return LineError::InvalidRate;
    default:
        return LineError::ResourceUnavailable;
    }
}

bool isPrintable(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar sign) { return sign >= u' ' && sign <= u'~'; });
}

/// Also where the rights are missing, which to open it reports.
bool isPort(const QString &path)
{
    struct stat status = {};
    return ::stat(FileNames::toBytes(path).constData(), &status) == 0 && S_ISCHR(status.st_mode);
}

} // namespace

SerialLine::SerialLine(const LineSettings &settings)
    : m_settings(settings)
{
    m_afterInterrupt.setSingleShot(true);
    on(&m_afterInterrupt, &QTimer::timeout, this, &SerialLine::sendHangUp);
    on(&m_chat, &AtChat::answered, this, &SerialLine::answered);
    on(&m_chat, &AtChat::reported, this, &SerialLine::reported);
    on(&m_chat, &AtChat::eventCame, this, &SerialLine::eventCame);
    on(&m_chat, &AtChat::lost, this, &SerialLine::lost);
}

SerialLine::~SerialLine()
{
    close();
}

LineTraits SerialLine::traits() const
{
    LineTraits traits;
    traits.name = m_settings.label;
    traits.provider = QStringLiteral("Modem on ") + m_settings.port;
    traits.identity = QStringLiteral("serial ") + m_settings.port;
    traits.hasData = true;
    traits.maxDataRate = quint32(m_settings.speed);
    traits.icon = QStringLiteral("modem");
    return traits;
}

/// Pulses dial the number alone: what follows the pause is heard by the far end only as tones.
QByteArray SerialLine::dialCommand(const PhoneNumber &number) const
{
    QByteArray tones = number.tones().toLatin1();
    if (m_settings.dialsByPulses && tones.size() > 1)
        tones.insert(1, 'T');
    const QByteArray command = (m_settings.dialsByPulses ? "ATDP" : "ATDT") + number.dialled().toLatin1();
    return isVoice() ? command + tones : command + tones + ';'; // which stays in command mode
}

qint32 SerialLine::open()
{
    if (!isPort(m_settings.port))
        return LineError::NoDevice;
    return lineError(m_chat.port().open(m_settings.port, m_settings.speed));
}

void SerialLine::close()
{
    const bool isInCall = m_state != State::Idle && m_state != State::Preparing;
    m_state = State::Idle;
    m_afterInterrupt.stop();
    m_chat.forget();
    if (isInCall && m_chat.port().write("\rATH0\r"))
        m_chat.port().closeSoon();
    else
        m_chat.port().close();
}

bool SerialLine::hasInitialisation() const
{
    return !m_settings.initialisation.isEmpty();
}

qint32 SerialLine::dial(const PhoneNumber &number)
{
    if (!m_chat.port().isOpen())
        return LineError::NoDevice;
    if (!isPrintable(m_settings.initialisation))
        return LineError::InvalidParameter;
    m_steps = {{"ATE0Q0V1", true}, {"ATX4", false}};
    if (hasInitialisation())
        m_steps.append({"AT" + m_settings.initialisation.toLatin1(), true});
    if (isVoice())
        m_steps.append({"AT+FCLASS=8", true});
    m_dialCommand = dialCommand(number);
    m_toneCommands.clear();
    m_state = State::Preparing;
    prepare();
    return LineError::None;
}

void SerialLine::prepare()
{
    if (!m_steps.isEmpty()) {
        m_chat.send(m_steps.constFirst().command, commandTime);
        return;
    }
    m_state = State::Dialling;
    m_chat.send(m_dialCommand, 0);
    Q_EMIT accepted();
}

void SerialLine::answered(AtResult result)
{
    switch (m_state) {
    case State::Preparing:
        prepared(result);
        break;
    case State::Dialling:
        dialled(result);
        break;
    case State::Connected: // of tones
        if (result == AtResult::NoCarrier || result == AtResult::Busy)
            finish();
        else
            sendNextTones();
        break;
    case State::HangingUp:
        if (result != AtResult::None)
            finish();
        break;
    case State::Idle:
        break;
    }
}

void SerialLine::prepared(AtResult result)
{
    if (result == AtResult::Ok || (result == AtResult::Error && !m_steps.constFirst().isNeeded)) {
        m_steps.removeFirst();
        prepare();
    } else {
        refuse(LineError::OperationFailed);
    }
}

void SerialLine::dialled(AtResult result)
{
    const bool isConnected = result == AtResult::Connected || (result == AtResult::Ok && !isVoice());
    if (!isConnected) {
        finish();
        return;
    }
    m_state = State::Connected;
    Q_EMIT connected();
}

void SerialLine::reported(AtResult result)
{
    if (m_state == State::Connected && (result == AtResult::NoCarrier || result == AtResult::Busy))
        finish();
}

void SerialLine::eventCame(char event)
{
    if (m_state == State::Connected && isVoice() && farEndIsGone.contains(event))
        finish();
}

void SerialLine::lost()
{
    if (m_state == State::Preparing)
        refuse(LineError::NoDevice);
    else if (m_state != State::Idle)
        finish();
}

void SerialLine::hangUp()
{
    if (m_state == State::Preparing) {
        m_chat.forget();
        refuse(LineError::OperationFailed);
        return;
    }
    if (!m_chat.port().isOpen() || m_state == State::Idle) {
        finish();
        return;
    }
    const bool isBusy = m_chat.isWaiting();
    m_state = State::HangingUp;
    if (!isBusy) {
        sendHangUp();
        return;
    }
    m_chat.interrupt();
    m_afterInterrupt.start(interruptTime);
}

void SerialLine::sendHangUp()
{
    m_chat.send("ATH0", commandTime);
}

void SerialLine::sendTones(const QString &digits)
{
    if (m_state != State::Connected)
        return;
    QByteArray command = "ATDT" + digits.toLatin1() + ';';
    if (isVoice()) {
        command = "AT+VTS=";
        for (const QChar digit : digits)
            command += digit.toLatin1() + QByteArrayLiteral(",");
        command.chop(1);
    }
    m_toneCommands.append(command);
    if (!m_chat.isWaiting())
        sendNextTones();
}

void SerialLine::sendNextTones()
{
    if (!m_toneCommands.isEmpty())
        m_chat.send(m_toneCommands.takeFirst(), commandTime);
}

void SerialLine::refuse(qint32 error)
{
    m_state = State::Idle;
    Q_EMIT refused(error);
}

void SerialLine::finish()
{
    m_state = State::Idle;
    m_afterInterrupt.stop();
    m_chat.forget();
    Q_EMIT ended();
}
