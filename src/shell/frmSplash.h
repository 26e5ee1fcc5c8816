#pragma once

#include "Form.h"

class QLabel;
class QTimer;

/// The picture at start-up, with the version on it. It closes by itself, by a click or by a key.
class frmSplash : public Form
{
    Q_OBJECT

public:
    frmSplash();

protected:
    void Form_Load() override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Timer1_Timer();

    QLabel *lblVersion;
    QTimer *Timer1;
};
