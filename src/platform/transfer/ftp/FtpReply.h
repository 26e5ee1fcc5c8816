#pragma once

#include <QByteArray>

/// A server's reply to one request.
struct FtpReply
{
    int code = 0;    ///< 100 to 599, or 0 for a line that is no reply
    QByteArray text; ///< with its code; lines are separated by CR LF

    bool isPreliminary() const { return code / 100 == 1; }
    bool isCompletion() const { return code / 100 == 2; }
    /// The server does not have what was asked for, and will not.
    bool isUnknownCommand() const { return code == 500 || code == 501 || code == 502 || code == 504; }
    bool asksForMore() const { return code / 100 == 3; }

    /// What is behind the code.
    QByteArray message() const { return text.mid(4); }
};
