#include "ChildWindow.h"

#include "EventGate.h"

#include <QCloseEvent>

ChildWindow::ChildWindow(QWidget &child)
{
    setWidget(&child);
    setWindowIcon(child.windowIcon());
    on(&child, &QWidget::windowIconChanged, this, [this](const QIcon &icon) { setWindowIcon(icon); });
}

void ChildWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    run([&] {
        // With this attribute the area removes the window at once. The deletion that the attribute asks for
        // would be too early.
        setAttribute(Qt::WA_DeleteOnClose, true);
        QMdiSubWindow::closeEvent(event);
        setAttribute(Qt::WA_DeleteOnClose, false);
        if (event->isAccepted())
            RunningHandler::deleteWhenNoneRuns(this);
    });
}
