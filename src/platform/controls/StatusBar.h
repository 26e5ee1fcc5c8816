#pragma once

#include <QStatusBar>

class QLabel;

/// A status bar of three panels: a fixed text, the date and the time of day, which follow the clock by
/// themselves. The text's panel yields before the clock does when the window is narrow.
class StatusBar : public QStatusBar
{
public:
    /// Panel widths in twips.
    struct Widths
    {
        int text;
        int date;
        int time;
    };

    StatusBar(const QString &text, const Widths &widths, QWidget *parent = nullptr);

private:
    QLabel *addPanel(const QString &name, int twips, bool yields);
    void followClock();

    QLabel *m_date = nullptr;
    QLabel *m_time = nullptr;
};
