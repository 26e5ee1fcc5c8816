#pragma once

#include <QString>

namespace LocalAddress {

/// The first IPv4 address of this computer that reaches other ones, in dotted form; the loopback address
/// where there is none.
QString first();

} // namespace LocalAddress
