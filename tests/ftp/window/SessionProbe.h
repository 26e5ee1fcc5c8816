#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <functional>

class InternetTransfer;

/// Hears what the transfer session of an FTP window reports, just before the window does. The window has to
/// be made later than the probe.
class SessionProbe : public QObject
{
public:
    SessionProbe();

    /// The states that were reported, an error with its ResponseCode: "5 6 7 8 11:12003".
    QString states() const { return m_states.join(u' '); }
    void forgetStates() { m_states.clear(); }
    /// Runs \a step once, when \a state is reported next. What the step posts comes in the window's handler,
    /// if that runs events.
    void atState(int state, const std::function<void()> &step) { m_steps[state] = step; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(InternetTransfer &session);
    void note(const InternetTransfer &session, int state);

    QStringList m_states;
    QHash<int, std::function<void()>> m_steps;
};
