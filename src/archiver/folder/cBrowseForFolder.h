#pragma once

#include "FolderDialogOptions.h"

#include <QObject>

class FolderDialog;

/// The dialog in which the user chooses a folder. Paths are native and as FileNames has them.
class cBrowseForFolder : public QObject, public FolderDialogOptions
{
    Q_OBJECT

public:
    /// The platform's number of a folder with a meaning (0 or 16 the desktop, 5 the documents, 13 the music,
    /// 14 the videos, 39 the pictures, 40 the home folder), which becomes RootDir. Throws RuntimeError 5 for
    /// another number.
    int SpecialFolderLocation() const { return m_specialFolder; }
    void setSpecialFolderLocation(int number);

    /// Shows the dialog and returns the chosen path, empty where it was cancelled. The path may be one that
    /// does not exist, unless ValidateEditBox is set. Throws RuntimeError 76, with the source
    /// ".cBrowseForFolder", where RootDir is missing.
    QString BrowseForFolder();
    /// The name of the folder that was chosen last.
    QString DisplayName() const { return m_displayName; }

    // Both throw RuntimeError 5, with the source ".cBrowseForFolder", while there is no dialog.

    /// Selects \a path. Throws RuntimeError 76 where it is no folder.
    void SetFolder(const QString &path);
    void SetStatus(const QString &text);

Q_SIGNALS:
    // All of them come while the dialog is open.

    void Initialized();
    /// Another folder is selected. \a bAllowOk, true at first, says whether it may be chosen.
    void SelectionChanged(const QString &sPath, bool &bAllowOk);
    /// The typed \a sPath does not exist. The dialog is cancelled unless \a bKeepOpen, false at first, is
    /// set.
    void ValidationFailed(const QString &sPath, bool &bKeepOpen);

private:
    FolderDialog &dialog() const;

    FolderDialog *m_dialog = nullptr; ///< while it is open
    QString m_displayName;
    int m_specialFolder = 0;
};
