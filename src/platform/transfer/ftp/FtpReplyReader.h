#pragma once

#include "FtpReply.h"

#include <optional>

/// Finds the replies in what a server sends on the control connection. A reply ends with a line "123 text";
/// lines before that begin with "123-", or with anything in between. Line ends are CR LF or LF.
class FtpReplyReader
{
public:
    static constexpr qsizetype mostBytes = 65536; ///< of one reply

    void add(QByteArrayView bytes) { m_bytes += bytes; }

    /// The next reply, as soon as it is whole. Throws TransferFailure 12152 where it is too long.
    std::optional<FtpReply> take();

    /// True while no byte waits to be taken.
    bool isEmpty() const { return m_bytes.isEmpty(); }
    /// Forgets what has not been taken.
    void clear();

private:
    std::optional<QByteArray> nextLine();

    QByteArray m_bytes;
    qsizetype m_begin = 0; ///< of what has not been taken; 0 between two calls
    int m_code = 0;        ///< of the reply whose first line was read
    QByteArray m_text;     ///< its lines so far
};
