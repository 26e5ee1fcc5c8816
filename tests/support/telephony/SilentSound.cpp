#include "SilentSound.h"

#include <QtEndian>

namespace {

constexpr quint32 rate = 8000; // samples per second
constexpr quint16 sampleSize = 2;
constexpr quint32 length = 60 * rate * sampleSize;

QByteArray number(quint32 value)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

QByteArray number(quint16 value)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&value), sizeof value);
}

} // namespace

QByteArray silentSound()
{
    const QByteArray format = number(quint16(1)) + number(quint16(1)) + number(rate) +
                              number(rate * sampleSize) + number(sampleSize) +
                              number(quint16(8 * sampleSize));
    const QByteArray chunks = "WAVEfmt " + number(quint32(format.size())) + format + "data" + number(length) +
                              QByteArray(length, '\0');
    return "RIFF" + number(quint32(chunks.size())) + chunks;
}
