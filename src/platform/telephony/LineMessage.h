#pragma once

#include <QtGlobal>

/// What a line service reports to its callback.
struct LineMessage
{
    enum Kind : quint32 {
        CallState = 2, ///< param1 is one of State
        Reply = 12,    ///< param1 is the request's identifier, param2 0 or a LineError
    };

    enum State : quint32 {
        Idle = 1,
        Dialing = 0x10,
        Ringback = 0x20,
        Busy = 0x40,
        Connected = 0x100,
        Disconnected = 0x4000,
    };

    quint32 device;
    quint32 message;   ///< a Kind
    quintptr instance; ///< as it was given to lineOpen
    quint32 param1;
    quint32 param2;
    quint32 param3;
};
