#pragma once

#include <QList>
#include <QString>

class QDBusMessage;

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

    /// Those among the \a objects of ModemManager, sorted by their identifiers; none for another message.
    static QList<MobileModem> listFrom(const QDBusMessage &objects);
};
