#pragma once

#include <QString>

/// The first part of a host name, by which the computers of a network are told apart.
namespace HostLabel {

/// That of \a name, in upper case. Empty where it is no label of ASCII letters, digits, "-" and "_", begins
/// with "-", or has more than 63 characters: names come from strangers.
QString of(const QString &name);

} // namespace HostLabel
