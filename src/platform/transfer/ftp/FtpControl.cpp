#include "FtpControl.h"

#include "EventGate.h"
#include "HostLookup.h"
#include "TransferError.h"
#include "TransferState.h"

#include <utility>

namespace {

constexpr int serviceEnds = 421;
constexpr qint64 mostUnanswered = 4 * FtpReplyReader::mostBytes; // of preliminary replies and empty lines

} // namespace

FtpControl::FtpControl(QObject *parent)
    : QObject(parent)
    , m_codeIfGone(TransferError::ConnectionReset)
    , m_codeIfEnded(TransferError::SessionAborted)
{
    on(&m_stream, &SocketStream::connected, this, &FtpControl::startReading);
    on(&m_stream, &SocketStream::connectFailed, this,
       [this] { fail(TransferFailure(TransferError::CannotConnect)); });
    on(&m_stream, &SocketStream::encrypted, this, [this] {
        m_stream.watchReading(true);
        Q_EMIT encrypted();
    });
    on(&m_stream, &SocketStream::encryptFailed, this, &FtpControl::fail);
    on(&m_stream, &SocketStream::readable, this, [this] { guarded([this] { receive(); }); });
    on(&m_stream, &SocketStream::writable, this, [this] { guarded([this] { send(); }); });
}

FtpControl::~FtpControl()
{
    close();
}

void FtpControl::open(const ServerAddress &address, std::chrono::milliseconds time)
{
    Q_EMIT stateChanged(TransferState::ResolvingHost);
    auto *lookup = new HostLookup(this);
    on(lookup, &HostLookup::finished, this,
       [this, time](const SocketAddresses &addresses) { connectTo(addresses, time); });
    lookup->start(address.host, address.port);
}

void FtpControl::connectTo(const SocketAddresses &addresses, std::chrono::milliseconds time)
{
    if (addresses.isEmpty()) {
        fail(TransferFailure(TransferError::NameNotResolved));
        return;
    }
    Q_EMIT heard();
    Q_EMIT stateChanged(TransferState::HostResolved);
    Q_EMIT stateChanged(TransferState::Connecting);
    m_stream.connectTo(addresses, time);
}

void FtpControl::startReading()
{
    Q_EMIT heard();
    m_stream.keepAlive();
    m_stream.watchReading(true);
}

void FtpControl::encrypt(const TlsContext &context, const QByteArray &host)
{
    if (!m_reader.isEmpty()) // sent in the clear, so anybody may have sent it
        throw TransferFailure(TransferError::InvalidResponse);
    m_stream.encrypt(context, host, nullptr);
}

void FtpControl::awaitReply(Handler handler, Step preliminary)
{
    m_handler = std::move(handler);
    m_preliminary = std::move(preliminary);
    m_isReceiving = false;
    m_unanswered = 0;
}

void FtpControl::ask(const QByteArray &request, Handler handler, Step preliminary)
{
    guarded([this] { discardInput(); });
    if (!m_stream.isOpen())
        return;
    awaitReply(std::move(handler), std::move(preliminary));
    Q_EMIT stateChanged(TransferState::Requesting);
    m_request = request + "\r\n";
    guarded([this] { send(); });
}

void FtpControl::send()
{
    const qint64 sent = m_stream.write(m_request.constData(), m_request.size());
    if (sent == StreamResult::Broken)
        throw TransferFailure(m_codeIfGone);
    if (sent > 0)
        Q_EMIT heard();
    if (sent == m_request.size()) {
        m_request.clear();
        Q_EMIT stateChanged(TransferState::RequestSent);
    } else if (sent > 0) {
        m_request.remove(0, sent);
    }
    m_stream.watchWriting(!m_request.isEmpty());
}

/// What is there before a request is sent cannot be its reply, but may be the end of the session.
void FtpControl::discardInput()
{
    constexpr int most = 64; // reads; a server that sends more without being asked floods
    for (int i = 0; receive(); ++i) {
        if (i == most)
            throw TransferFailure(TransferError::InvalidResponse);
    }
    m_reader.clear();
}

/// Returns false where there is nothing to read.
bool FtpControl::receive()
{
    char bytes[SocketStream::leastRead];
    const qint64 got = m_stream.read(bytes, sizeof bytes);
    if (got == StreamResult::Nothing)
        return false;
    if (got <= 0)
        throw TransferFailure(m_codeIfGone);
    m_stream.acknowledge();
    m_unanswered += got;
    if (m_unanswered > mostUnanswered)
        throw TransferFailure(TransferError::InvalidResponse);
    Q_EMIT heard();
    if (!std::exchange(m_isGreeted, true))
        Q_EMIT stateChanged(TransferState::Connected);
    if (m_handler && !std::exchange(m_isReceiving, true))
        Q_EMIT stateChanged(TransferState::ReceivingResponse);
    m_reader.add(QByteArrayView(bytes, got));
    takeReplies();
    return true;
}

void FtpControl::takeReplies()
{
    while (const std::optional<FtpReply> reply = m_reader.take())
        dispatch(*reply);
}

void FtpControl::dispatch(const FtpReply &reply)
{
    if (reply.code == serviceEnds)
        throw TransferFailure(m_codeIfEnded);
    if (!m_handler)
        return;
    if (reply.isPreliminary()) {
        if (const Step preliminary = m_preliminary)
            preliminary();
        return;
    }
    Q_EMIT stateChanged(TransferState::ResponseReceived);
    m_preliminary = nullptr;
    m_unanswered = 0;
    std::exchange(m_handler, nullptr)(reply);
}

void FtpControl::setLoggedOn()
{
    m_codeIfGone = m_codeIfEnded = TransferError::ConnectionLost;
}

void FtpControl::forgetHandlers()
{
    m_handler = nullptr;
    m_preliminary = nullptr;
}

void FtpControl::guarded(const Step &step)
{
    try {
        step();
    } catch (const TransferFailure &failure) {
        fail(failure);
    }
}

void FtpControl::fail(const TransferFailure &failure)
{
    close();
    Q_EMIT failed(failure);
}

void FtpControl::close()
{
    static constexpr QByteArrayView quit = "QUIT\r\n";
    if (m_stream.isOpen() && m_isGreeted && !m_handler)
        m_stream.write(quit.data(), quit.size());
    m_stream.close();
    forgetHandlers();
    m_request.clear();
}
