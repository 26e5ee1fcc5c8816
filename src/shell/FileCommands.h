#pragma once

#include "RichTextFile.h"

class frmMain;

/// The file commands of the frame. Each works on the frame's active window and reaches its text by name.
class FileCommands
{
public:
    explicit FileCommands(frmMain &frame);

    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileClose_Click();
    /// Opens the file \a name in a document of its own, unless it is open.
    void open(const QString &name);
    /// Catches nothing: a failure to save, or an active window without text, ends the process.
    void SaveCurrentDocument();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();

    /// True, and shown in a box, when a window has \a name for its caption, letter for letter.
    static bool refuseOpenFile(const QString &name);

private:
    /// Shows the prepared save dialog and saves the active window under the name that came back, if any.
    void saveAs(RichTextFile::Format format);

    frmMain &m_frame;
};
