#pragma once

#include <QString>

class QWidget;

/// What a folder dialog is made with.
struct FolderDialogOptions
{
    QWidget *hwndOwner = nullptr;
    QString Title = QStringLiteral("Choose Folder");
    QString InitialDir;          ///< the folder that is selected at first; one that is missing is passed over
    QString RootDir;             ///< the only folder that the tree begins with; empty for all drives
    bool EditBox = false;        ///< a path can be typed
    bool StatusText = false;     ///< there is a line for SetStatus(), which has the selected path at first
    bool FileSystemOnly = false; ///< there is nothing but the file system, whatever this says
    bool ValidateEditBox = false; ///< a typed path has to exist
    bool UseNewUI = false;        ///< folders can be made
    bool IncludeFiles = false;    ///< files can be chosen too
};
