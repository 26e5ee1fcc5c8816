#include "LocalNetwork.h"

#include <QHostAddress>
#include <QNetworkInterface>
#include <algorithm>

QList<QNetworkInterface> LocalNetwork::interfaces()
{
    QList<QNetworkInterface> usable = QNetworkInterface::allInterfaces();
    usable.removeIf([](const QNetworkInterface &interface) {
        const QNetworkInterface::InterfaceFlags flags = interface.flags();
        return !flags.testFlag(QNetworkInterface::IsUp) || flags.testFlag(QNetworkInterface::IsLoopBack) ||
               !flags.testFlag(QNetworkInterface::CanMulticast);
    });
    return usable;
}

bool LocalNetwork::contains(const QHostAddress &address)
{
    const auto hasAddress = [&address](const QNetworkAddressEntry &entry) {
        return address.isInSubnet(entry.ip(), entry.prefixLength());
    };
    const QList<QNetworkInterface> all = QNetworkInterface::allInterfaces();
    return std::any_of(all.cbegin(), all.cend(), [&hasAddress](const QNetworkInterface &interface) {
        const QList<QNetworkAddressEntry> entries = interface.addressEntries();
        return std::any_of(entries.cbegin(), entries.cend(), hasAddress);
    });
}
