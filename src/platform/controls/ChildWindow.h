#pragma once

#include <QMdiSubWindow>
#include <QPointer>

/// The window around a child of the child area. Its icon follows the child's, and its title has a star behind
/// it while the child is modified. The control that has the focus keeps it when the window is maximised or
/// restored. Once it is closed it is no
/// child of the area any more, and is deleted with its child when no handler runs.
class ChildWindow : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit ChildWindow(QWidget &child);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void setTitle(const QWidget &child);

    QPointer<QWidget> m_focusedAtHide;
};
