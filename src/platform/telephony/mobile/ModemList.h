#pragma once

#include "MobileModem.h"

#include <QList>
#include <QObject>
#include <optional>

class QDBusPendingCallWatcher;

/// The mobile modems of this computer as far as ModemManager has told them. It is asked when this object is
/// made and whenever modems come and go, and it is not started for this.
class ModemList : public QObject
{
    Q_OBJECT

public:
    explicit ModemList(QObject *parent = nullptr);

    /// Sorted by their identifiers; none where ModemManager does not run or does not answer.
    const QList<MobileModem> &modems() const { return m_modems; }
    /// The one whose equipment has \a identifier.
    std::optional<MobileModem> find(const QString &identifier) const;

    /// Waits for an answer that is still to come, until a second after the question at most.
    void wait();

Q_SIGNALS:
    /// modems() has changed.
    void changed();

private Q_SLOTS:
    void modemsChanged();

private:
    void ask();
    void take();

    QList<MobileModem> m_modems;
    QDBusPendingCallWatcher *m_answer = nullptr; ///< the one that is still to come
};
