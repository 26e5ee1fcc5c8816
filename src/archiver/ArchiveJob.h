#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <functional>

class Form;
class QAction;
class QWidget;

/// Runs the jobs of an archiver window. What would begin another job is disabled meanwhile, and the window's
/// events go through between two pieces of work: it repaints, and it can be moved and closed.
class ArchiveJob
{
public:
    /// \a commands are the names of the controls and menu items of \a window that wait for the end of a job.
    ArchiveJob(Form &window, const QStringList &commands);

    bool isRunning() const { return m_isRunning; }

    /// Returns when \a job is over; the window may have been unloaded meanwhile. What it throws reaches the
    /// caller.
    void run(const std::function<void()> &job);

    /// Called by the job between two pieces of work. Returns false once the window has been unloaded, which
    /// ends the job.
    bool letEventsThrough();

private:
    void begin();
    void end();

    Form &m_window;
    QStringList m_commands;
    QElapsedTimer m_sinceEvents;
    bool m_isRunning = false;
    // What has been disabled.
    QList<QWidget *> m_controls;
    QList<QAction *> m_items;
    QWidget *m_focused = nullptr;
};
