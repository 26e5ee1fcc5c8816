#pragma once

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>

/// Presses the dialog's "Print", which unlike its accept() looks at the file's name first.
inline void pressPrint(QPrintDialog &dialog)
{
    dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
}

/// Prints to the file \a name.
inline void pressPrint(QPrintDialog &dialog, const QString &name)
{
    dialog.findChild<QLineEdit *>(QStringLiteral("filename"))->setText(name);
    pressPrint(dialog);
}
