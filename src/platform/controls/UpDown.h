#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

/// Spin buttons beside a text box. They step the number in its text; what is typed there is not limited.
class UpDown : public QWidget
{
public:
    /// Steps the text of \a buddy by 1 within \a least to \a most, as do the arrow keys in it; a text that is
    /// no number counts as 0.
    UpDown(QLineEdit &buddy, int least, int most, QWidget *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *addButton(Qt::ArrowType arrow, int step);
    void stepBy(int step);

    QLineEdit &m_buddy;
    int m_least;
    int m_most;
};
