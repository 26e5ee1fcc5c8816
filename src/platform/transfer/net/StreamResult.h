#pragma once

#include <QtGlobal>

/// What reading from a connection or writing to it returns in place of a number of bytes.
namespace StreamResult {

inline constexpr qint64 Nothing = -1; ///< no byte can be read or written now
inline constexpr qint64 Broken = -2;  ///< the connection is broken

} // namespace StreamResult
