#include "ExtraFields.h"

#include "LittleEndian.h"

using namespace LittleEndian;

namespace {

constexpr qsizetype fieldHead = 4;

} // namespace

QByteArrayView ExtraFields::find(Id id) const
{
    QByteArrayView rest = m_bytes;
    while (rest.size() >= fieldHead) {
        const qsizetype length = number16(rest, 2);
        if (fieldHead + length > rest.size())
            break;
        if (number16(rest, 0) == id)
            return rest.sliced(fieldHead, length);
        rest = rest.sliced(fieldHead + length);
    }
    return {};
}

std::optional<qint64> ExtraFields::modified() const
{
    constexpr qsizetype size = 5;
    const QByteArrayView times = find(UnixTimes);
    if (times.size() >= size && (times[0] & 1))
        return qFromLittleEndian<qint32>(times.data() + 1);
    return windowsModified();
}

std::optional<qint64> ExtraFields::windowsModified() const
{
    constexpr qsizetype size = 4 + fieldHead + 3 * 8; // reserved bytes, then a field of three times
    constexpr qint64 perSecond = 10'000'000;
    constexpr qint64 from1601To1970 = 11'644'473'600;
    const QByteArrayView times = find(WindowsTimes);
    if (times.size() < size || number16(times, 4) != 1)
        return {};
    return qFromLittleEndian<qint64>(times.data() + 8) / perSecond - from1601To1970;
}
