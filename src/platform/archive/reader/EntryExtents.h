#pragma once

#include "ArchiveDirectory.h"

/// Where the entries of an archive are. An honest archive has each byte once; one whose entries share bytes
/// can unpack to many times what any ratio allows, so those entries are not extracted.
class EntryExtents
{
public:
    explicit EntryExtents(const ArchiveDirectory &directory);

    /// True where \a entry, whose data ends at \a dataEnd, shares bytes with another one or with the
    /// directory.
    bool overlaps(const ArchiveEntry &entry, qint64 dataEnd) const;

private:
    struct Extent
    {
        qint64 start;
        qint64 end;            ///< at least: local headers may be longer
        qint64 furthestBefore; ///< the furthest end of those that start before
    };

    std::vector<Extent> m_extents; ///< by their start
    qint64 m_directory;
};
