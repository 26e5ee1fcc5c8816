#pragma once

#include <QString>

class QWidget;

/// One scripted answer to one modal window.
class DialogStep
{
public:
    virtual ~DialogStep() = default;

    /// True when \a window is the one that this step waits for.
    virtual bool matches(const QWidget &window) const = 0;
    /// Checks \a window and answers it. It has to leave the window closed, or for a following step to answer.
    virtual void answer(QWidget &window) const = 0;
    /// What the step waits for, for a failure message.
    virtual QString describe() const = 0;
};
