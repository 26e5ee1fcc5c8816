#pragma once

#include <QString>

class QWidget;

/// The common-dialog control of a window: its settings stay from one showing to the next, as the control's
/// properties do, until a command changes them.
class CommonDialog
{
public:
    enum Flag {
        OverwritePrompt = 2, ///< ask before a name that exists is taken
        HideReadOnly = 4,
    };

    explicit CommonDialog(QWidget *owner);

    QString DialogTitle;
    QString FileName;   ///< the initial name; the chosen path comes back here, native
    QString InitDir;    ///< "\" may separate; empty for the current folder
    QString DefaultExt; ///< taken for a chosen name without an extension
    QString Filter;     ///< "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"
    int Flags = 0;      ///< bitwise OR of Flag
    bool CancelError = false;

    /// A cancelled dialog leaves FileName as it was and, with CancelError, throws RuntimeError 32755.
    void ShowOpen();
    void ShowSave();

private:
    enum class Kind { Open, Save };
    void showFileDialog(Kind kind);

    QWidget *m_owner;
};
