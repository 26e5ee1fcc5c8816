#include "CarriageReturns.h"

QByteArrayView CarriageReturns::convert(QByteArrayView piece)
{
    if (m_kind == Kind::Unknown)
        m_kind = piece.contains('\0') ? Kind::Binary : Kind::Text;
    if (m_kind == Kind::Binary)
        return piece;
    m_converted.clear();
    for (const char byte : piece) {
        if (m_isAfterReturn && byte != '\n')
            m_converted += '\n';
        m_converted += byte;
        m_isAfterReturn = byte == '\r';
    }
    return m_converted;
}

QByteArrayView CarriageReturns::finish() const
{
    return m_isAfterReturn ? QByteArrayView("\n") : QByteArrayView();
}
