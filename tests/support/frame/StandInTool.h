#pragma once

#include "ChildForm.h"

#include <QMenu>

/// A tool window of a test's own: a child of the frame without a text, with one menu where it is asked for.
class StandInTool : public ChildForm
{
public:
    explicit StandInTool(const QString &name, const QString &menu = {})
        : ChildForm(name)
    {
        setCaption(name);
        if (!menu.isEmpty())
            m_menus.append(new QMenu(menu, this));
    }

    QList<QMenu *> menus() const override { return m_menus; }
    int loads = 0;

protected:
    void Form_Load() override { ++loads; }

private:
    QList<QMenu *> m_menus;
};
