#include "DirectoryCheck.h"

#include "BadArchive.h"

namespace {

constexpr std::size_t entriesAtOnce = 1024;

/// libzip turns NUL to a blank and has null for an empty name. Where a field repeats the name in UTF-8,
/// libzip takes that for the one in the archive.
bool hasName(const ArchiveEntry &entry, QByteArrayView name)
{
    const auto isName = [name](QByteArray own) { return own.replace('\0', ' ') == name; };
    return isName(entry.storedName) || isName(entry.name);
}

} // namespace

void DirectoryCheck::requireSame(zip_t *archive, const ArchiveDirectory &directory,
                                 const std::function<void()> &betweenEntries)
{
    bool isSame = zip_get_num_entries(archive, 0) == zip_int64_t(directory.entries.size());
    for (std::size_t i = 0; isSame && i < directory.entries.size(); ++i) {
        if (i % entriesAtOnce == 0)
            betweenEntries();
        isSame = hasName(directory.entries[i], zip_get_name(archive, i, ZIP_FL_ENC_RAW));
    }
    if (!isSame)
        throw BadArchive{"its directory is damaged"};
}
