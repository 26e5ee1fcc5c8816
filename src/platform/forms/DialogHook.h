#pragma once

#include <QString>
#include <qwindowdefs.h>

/// Who wants to follow a file dialog. It has to live until the dialog is down. Paths are native.
class DialogHook
{
public:
    virtual ~DialogHook() = default;

    /// The dialog \a window is about to come up; what this throws keeps it from doing so.
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
