#pragma once

#include "SocketAddress.h"
#include "StreamResult.h"
#include "TransferFailure.h"

#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>

class QSocketNotifier;
class TlsChannel;
class TlsContext;

/// A TCP connection that never blocks, encrypted if that is asked for. connectFailed(),
/// encrypted() and encryptFailed() may come before the call that leads to them has returned.
class SocketStream : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 leastRead = 16384; ///< bytes; TLS hands its data on in pieces of that size

    explicit SocketStream(QObject *parent = nullptr);
    ~SocketStream() override;

    /// Tries one address after the other; connected() or connectFailed() follows. While others are left each
    /// has its share of \a time, and no more than 5 s.
    void connectTo(const SocketAddresses &addresses, std::chrono::milliseconds time);
    /// Gives up the address that is being tried after \a time.
    void limitAttempt(std::chrono::milliseconds time);
    /// Where it is connected to.
    const SocketAddress &remote() const { return m_remote; }
    /// Asks the system now and then whether an idle connection is still there.
    void keepAlive();

    /// Acknowledges at once what was read. The other side may hold the next lines back until then.
    void acknowledge();

    /// Begins encryption; encrypted() or encryptFailed() follows. See TlsChannel.
    void encrypt(const TlsContext &context, const QByteArray &host, const SocketStream *resumed);

    /// How many bytes were read, 0 at the end, or a StreamResult. \a most is at least leastRead.
    qint64 read(char *bytes, qint64 most);
    /// How many bytes were written, or a StreamResult.
    qint64 write(const char *bytes, qint64 count);
    /// Whether readable() and writable() are wanted, whenever they are true.
    void watchReading(bool wanted);
    void watchWriting(bool wanted);
    /// True when reading is watched and there is something to read at this moment.
    bool hasInput() const;
    /// How many bytes the other side has acknowledged so far, its protocol's own among them; 0 when closed.
    quint64 acknowledged() const;

    /// Ends this direction, as soon as there is room for the notice of the end that TLS has; the other side
    /// reads an end. writable() does not come any more.
    void finishWriting();
    /// Closes at once. No signal follows.
    void close();
    /// The same in a way that the other side does not take for an ordinary end.
    void reset();
    bool isOpen() const { return m_socket >= 0; }

Q_SIGNALS:
    void connected();
    void connectFailed();
    void encrypted();
    void encryptFailed(const TransferFailure &failure);
    void readable();
    void writable();

private:
    void tryNext();
    void connectOrTryNext();
    void onReadable();
    void onWritable();
    void shakeHands();
    void finish();
    void openNotifiers();

    enum class Phase { Closed, Connecting, ShakingHands, Open, Finishing };

    Phase m_phase = Phase::Closed;
    int m_socket = -1;
    SocketAddress m_remote;
    SocketAddresses m_others;
    QTimer m_addressTimeout;
    std::chrono::milliseconds m_addressTime = {};
    QSocketNotifier *m_read = nullptr;
    QSocketNotifier *m_write = nullptr;
    std::unique_ptr<TlsChannel> m_tls;
};
