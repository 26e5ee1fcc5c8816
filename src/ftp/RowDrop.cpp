#include "RowDrop.h"

#include "EventGate.h"

#include <QAbstractItemView>
#include <QDropEvent>

namespace {

bool isOfDrag(const QEvent &event)
{
    return event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove ||
           event.type() == QEvent::Drop;
}

} // namespace

RowDrop::RowDrop(QAbstractItemView &from, QAbstractItemView &onto)
    : QObject(&onto)
    , m_from(from)
    , m_onto(onto)
{
    m_from.setDragEnabled(true);
    m_onto.viewport()->setAcceptDrops(true);
    m_onto.viewport()->installEventFilter(this);
}

bool RowDrop::eventFilter(QObject *watched, QEvent *event)
{
    bool isOwn = false;
    run([&] {
        isOwn = isOfDrag(*event);
        if (isOwn)
            take(*event);
    });
    return isOwn || QObject::eventFilter(watched, event);
}

void RowDrop::take(QEvent &event)
{
    auto &drag = static_cast<QDropEvent &>(event);
    if (drag.source() != &m_from) {
        drag.ignore();
        return;
    }
    drag.acceptProposedAction();
    if (drag.type() == QEvent::Drop) // later: a handler that waits would keep the drag on the screen
        QMetaObject::invokeMethod(
            this, [this] { run([&] { Q_EMIT Dropped(); }); }, Qt::QueuedConnection);
}
