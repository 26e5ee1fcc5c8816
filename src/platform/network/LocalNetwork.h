#pragma once

#include <QList>

class QHostAddress;
class QNetworkInterface;

/// The networks that this computer is a part of.
namespace LocalNetwork {

/// The interfaces on which other computers can be asked all at once.
QList<QNetworkInterface> interfaces();

/// \a address is one of these networks', or of this computer itself.
bool contains(const QHostAddress &address);

} // namespace LocalNetwork
