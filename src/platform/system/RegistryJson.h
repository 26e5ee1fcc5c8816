#pragma once

#include "RegistryKey.h"

#include <optional>

/// The tree of one root as the bytes of its file:
/// {"keys": [{"name": "Software", "values": [{"n": "Count", "t": 4, "d": 2}], "keys": []}]}
/// where "t" is the type and the data are under "s" (text), "d" (number) or "b" (bytes in hexadecimal).
namespace RegistryJson {

/// The same tree always gives the same bytes.
QByteArray toBytes(const RegistryKey &root);

/// Nothing when \a bytes are not such a file from end to end: a part of it, written back, would lose the
/// rest.
std::optional<RegistryKey> fromBytes(const QByteArray &bytes);

} // namespace RegistryJson
