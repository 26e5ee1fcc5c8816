#pragma once

#include <QMessageBox>
#include <QStringList>

/// What was on the screen when a modal window came up. Captions are without mnemonics; what only a message
/// box has is empty for other windows, but an input box has its prompt as text.
struct SeenDialog
{
    QString objectName;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QString defaultButton;

    static SeenDialog of(const QWidget &window);

    /// One line for a failure message.
    QString describe() const;
};
