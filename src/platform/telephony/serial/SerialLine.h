#pragma once

#include "AtChat.h"
#include "LineSettings.h"
#include "TelephoneLine.h"

#include <QTimer>

/// A modem on a serial port, controlled by AT commands.
///
/// In the handset mode the modem only dials, and the user takes the call over with a telephone beside it: the
/// call counts as connected when all digits have been dialled, and its end is known only if the modem says
/// so.
class SerialLine : public TelephoneLine
{
    Q_OBJECT

public:
    explicit SerialLine(const LineSettings &settings);
    ~SerialLine() override;

    LineTraits traits() const override;
    qint32 open() override;
    void close() override;
    /// Pauses and tones are the modem's own matter: it dials the whole number.
    qint32 dial(const PhoneNumber &number) override;
    void hangUp() override;
    void sendTones(const QString &digits) override;

private:
    enum class State { Idle, Preparing, Dialling, Connected, HangingUp };

    /// One command that prepares the call.
    struct Step
    {
        QByteArray command;
        bool isNeeded; ///< the call is refused where the modem does not know it
    };

    void answered(AtResult result);
    void reported(AtResult result);
    void eventCame(char event);
    void lost();

    void prepare();
    void prepared(AtResult result);
    void dialled(AtResult result);
    void sendHangUp();
    void sendNextTones();
    void refuse(qint32 error);
    void finish();
    bool isVoice() const { return m_settings.mode == LineSettings::SerialMode::Voice; }
    bool hasInitialisation() const;
    QByteArray dialCommand(const PhoneNumber &number) const;

    LineSettings m_settings;
    AtChat m_chat;
    QTimer m_afterInterrupt;
    State m_state = State::Idle;
    QList<Step> m_steps; ///< that are left
    QByteArray m_dialCommand;
    QList<QByteArray> m_toneCommands; ///< that are left
};
