#pragma once

#include <QMessageBox>
#include <QStringList>

/// What stood on the screen when a modal window came up. Texts are without mnemonics; what only a message box
/// has is empty for other windows.
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
