#include "MobileLine.h"

#include "EventGate.h"
#include "ModemList.h"
#include "ModemManager.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <utility>

namespace {

enum CallState { Active = 4, Terminated = 7 };

constexpr int patience = 20000; // milliseconds; switching a modem on takes some seconds

bool isReply(const QDBusMessage &message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

qint32 lineError(const QDBusMessage &reply)
{
    switch (QDBusError(reply).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
        return LineError::NoDevice;
    case QDBusError::AccessDenied:
        return LineError::ResourceUnavailable;
    default:
        return LineError::OperationFailed;
    }
}

} // namespace

MobileLine::MobileLine(const QString &label, const QString &identifier, const ModemList &modems)
    : m_label(label)
    , m_identifier(identifier)
    , m_modems(modems)
    , m_modem(modems.find(identifier))
    , m_service(ModemManager::service, ModemManager::bus(), QDBusServiceWatcher::WatchForUnregistration)
{
    on(&m_service, &QDBusServiceWatcher::serviceUnregistered, this, &MobileLine::finish);
    on(&m_tones, &ToneSequence::toneDue, this, &MobileLine::sendTone);
}

MobileLine::~MobileLine()
{
    close();
}

LineTraits MobileLine::traits() const
{
    LineTraits traits;
    traits.name = m_label;
    traits.identity = QStringLiteral("mobile ") + m_identifier;
    traits.icon = QStringLiteral("phone");
    if (!m_modem)
        return traits;
    if (m_label.isEmpty())
        traits.name = QStringLiteral("Mobile ") + m_modem->maker + u' ' + m_modem->model;
    traits.provider = m_modem->maker + u' ' + m_modem->model + u' ' + m_modem->number;
    traits.switchInfo = m_modem->network;
    traits.hasVoice = m_modem->hasVoice;
    traits.hasData = true;
    return traits;
}

/// A modem that has been plugged in again has another path.
qint32 MobileLine::open()
{
    m_modem = m_modems.find(m_identifier);
    return m_modem ? LineError::None : LineError::NoDevice;
}

void MobileLine::close()
{
    reset();
}

qint32 MobileLine::dial(const PhoneNumber &number)
{
    m_number = number;
    m_state = State::Preparing;
    listen(true);
    request(ModemManager::call(m_modem->path, ModemManager::modemInterface, QStringLiteral("Enable"), {true}),
            [this](const QDBusMessage &reply) {
                if (isReply(reply))
                    createCall();
                else
                    refuse(reply);
            });
    return LineError::None;
}

void MobileLine::createCall()
{
    const QVariantMap properties{{QStringLiteral("number"), m_number.dialled()}};
    const QDBusMessage message = ModemManager::call(m_modem->path, ModemManager::voiceInterface,
                                                    QStringLiteral("CreateCall"), {properties});
    auto *watcher = new QDBusPendingCallWatcher(ModemManager::bus().asyncCall(message, patience), this);
    on(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, attempt = m_attempt] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (attempt == m_attempt)
            callCreated(reply);
        else if (isReply(reply))
            removeCall(reply.arguments().value(0).value<QDBusObjectPath>().path());
    });
}

void MobileLine::callCreated(const QDBusMessage &reply)
{
    if (!isReply(reply)) {
        refuse(reply);
        return;
    }
    m_call = reply.arguments().value(0).value<QDBusObjectPath>().path();
    ModemManager::bus().connect(ModemManager::service, m_call, ModemManager::callInterface,
                                QStringLiteral("StateChanged"), this, SLOT(stateChanged(QDBusMessage)));
    startCall();
}

void MobileLine::startCall()
{
    request(ModemManager::call(m_call, ModemManager::callInterface, QStringLiteral("Start")),
            [this](const QDBusMessage &reply) {
                if (m_state != State::Preparing)
                    return; // its first state came before the reply
                if (!isReply(reply)) {
                    refuse(reply);
                    return;
                }
                m_state = State::Dialling;
                Q_EMIT accepted();
            });
}

void MobileLine::stateChanged(const QDBusMessage &message)
{
    run([&] {
        if (message.path() == m_call)
            takeState(message.arguments().value(1).toInt());
    });
}

void MobileLine::takeState(int state)
{
    if (state == Terminated) {
        finish();
        return;
    }
    if (state != Active || m_state == State::Connected)
        return;
    const bool isAccepted = m_state == State::Dialling;
    m_state = State::Connected;
    m_tones.add(m_number.tones());
    if (!isAccepted)
        Q_EMIT accepted();
    Q_EMIT connected();
}

/// A modem that is unplugged takes its call with it.
void MobileLine::interfacesRemoved(const QDBusMessage &message)
{
    run([&] {
        const QString path = message.arguments().value(0).value<QDBusObjectPath>().path();
        if (m_modem && (path == m_modem->path || path == m_call))
            finish();
    });
}

void MobileLine::listen(bool isWanted)
{
    QDBusConnection bus = ModemManager::bus();
    if (isWanted)
        bus.connect(ModemManager::service, ModemManager::rootPath, ModemManager::objectManager,
                    QStringLiteral("InterfacesRemoved"), this, SLOT(interfacesRemoved(QDBusMessage)));
    else
        bus.disconnect(ModemManager::service, ModemManager::rootPath, ModemManager::objectManager,
                       QStringLiteral("InterfacesRemoved"), this, SLOT(interfacesRemoved(QDBusMessage)));
}

void MobileLine::hangUp()
{
    if (m_call.isEmpty()) {
        finish();
        return;
    }
    request(ModemManager::call(m_call, ModemManager::callInterface, QStringLiteral("Hangup")),
            [this](const QDBusMessage &reply) {
                if (!isReply(reply))
                    finish();
            });
}

void MobileLine::sendTones(const QString &digits)
{
    if (m_state == State::Connected)
        m_tones.add(digits);
}

void MobileLine::sendTone(QChar tone)
{
    request(
        ModemManager::call(m_call, ModemManager::callInterface, QStringLiteral("SendDtmf"), {QString(tone)}),
        [](const QDBusMessage &) {});
}

/// \a then is not called for the reply of a call that has ended meanwhile.
void MobileLine::request(const QDBusMessage &message, Then then)
{
    auto *watcher = new QDBusPendingCallWatcher(ModemManager::bus().asyncCall(message, patience), this);
    on(watcher, &QDBusPendingCallWatcher::finished, this,
       [this, watcher, then = std::move(then), attempt = m_attempt] {
           watcher->deleteLater();
           if (attempt == m_attempt)
               then(watcher->reply());
       });
}

/// Removing a call also hangs it up.
void MobileLine::removeCall(const QString &path)
{
    ModemManager::bus().send(ModemManager::call(m_modem->path, ModemManager::voiceInterface,
                                                QStringLiteral("DeleteCall"),
                                                {QVariant::fromValue(QDBusObjectPath(path))}));
}

void MobileLine::refuse(const QDBusMessage &reply)
{
    if (reset())
        Q_EMIT refused(lineError(reply));
}

void MobileLine::finish()
{
    const bool isAccepted = m_state == State::Dialling || m_state == State::Connected;
    if (!reset())
        return;
    if (isAccepted)
        Q_EMIT ended();
    else
        Q_EMIT refused(LineError::OperationFailed);
}

/// False where there was no call.
bool MobileLine::reset()
{
    if (m_state == State::Idle)
        return false;
    m_state = State::Idle;
    ++m_attempt;
    m_tones.stop();
    listen(false);
    if (!m_call.isEmpty()) {
        ModemManager::bus().disconnect(ModemManager::service, m_call, ModemManager::callInterface,
                                       QStringLiteral("StateChanged"), this,
                                       SLOT(stateChanged(QDBusMessage)));
        removeCall(m_call);
        m_call.clear();
    }
    return true;
}
