#pragma once

#include <QByteArray>
#include <memory>

class TlsContext;
using SSL = struct ssl_st;

/// Encryption over a connected socket that does not block. Renegotiation is refused, so that after the
/// handshake reading waits for the socket to be readable and writing for it to be writable.
class TlsChannel
{
public:
    enum class Handshake { Done, WaitsToRead, WaitsToWrite };

    /// \a host is who the server has to be. The session of \a resumed is used again where the server agrees.
    TlsChannel(const TlsContext &context, int socket, const QByteArray &host, const TlsChannel *resumed);

    /// Throws TransferFailure: 12037, 12038 or 12045 for what is wrong with the certificate, 12157 for the
    /// rest.
    Handshake handshake();

    /// How many bytes were read, 0 at the end, or a StreamResult. At least SocketStream::leastRead have to be
    /// asked for, so that nothing is left behind that the socket does not show.
    qint64 read(char *bytes, qint64 most);
    /// How many bytes were written, or a StreamResult.
    qint64 write(const char *bytes, qint64 count);

    /// Sends close_notify, after which nothing more is written. False where there is no room for it now: it
    /// is to be called again when the socket is writable.
    bool finishWriting();

private:
    qint64 resultOf(int returned) const;

    std::unique_ptr<SSL, void (*)(SSL *)> m_handle;
};
