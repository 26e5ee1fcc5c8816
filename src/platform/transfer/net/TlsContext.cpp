#include "TlsContext.h"

#include "TransferError.h"
#include "TransferFailure.h"

#include <openssl/ssl.h>

TlsContext::TlsContext(const QByteArray &authorities)
    : m_handle(::SSL_CTX_new(::TLS_client_method()), ::SSL_CTX_free)
{
    // Servers that ask for the control connection's session on the data connection lose it with version 1.3.
    if (!m_handle || ::SSL_CTX_set_min_proto_version(handle(), TLS1_2_VERSION) != 1 ||
        ::SSL_CTX_set_max_proto_version(handle(), TLS1_2_VERSION) != 1)
        throw TransferFailure(TransferError::SecureChannel);
    // Some servers end their data without close_notify. Data that was cut off is known all the same: the last
    // reply of the transfer is missing or a refusal, and a file has not its size.
    ::SSL_CTX_set_options(handle(), SSL_OP_NO_RENEGOTIATION | SSL_OP_IGNORE_UNEXPECTED_EOF);
    ::SSL_CTX_set_mode(handle(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    ::SSL_CTX_set_verify(handle(), SSL_VERIFY_PEER, nullptr);
    const int trusts = authorities.isEmpty() ? ::SSL_CTX_set_default_verify_paths(handle())
                                             : ::SSL_CTX_load_verify_file(handle(), authorities.constData());
    if (trusts != 1)
        throw TransferFailure(TransferError::CertificateAuthority);
}
