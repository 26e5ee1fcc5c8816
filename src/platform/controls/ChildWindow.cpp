#include "ChildWindow.h"

#include "EventGate.h"

#include <QApplication>
#include <QCloseEvent>

ChildWindow::ChildWindow(QWidget &child)
{
    setWidget(&child);
    setWindowIcon(child.windowIcon());
    setTitle(child);
    on(&child, &QWidget::windowTitleChanged, this, [this, &child] { setTitle(child); });
    on(&child, &QWidget::windowIconChanged, this, [this](const QIcon &icon) { setWindowIcon(icon); });
}

void ChildWindow::setTitle(const QWidget &child)
{
    const QString mark = child.isWindowModified() ? QStringLiteral("*") : QString();
    setWindowTitle(child.windowTitle() + mark);
}

bool ChildWindow::eventFilter(QObject *watched, QEvent *event)
{
    const bool isEaten = QMdiSubWindow::eventFilter(watched, event);
    run([&] {
        if (watched == widget() && event->type() == QEvent::ModifiedChange)
            setTitle(*widget());
    });
    return isEaten;
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

/// Qt hides the window when it is maximised or restored, and the focus goes to the next control.
void ChildWindow::hideEvent(QHideEvent *event)
{
    run([&] { m_focusedAtHide = isAncestorOf(QApplication::focusWidget()) ? focusWidget() : nullptr; });
    QMdiSubWindow::hideEvent(event);
}

void ChildWindow::showEvent(QShowEvent *event)
{
    QMdiSubWindow::showEvent(event);
    run([&] {
        if (m_focusedAtHide)
            m_focusedAtHide->setFocus();
    });
}
