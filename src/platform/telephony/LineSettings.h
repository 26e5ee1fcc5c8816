#pragma once

#include <QString>

/// What the user has entered for one line. Only the fields of its kind count.
struct LineSettings
{
    enum class Kind { Sip, Mobile, Serial };
    enum class Transport { Udp, Tcp, Tls };
    enum class SoundEncryption {
        None,
        Offered, ///< where the far end can do it, too
        Required,
    };
    enum class SerialMode {
        Handset, ///< the modem dials, and a telephone beside it takes the call over
        Voice,   ///< the modem keeps the call itself and says when the far end answers
    };

    Kind kind = Kind::Sip;
    QString label;

    // Sip
    QString user;
    QString password;
    QString server; ///< a host name or an address, with ":port" behind it where that is not the usual one
    Transport transport = Transport::Udp;
    QString certificate; ///< a file of PEM certificates to trust in place of the system's; empty for those
    SoundEncryption soundEncryption =
        SoundEncryption::Offered; ///< counts with Tls, which keeps its keys secret
    bool registers = true;        ///< at the server, which then reaches telephone numbers
    QString microphone = QStringLiteral("alsa,default"); ///< module of baresip, "," and device
    QString loudspeaker = QStringLiteral("alsa,default");

    // Mobile
    QString modem; ///< the modem's own identifier, EquipmentIdentifier

    // Serial
    QString port;
    int speed = 115200; ///< bits per second
    SerialMode mode = SerialMode::Handset;
    bool dialsByPulses = false;
    QString initialisation; ///< a command that is sent before each call, without its "AT"; empty for none
};
