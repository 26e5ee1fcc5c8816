#include "StatusBar.h"

#include "EventGate.h"
#include "Twips.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QTimer>

namespace {

constexpr int tick = 1000; // milliseconds; shows a minute within a second of its turn, also after a suspend

} // namespace

StatusBar::StatusBar(const QString &text, const Widths &widths, QWidget *parent)
    : QStatusBar(parent)
{
    QLabel *label = addPanel(QStringLiteral("panel_1"), widths.text, true);
    label->setText(text);
    label->setToolTip(text);
    m_date = addPanel(QStringLiteral("panel_2"), widths.date, false);
    m_time = addPanel(QStringLiteral("panel_3"), widths.time, false);
    followClock();

    auto *clock = new QTimer(this);
    on(clock, &QTimer::timeout, this, &StatusBar::followClock);
    clock->start(tick);
}

QLabel *StatusBar::addPanel(const QString &name, int twips, bool yields)
{
    auto *panel = new QLabel(this);
    panel->setObjectName(name);
    const int width = Twips::toPixels(twips, logicalDpiX());
    if (yields) {
        panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        panel->setMaximumWidth(width);
        panel->setIndent(fontMetrics().averageCharWidth());
        addWidget(panel, 1);
    } else {
        panel->setFixedWidth(width);
        panel->setAlignment(Qt::AlignCenter);
        addWidget(panel);
    }
    return panel;
}

void StatusBar::followClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    m_date->setText(locale.toString(now.date(), QLocale::ShortFormat));
    m_time->setText(locale.toString(now.time(), QLocale::ShortFormat));
}
