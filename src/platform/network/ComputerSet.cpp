#include "ComputerSet.h"

#include "HostLabel.h"

namespace {

constexpr qsizetype mostComputers = 1000;
constexpr qsizetype netbiosLength = 15;

} // namespace

void ComputerSet::add(const QString &name, const QString &address)
{
    const QString label = HostLabel::of(name);
    if (label.isEmpty() || (m_addresses.size() >= mostComputers && !m_addresses.contains(label)))
        return;
    QString &known = m_addresses[label];
    if (known.isEmpty())
        known = address;
}

QList<Computer> ComputerSet::computers() const
{
    QList<Computer> all;
    for (auto each = m_addresses.cbegin(); each != m_addresses.cend(); ++each) {
        if (!isCut(each.key()))
            all.append({each.key(), each.value()});
    }
    return all;
}

/// Names with the same beginning follow each other in the map.
bool ComputerSet::isCut(const QString &name) const
{
    if (name.size() != netbiosLength)
        return false;
    const QString address = m_addresses.value(name);
    for (auto next = m_addresses.upperBound(name); next != m_addresses.cend() && next.key().startsWith(name);
         ++next) {
        if (!address.isEmpty() && next.value() == address)
            return true;
    }
    return false;
}
