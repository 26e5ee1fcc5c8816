#include "NameFilter.h"

#include "EntryName.h"
#include "FileNames.h"

namespace {

QByteArray keyOf(const QByteArray &name)
{
    QByteArray key = EntryName::shown(name);
    return key.replace('\\', '/');
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
    for (const ArchiveEntry &entry : entries)
        missing.remove(keyOf(entry.name));
    for (const QByteArray &name : std::as_const(missing))
        m_folded.insert(folded(name));
}

bool NameFilter::contains(const ArchiveEntry &entry) const
{
    const QByteArray key = keyOf(entry.name);
    return m_exact.contains(key) || (!m_folded.isEmpty() && m_folded.contains(folded(key)));
}
