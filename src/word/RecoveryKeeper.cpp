#include "RecoveryKeeper.h"

#include "EventGate.h"
#include "Form.h"
#include "RecoveryCopy.h"
#include "RecoveryFolder.h"
#include "RichTextBox.h"

using namespace std::chrono_literals;

RecoveryKeeper::RecoveryKeeper(const RichTextBox &text, Form &window)
    : QObject(&window)
    , m_text(text)
    , m_window(window)
    , m_timer(this)
{
    m_timer.setObjectName(QStringLiteral("tmrRecovery"));
    m_timer.setSingleShot(true);
    m_timer.setInterval(3s);
    on(&m_timer, &QTimer::timeout, this, &RecoveryKeeper::Timer_Timer);
    on(&window, &QWidget::windowTitleChanged, this, &RecoveryKeeper::renamed);
    EventGate::beforeEnd(this, [this] { keepNow(); });
}

RecoveryKeeper::~RecoveryKeeper() = default;

void RecoveryKeeper::changed()
{
    m_isBehind = true;
    if (!m_timer.isActive()) // not put off by each key, so that long typing is kept, too
        m_timer.start();
}

void RecoveryKeeper::renamed()
{
    if (m_copy)
        changed();
}

void RecoveryKeeper::settled()
{
    m_isBehind = false;
    m_timer.stop();
    m_writing.stop();
    if (m_copy)
        m_copy->remove();
    m_copy.reset();
}

void RecoveryKeeper::leaveBehind()
{
    m_isBehind = true;
    keepNow();
    m_timer.stop();
    m_isBehind = false;
    m_copy.reset();
}

void RecoveryKeeper::adopt(std::unique_ptr<RecoveryCopy> copy)
{
    settled();
    m_copy = std::move(copy);
}

/// Runs until what has been written is known to be there: a full disk may have free space again.
void RecoveryKeeper::Timer_Timer()
{
    if (m_writing.isRunning()) {
        m_timer.start();
    } else if (m_isBehind || !m_writing.hasSucceeded()) {
        startWriting();
        m_timer.start();
    }
}

void RecoveryKeeper::startWriting()
{
    if (!makeCopy())
        return;
    m_isBehind = !m_writing.start([this] { return m_copy->write(content()); });
}

void RecoveryKeeper::keepNow()
{
    if (m_isBehind)
        startWriting();
    if (!m_writing.wait() && m_copy) // no process could be made, or it ended before the copy was whole
        m_copy->write(content());
}

bool RecoveryKeeper::makeCopy()
{
    if (!m_copy)
        m_copy = RecoveryFolder::makeCopy();
    return m_copy != nullptr;
}

RecoveryText RecoveryKeeper::content() const
{
    return {m_window.Caption(), m_text.LineEnd(), m_text.TextRTF()};
}
