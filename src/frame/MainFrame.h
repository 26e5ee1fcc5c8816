#pragma once

class ChildForm;
class Form;
class Toolbar;

/// What the tools know of the frame.
class MainFrame
{
public:
    virtual ~MainFrame() = default;

    /// Opens a new document window, numbers it and shows it.
    virtual void LoadNewDoc() = 0;
    /// Shows or hides the document commands by what is open. Called after a document has come or gone.
    virtual void checkForDocument() = 0;
    /// Unloads the frame, and with it the program.
    virtual void mnuFileExit_Click() = 0;
    /// \a kind is 0 cascade, 1 tile horizontally, 2 tile vertically, 3 arrange icons.
    virtual void Arrange(int kind) = 0;
    /// The active child window whatever dialog is in front, or nullptr.
    virtual Form *ActiveForm() const = 0;
    virtual Toolbar &tbToolBar() const = 0;

    /// Puts \a child into the child area, shows it there and makes it the active one; a child that stands
    /// there already is brought forward.
    virtual void place(ChildForm &child) = 0;
};
