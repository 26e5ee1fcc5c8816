#pragma once

#include <QtGlobal>

/// What ends a request that a server draws out.
struct HttpLimits
{
    qint64 bytes;            ///< of the reply's body
    int seconds;             ///< from the beginning to the end of the request, redirections included
    int secondsWithout = 40; ///< without a connection, or with less than `slowest` in each of them
    int slowest = 100;       ///< bytes a second
};
