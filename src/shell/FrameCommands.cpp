#include "FrameCommands.h"

#include "Ask.h"
#include "EditCommands.h"
#include "LocalAddress.h"
#include "SystemShortcuts.h"
#include "ToolOpenings.h"
#include "frmMain.h"
#include "mMain.h"

#include <algorithm>

namespace {

struct Command
{
    const char *name;
    void (*run)(frmMain &frame, const QString &name);
};

void placeholder(frmMain &frame, const QString &name)
{
    Ask(QStringLiteral("Add '%1_Click' code.").arg(name), MsgBoxStyle::Plain, frame.windowTitle());
}

/// The program has no help file of the kind that could be searched.
void helpSearch(frmMain &frame, const QString &)
{
    Ask(QStringLiteral("Unable to display Help Contents. There is no Help associated with this project."),
        MsgBoxStyle::Information, frame.windowTitle());
}

void compname(frmMain &, const QString &)
{
    Ask(QStringLiteral("This computer's name is : \n") + GetThisComputerName() + QStringLiteral("\nIP:") +
            LocalAddress::first(),
        MsgBoxStyle::Information, QStringLiteral("This Computer's Name...."));
}

void shortcut(frmMain &, const QString &name)
{
    SystemShortcuts::run(name);
}

void onDocument(frmMain &frame, const QString &name)
{
    frame.formats().runOnDocument(name);
}

constexpr Command commands[] = {
    {"LoadNewDoc", [](frmMain &frame, const QString &) { frame.LoadNewDoc(); }},
    {"mnuFileNew", [](frmMain &frame, const QString &) { frame.files().mnuFileNew_Click(); }},
    {"mnuFileOpen", [](frmMain &frame, const QString &) { frame.files().mnuFileOpen_Click(); }},
    {"mnuFileClose", [](frmMain &frame, const QString &) { frame.files().mnuFileClose_Click(); }},
    {"mnusaveonly", [](frmMain &frame, const QString &) { frame.files().SaveCurrentDocument(); }},
    {"mnuFileSave", [](frmMain &frame, const QString &) { frame.files().mnuFileSave_Click(); }},
    {"mnuFileSaveAs", [](frmMain &frame, const QString &) { frame.files().mnuFileSaveAs_Click(); }},
    {"mnuFileSaveAll", placeholder},
    {"mnuFileProperties", placeholder},
    {"mnuFilePageSetup", [](frmMain &frame, const QString &) { frame.printing().mnuFilePageSetup_Click(); }},
    {"mnuFilePrintPreview", placeholder},
    {"printselected", [](frmMain &frame, const QString &) { frame.printing().printselected_Click(); }},
    {"printall", [](frmMain &frame, const QString &) { frame.printing().printall_Click(); }},
    {"mnuFileExit", [](frmMain &frame, const QString &) { frame.mnuFileExit_Click(); }},
    {"mnuEditUndo", [](frmMain &, const QString &) { EditCommands::mnuEditUndo_Click(); }},
    {"mnuEditCut", [](frmMain &, const QString &) { EditCommands::mnuEditCut_Click(); }},
    {"mnuEditCopy", [](frmMain &, const QString &) { EditCommands::mnuEditCopy_Click(); }},
    {"mnuEditPaste", [](frmMain &, const QString &) { EditCommands::mnuEditPaste_Click(); }},
    {"mnupasteimage", [](frmMain &, const QString &) { EditCommands::mnupasteimage_Click(); }},
    {"mnuEditPasteSpecial", placeholder},
    {"mnuViewToolbar", [](frmMain &frame, const QString &) { frame.mnuViewToolbar_Click(); }},
    {"mnuViewStatusBar", [](frmMain &frame, const QString &) { frame.mnuViewStatusBar_Click(); }},
    {"mnuViewRefresh", placeholder},
    {"mnuComponents", shortcut},
    {"mnuWinStart", [](frmMain &, const QString &) { SystemShortcuts::run(QStringLiteral("mnuStartup")); }},
    {"mnuGpEdit", shortcut},
    {"mnuIntOpts", shortcut},
    {"mnuSecurityCtr", shortcut},
    {"mnuCleanUp", shortcut},
    {"mnuDefrag", shortcut},
    {"mnuRestore", shortcut},
    {"mnuAddRemove", shortcut},
    {"mnuManageFirewall", shortcut},
    {"mnuTskMgr", shortcut},
    {"mnuBasicSysInfo", shortcut},
    {"mnuDirectXDiag", shortcut},
    {"mnuWindowNewWindow", [](frmMain &frame, const QString &) { frame.LoadNewDoc(); }},
    {"mnuWindowCascade", [](frmMain &, const QString &) { CascadeChildren(); }},
    {"mnuWindowTileHorizontal", [](frmMain &, const QString &) { TileChildrenHorizontal(); }},
    {"mnuWindowTileVertical", [](frmMain &, const QString &) { TileChildrenVertical(); }},
    {"mnuWindowArrangeIcons", [](frmMain &, const QString &) { ArrangeChildIcons(); }},
    {"compname", compname},
    {"mnuStartup", shortcut},
    {"mnuWinVer", shortcut},
    {"mnuWinEvent", shortcut},
    {"mnutipsandtricks", [](frmMain &frame, const QString &) { frame.mnutipsandtricks_Click(); }},
    {"mnuHelpSearchForHelpOn", helpSearch},
    {"Bold", [](frmMain &frame, const QString &) { frame.formats().Bold(); }},
    {"Italic", [](frmMain &frame, const QString &) { frame.formats().Italic(); }},
    {"Underline", [](frmMain &frame, const QString &) { frame.formats().Underline(); }},
    {"Align Left", [](frmMain &frame, const QString &) { frame.formats().Align(0); }},
    {"Center", [](frmMain &frame, const QString &) { frame.formats().Align(2); }},
    {"Align Right", [](frmMain &frame, const QString &) { frame.formats().Align(1); }},
    {"Font Colour", [](frmMain &frame, const QString &) { frame.formats().FontColour(); }},
    {"Font", [](frmMain &frame, const QString &) { frame.formats().Font(); }},
    {"getmargins", onDocument},
    {"bullet", onDocument},
    {"getindent", onDocument},
    {"removeindent", onDocument},
};

const Command *commandNamed(const QString &name)
{
    const auto *found = std::ranges::find_if(
        commands, [&](const Command &command) { return name == QLatin1String(command.name); });
    return found == std::end(commands) ? nullptr : found;
}

const ToolOpenings::Row *openingNamed(const QString &name)
{
    for (const ToolOpenings::Row &row : ToolOpenings::rows()) {
        if (name == QLatin1String(row.command))
            return &row;
    }
    return nullptr;
}

} // namespace

void FrameCommands::run(const QString &name, frmMain &frame)
{
    if (const ToolOpenings::Row *opening = openingNamed(name))
        ToolOpenings::open(*opening, frame);
    else if (const Command *command = commandNamed(name))
        command->run(frame, name);
}

bool FrameCommands::exists(const QString &name)
{
    return openingNamed(name) || commandNamed(name);
}
