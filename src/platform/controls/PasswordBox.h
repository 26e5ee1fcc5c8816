#pragma once

#include <QLineEdit>

/// A text box that shows a "*" for each character.
class PasswordBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit PasswordBox(QWidget *parent = nullptr);
};
