#pragma once

#include <QString>
#include <qwindowdefs.h>

/// A listener to a file dialog. It has to exist until the dialog is closed. Paths are native.
class DialogHook
{
public:
    virtual ~DialogHook() = default;

    /// The dialog \a window is about to be shown; an exception thrown here prevents that.
    virtual void InitDialog(WId window) { Q_UNUSED(window) }
    /// The filter with the 1-based \a index was chosen.
    virtual void TypeChange(int index) { Q_UNUSED(index) }
    virtual void FolderChange(const QString &folder) { Q_UNUSED(folder) }
    virtual void FileChange(const QString &path) { Q_UNUSED(path) }
    /// Returns false to keep the dialog open although \a path could be taken.
    virtual bool ConfirmOK(const QString &path)
    {
        Q_UNUSED(path)
        return true;
    }
    virtual void DialogClose() {}
};
