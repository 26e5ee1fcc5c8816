#pragma once

#include "LineSettings.h"

#include <QByteArray>

class PhoneNumber;

/// A user's account at a SIP server, in the forms that baresip reads.
class SipAccount
{
public:
    explicit SipAccount(const LineSettings &settings)
        : m_settings(settings)
    {}

    /// Whether all of it can be written into a configuration: no text has a sign that would end it there.
    bool isValid() const;

    /// The line of the file "accounts".
    QByteArray accountLine() const;
    /// The file "config" of a process with its control port at \a controlPort and its modules in
    /// \a moduleFolder.
    QByteArray configuration(quint16 controlPort, const QString &moduleFolder) const;
    /// A configuration of OpenSSL by which the process connects only to servers whose certificate it trusts.
    static QByteArray encryptionConfiguration();
    /// The address of \a number at this server.
    QString addressOf(const PhoneNumber &number) const;

private:
    QString transportParameter() const;
    QString soundParameter() const;
    QString loopbackAddress() const;
    QByteArrayList audioModules() const;
    QString trustedCertificates() const;

    LineSettings m_settings;
};
