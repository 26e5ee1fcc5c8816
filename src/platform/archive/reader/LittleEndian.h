#pragma once

#include <QByteArrayView>
#include <QtEndian>

/// Numbers in the bytes of archives. The caller knows that the bytes are there.
namespace LittleEndian {

inline quint16 number16(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

inline quint32 number32(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.data() + at);
}

inline quint64 number64(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint64>(bytes.data() + at);
}

} // namespace LittleEndian
