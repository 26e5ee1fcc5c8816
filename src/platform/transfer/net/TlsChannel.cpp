#include "TlsChannel.h"

#include "StreamResult.h"
#include "TlsContext.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <climits>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace {

int codeOf(long verifyResult)
{
    switch (verifyResult) {
    case X509_V_OK:
        return TransferError::SecureChannel;
    case X509_V_ERR_CERT_HAS_EXPIRED:
    case X509_V_ERR_CERT_NOT_YET_VALID:
        return TransferError::CertificateDate;
    case X509_V_ERR_HOSTNAME_MISMATCH:
    case X509_V_ERR_IP_ADDRESS_MISMATCH:
        return TransferError::CertificateName;
    default:
        return TransferError::CertificateAuthority;
    }
}

/// Without the host's name any valid certificate would be accepted.
void requireHost(SSL *handle, const QByteArray &host)
{
    X509_VERIFY_PARAM *expected = ::SSL_get0_param(handle);
    if (::X509_VERIFY_PARAM_set1_ip_asc(expected, host.constData()) == 1)
        return;
    ::X509_VERIFY_PARAM_set_hostflags(expected, X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS);
    if (::X509_VERIFY_PARAM_set1_host(expected, host.constData(), size_t(host.size())) != 1 ||
        ::SSL_set_tlsext_host_name(handle, host.constData()) != 1)
        throw TransferFailure(TransferError::SecureChannel);
}

/// The library takes a session out of use whose connection is freed without close_notify. The session is the
/// control connection's too, and servers that ask for it on each data connection would refuse the next one.
void release(SSL *handle)
{
    ::SSL_set_shutdown(handle, SSL_SENT_SHUTDOWN | SSL_RECEIVED_SHUTDOWN);
    ::SSL_free(handle);
}

} // namespace

TlsChannel::TlsChannel(const TlsContext &context, int socket, const QByteArray &host,
                       const TlsChannel *resumed)
    : m_handle(::SSL_new(context.handle()), release)
{
    if (!m_handle || ::SSL_set_fd(m_handle.get(), socket) != 1)
        throw TransferFailure(TransferError::SecureChannel);
    requireHost(m_handle.get(), host);
    if (resumed) {
        SSL_SESSION *session = ::SSL_get1_session(resumed->m_handle.get());
        ::SSL_set_session(m_handle.get(), session);
        ::SSL_SESSION_free(session);
    }
}

TlsChannel::Handshake TlsChannel::handshake()
{
    ::ERR_clear_error();
    const int returned = ::SSL_connect(m_handle.get());
    if (returned == 1)
        return Handshake::Done;
    switch (::SSL_get_error(m_handle.get(), returned)) {
    case SSL_ERROR_WANT_READ:
        return Handshake::WaitsToRead;
    case SSL_ERROR_WANT_WRITE:
        return Handshake::WaitsToWrite;
    default:
        throw TransferFailure(codeOf(::SSL_get_verify_result(m_handle.get())));
    }
}

qint64 TlsChannel::read(char *bytes, qint64 most)
{
    ::ERR_clear_error();
    return resultOf(::SSL_read(m_handle.get(), bytes, int(qMin<qint64>(most, INT_MAX))));
}

qint64 TlsChannel::write(const char *bytes, qint64 count)
{
    ::ERR_clear_error();
    return resultOf(::SSL_write(m_handle.get(), bytes, int(qMin<qint64>(count, INT_MAX))));
}

bool TlsChannel::finishWriting()
{
    ::ERR_clear_error();
    const int returned = ::SSL_shutdown(m_handle.get());
    return returned >= 0 || ::SSL_get_error(m_handle.get(), returned) != SSL_ERROR_WANT_WRITE;
}

qint64 TlsChannel::resultOf(int returned) const
{
    if (returned > 0)
        return returned;
    switch (::SSL_get_error(m_handle.get(), returned)) {
    case SSL_ERROR_WANT_READ:
    case SSL_ERROR_WANT_WRITE:
        return StreamResult::Nothing;
    case SSL_ERROR_ZERO_RETURN:
        return 0;
    default:
        return StreamResult::Broken;
    }
}
