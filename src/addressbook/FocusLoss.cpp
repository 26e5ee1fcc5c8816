#include "FocusLoss.h"

#include "EventGate.h"

#include <QFocusEvent>
#include <QWidget>

namespace {

bool isBorrowed(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

FocusLoss::FocusLoss(QWidget &control)
    : QObject(&control)
{
    control.installEventFilter(this);
}

bool FocusLoss::eventFilter(QObject *, QEvent *event)
{
    run([&] {
        if (event->type() == QEvent::FocusOut && !isBorrowed(static_cast<QFocusEvent *>(event)->reason()))
            Q_EMIT LostFocus();
    });
    return false;
}
