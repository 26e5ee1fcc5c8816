#pragma once

#include "Form.h"

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class UpDown;

/// Left and right margin of the active document's current paragraph or of all.
///
/// Intended: its labels say millimetres, but the numbers are twips, the text's own unit.
class frmMargins : public Form
{
    Q_OBJECT

public:
    frmMargins();

protected:
    void Form_Load() override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    enum Side { Left, Right };
    enum Extent { CurrentParagraph, WholeDocument };

    void OKButton_Click();
    void CancelButton_Click();

    QWidget *buildSides();
    QWidget *buildExtents();
    QWidget *buildButtons();

    std::array<QLabel *, 2> Label2;
    std::array<QLineEdit *, 2> Text1;
    std::array<UpDown *, 2> UpDown1;
    std::array<QRadioButton *, 2> Option1;
    std::array<QLabel *, 2> Label1;
    QPushButton *OKButton;
    QPushButton *CancelButton;
};
