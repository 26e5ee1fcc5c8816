#include "DirectoryReader.h"

#include "BadArchive.h"
#include "EntryName.h"
#include "LittleEndian.h"

using namespace LittleEndian;

namespace {

constexpr QByteArrayView endSignature = "PK\x05\x06";
constexpr quint32 end64Signature = 0x06064b50;
constexpr quint32 locator64Signature = 0x07064b50;
constexpr quint32 entrySignature = 0x02014b50;

constexpr qsizetype endSize = 22;
constexpr qsizetype end64Size = 56;
constexpr qsizetype locator64Size = 20;
constexpr qsizetype entrySize = 46;
constexpr qsizetype mostComment = 65535;

constexpr std::size_t entriesAtOnce = 1024;

constexpr quint32 in64 = 0xffffffff; // the number is in the 64-bit field
constexpr quint64 mostOffset = quint64(1) << 60;

/// The field has those of the three numbers, in this order, that did not fit into 32 bits.
void widen(ArchiveEntry &entry, quint64 &offset, QByteArrayView field)
{
    for (quint64 *number : {&entry.size, &entry.packedSize, &offset}) {
        if (*number != in64 || field.size() < 8)
            continue;
        *number = number64(field, 0);
        field = field.sliced(8);
    }
}

void readAes(ArchiveEntry &entry, QByteArrayView field)
{
    constexpr qsizetype size = 7;
    if (entry.method != ArchiveEntry::Aes || field.size() < size || !entry.isEncrypted())
        return;
    entry.aesStrength = qMax<int>(1, uchar(field[4]));
    entry.method = number16(field, 5);
}

} // namespace

DirectoryReader::DirectoryReader(const FileDescriptor &file)
    : m_window(file)
    , m_fileSize(file.size())
{}

ArchiveDirectory DirectoryReader::read(const std::function<void()> &betweenEntries)
{
    const qint64 start = qMax<qint64>(0, m_fileSize - endSize - mostComment);
    const QByteArray tail = m_window.at(start, endSize + mostComment).toByteArray();
    const QByteArrayView bytes(tail);
    ArchiveDirectory directory;
    End end;
    for (qsizetype at = bytes.size(); (at = bytes.first(at).lastIndexOf(endSignature)) >= 0;) {
        if (!findEnd(start + at, bytes.sliced(at), end, directory))
            continue;
        readEntries(end, directory, betweenEntries);
        return directory;
    }
    throw BadArchive{"it has no end record"};
}

/// False where the record is no end of an archive: the same four bytes may be in a comment.
bool DirectoryReader::findEnd(qint64 position, QByteArrayView record, End &end, ArchiveDirectory &directory)
{
    if (record.size() < endSize)
        return false;
    const qsizetype commentSize = number16(record, 20);
    if (endSize + commentSize > record.size() || number16(record, 4) != number16(record, 6))
        return false;
    end = {position, number32(record, 12), number32(record, 16), number16(record, 10)};
    readEnd64(position - locator64Size, end);
    if (!locate(end, directory))
        return false;
    directory.comment = record.sliced(endSize, commentSize).toByteArray();
    return true;
}

/// The locator does not count a prefix; the record is before the locator then.
void DirectoryReader::readEnd64(qint64 locator, End &end)
{
    if (locator < end64Size)
        return;
    const QByteArray record = m_window.at(locator, locator64Size).toByteArray();
    if (number32(record, 0) != locator64Signature)
        return;
    const quint64 position = number64(record, 8);
    const bool isFound = position <= quint64(locator - end64Size) && readEnd64At(qint64(position), end);
    if (!isFound)
        readEnd64At(locator - end64Size, end);
}

bool DirectoryReader::readEnd64At(qint64 position, End &end)
{
    const QByteArrayView record = m_window.at(position, end64Size);
    if (record.size() < end64Size || number32(record, 0) != end64Signature)
        return false;
    end = {position, number64(record, 40), number64(record, 48), number64(record, 32), true};
    return true;
}

bool DirectoryReader::isEntryAt(qint64 position)
{
    const QByteArrayView record = m_window.at(position, entrySize);
    return record.size() == entrySize && number32(record, 0) == entrySignature;
}

/// The directory is right before its end record, and what its offset lacks is the prefix. Where it is not
/// there, the offset is right, and something else is between the two.
bool DirectoryReader::locate(const End &end, ArchiveDirectory &directory)
{
    if (end.size > quint64(end.position) || end.offset > quint64(end.position))
        return false;
    directory.start = end.position - qint64(end.size);
    directory.prefix = directory.start - qint64(end.offset);
    if (end.count == 0 && end.size == 0)
        return directory.prefix >= 0;
    if (directory.prefix >= 0 && isEntryAt(directory.start))
        return true;
    directory.start = qint64(end.offset);
    directory.prefix = 0;
    return end.offset + end.size <= quint64(end.position) && isEntryAt(directory.start);
}

void DirectoryReader::readEntries(const End &end, ArchiveDirectory &directory,
                                  const std::function<void()> &betweenEntries)
{
    const qint64 last = directory.start + qint64(end.size);
    for (qint64 position = directory.start; position + entrySize <= last;) {
        const QByteArrayView head = m_window.at(position, entrySize);
        if (head.size() < entrySize || number32(head, 0) != entrySignature)
            throw BadArchive{"its directory is damaged"};
        const qsizetype size = entrySize + number16(head, 28) + number16(head, 30) + number16(head, 32);
        const QByteArrayView record = m_window.at(position, size);
        if (record.size() < size || position + size > last)
            throw BadArchive{"its directory is damaged"};
        directory.entries.push_back(parse(record, directory.prefix));
        position += size;
        if (directory.entries.size() % entriesAtOnce == 0)
            betweenEntries();
    }
    // Writers without 64-bit records let the 16-bit count overflow.
    const quint64 found = directory.entries.size();
    if (end.is64 ? found != end.count : quint16(found) != quint16(end.count))
        throw BadArchive{"its directory is damaged"};
}

ArchiveEntry DirectoryReader::parse(QByteArrayView record, qint64 prefix) const
{
    const qsizetype nameSize = number16(record, 28);
    const ExtraFields fields(record.sliced(entrySize + nameSize, number16(record, 30)));
    ArchiveEntry entry;
    entry.system = quint8(record[5]);
    entry.flags = number16(record, 8);
    entry.method = number16(record, 10);
    entry.dosTime = number16(record, 12);
    entry.dosDate = number16(record, 14);
    entry.crc = number32(record, 16);
    entry.packedSize = number32(record, 20);
    entry.size = number32(record, 24);
    entry.attributes = number32(record, 38);
    quint64 offset = number32(record, 42);
    widen(entry, offset, fields.find(ExtraFields::Zip64));
    if (offset > mostOffset || entry.packedSize > mostOffset || entry.size > mostOffset)
        throw BadArchive{"its directory is damaged"};
    entry.offset = qint64(offset) + prefix;
    readAes(entry, fields.find(ExtraFields::Aes));
    entry.exactTime = fields.modified();
    entry.storedName = record.sliced(entrySize, nameSize).toByteArray();
    entry.name = EntryName::decode(entry.storedName, fields, entry.isUnixMade());
    return entry;
}
