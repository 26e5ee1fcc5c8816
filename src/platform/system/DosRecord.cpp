#include "DosRecord.h"

#include <QtEndian>

namespace {

// Lengths and places in bytes.
constexpr qsizetype versionPlace = 2;
constexpr qsizetype flagsPlace = 8;
constexpr qsizetype attributesPlace = 12;
constexpr qsizetype createdPlace = 16;
constexpr qsizetype wholeSize = 24;

constexpr char hasAttributes = 1;
constexpr int firstVersion = 3;
constexpr int lastVersion = 5;

bool isRecord(const QByteArray &bytes)
{
    if (bytes.size() < createdPlace || bytes[0] != 0)
        return false;
    const int version = qFromLittleEndian<quint16>(bytes.constData() + versionPlace);
    return version >= firstVersion && version <= lastVersion;
}

} // namespace

std::optional<quint32> DosRecord::attributesIn(const QByteArray &record)
{
    if (isRecord(record))
        return qFromLittleEndian<quint32>(record.constData() + attributesPlace);
    constexpr int base = 16;
    bool isNumber = false;
    const quint32 attributes =
        record.startsWith("0x") ? record.split('\0').first().toUInt(&isNumber, base) : 0;
    return isNumber ? std::optional(attributes) : std::nullopt;
}

QByteArray DosRecord::with(quint32 attributes, const QByteArray &old, quint64 created)
{
    QByteArray record = old;
    if (!isRecord(old) || old.size() < wholeSize) {
        record = QByteArray("\0\0\5\0\5\0\0\0\x11\0\0\0", attributesPlace) + QByteArray(12, '\0');
        qToLittleEndian(created, record.data() + createdPlace);
    }
    record[flagsPlace] = char(record[flagsPlace] | hasAttributes);
    qToLittleEndian(attributes, record.data() + attributesPlace);
    return record;
}
