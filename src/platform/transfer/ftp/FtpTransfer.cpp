#include "FtpTransfer.h"

#include "EventGate.h"
#include "FtpPassivePort.h"
#include "TransferError.h"

namespace {

constexpr int mostPieces = 8; // in one event, so that others get their turn

} // namespace

FtpTransfer::FtpTransfer(Direction direction)
    : m_direction(direction)
{
    on(&m_data, &SocketStream::connected, this, &FtpTransfer::sendRequest);
    on(&m_data, &SocketStream::connectFailed, this, [this] { guarded([this] { dataConnectFailed(); }); });
    on(&m_data, &SocketStream::encrypted, this, &FtpTransfer::pump);
    on(&m_data, &SocketStream::encryptFailed, this,
       [this](const TransferFailure &failure) { guarded([&] { encryptFailed(failure); }); });
    on(&m_data, &SocketStream::readable, this, [this] { guarded([this] { receive(); }); });
    on(&m_data, &SocketStream::writable, this, [this] { guarded([this] { send(); }); });
}

FtpTransfer::~FtpTransfer()
{
    closeData();
}

void FtpTransfer::cleanUp()
{
    FtpJob::cleanUp();
    closeData();
}

bool FtpTransfer::hasInput() const
{
    return m_direction == Direction::Receive && m_data.hasInput();
}

bool FtpTransfer::hasNewAcknowledgement()
{
    const quint64 before = std::exchange(m_acknowledged, m_data.acknowledged());
    return m_acknowledged > before;
}

void FtpTransfer::take(QByteArrayView)
{}

QByteArray FtpTransfer::give()
{
    return {};
}

bool FtpTransfer::recoverFrom(const FtpReply &)
{
    return false;
}

void FtpTransfer::transfer(const QByteArray &request)
{
    m_request = request;
    m_lastReply.reset();
    m_isUnreachable = m_hasBegun = m_hasEnded = m_isBroken = false;
    openData();
}

void FtpTransfer::openData()
{
    m_isExtended = connection().usesEpsv();
    if (m_isExtended)
        ask("EPSV", [this](const FtpReply &reply) { answeredExtended(reply); });
    else
        askPlain();
}

void FtpTransfer::answeredExtended(const FtpReply &reply)
{
    if (!reply.isCompletion())
        leaveExtended(TransferFailure::ofReply(reply), reply.isUnknownCommand());
    else if (const std::optional<quint16> port = FtpPassivePort::ofExtended(reply.text))
        connectData(*port);
    else
        leaveExtended(TransferFailure(TransferError::InvalidResponse), true);
}

/// Some servers and firewalls know PASV alone.
void FtpTransfer::leaveExtended(const TransferFailure &failure, bool isLasting)
{
    if (!connection().leaveEpsv(isLasting))
        throw TransferFailure(failure);
    askPlain();
}

void FtpTransfer::askPlain()
{
    m_isExtended = false;
    ask("PASV", [this](const FtpReply &reply) { answeredPlain(reply); });
}

void FtpTransfer::answeredPlain(const FtpReply &reply)
{
    const std::optional<quint16> port =
        reply.isCompletion() ? FtpPassivePort::ofPlain(reply.text) : std::nullopt;
    if (port)
        connectData(*port);
    else if (m_isUnreachable)
        throw TransferFailure(TransferError::CannotConnect);
    else if (reply.isCompletion())
        throw TransferFailure(TransferError::InvalidResponse);
    else
        throw TransferFailure::ofReply(reply);
}

void FtpTransfer::connectData(quint16 port)
{
    m_data.connectTo({connection().control().stream().remote().withPort(port)}, connection().timeout());
    if (m_isExtended && connection().canUsePasv())
        m_data.limitAttempt(connection().timeout() / 4); // which leaves time for PASV
}

void FtpTransfer::dataConnectFailed()
{
    const TransferFailure failure(TransferError::CannotConnect);
    if (!m_isExtended)
        throw TransferFailure(failure);
    m_isUnreachable = true;
    leaveExtended(failure, true);
}

void FtpTransfer::sendRequest()
{
    ask(
        m_request, [this](const FtpReply &reply) { answered(reply); }, [this] { beginData(); });
}

void FtpTransfer::answered(const FtpReply &reply)
{
    m_lastReply = reply;
    if (reply.isCompletion())
        beginData();
    else
        endData();
    settle();
}

void FtpTransfer::beginData()
{
    if (m_hasEnded || std::exchange(m_hasBegun, true))
        return;
    if (connection().tls())
        encrypt();
    else
        pump();
}

void FtpTransfer::encrypt()
{
    try {
        m_data.encrypt(*connection().tls(), connection().host(), &connection().control().stream());
    } catch (const TransferFailure &failure) {
        encryptFailed(failure);
    }
}

void FtpTransfer::encryptFailed(const TransferFailure &failure)
{
    setFailure(failure);
    endData();
    settle();
}

void FtpTransfer::pump()
{
    m_buffer.resize(m_direction == Direction::Receive ? pieceSize : 0);
    m_data.watchReading(m_direction == Direction::Receive);
    m_data.watchWriting(m_direction == Direction::Send);
}

void FtpTransfer::receive()
{
    for (int i = 0; i < mostPieces && !m_hasEnded; ++i) {
        const qint64 got = m_data.read(m_buffer.data(), m_buffer.size());
        if (got == StreamResult::Nothing)
            return;
        if (got > 0)
            takeOver(got);
        else
            endData(got == StreamResult::Broken);
    }
    settle();
}

void FtpTransfer::takeOver(qint64 count)
{
    try {
        take(QByteArrayView(m_buffer.constData(), count));
    } catch (const TransferFailure &failure) {
        setFailure(failure);
        endData();
    }
    Q_EMIT heard();
}

void FtpTransfer::send()
{
    m_acknowledged = m_data.acknowledged();
    for (int i = 0; i < mostPieces && !m_hasEnded; ++i) {
        if (m_sent == m_buffer.size())
            refill();
        if (m_hasEnded)
            break;
        const qint64 taken = m_data.write(m_buffer.constData() + m_sent, m_buffer.size() - m_sent);
        if (taken == StreamResult::Nothing)
            return;
        if (taken == StreamResult::Broken) {
            endData(true);
            break;
        }
        Q_EMIT heard();
        m_sent += taken;
    }
    settle();
}

void FtpTransfer::refill()
{
    m_sent = 0;
    try {
        m_buffer = give();
    } catch (const TransferFailure &failure) {
        setFailure(failure);
        endData();
        return;
    }
    if (m_buffer.isEmpty()) {
        m_data.finishWriting();
        m_hasEnded = true;
    }
}

void FtpTransfer::endData(bool isBroken)
{
    closeData();
    m_hasEnded = true;
    m_isBroken = isBroken;
}

/// A server takes an ordinary end of an upload for the end of the file.
void FtpTransfer::closeData()
{
    if (m_direction == Direction::Send && !m_hasEnded)
        m_data.reset();
    else
        m_data.close();
}

void FtpTransfer::settle()
{
    if (!m_lastReply || !m_hasEnded)
        return;
    const FtpReply reply = *m_lastReply;
    if (failure())
        throw TransferFailure(*failure());
    if (!reply.isCompletion() && recoverFrom(reply))
        return;
    if (!reply.isCompletion())
        throw TransferFailure::ofReply(reply);
    if (m_isBroken)
        throw TransferFailure(TransferError::ConnectionReset);
    done();
}
