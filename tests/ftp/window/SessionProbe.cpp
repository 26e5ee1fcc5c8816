#include "SessionProbe.h"

#include "InternetTransfer.h"

#include <QChildEvent>
#include <QCoreApplication>

SessionProbe::SessionProbe()
{
    QCoreApplication::instance()->installEventFilter(this);
}

/// A window binds its session after it has named it, so whoever follows the session from then on is first.
bool SessionProbe::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded && watched->inherits("frmFTP")) {
        QObject *child = static_cast<QChildEvent *>(event)->child();
        connect(child, &QObject::objectNameChanged, this, [this, child] {
            if (auto *session = qobject_cast<InternetTransfer *>(child))
                follow(*session);
        });
    }
    return false;
}

void SessionProbe::follow(InternetTransfer &session)
{
    connect(&session, &InternetTransfer::StateChanged, this,
            [this, &session](int state) { note(session, state); });
}

void SessionProbe::note(const InternetTransfer &session, int state)
{
    const QString code =
        state == InternetTransfer::Error ? QStringLiteral(":%1").arg(session.ResponseCode()) : QString();
    m_states << QString::number(state) + code;
    if (const auto step = m_steps.take(state))
        step();
}
