#include "ArchiveEntry.h"

#include "DosTime.h"

#include <sys/stat.h>

namespace {

constexpr int plainMode = 0644;
constexpr int allPermissions = 0777; // neither set-id bits nor the sticky bit

QByteArray deflateName(quint16 flags)
{
    constexpr char levels[] = {'N', 'X', 'F', 'S'};
    return QByteArray("Defl:") + levels[(flags >> 1) & 3];
}

} // namespace

bool ArchiveEntry::isFolder() const
{
    if (name.endsWith('/') || (!isUnixMade() && name.endsWith('\\')))
        return true;
    const bool isMarked = isUnixMade() ? S_ISDIR(attributes >> 16) : (attributes & Folder) != 0;
    return isMarked && size == 0; // data would be lost in a folder
}

bool ArchiveEntry::hasKnownEncryption() const
{
    constexpr quint16 isStrong = 1 << 6;
    return isAes() || (method != Aes && !(flags & isStrong));
}

bool ArchiveEntry::isVolumeLabel() const
{
    return !isUnixMade() && (attributes & VolumeLabel);
}

quint16 ArchiveEntry::storedMethod() const
{
    return isAes() ? quint16(Aes) : method;
}

QByteArray ArchiveEntry::methodName() const
{
    switch (method) {
    case Stored:
        return "Stored";
    case 1:
        return "Shrunk";
    case 6:
        return "Implode";
    case Deflated:
        return deflateName(flags);
    case 9:
        return "Def64";
    case 12:
        return "BZip2";
    case 14:
        return "LZMA";
    case 93:
        return "Zstd";
    case 95:
        return "XZ";
    case 98:
        return "PPMd";
    default:
        return "Unk:" + QByteArray::number(method);
    }
}

int ArchiveEntry::savedPercentage() const
{
    if (packedSize >= size)
        return 0;
    return int(100.0 * double(size - packedSize) / double(size) + 0.5);
}

qint64 ArchiveEntry::modified() const
{
    return exactTime ? *exactTime : DosTime::toSeconds(dosDate, dosTime);
}

int ArchiveEntry::permissions() const
{
    if (!isUnixMade())
        return attributes & ReadOnly ? plainMode & ~S_IWUSR : 0;
    const mode_t mode = attributes >> 16;
    const bool isOrdinary = S_ISREG(mode) || S_ISDIR(mode) || (mode & S_IFMT) == 0;
    return isOrdinary ? int(mode) & allPermissions : plainMode;
}
