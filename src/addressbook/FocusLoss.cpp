#include "FocusLoss.h"

#include "EventGate.h"

#include <QEvent>
#include <QWidget>

namespace {

/// Where the focus is only borrowed the window still has it in the control.
bool isLeft(const QWidget &control)
{
    const QWidget *focus = control.window()->focusWidget();
    return focus != &control && !control.isAncestorOf(focus);
}

} // namespace

FocusLoss::FocusLoss(QWidget &control)
    : QObject(&control)
{
    control.installEventFilter(this);
}

bool FocusLoss::eventFilter(QObject *watched, QEvent *event)
{
    run([&] {
        if (event->type() == QEvent::FocusOut && isLeft(static_cast<const QWidget &>(*watched)))
            Q_EMIT LostFocus();
    });
    return false;
}
