#include "IconDirectory.h"

#include <QtEndian>
#include <tuple>

namespace {

constexpr qsizetype listHeaderSize = 6;
constexpr qsizetype entrySize = 16;
constexpr quint16 iconType = 1;
constexpr quint16 cursorType = 2;

quint16 word(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

int side(char byte)
{
    const int length = uchar(byte);
    return length == 0 ? 256 : length;
}

/// Its first picture has to lie behind the list. A Targa file may begin like a list of no pictures.
bool isList(QByteArrayView file, quint16 type)
{
    if (file.size() < listHeaderSize + entrySize || word(file, 0) != 0 || word(file, 2) != type)
        return false;
    const qsizetype count = word(file, 4);
    const qsizetype end = listHeaderSize + count * entrySize;
    const quint32 offset = qFromLittleEndian<quint32>(file.data() + listHeaderSize + 12);
    return count > 0 && file.size() >= end && qsizetype(offset) >= end && qsizetype(offset) < file.size();
}

QByteArrayView pictureOf(QByteArrayView file, QByteArrayView entry)
{
    const qint64 size = qFromLittleEndian<quint32>(entry.data() + 8);
    const qint64 offset = qFromLittleEndian<quint32>(entry.data() + 12);
    return offset + size <= file.size() ? file.sliced(offset, size) : QByteArrayView();
}

} // namespace

bool IconDirectory::isIcon(QByteArrayView file)
{
    return isList(file, iconType);
}

bool IconDirectory::isCursor(QByteArrayView file)
{
    return isList(file, cursorType);
}

QByteArrayView IconDirectory::largest(QByteArrayView file)
{
    const bool hasDepths = isIcon(file); // a cursor has its hot spot there
    QByteArrayView best;
    std::tuple<int, int> most;
    for (int index = 0; index < word(file, 4); ++index) {
        const QByteArrayView entry = file.sliced(listHeaderSize + index * entrySize, entrySize);
        const std::tuple<int, int> rank(side(entry[0]) * side(entry[1]), hasDepths ? word(entry, 6) : 0);
        const QByteArrayView picture = pictureOf(file, entry);
        if (rank > most && !picture.isEmpty()) { // an entry may point beyond a damaged file
            most = rank;
            best = picture;
        }
    }
    return best;
}
