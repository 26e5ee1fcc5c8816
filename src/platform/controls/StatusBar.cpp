#include "StatusBar.h"

#include "ControlName.h"
#include "EventGate.h"
#include "Named.h"
#include "RuntimeError.h"
#include "ShownText.h"
#include "StatusBarPanel.h"
#include "Twips.h"

#include <QDateTime>
#include <QLocale>
#include <QTimer>

namespace {

constexpr int tick = 1000; // milliseconds; shows a minute within a second of its turn, also after a suspend

} // namespace

StatusBar::StatusBar(std::span<const StatusBarRow> rows, QWidget *parent)
    : QStatusBar(parent)
    , m_rows(rows)
    , lblNotice(named("lblNotice", new QLabel(this)))
    , m_noticeTimer(new QTimer(this))
{
    for (const StatusBarRow &row : rows)
        addPanel(row);
    followClock();
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setMinimumWidth(1); // a long notice is cut, and does not widen the window
    addPermanentWidget(lblNotice);
    lblNotice->hide();
    m_noticeTimer->setSingleShot(true);
    on(m_noticeTimer, &QTimer::timeout, lblNotice, &QLabel::hide);

    auto *clock = new QTimer(this);
    on(clock, &QTimer::timeout, this, &StatusBar::followClock);
    clock->start(tick);
}

void StatusBar::addPanel(const StatusBarRow &row)
{
    auto *panel = new StatusBarPanel(this);
    m_panels += panel;
    panel->setObjectName(ControlName("panel", int(m_panels.size())).text());
    panel->setText(QString::fromUtf8(row.text));
    panel->setToolTip(ShownText::toolTip(QString::fromUtf8(row.toolTip)));
    panel->setAlignment(row.alignment | Qt::AlignVCenter);
    const int width = Twips::toPixels(row.width, logicalDpiX());
    if (row.kind != StatusBarRow::Kind::Text) {
        panel->setFixedWidth(width);
        addWidget(panel);
        return;
    }
    panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel->setIndent(fontMetrics().averageCharWidth());
    if (row.width > 0)
        panel->setMaximumWidth(width);
    addWidget(panel, 1);
}

StatusBarPanel &StatusBar::Panels(int position) const
{
    if (position < 1 || position > m_panels.size())
        throw RuntimeError(ErrorNumber::ElementNotFound, {}, objectName());
    return *m_panels[position - 1];
}

void StatusBar::showNotice(const QString &text, int milliseconds)
{
    lblNotice->setText(ShownText::line(text));
    lblNotice->setToolTip(ShownText::toolTip(text));
    lblNotice->show();
    m_noticeTimer->start(milliseconds);
}

void StatusBar::followClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    for (qsizetype i = 0; i < m_panels.size(); ++i) {
        if (m_rows[size_t(i)].kind == StatusBarRow::Kind::Date)
            m_panels[i]->setText(locale.toString(now.date(), QLocale::ShortFormat));
        else if (m_rows[size_t(i)].kind == StatusBarRow::Kind::Time)
            m_panels[i]->setText(locale.toString(now.time(), QLocale::ShortFormat));
    }
}
