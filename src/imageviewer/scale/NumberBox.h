#pragma once

#include <QLineEdit>

/// A box in which only digits and points are typed. What is pasted may be anything.
class NumberBox : public QLineEdit
{
    Q_OBJECT

public:
    NumberBox();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
