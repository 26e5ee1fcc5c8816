#include "FrameButtons.h"

namespace {

using Style = ToolbarRow::Style;

constexpr ToolbarRow buttons[] = {
    {1, "New", "New Quill-Word Document", "document-new"},
    {2, "Open", "Open Existing Quill-Word Document", "document-open"},
    {3, "Save", "Save Current Quill-Word Document", "document-save"},
    {4, nullptr, nullptr, nullptr},
    {5, "Print", "Print Current Quill-Word Document", "document-print", Style::DropDown},
    {6, nullptr, nullptr, nullptr},
    {7, "Cut", "Cut", "edit-cut"},
    {8, "Copy", "Copy", "edit-copy"},
    {9, "Paste", "Paste", "edit-paste"},
    {10, nullptr, nullptr, nullptr},
    {11, "Bold", "Bold", "format-text-bold"},
    {12, "Italic", "Italic", "format-text-italic"},
    {13, "Underline", "Underline", "format-text-underline"},
    {14, "Align Left", "Align Left", "format-justify-left", Style::Group},
    {15, "Center", "Center", "format-justify-center", Style::Group},
    {16, "Align Right", "Align Right", "format-justify-right", Style::Group},
    {17, "Font Colour", "Font Colour", "format-text-color"},
    {18, "Font", "Font Face", "font-face"},
    {19, "pageformat", "Set Margins", "distribute-horizontal-margin"},
    {20, "bullet", "Bullets", "format-list-unordered"},
    {21, "indent", "Increase Bullet Indent", "format-indent-more"},
    {22, "removeindent", "Decrease Bullet Indent", "format-indent-less"},
    {23, nullptr, nullptr, nullptr},
    {24, "undo", "Undo", "edit-undo"},
    {25, nullptr, nullptr, nullptr},
    {26, "Calculator", "Quill-Calculator", "accessories-calculator"},
    {27, nullptr, nullptr, nullptr},
    {28, "dialler", "Quill-Dialler", "call-start"},
    {29, nullptr, nullptr, nullptr},
    {30, "QuillZip", "Quill Zip - Zip and UnZip Files", "utilities-file-archiver", Style::DropDown},
    {31, nullptr, nullptr, nullptr},
    {32, "btnwinfo", "Quill-Network Info", "network-workgroup", Style::DropDown},
    {33, nullptr, nullptr, nullptr},
    {34, "ftpclient", "Quill-FTP Client", "folder-remote"},
    {35, nullptr, nullptr, nullptr},
    {36, "quillimage", "Quill-Image Viewer", "image-x-generic"},
    {37, nullptr, nullptr, nullptr},
    {38, "addressbook", "Quill-Address Book", "x-office-address-book"},
    {39, nullptr, nullptr, nullptr},
    {40, "wwwbrowser", "Web Browser", "internet-web-browser"},
    {41, nullptr, nullptr, nullptr},
    {42, "tools", "Tools", "tools", Style::DropDown},
    {43, nullptr, nullptr, nullptr},
    {44, "helpme", "Help", "system-help"},
};

constexpr ToolbarMenuRow entries[] = {
    {"Print", "Selection", "prtselection", nullptr},
    {"Print", "All Document", "prtalldocument", nullptr},
    {"QuillZip", "Zip Files", "zipfiles", "archive-insert"},
    {"QuillZip", "UnZip Files", "unzipfiles", "archive-extract"},
    {"btnwinfo", "This Computer Name", "bmcname", "computer"},
    {"btnwinfo", "Computers on Network", "bmcnwork", "network-workgroup"},
    {"btnwinfo", nullptr, nullptr, nullptr},
    {"btnwinfo", "Restore Points", "restpnts", "document-save-all"},
    {"btnwinfo", "Edit Windows StartUp Options", "winstartup", "system-run"},
    {"tools", "Program Options", "dprogopts", "configure"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Add a Message Before Windows Login", "messb4login", "dialog-messages"},
    {"tools", "Component Services Config", "components", "plugins"},
    {"tools", "Edit Windows Start Up Options", "dwinstart", "system-run"},
    {"tools", "Group Policy Editor", "gpedit", "document-edit"},
    {"tools", "Iinternet Options (IE)", "intopts", "preferences-system-network"}, // Intended: "Iinternet"
    {"tools", "Windows Security Centre", "securityctr", "security-high"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Clean Up Hard Disks", "ddiskclean", "edit-clear-all"},
    {"tools", "Defragment Disks", "defrag", "drive-harddisk"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Restore Points", "dcreaterestore", "document-save-all"},
    {"tools", "Restore Computer to Stored Restore Point", "restore", "document-revert"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Add/Remove Programs", "addremove", "system-software-install"},
    {"tools", "Administer Windows Firewall", "managefirewall", "security-medium"},
    {"tools", "Windows Task Manager", "tskmgr", "utilities-system-monitor"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Basic System Info", "basicsysinfo", "computer"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Direct X Diagnostics (If Direct X Installed)", "directxdiag", "video-display"},
    {"tools", nullptr, nullptr, nullptr},
    {"tools", "Check for Updates", "chkUpDt", "system-software-update"},
};

struct Binding
{
    const char *key;
    const char *text;
};

constexpr Binding buttonCommands[] = {
    {"New", "LoadNewDoc"},
    {"Open", "mnuFileOpen"},
    {"Save", "mnusaveonly"},
    {"Cut", "mnuEditCut"},
    {"Copy", "mnuEditCopy"},
    {"Paste", "mnuEditPaste"},
    {"Bold", "Bold"},
    {"Italic", "Italic"},
    {"Underline", "Underline"},
    {"Align Left", "Align Left"},
    {"Center", "Center"},
    {"Align Right", "Align Right"},
    {"Font Colour", "Font Colour"},
    {"Font", "Font"},
    {"pageformat", "getmargins"},
    {"bullet", "bullet"},
    {"indent", "getindent"},
    {"removeindent", "removeindent"},
    {"undo", "mnuEditUndo"},
    {"Calculator", "Calculator"},
    {"dialler", "dialleruse"},
    {"ftpclient", "mnuftpopen"},
    {"quillimage", "mnuimagevieweropen"},
    {"addressbook", "mnuaddressbookopen"},
    {"wwwbrowser", "mnubrowser"},
    {"helpme", "mnuHelpContents"},
    {"prtselection", "printselected"},
    {"prtalldocument", "printall"},
    {"zipfiles", "zip"},
    {"unzipfiles", "unzip"},
    {"bmcname", "compname"},
    {"bmcnwork", "componnetwork"},
    {"restpnts", "mnuRestorePoints"},
    {"winstartup", "mnuStartup"},
    {"dprogopts", "mnuToolsOptions"},
    {"messb4login", "mnuMessB4Login"},
    {"components", "mnuComponents"},
    {"dwinstart", "mnuStartup"},
    {"gpedit", "mnuGpEdit"},
    {"intopts", "mnuIntOpts"},
    {"securityctr", "mnuSecurityCtr"},
    {"ddiskclean", "mnuCleanUp"},
    {"defrag", "mnuDefrag"},
    {"dcreaterestore", "mnuRestorePoints"},
    {"restore", "mnuRestore"},
    {"addremove", "mnuAddRemove"},
    {"managefirewall", "mnuManageFirewall"},
    {"tskmgr", "mnuTskMgr"},
    {"basicsysinfo", "mnuBasicSysInfo"},
    {"directxdiag", "mnuDirectXDiag"},
    {"chkUpDt", "mnucheckupdates"},
};

constexpr Binding hints[] = {
    {"Print", "Print Options..."},
    {"QuillZip", "QuillZip Options..."},
    {"btnwinfo", "Network Info. Options..."},
    {"tools", "Print Options..."}, // Intended: the title of the Print button's hint
};

std::optional<QString> textOf(const QString &key, std::span<const Binding> bindings)
{
    for (const Binding &binding : bindings) {
        if (key == QLatin1String(binding.key))
            return QString::fromLatin1(binding.text);
    }
    return std::nullopt;
}

} // namespace

std::span<const ToolbarRow> FrameButtons::rows()
{
    return buttons;
}

std::span<const ToolbarMenuRow> FrameButtons::lists()
{
    return entries;
}

QString FrameButtons::commandOf(const QString &key)
{
    return textOf(key, buttonCommands).value_or(QString());
}

std::optional<QString> FrameButtons::hintTitle(const QString &key)
{
    return textOf(key, hints);
}
