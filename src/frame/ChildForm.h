#pragma once

#include "Form.h"

#include <QList>

class QMenu;

/// A window of the frame's child area. Its place and size are those of its window in the area, which it has
/// from before Form_Load on.
class ChildForm : public Form
{
    Q_OBJECT

public:
    using Form::Form;

    /// The menus that take the frame's menu bar while this window is active; none leaves the frame's own
    /// there.
    virtual QList<QMenu *> menus() const { return {}; }

    void showModeless() override;
    void showModal(QWidget *owner) = delete;

protected:
    void takePlace() override;
    void dispose() override;
    const QWidget &outerWindow() const override;
    bool canBeModal() const override { return false; }
};
