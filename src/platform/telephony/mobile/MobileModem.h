#pragma once

#include <QString>

/// A mobile modem that ModemManager has. The texts are the modem's own.
struct MobileModem
{
    QString path;       ///< of its object on the bus
    QString identifier; ///< its equipment's
    QString maker;
    QString model;
    QString number; ///< of its SIM, where that knows it
    QString network;
    bool hasVoice = false;
};
