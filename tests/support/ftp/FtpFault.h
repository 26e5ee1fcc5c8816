#pragma once

#include <QByteArray>
#include <optional>

/// What an FtpServer does at one stage in place of what a server should do.
struct FtpFault
{
    std::optional<QByteArray> reply; ///< sent alone, without the command's effect; CR LF is added
    bool isSilent = false;           ///< neither reply nor effect
    bool dropsBefore = false;        ///< the connections are closed without reply or effect
    bool dropsAfter = false;         ///< the control connection is closed behind the usual or replaced reply
    bool isHeld = false;             ///< everything waits for FtpServer::release()
};
