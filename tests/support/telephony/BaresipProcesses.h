#pragma once

#include <QList>
#include <sys/types.h>

class SipPhone;

/// The processes of baresip that this process has started.
namespace BaresipProcesses {

QList<pid_t> all();

/// The only one beside that of \a phone. Waits for it; throws where it does not come.
pid_t beside(const SipPhone &phone);

/// Waits until there are \a awaited alone.
void waitFor(const QList<pid_t> &awaited);

/// The UDP port on which \a process takes calls.
quint16 udpPortOf(pid_t process);

/// Whether something has come to the UDP port \a port that was not read yet.
bool hasUnread(quint16 port);

} // namespace BaresipProcesses
