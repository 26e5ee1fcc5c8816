#pragma once

#include <QLabel>

/// A label on one line that shows a text without its middle where there is no room for all of it, and then
/// has the whole as its tool tip. It is never the reason for a wider window.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &text);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};
