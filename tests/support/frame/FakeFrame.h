#pragma once

#include "DialogDriver.h"
#include "FatalErrors.h"
#include "MainFrame.h"
#include "ScratchGlobals.h"
#include "ScratchHome.h"

#include <QMainWindow>

class MdiArea;

/// The frame that a tool's tests link in the place of the suite: it shows the tool's windows in a child area
/// and records what the tool asks of it. The home is empty; every dialog and every end of the process has to
/// be expected.
class FakeFrame : public MainFrame
{
public:
    FakeFrame();
    ~FakeFrame() override;

    /// What the tool has called, in order, as "LoadNewDoc" or "Arrange 2".
    const QStringList &calls() const { return m_calls; }
    Form &active() const { return *ActiveForm(); }

    void LoadNewDoc() override { m_calls << QStringLiteral("LoadNewDoc"); }
    void checkForDocument() override { m_calls << QStringLiteral("checkForDocument"); }
    void mnuFileExit_Click() override { m_calls << QStringLiteral("mnuFileExit_Click"); }
    void Arrange(MdiArea::Arrangement kind) override
    {
        m_calls << QStringLiteral("Arrange %1").arg(int(kind));
    }
    void SaveCurrentDocument() override { m_calls << QStringLiteral("SaveCurrentDocument"); }
    Form *ActiveForm() const override;
    Toolbar &tbToolBar() const override { return *m_toolBar; }
    void adopt(ChildForm &child) override;
    void bringForward(ChildForm &child) override;
    void fillWindowList(QMenu &) override { m_calls << QStringLiteral("fillWindowList"); }

    ScratchHome home;
    ScratchGlobals globals;
    FatalErrors fatal;
    DialogDriver dialogs;

private:
    QMainWindow m_window;
    MdiArea *m_area;
    Toolbar *m_toolBar;
    QStringList m_calls;
};
