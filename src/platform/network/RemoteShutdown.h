#pragma once

#include "Computer.h"

/// Shuts other computers down, by Samba's program net.
///
/// Who may do that is said by the file loginFile(), if there is one, with the lines "username = ...",
/// "password = ..." and maybe "domain = ..."; else by the user's Kerberos ticket. The other computer has to
/// sign what it sends, so that nobody between can use the answer to log on elsewhere.
namespace RemoteShutdown {

enum class Order {
    ShutDown, ///< in 30 seconds, whatever programs say
    Restart,  ///< the same, and start again
    Abort,    ///< takes either back
};

/// Starts \a order for \a computer and does not wait; what is not done after a minute is ended. \a comment is
/// shown there, except with Abort. Throws RuntimeError 53 where net is not installed, 70 where others may
/// read the login file, 5 where the computer's name is no host name or net does not start.
void send(Order order, const Computer &computer, const QString &comment = {});

QString loginFile();

} // namespace RemoteShutdown
