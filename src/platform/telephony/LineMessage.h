#pragma once

#include <QtGlobal>

/// What a line service reports to its callback.
struct LineMessage
{
    enum Kind : quint32 {
        CallState = 2, ///< param1 is a State
        Reply = 12,    ///< param1 is the request's identifier, param2 0 or a LineError
    };

    enum State : quint32 { Idle = 1, Connected = 0x100, Disconnected = 0x4000 };

    quint32 device = 0;
    quint32 message = 0;   ///< a Kind
    quintptr instance = 0; ///< as it was given to lineOpen
    quint32 param1 = 0;
    quint32 param2 = 0;
    quint32 param3 = 0;
};
