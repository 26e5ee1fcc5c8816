#pragma once

#include "ArchiveEntry.h"

#include <QByteArrayList>
#include <QSet>
#include <vector>

/// The entries that a list of names means. A name is spelled as listings show it, "/" and "\" being the same.
/// One that no entry has may be that of an entry in another case.
class NameFilter
{
public:
    NameFilter(const QByteArrayList &names, const std::vector<ArchiveEntry> &entries, bool isCaseSensitive);

    bool isEmpty() const { return m_exact.isEmpty() && m_folded.isEmpty(); }
    bool contains(const ArchiveEntry &entry) const;

private:
    QSet<QByteArray> m_exact;
    QSet<QString> m_folded; ///< the names that no entry has
};
