#include "NameFilter.h"

#include "EntryName.h"
#include "FileNames.h"

#include <algorithm>

namespace {

QByteArray keyOf(const QByteArray &name)
{
    QByteArray key = EntryName::shown(name);
    return key.replace('\\', '/');
}

/// A folder may be named as it is listed, and as the archive has it.
QByteArrayList keysOf(const ArchiveEntry &entry)
{
    QByteArrayList keys = {keyOf(entry.name)};
    if (entry.isFolder())
        keys.append(keyOf(EntryName::shownFolder(entry.name)));
    return keys;
}

QString folded(const QByteArray &key)
{
    return FileNames::fromBytes(key).toCaseFolded();
}

} // namespace

NameFilter::NameFilter(const QByteArrayList &names, const std::vector<ArchiveEntry> &entries,
                       bool isCaseSensitive)
{
    for (const QByteArray &name : names)
        m_exact.insert(keyOf(name));
    if (isCaseSensitive || m_exact.isEmpty())
        return;
    QSet<QByteArray> missing = m_exact;
    for (const ArchiveEntry &entry : entries) {
        for (const QByteArray &key : keysOf(entry))
            missing.remove(key);
    }
    for (const QByteArray &name : std::as_const(missing))
        m_folded.insert(folded(name));
}

bool NameFilter::contains(const ArchiveEntry &entry) const
{
    const QByteArrayList keys = keysOf(entry);
    return std::any_of(keys.cbegin(), keys.cend(), [this](const QByteArray &key) {
        return m_exact.contains(key) || (!m_folded.isEmpty() && m_folded.contains(folded(key)));
    });
}
