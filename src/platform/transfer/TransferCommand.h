#pragma once

#include <QByteArray>
#include <QString>

/// A session's command, read from its text. All names are bytes, as the server and the system have them.
struct TransferCommand
{
    enum Verb { Dir, Cd, CdUp, Get, Put, Size, Delete, RmDir, MkDir, Rename, Close };

    Verb verb;
    QByteArray name;    ///< on the server; the old one with Rename
    QByteArray newName; ///< with Rename
    QByteArray folder;  ///< the local one, with Get and Put; absolute
    QByteArray file;    ///< in that folder

    /// Reads \a text. A name may hold quotation marks; where two names could be split at several places, the
    /// split is the one at which the local file has the name that it has on the server. Throws
    /// TransferFailure: 87 for an unknown command, for a name that is empty or holds a line end or NUL, and
    /// where the split is not certain; 3 and 123 for a local folder or file that cannot be one.
    static TransferCommand parse(const QString &text);
};
