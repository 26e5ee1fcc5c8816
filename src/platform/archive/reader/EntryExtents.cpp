#include "EntryExtents.h"

#include "LocalHeader.h"

#include <algorithm>

EntryExtents::EntryExtents(const ArchiveDirectory &directory)
    : m_directory(directory.start)
{
    m_extents.reserve(directory.entries.size());
    for (const ArchiveEntry &entry : directory.entries)
        m_extents.push_back(
            {entry.offset, entry.offset + LocalHeader::leastSize + qint64(entry.packedSize), 0});
    std::sort(m_extents.begin(), m_extents.end(),
              [](const Extent &a, const Extent &b) { return a.start < b.start; });
    qint64 furthest = 0;
    for (Extent &extent : m_extents) {
        extent.furthestBefore = furthest;
        furthest = qMax(furthest, extent.end);
    }
}

bool EntryExtents::overlaps(const ArchiveEntry &entry, qint64 dataEnd) const
{
    if (dataEnd > m_directory)
        return true;
    const auto at = std::lower_bound(m_extents.begin(), m_extents.end(), entry.offset,
                                     [](const Extent &extent, qint64 start) { return extent.start < start; });
    if (at == m_extents.end() || at->furthestBefore > entry.offset)
        return true;
    const auto next = at + 1;
    return next != m_extents.end() && next->start < dataEnd;
}
