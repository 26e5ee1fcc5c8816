#pragma once

#include <QByteArray>
#include <memory>

using SSL_CTX = struct ssl_ctx_st;

/// What the encrypted connections of one session have in common: whom to trust, and which versions of TLS.
class TlsContext
{
public:
    /// Trusts the authorities in the PEM file \a authorities, or the system's where that is empty. Throws
    /// TransferFailure 12045 where the file cannot be used.
    explicit TlsContext(const QByteArray &authorities);

    SSL_CTX *handle() const { return m_handle.get(); }

private:
    std::unique_ptr<SSL_CTX, void (*)(SSL_CTX *)> m_handle;
};
