#include "NetworkList.h"

#include "HostLabel.h"
#include "ListBox.h"
#include "ShownText.h"
#include "mMain.h"

namespace {

const QString marker = QStringLiteral("(This Machine)");
constexpr qsizetype netbiosLength = 15;

/// As the network has it. A name that is no host name is shown all the same.
QString thisComputer()
{
    const QString name = GetThisComputerName();
    const QString label = HostLabel::of(name);
    return label.isEmpty() ? ShownText::line(name) : label;
}

} // namespace

NetworkList::NetworkList(Search search)
    : m_search(std::move(search))
{}

void NetworkList::FillComputerList(ListBox &list)
{
    const std::optional<QList<Computer>> found = m_search();
    if (!found)
        return;
    list.Clear();
    m_addresses.clear();
    const QString local = thisComputer();
    QStringList rows = {local + u' ' + marker};
    for (const Computer &computer : *found) {
        if (computer.name == local || computer.name == local.left(netbiosLength)) // NetBIOS cuts names
            continue;
        rows << computer.name;
        m_addresses[computer.name] = computer.address;
    }
    list.addItems(rows);
}

Computer NetworkList::computer(const QString &text) const
{
    const QString name = text.trimmed();
    return {name, m_addresses.value(name)};
}

bool NetworkList::isThisMachine(const QString &text)
{
    return text.contains(marker, Qt::CaseInsensitive);
}
