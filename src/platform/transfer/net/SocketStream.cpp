#include "SocketStream.h"

#include "EventGate.h"
#include "TlsChannel.h"

#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <linux/tcp.h> // whose tcp_info has more than the C library's
#include <netinet/in.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::chrono::milliseconds longestAddressTime(5000);
constexpr int keepAliveIdle = 30; // seconds
constexpr int keepAliveInterval = 10;

void setOption(int socket, int level, int option, int value)
{
    ::setsockopt(socket, level, option, &value, sizeof value);
}

int errorOf(int socket)
{
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

qint64 resultOf(ssize_t returned)
{
    if (returned >= 0)
        return returned;
    const bool isLater = errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
    return isLater ? StreamResult::Nothing : StreamResult::Broken;
}

} // namespace

SocketStream::SocketStream(QObject *parent)
    : QObject(parent)
{
    m_addressTimeout.setSingleShot(true);
    on(&m_addressTimeout, &QTimer::timeout, this, &SocketStream::tryNext);
    // What is written to a connection that has gone is an error. The signal, which would end the process, is
    // switched off here for all connections: the TLS library has no other way to write without it.
    ::signal(SIGPIPE, SIG_IGN);
}

SocketStream::~SocketStream()
{
    close();
}

void SocketStream::connectTo(const SocketAddresses &addresses, std::chrono::milliseconds time)
{
    m_addressTime =
        std::min<std::chrono::milliseconds>(longestAddressTime, time / qMax(addresses.size(), qsizetype(1)));
    m_others = addresses;
    tryNext();
}

void SocketStream::limitAttempt(std::chrono::milliseconds time)
{
    if (m_phase == Phase::Connecting)
        m_addressTimeout.start(time);
}

void SocketStream::keepAlive()
{
    setOption(m_socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(m_socket, IPPROTO_TCP, TCP_KEEPIDLE, keepAliveIdle);
    setOption(m_socket, IPPROTO_TCP, TCP_KEEPINTVL, keepAliveInterval);
}

void SocketStream::acknowledge()
{
    setOption(m_socket, IPPROTO_TCP, TCP_QUICKACK, 1);
}

void SocketStream::tryNext()
{
    for (;;) {
        const SocketAddresses others = m_others.mid(1);
        if (m_others.isEmpty()) {
            close();
            Q_EMIT connectFailed();
            return;
        }
        const SocketAddress next = m_others.constFirst();
        close();
        m_others = others;
        m_remote = next;
        m_socket = ::socket(next.family(), SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_TCP);
        if (m_socket >= 0 && (::connect(m_socket, next.address(), next.length) == 0 || errno == EINPROGRESS))
            break;
    }
    m_phase = Phase::Connecting;
    setOption(m_socket, IPPROTO_TCP, TCP_NODELAY, 1);
    openNotifiers();
    watchWriting(true);
    if (!m_others.isEmpty())
        m_addressTimeout.start(m_addressTime);
}

void SocketStream::connectOrTryNext()
{
    if (errorOf(m_socket) != 0) {
        tryNext();
        return;
    }
    m_addressTimeout.stop();
    m_others.clear();
    m_phase = Phase::Open;
    watchWriting(false);
    Q_EMIT connected();
}

void SocketStream::openNotifiers()
{
    m_read = new QSocketNotifier(m_socket, QSocketNotifier::Read, this);
    m_read->setEnabled(false);
    on(m_read, &QSocketNotifier::activated, this, &SocketStream::onReadable);
    m_write = new QSocketNotifier(m_socket, QSocketNotifier::Write, this);
    m_write->setEnabled(false);
    on(m_write, &QSocketNotifier::activated, this, &SocketStream::onWritable);
}

void SocketStream::encrypt(const TlsContext &context, const QByteArray &host, const SocketStream *resumed)
{
    m_tls = std::make_unique<TlsChannel>(context, m_socket, host, resumed ? resumed->m_tls.get() : nullptr);
    m_phase = Phase::ShakingHands;
    shakeHands();
}

void SocketStream::shakeHands()
{
    try {
        const TlsChannel::Handshake result = m_tls->handshake();
        watchReading(result == TlsChannel::Handshake::WaitsToRead);
        watchWriting(result == TlsChannel::Handshake::WaitsToWrite);
        if (result != TlsChannel::Handshake::Done)
            return;
        m_phase = Phase::Open;
        Q_EMIT encrypted();
    } catch (const TransferFailure &failure) {
        close();
        Q_EMIT encryptFailed(failure);
    }
}

void SocketStream::onReadable()
{
    if (m_phase == Phase::ShakingHands)
        shakeHands();
    else if (m_phase == Phase::Open || m_phase == Phase::Finishing)
        Q_EMIT readable();
}

void SocketStream::onWritable()
{
    if (m_phase == Phase::Connecting)
        connectOrTryNext();
    else if (m_phase == Phase::ShakingHands)
        shakeHands();
    else if (m_phase == Phase::Open)
        Q_EMIT writable();
    else if (m_phase == Phase::Finishing)
        finish();
}

qint64 SocketStream::read(char *bytes, qint64 most)
{
    if (m_tls)
        return m_tls->read(bytes, most);
    return resultOf(::recv(m_socket, bytes, size_t(most), 0));
}

qint64 SocketStream::write(const char *bytes, qint64 count)
{
    if (m_tls)
        return m_tls->write(bytes, count);
    return resultOf(::send(m_socket, bytes, size_t(count), 0));
}

void SocketStream::watchReading(bool wanted)
{
    if (m_read)
        m_read->setEnabled(wanted);
}

void SocketStream::watchWriting(bool wanted)
{
    if (m_write)
        m_write->setEnabled(wanted);
}

bool SocketStream::hasInput() const
{
    pollfd state = {m_socket, POLLIN, 0};
    return m_read && m_read->isEnabled() && ::poll(&state, 1, 0) > 0;
}

quint64 SocketStream::acknowledged() const
{
    tcp_info state = {};
    socklen_t size = sizeof state;
    return isOpen() && ::getsockopt(m_socket, IPPROTO_TCP, TCP_INFO, &state, &size) == 0
               ? state.tcpi_bytes_acked
               : 0;
}

void SocketStream::finishWriting()
{
    m_phase = Phase::Finishing;
    finish();
}

void SocketStream::finish()
{
    const bool isFinished = !m_tls || m_tls->finishWriting();
    watchWriting(!isFinished);
    if (isFinished)
        ::shutdown(m_socket, SHUT_WR);
}

void SocketStream::reset()
{
    const linger noLinger = {1, 0};
    if (isOpen())
        ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &noLinger, sizeof noLinger);
    close();
}

void SocketStream::close()
{
    m_phase = Phase::Closed;
    m_addressTimeout.stop();
    m_others.clear();
    m_tls.reset();
    for (QSocketNotifier **notifier : {&m_read, &m_write}) {
        if (QSocketNotifier *old = std::exchange(*notifier, nullptr)) {
            old->setEnabled(false);
            old->deleteLater();
        }
    }
    if (m_socket >= 0)
        ::close(std::exchange(m_socket, -1));
}
