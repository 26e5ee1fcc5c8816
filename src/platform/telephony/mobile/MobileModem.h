#pragma once

#include <QList>
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

    /// Those of this computer, sorted by their identifiers. Waits for ModemManager a second at most; none
    /// where it does not run, it is not started for this.
    static QList<MobileModem> all();
};
