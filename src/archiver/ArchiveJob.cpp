#include "ArchiveJob.h"

#include "EventGate.h"
#include "Form.h"

#include <QAction>
#include <QScopeGuard>

namespace {

constexpr int eventPause = 25; // milliseconds between two times when events go through

} // namespace

ArchiveJob::ArchiveJob(Form &window, const QStringList &commands)
    : m_window(window)
    , m_commands(commands)
{}

void ArchiveJob::run(const std::function<void()> &job)
{
    begin();
    const auto ending = qScopeGuard([this] { end(); });
    job();
}

void ArchiveJob::begin()
{
    m_isRunning = true;
    m_focused = m_window.focusWidget();
    for (const QString &name : m_commands) {
        for (auto *control : m_window.findChildren<QWidget *>(name)) {
            if (control->isEnabled())
                m_controls += control;
        }
        for (auto *item : m_window.findChildren<QAction *>(name)) {
            if (item->isEnabled())
                m_items += item;
        }
    }
    for (QWidget *control : m_controls)
        control->setEnabled(false);
    for (QAction *item : m_items)
        item->setEnabled(false);
    m_sinceEvents.start();
}

void ArchiveJob::end()
{
    for (QWidget *control : m_controls)
        control->setEnabled(true);
    for (QAction *item : m_items)
        item->setEnabled(true);
    // A control that is disabled gives its focus away. It gets it back unless the user has left the window;
    // the frame may not be the active window yet, after a dialog.
    if (m_controls.contains(m_focused) && m_window.isAncestorOf(m_window.window()->focusWidget()))
        m_focused->setFocus();
    m_controls.clear();
    m_items.clear();
    m_isRunning = false;
}

bool ArchiveJob::letEventsThrough()
{
    if (m_sinceEvents.elapsed() >= eventPause) {
        processPendingEvents();
        m_sinceEvents.restart();
    }
    return m_window.isLoaded();
}
