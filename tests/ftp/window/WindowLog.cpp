#include "WindowLog.h"

#include "PrintQt.h"

#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

/// A label with another text asks its layout at once for another place.
class WindowLog::StatusLayout : public QVBoxLayout
{
public:
    StatusLayout(WindowLog &log, QLabel &label)
        : QVBoxLayout(label.parentWidget())
        , m_log(&log)
        , m_label(label)
    {
        addWidget(&label);
    }

    void invalidate() override
    {
        QVBoxLayout::invalidate();
        if (m_log)
            m_log->noteStatus(m_label.text());
    }

private:
    QPointer<WindowLog> m_log;
    QLabel &m_label;
};

WindowLog::WindowLog(const QWidget &window, QLabel &status)
    : m_status(status.text())
{
    delete status.parentWidget()->layout();
    new StatusLayout(*this, status);
    for (QWidget *control : window.findChildren<QWidget *>())
        control->installEventFilter(this);
}

QString WindowLog::statusTexts() const
{
    const QString request =
        QStringLiteral("|Sending Request|Request Sent|Receiving Response|Response Received");
    QString texts;
    for (const QString &entry : m_entries) {
        if (!entry.startsWith(u'+') && !entry.startsWith(u'-'))
            texts += u'|' + entry;
    }
    while (texts.contains(request + request))
        texts.replace(request + request, request);
    return texts.mid(1);
}

bool WindowLog::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<const QWidget *>(watched);
    const QString name = watched->objectName();
    if (event->type() == QEvent::EnabledChange && !name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
        m_entries << (control->isEnabled() ? u'+' : u'-') + name;
    return false;
}

void WindowLog::noteStatus(const QString &status)
{
    if (status != m_status)
        m_entries << status;
    m_status = status;
}
