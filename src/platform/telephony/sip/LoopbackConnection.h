#pragma once

#include <QtGlobal>

/// Connections between processes of this computer.
namespace LoopbackConnection {

/// Whether \a process, one of this user's, is at the other end of the TCP connection from \a ownPort to \a
/// port of 127.0.0.1, and nobody else listens there.
bool isServedBy(qint64 process, quint16 port, quint16 ownPort);

} // namespace LoopbackConnection
