#include "PercentList.h"

#include "EventGate.h"
#include "SizeSteps.h"

#include <QKeyEvent>

PercentList::PercentList()
{
    for (int row = 0; row < SizeSteps::percentRows; ++row)
        addItem(QString::number(SizeSteps::percent(row)));
    setCurrentIndex(-1);
    setMaxVisibleItems(SizeSteps::percentRows);
    on(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

void PercentList::setListIndex(int row)
{
    if (row == currentIndex())
        return;
    setCurrentIndex(row);
    Q_EMIT Click();
}

void PercentList::step(int direction)
{
    const int from = currentIndex() < 0 ? SizeSteps::wholeRow : currentIndex();
    setListIndex(qBound(0, from + direction, SizeSteps::percentRows - 1));
}

void PercentList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        run([&] { Q_EMIT Click(); });
    else
        QComboBox::keyPressEvent(event);
}

/// The wheel zooms with Ctrl alone, wherever the mouse is.
void PercentList::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
