#include "ModemList.h"

#include "EventGate.h"
#include "ModemManager.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <utility>

namespace {

constexpr int listPatience = 1000; // milliseconds

} // namespace

ModemList::ModemList(QObject *parent)
    : QObject(parent)
{
    QDBusConnection bus = ModemManager::bus();
    if (!bus.isConnected())
        return;
    auto *service =
        new QDBusServiceWatcher(ModemManager::service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    on(service, &QDBusServiceWatcher::serviceOwnerChanged, this, &ModemList::ask);
    for (const QString &signal : {QStringLiteral("InterfacesAdded"), QStringLiteral("InterfacesRemoved")})
        bus.connect(ModemManager::service, ModemManager::rootPath, ModemManager::objectManager, signal, this,
                    SLOT(modemsChanged()));
    ask();
}

std::optional<MobileModem> ModemList::find(const QString &identifier) const
{
    for (const MobileModem &modem : m_modems) {
        if (modem.identifier == identifier)
            return modem;
    }
    return {};
}

void ModemList::modemsChanged()
{
    run([&] { ask(); });
}

/// An answer to an earlier question is out of date.
void ModemList::ask()
{
    delete m_answer;
    const QDBusMessage question = ModemManager::call(ModemManager::rootPath, ModemManager::objectManager,
                                                     QStringLiteral("GetManagedObjects"));
    m_answer = new QDBusPendingCallWatcher(ModemManager::bus().asyncCall(question, listPatience), this);
    on(m_answer, &QDBusPendingCallWatcher::finished, this, [this, answer = m_answer] {
        if (answer == m_answer) // nobody has waited for it
            take();
    });
}

void ModemList::wait()
{
    if (!m_answer)
        return;
    m_answer->QDBusPendingCall::waitForFinished();
    take();
}

void ModemList::take()
{
    QDBusPendingCallWatcher *answer = std::exchange(m_answer, nullptr);
    answer->deleteLater();
    m_modems = MobileModem::listFrom(answer->reply());
    Q_EMIT changed();
}
