#include "FrameMenuBar.h"

#include "EventGate.h"

#include <QActionEvent>
#include <QApplication>
#include <QMenu>
#include <QTimer>

FrameMenuBar::FrameMenuBar(QWidget *parent)
    : QMenuBar(parent)
{
    on(qApp, &QApplication::focusChanged, this, &FrameMenuBar::focusChanged);
}

void FrameMenuBar::focusChanged(QWidget *before, QWidget *now)
{
    if (now == this && before && before != this)
        m_focusedBefore = before;
}

void FrameMenuBar::actionEvent(QActionEvent *event)
{
    QMenuBar::actionEvent(event);
    run([&] {
        const QMenu *menu = event->action()->menu();
        if (menu && event->type() == QEvent::ActionAdded)
            on(menu, &QMenu::aboutToHide, this, &FrameMenuBar::menuHides);
        else if (menu && event->type() == QEvent::ActionRemoved)
            disconnect(menu, &QMenu::aboutToHide, this, nullptr);
    });
}

/// The key that closes the menu may open the one beside it.
void FrameMenuBar::menuHides()
{
    QTimer::singleShot(0, this, [this] { run([&] { giveKeyboardBack(); }); });
}

void FrameMenuBar::giveKeyboardBack()
{
    const bool isAtPlainItem = activeAction() && !activeAction()->menu();
    if (window()->focusWidget() == this && !QApplication::activePopupWidget() && !isAtPlainItem &&
        m_focusedBefore)
        m_focusedBefore->setFocus(Qt::MenuBarFocusReason);
}
