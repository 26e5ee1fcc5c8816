#pragma once

#include <QMenuBar>
#include <QPointer>

/// A menu bar that gives the keyboard back to the control that had it, once a menu that was opened by keys is
/// closed. Qt's own keeps it for another Escape, and for good where two menus were opened one after the
/// other.
class FrameMenuBar : public QMenuBar
{
public:
    explicit FrameMenuBar(QWidget *parent);

protected:
    void actionEvent(QActionEvent *event) override;

private:
    void focusChanged(QWidget *before, QWidget *now);
    void menuHides();
    void giveKeyboardBack();

    QPointer<QWidget> m_focusedBefore;
};
