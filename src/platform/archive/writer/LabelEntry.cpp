#include "LabelEntry.h"

#include <algorithm>
#include <new>

namespace {

void requireMemory(bool isDone)
{
    if (!isDone)
        throw std::bad_alloc(); // nothing else can go wrong in these calls
}

zip_uint64_t added(zip_t *archive, const QByteArray &label)
{
    zip_source_t *source = zip_source_buffer(archive, nullptr, 0, 0);
    requireMemory(source);
    const zip_int64_t index = zip_file_add(archive, label.constData(), source, ZIP_FL_ENC_GUESS);
    if (index < 0)
        zip_source_free(source);
    requireMemory(index >= 0);
    return zip_uint64_t(index);
}

} // namespace

bool LabelEntry::set(zip_t *archive, const std::vector<ArchiveEntry> &entries, const QByteArray &label)
{
    const auto isLabel = [](const ArchiveEntry &entry) { return entry.isVolumeLabel(); };
    const auto isOtherOfThatName = [&](const ArchiveEntry &entry) {
        return !entry.isVolumeLabel() && (entry.name == label || entry.storedName == label);
    };
    if (std::any_of(entries.cbegin(), entries.cend(), isOtherOfThatName))
        return false;
    const auto isSameLabel = [&](const ArchiveEntry &entry) { return entry.storedName == label; };
    if (std::any_of(entries.cbegin(), entries.cend(), isSameLabel))
        return true;
    const auto old = std::find_if(entries.cbegin(), entries.cend(), isLabel);
    if (old == entries.cend()) {
        requireMemory(zip_file_set_external_attributes(archive, added(archive, label), 0, ZIP_OPSYS_DOS,
                                                       ArchiveEntry::VolumeLabel) == 0);
    } else {
        const auto index = zip_uint64_t(old - entries.cbegin());
        requireMemory(zip_file_rename(archive, index, label.constData(), ZIP_FL_ENC_GUESS) == 0);
    }
    return true;
}
