#include "PasswordBox.h"

PasswordBox::PasswordBox(QWidget *parent)
    : QLineEdit(parent)
{
    setEchoMode(Password);
    setStyleSheet(QStringLiteral("lineedit-password-character: %1").arg(int('*')));
}
