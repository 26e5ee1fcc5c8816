#pragma once

#include <QProgressBar>

/// A bar that fills from Min to Max, 0 to 100 at first. Each setter throws RuntimeError 380 for a number that
/// does not fit the others; the bar is then as before.
class ProgressBar : public QProgressBar
{
public:
    explicit ProgressBar(QWidget *parent = nullptr);

    int Min() const { return minimum(); }
    /// Below Max. The value follows where it would be below \a min.
    void setMin(int min);

    int Max() const { return maximum(); }
    /// Above Min. The value follows where it would be above \a max.
    void setMax(int max);

    int Value() const { return value(); }
    /// From Min to Max.
    void setValue(int value);
};
