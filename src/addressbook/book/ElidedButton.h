#pragma once

#include <QPushButton>

/// A button that may be narrower than its caption. What does not fit is then three dots, and the whole
/// caption is the tool tip.
class ElidedButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString shownCaption() const;
};
