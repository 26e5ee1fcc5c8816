#pragma once

#include "CvbTAPILine.h"
#include "LineLimits.h"
#include "LineSettings.h"
#include "PrivateSystemBus.h"
#include "RefusedLineDialogs.h"
#include "ScratchHome.h"
#include "TelephoneService.h"

#include <memory>

/// An application with the lines of a test, which records the events of its CvbTAPILine.
class TestLine
{
public:
    // The events of a call that is hung up here, of one that the far end hangs up, and of one that nobody
    // answers.
    static inline const QString hungUp = QStringLiteral("made connected dropped disconnected idle");
    static inline const QString farEndGone = QStringLiteral("made connected disconnected dropped idle");
    static inline const QString notConnected = QStringLiteral("made disconnected dropped idle");

    explicit TestLine(const QList<LineSettings> &lines, const LineLimits &limits = {});
    ~TestLine();

    CvbTAPILine &operator*() { return *m_line; }
    CvbTAPILine *operator->() { return m_line.get(); }

    /// Forgets the events, creates and opens the first line, and begins a call of \a number. False where that
    /// fails at once.
    bool call(const QString &number);
    /// As the window is closed that has the line.
    void destroy() { m_line.reset(); }

    /// The events so far: "made", "dropped" with the error's text where there is one, "connected",
    /// "disconnected", "idle".
    QString events() const { return m_events.join(u' '); }
    /// Waits until the last event is \a event; fails the test where that does not come.
    void waitFor(const char *event);
    /// Nothing is left to come: the events at the end of the event loop's turn.
    QString allEvents();

private:
    ScratchHome m_home;
    PrivateSystemBus m_bus;
    RefusedLineDialogs m_dialogs;
    TelephoneService m_service;
    std::unique_ptr<CvbTAPILine> m_line;
    QStringList m_events;
};
