#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPaintEvent>
#include <QWidget>
#include <utility>

/// What of a widget is painted in an event loop.
class PaintedArea : public QObject
{
public:
    explicit PaintedArea(QWidget &widget) { widget.installEventFilter(this); }
    /// Takes what was painted since the last question, after pending updates.
    bool covers(const QRect &area)
    {
        QCoreApplication::processEvents();
        return QRegion(area).subtracted(std::exchange(m_region, QRegion())).isEmpty();
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

private:
    QRegion m_region;
};
