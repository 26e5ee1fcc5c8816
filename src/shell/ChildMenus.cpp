#include "ChildMenus.h"

#include "ChildForm.h"
#include "EventGate.h"
#include "MdiArea.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

ChildMenus::ChildMenus(QMenuBar &bar, MdiArea &area)
    : QObject(&bar)
    , m_bar(bar)
    , m_area(area)
    , m_frameMenus(bar.actions())
{
    on(&area, &MdiArea::activeChildChanged, this, &ChildMenus::follow);
}

void ChildMenus::follow()
{
    // Not the window that Qt activates: it may be hidden, and is none while the frame has no focus.
    const QMdiSubWindow *active = m_area.activeChild();
    QList<QAction *> wanted;
    if (const auto *child = active ? qobject_cast<ChildForm *>(active->widget()) : nullptr) {
        for (QMenu *menu : child->menus())
            wanted.append(menu->menuAction());
    }
    if (wanted.isEmpty())
        wanted = m_frameMenus;
    if (wanted == m_bar.actions())
        return;
    for (QAction *action : m_bar.actions())
        m_bar.removeAction(action);
    m_bar.addActions(wanted);
}
