#pragma once

#include <QByteArray>

/// Turns each CR of a text that has no LF behind it into CR LF. The text comes in pieces; one with a NUL in
/// its first piece is no text and stays as it is.
class CarriageReturns
{
public:
    QByteArrayView convert(QByteArrayView piece);
    /// What is left after the last piece.
    QByteArrayView finish() const;

private:
    enum class Kind { Unknown, Text, Binary };

    Kind m_kind = Kind::Unknown;
    bool m_isAfterReturn = false;
    QByteArray m_converted;
};
