#pragma once

#include <QMdiSubWindow>

/// The window around a child of the child area. Its icon follows the child's. Once it is closed it is no
/// child of the area any more, and is deleted with its child when no handler runs.
class ChildWindow : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit ChildWindow(QWidget &child);

protected:
    void closeEvent(QCloseEvent *event) override;
};
