#include "LocalHeader.h"

#include "BadArchive.h"
#include "LittleEndian.h"

using namespace LittleEndian;

namespace {

constexpr quint32 headerSignature = 0x04034b50;

} // namespace

qint64 LocalHeader::dataOffset(const FileDescriptor &file, const ArchiveEntry &entry)
{
    QByteArray header(leastSize + entry.storedName.size(), Qt::Uninitialized);
    if (file.readAt(entry.offset, header.data(), header.size()) < header.size())
        throw BadArchive{"it is cut", BadArchive::Cut};
    if (number32(header, 0) != headerSignature)
        throw BadArchive{"its header is missing"};
    const qsizetype nameSize = number16(header, 26);
    if (nameSize != entry.storedName.size() || header.sliced(leastSize) != entry.storedName)
        throw BadArchive{"its two names differ"};
    if (number16(header, 8) != entry.storedMethod())
        throw BadArchive{"its two compression methods differ"};
    return entry.offset + leastSize + nameSize + number16(header, 28);
}
