#pragma once

#include "DialogDriver.h"
#include "FatalErrors.h"
#include "RichTextBox.h"
#include "ScratchGlobals.h"
#include "ScratchHome.h"
#include "frmMain.h"

/// The suite's frame in this process, as the entry routine leaves it, with an empty home and no splash. Every
/// dialog and every end of the process has to be expected.
class RunningSuite
{
public:
    RunningSuite();
    ~RunningSuite();

    frmMain &frame() const { return *static_cast<frmMain *>(mainFrame()); }
    Form &active() const { return *frame().ActiveForm(); }
    RichTextBox &text() const;

    /// Chooses the menu item \a name.
    void choose(const char *name) const;
    QAction &item(const char *name) const;
    /// Clicks the toolbar button with the key \a key.
    void press(const char *key) const;
    /// Types into the active document.
    void type(const QString &words) const;

    ScratchHome home;
    ScratchGlobals globals;
    FatalErrors fatal;
    DialogDriver dialogs;

private:
    static MainFrame *mainFrame();
};
