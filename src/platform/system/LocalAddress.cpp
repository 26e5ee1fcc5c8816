#include "LocalAddress.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>

namespace {

bool reachesOthers(const ifaddrs &interface)
{
    return interface.ifa_addr && interface.ifa_addr->sa_family == AF_INET && (interface.ifa_flags & IFF_UP) &&
           !(interface.ifa_flags & IFF_LOOPBACK);
}

QString dotted(const sockaddr &address)
{
    char text[INET_ADDRSTRLEN] = {};
    inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in &>(address).sin_addr, text, sizeof text);
    return QString::fromLatin1(text);
}

} // namespace

QString LocalAddress::first()
{
    ifaddrs *list = nullptr;
    getifaddrs(&list);
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> interfaces(list, freeifaddrs);
    for (const ifaddrs *interface = list; interface; interface = interface->ifa_next) {
        if (reachesOthers(*interface))
            return dotted(*interface->ifa_addr);
    }
    return QStringLiteral("127.0.0.1");
}
