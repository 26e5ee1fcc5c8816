#include "EngineView.h"

#include "EnginePage.h"

#include <QChildEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWheelEvent>
#include <algorithm>

namespace {

/// Keys that the frame's menus have too: what is edited in a page gets them first.
bool isForEditing(const QKeyEvent &event)
{
    static constexpr QKeySequence::StandardKey keys[] = {
        QKeySequence::Copy, QKeySequence::Cut,  QKeySequence::Paste,
        QKeySequence::Undo, QKeySequence::Redo, QKeySequence::SelectAll,
    };
    return std::any_of(std::begin(keys), std::end(keys),
                       [&](QKeySequence::StandardKey key) { return event.matches(key); });
}

} // namespace

/// Escape ends what is on the way, or does something in the page.
bool EngineView::isForPage(const QKeyEvent &event) const
{
    return isForEditing(event) || (event.key() == Qt::Key_Escape && !page()->isLoading());
}

EngineView::EngineView(EnginePage &page, QWidget *parent)
    : QWebEngineView(&page, parent)
{}

/// The engine puts a widget of its own into this one, and another one later.
bool EngineView::event(QEvent *event)
{
    if (event->type() == QEvent::ChildAdded)
        static_cast<QChildEvent *>(event)->child()->installEventFilter(this);
    return QWebEngineView::event(event);
}

bool EngineView::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        Q_EMIT UserInput();
        break;
    case QEvent::ShortcutOverride:
        if (isForPage(static_cast<QKeyEvent &>(*event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::Wheel: {
        const auto &wheel = static_cast<QWheelEvent &>(*event);
        const int turned = wheel.angleDelta().y();
        if (wheel.modifiers().testFlag(Qt::ControlModifier) && turned != 0) {
            Q_EMIT ZoomWanted(turned > 0 ? 1 : -1);
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QWebEngineView::eventFilter(watched, event);
}

void EngineView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    for (const auto what : {QWebEnginePage::ViewSource, QWebEnginePage::OpenLinkInNewTab})
        menu->removeAction(pageAction(what)); // there is one page to a window
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}
