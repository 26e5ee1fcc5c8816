#pragma once

#include <QObject>

class QWidget;

/// Signals that the focus has moved from a control to another one of its window. Another window, a menu, or
/// the control's own list only borrows the focus.
class FocusLoss : public QObject
{
    Q_OBJECT

public:
    /// Is owned by \a control.
    explicit FocusLoss(QWidget &control);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void LostFocus();
};
