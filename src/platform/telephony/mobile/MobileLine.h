#pragma once

#include "MobileModem.h"
#include "TelephoneLine.h"
#include "ToneSequence.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <functional>
#include <optional>

class ModemList;

/// Calls by a mobile modem, which ModemManager controls. The modem has the sound.
class MobileLine : public TelephoneLine
{
    Q_OBJECT

public:
    /// \a identifier is that of the modem's equipment, which need not be among \a modems at present. The list
    /// outlives the line.
    MobileLine(const QString &label, const QString &identifier, const ModemList &modems);
    ~MobileLine() override;

    LineTraits traits() const override;
    qint32 open() override;
    void close() override;
    /// Switches the modem on, where it is off.
    qint32 dial(const PhoneNumber &number) override;
    void hangUp() override;
    void sendTones(const QString &digits) override;

private Q_SLOTS:
    void stateChanged(const QDBusMessage &message);
    void interfacesRemoved(const QDBusMessage &message);

private:
    enum class State { Idle, Preparing, Dialling, Connected };
    using Then = std::function<void(const QDBusMessage &reply)>;

    void createCall();
    void callCreated(const QDBusMessage &reply);
    void startCall();
    void takeState(int state);
    void sendTone(QChar tone);
    void request(const QDBusMessage &message, Then then);
    void listen(bool isWanted);
    void removeCall(const QString &path);
    void refuse(const QDBusMessage &reply);
    void finish();
    bool reset();

    QString m_label;
    QString m_identifier;
    const ModemList &m_modems;
    std::optional<MobileModem> m_modem; ///< as it was when the line was made or opened last
    QDBusServiceWatcher m_service;
    ToneSequence m_tones;
    State m_state = State::Idle;
    int m_attempt = 0; ///< replies that belong to an earlier one are late
    PhoneNumber m_number;
    QString m_call; ///< the path of its object; empty for none
};
