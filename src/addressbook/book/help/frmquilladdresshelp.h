#pragma once

#include "Form.h"

class QPushButton;
class RichTextBox;

/// The address book's help, one document whose links open in the desktop's own programs.
class frmquilladdresshelp : public Form
{
    Q_OBJECT

public:
    frmquilladdresshelp();

    QSize sizeHint() const override;

protected:
    /// Throws RuntimeError as Files::read does where the document is missing.
    void Form_Load() override;

private:
    void OKButton_Click();
    void RichTextBox1_LinkClicked(int first);

    RichTextBox *RichTextBox1;
    QPushButton *OKButton;
};
