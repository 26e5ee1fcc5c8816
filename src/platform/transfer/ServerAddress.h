#pragma once

#include <QByteArray>
#include <QString>

/// The server that a user's text names.
struct ServerAddress
{
    QByteArray host; ///< a name in ASCII, or a numeric address without brackets; empty for no server
    quint16 port = 21;
    bool isEncrypted = false; ///< the whole session has to be encrypted

    /// Reads "host", "host:port" or "ftp://host:port/", with "ftps://" for an encrypted session. Blanks
    /// around it are ignored. Throws RuntimeError: 12006 for another scheme, 12005 for anything else.
    static ServerAddress parse(const QString &text);
};
