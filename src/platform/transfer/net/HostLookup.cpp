#include "HostLookup.h"

#include "BackgroundTask.h"
#include "EventGate.h"

#include <cstring>
#include <netdb.h>

namespace {

SocketAddresses lookUp(const QByteArray &host, quint16 port)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (::getaddrinfo(host.constData(), QByteArray::number(port).constData(), &hints, &found) != 0)
        return {};
    SocketAddresses addresses;
    for (const addrinfo *each = found; each; each = each->ai_next) {
        SocketAddress address;
        std::memcpy(&address.storage, each->ai_addr, each->ai_addrlen);
        address.length = each->ai_addrlen;
        addresses.append(address);
    }
    ::freeaddrinfo(found);
    return addresses;
}

} // namespace

HostLookup::HostLookup(QObject *parent)
    : QObject(parent)
{}

void HostLookup::start(const QByteArray &host, quint16 port)
{
    auto *task = new BackgroundTask(this);
    const auto addresses = std::make_shared<SocketAddresses>();
    on(task, &BackgroundTask::finished, this, [this, addresses] { Q_EMIT finished(*addresses); });
    task->start([addresses, host, port] {
        *addresses = lookUp(host, port);
        return 0;
    });
}
