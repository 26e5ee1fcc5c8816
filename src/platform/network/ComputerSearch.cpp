#include "ComputerSearch.h"

#include "ComputerSet.h"
#include "EventGate.h"
#include "MdnsSource.h"
#include "NetbiosSource.h"
#include "WsDiscoverySource.h"

#include <QTimer>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 1500ms;

} // namespace

std::optional<QList<Computer>> ComputerSearch::computers(const Sources &sources)
{
    ComputerSet found;
    std::size_t finished = 0;
    std::size_t failed = 0;
    bool isOver = false;
    QTimer deadline;
    on(&deadline, &QTimer::timeout, &deadline, [&isOver] { isOver = true; });
    deadline.start(patience);
    for (const auto &source : sources) {
        on(source.get(), &ComputerSource::found, &deadline,
           [&found](const QString &name, const QString &address) { found.add(name, address); });
        on(source.get(), &ComputerSource::finished, &deadline, [&](bool hasAsked) {
            ++finished;
            failed += hasAsked ? 0 : 1;
        });
        source->start();
    }
    while (!isOver && finished < sources.size())
        waitForEventsButInput();
    if (failed == sources.size())
        return std::nullopt;
    return found.computers();
}

std::optional<QList<Computer>> ComputerSearch::computers()
{
    Sources all;
    all.push_back(std::make_unique<MdnsSource>());
    all.push_back(std::make_unique<WsDiscoverySource>());
    all.push_back(std::make_unique<NetbiosSource>());
    return computers(all);
}
