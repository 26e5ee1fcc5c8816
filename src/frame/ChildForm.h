#pragma once

#include "Form.h"

#include <QList>

class QMenu;

/// A window that lives in the frame's child area.
class ChildForm : public Form
{
public:
    using Form::Form;

    /// The menus that take the frame's menu bar while this window is active; none leaves the frame's own
    /// there.
    virtual QList<QMenu *> menus() const { return {}; }

    void showModeless() override;

protected:
    void dispose() override;
};
