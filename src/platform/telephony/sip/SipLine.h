#pragma once

#include "BaresipProcess.h"
#include "ControlConnection.h"
#include "LineSettings.h"
#include "SipAccount.h"
#include "TelephoneLine.h"
#include "ToneSequence.h"

#include <QTimer>

/// Telephone calls over the Internet, by an account at a SIP server. A baresip process carries them out while
/// the line is open; what strangers send reaches that process alone. Incoming calls are hung up at once.
class SipLine : public TelephoneLine
{
    Q_OBJECT

public:
    explicit SipLine(const LineSettings &settings);
    ~SipLine() override;

    LineTraits traits() const override;
    qint32 open() override;
    void close() override;
    /// May be called before the process and the server are ready.
    qint32 dial(const PhoneNumber &number) override;
    void hangUp() override;
    void sendTones(const QString &digits) override;

private:
    enum class State { Closed, Starting, Registering, Ready };
    enum class Call { None, Waiting, Requested, Dialling, Connected };

    void controlOpened();
    void replied(const QString &token, bool isDone, const QString &text);
    void eventCame(const QString &type, bool isIncomingCall, const QString &call);
    void callEvent(const QString &type);
    void sendTone(QChar tone);
    void checkProcess();

    void takeRegistration(const QString &status);
    void becomeReady();
    void requestCall();
    void callIsOver(qint32 error);
    void fail(qint32 error);

    LineSettings m_settings;
    SipAccount m_account;
    BaresipProcess m_process;
    ControlConnection m_control;
    ToneSequence m_tones;
    QTimer m_watch;
    bool m_isWatched = false; ///< the reply to the last check is still to come
    State m_state = State::Closed;
    Call m_call = Call::None;
    PhoneNumber m_number;
};
