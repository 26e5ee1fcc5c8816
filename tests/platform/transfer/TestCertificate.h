#pragma once

#include "ScratchFolder.h"

#include <QSslConfiguration>
#include <QString>

/// A server's key and the certificate for it, made by the command "openssl", which is its own authority.
class TestCertificate
{
public:
    /// For a server \a name, as "IP:127.0.0.1" or "DNS:host".
    explicit TestCertificate(const QString &name = QStringLiteral("IP:127.0.0.1"));

    /// Its time is over from now on.
    void expire();

    /// The certificate, to be trusted.
    QString file() const { return m_folder.path() + QStringLiteral("/certificate.pem"); }
    /// For the server.
    QSslConfiguration configuration() const;

private:
    QString keyFile() const { return m_folder.path() + QStringLiteral("/key.pem"); }

    ScratchFolder m_folder;
};
