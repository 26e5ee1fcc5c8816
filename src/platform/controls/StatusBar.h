#pragma once

#include "StatusBarRow.h"

#include <QStatusBar>
#include <span>

class QLabel;
class QTimer;
class StatusBarPanel;

/// A status bar whose panels are rows of a table. Date and time follow the clock by themselves. Texts yield
/// before the clock does when the window is narrow.
class StatusBar : public QStatusBar
{
public:
    explicit StatusBar(std::span<const StatusBarRow> rows, QWidget *parent = nullptr);

    /// The panel at \a position, from 1 at the left; its objectName is "panel_1" and so on. Throws
    /// RuntimeError 35601 when there is none.
    StatusBarPanel &Panels(int position) const;

    /// Shows \a text, plain, right of the panels, which keep what they show, and takes it away after \a
    /// milliseconds. A text that is too long is cut; the tool tip has it whole.
    void showNotice(const QString &text, int milliseconds);

private:
    void addPanel(const StatusBarRow &row);
    void followClock();

    std::span<const StatusBarRow> m_rows;
    QList<StatusBarPanel *> m_panels;
    QLabel *lblNotice;
    QTimer *m_noticeTimer;
};
