#pragma once

#include <QtGlobal>

/// A UDP port of 127.0.0.1 that nobody uses.
quint16 freeUdpPort();
/// Whether nobody uses it.
bool isFree(quint16 port);
