#pragma once

#include "ServerAddress.h"

#include <QString>
#include <chrono>

/// Where a session logs on, and as whom.
struct LogOn
{
    ServerAddress address; ///< without a host there is no server
    QString user;
    QString password;
    QString authorities; ///< a file of PEM certificates to trust; empty for the system's
    std::chrono::seconds timeout{60};
};
