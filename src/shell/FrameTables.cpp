#include "FrameTables.h"

#include "frmMain.h"

namespace {

constexpr int document = MenuRow::DocumentMenu;
constexpr int separator = MenuRow::Separator;
constexpr int checked = MenuRow::Checked;

constexpr MenuRow menus[] = {
    {0, "mnuFile", "&File", nullptr, 0, nullptr},
    {1, "mnuFileNew", "&New", "Ctrl+N", 0, "document-new"},
    {1, "mnuFileOpen", "&Open...", "Ctrl+O", 0, "document-open"},
    {1, "mnuFileClose", "&Close", nullptr, document, "document-close"},
    {1, "mnusaveonly", "&Save", nullptr, document, "document-save"},
    {1, "mnuFileBar0", "-", nullptr, document | separator, nullptr},
    {1, "mnuFileSave", "Save As &RTF", nullptr, document, "document-save-as"},
    {1, "mnuFileSaveAs", "Save As &TXT", nullptr, document, nullptr},
    {1, "mnuFileBar3", "-", nullptr, separator, nullptr},
    {1, "mnuFileExit", "E&xit", nullptr, 0, "application-exit"},
    {0, "mnuView", "&View", nullptr, 0, nullptr},
    {1, "mnuViewToolbar", "&Toolbar", nullptr, checked, nullptr},
    {1, "mnuViewStatusBar", "Status &Bar", nullptr, checked, nullptr},
    {1, "mnuViewBar0", "-", nullptr, separator, nullptr},
    {1, "mnuViewOptions", "&Options...", nullptr, 0, "configure"},
    {0, "mnuTools", "&Tools", nullptr, 0, nullptr},
    {1, "mnuToolsOptions", "Program Options...", nullptr, 0, "configure"},
    {0, "mnuWindow", "&Window", nullptr, 0, nullptr},
    {1, "mnuWindowNewWindow", "&New Window", nullptr, 0, "window-new"},
    {1, "mnuWindowBar0", "-", nullptr, separator, nullptr},
    {1, "mnuWindowCascade", "&Cascade", nullptr, 0, nullptr},
    {1, "mnuWindowTileHorizontal", "Tile &Horizontal", nullptr, 0, nullptr},
    {1, "mnuWindowTileVertical", "Tile &Vertical", nullptr, 0, nullptr},
    {1, "mnuWindowArrangeIcons", "&Arrange Icons", nullptr, 0, nullptr},
    {0, "info", "&Info", nullptr, 0, nullptr},
    {1, "mnutipsandtricks", "XP Tips and Tricks", nullptr, 0, "help-hint"},
};

constexpr ToolbarRow buttons[] = {
    {1, "New", "New Quill-Word Document", "document-new"},
    {2, "Open", "Open Existing Quill-Word Document", "document-open"},
    {3, "Save", "Save Current Quill-Word Document", "document-save"},
};

constexpr FrameTables::Binding menuCommands[] = {
    {"mnuFileNew", [](frmMain &frame) { frame.files().mnuFileNew_Click(); }},
    {"mnuFileOpen", [](frmMain &frame) { frame.files().mnuFileOpen_Click(); }},
    {"mnuFileClose", [](frmMain &frame) { frame.files().mnuFileClose_Click(); }},
    {"mnusaveonly", [](frmMain &frame) { frame.files().SaveCurrentDocument(); }},
    {"mnuFileSave", [](frmMain &frame) { frame.files().mnuFileSave_Click(); }},
    {"mnuFileSaveAs", [](frmMain &frame) { frame.files().mnuFileSaveAs_Click(); }},
    {"mnuFileExit", [](frmMain &frame) { frame.mnuFileExit_Click(); }},
    {"mnuViewToolbar", [](frmMain &frame) { frame.mnuViewToolbar_Click(); }},
    {"mnuViewStatusBar", [](frmMain &frame) { frame.mnuViewStatusBar_Click(); }},
    {"mnuViewOptions", [](frmMain &frame) { frame.mnuToolsOptions_Click(); }},
    {"mnuToolsOptions", [](frmMain &frame) { frame.mnuToolsOptions_Click(); }},
    {"mnuWindowNewWindow", [](frmMain &frame) { frame.LoadNewDoc(); }},
    {"mnuWindowCascade", [](frmMain &frame) { frame.Arrange(0); }},
    {"mnuWindowTileHorizontal", [](frmMain &frame) { frame.Arrange(1); }},
    {"mnuWindowTileVertical", [](frmMain &frame) { frame.Arrange(2); }},
    {"mnuWindowArrangeIcons", [](frmMain &frame) { frame.Arrange(3); }},
    {"mnutipsandtricks", [](frmMain &frame) { frame.mnutipsandtricks_Click(); }},
};

constexpr FrameTables::Binding buttonCommands[] = {
    {"New", [](frmMain &frame) { frame.LoadNewDoc(); }},
    {"Open", [](frmMain &frame) { frame.files().mnuFileOpen_Click(); }},
    {"Save", [](frmMain &frame) { frame.files().SaveCurrentDocument(); }},
};

} // namespace

std::span<const MenuRow> FrameTables::menuRows()
{
    return menus;
}

std::span<const ToolbarRow> FrameTables::toolbarRows()
{
    return buttons;
}

std::span<const FrameTables::Binding> FrameTables::menuBindings()
{
    return menuCommands;
}

std::span<const FrameTables::Binding> FrameTables::toolbarBindings()
{
    return buttonCommands;
}
