#pragma once

#include <QList>
#include <QObject>

class MdiArea;
class QAction;
class QMenuBar;

/// Gives the frame's menu bar to the active child's own menus, and back to the frame's where the child has
/// none. Mnemonics and shortcuts thus belong to one set at a time.
class ChildMenus : public QObject
{
public:
    ChildMenus(QMenuBar &bar, MdiArea &area);

private:
    void follow();

    QMenuBar &m_bar;
    MdiArea &m_area;
    QList<QAction *> m_frameMenus;
};
