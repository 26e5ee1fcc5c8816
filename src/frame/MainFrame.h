#pragma once

#include "MdiArea.h"

class ChildForm;
class Form;
class QMenu;
class Toolbar;

/// What the tools know of the frame.
class MainFrame
{
public:
    virtual ~MainFrame() = default;

    /// Opens a new document window, numbers it and shows it.
    virtual void LoadNewDoc() = 0;
    /// Shows or hides the document commands by what is open. Called after a document has been opened or
    /// closed.
    virtual void checkForDocument() = 0;
    /// Writes the active document to its file, or asks for one. Throws when it cannot be written; the
    /// document then still counts as changed.
    virtual void SaveCurrentDocument() = 0;
    /// Unloads the frame, and with it the program.
    virtual void mnuFileExit_Click() = 0;
    /// Places the child windows.
    virtual void Arrange(MdiArea::Arrangement kind) = 0;
    /// The active child window whatever dialog is in front, or nullptr.
    virtual Form *ActiveForm() const = 0;
    virtual Toolbar &tbToolBar() const = 0;

    /// Gives \a child a window in the child area, which is not shown yet.
    virtual void adopt(ChildForm &child) = 0;
    /// Shows the window of \a child, if it has to be by restoring it, and makes it the active one.
    virtual void bringForward(ChildForm &child) = 0;

    /// Lists the open child windows at the end of \a menu, and replaces the list that an earlier call left
    /// there. The active child is checked; a listed item brings its window forward.
    virtual void fillWindowList(QMenu &menu) = 0;
};
