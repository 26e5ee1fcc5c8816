#include "CommandEffect.h"
#include "FrameButtons.h"
#include "FrameCommands.h"
#include "FrameMenus.h"
#include "PrintQt.h"
#include "QtMessages.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

struct Row
{
    const char *name; ///< of a menu item, or the key of a button or of an entry in its list
    const char *effect;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

std::string testName(const testing::TestParamInfo<Row> &info)
{
    std::string name = info.param.name;
    std::erase(name, ' ');
    return name;
}

constexpr Row effects[] = {
    {"mnuFileNew", "active: Document 4 | documents: 4"},
    {"mnuFileOpen", "dialogs: FileDialog Open"},
    {"mnuFileClose",
     "active: Document 3 | children: closed | dialogs: MsgBox Save Changes?... | documents: 2"},
    {"mnusaveonly", "dialogs: MsgBox Save as What..., MsgBox Confirm Save As Text..."},
    {"mnuFileSave", "dialogs: FileDialog Save As RTF"},
    {"mnuFileSaveAs", "dialogs: MsgBox Confirm Save As Text..."},
    {"mnuFilePageSetup", "dialogs: PageSetupDialog Page Setup"},
    {"printselected", "dialogs: PrintDialog Print"},
    {"printall", "alignment: 1 | dialogs: PrintDialog Print | selected: "},
    {"mnuFileExit",
     "active:  | children: closed | dialogs: MsgBox Save Changes?... | documents: 0 | ends: 1"},
    {"mnuEditUndo", "alignment: 1 | selected: "},
    {"mnuEditCut", "alignment: 2 | clipboard: one/two | selected:  | text: "},
    {"mnuEditCopy", "clipboard: one/two"},
    {"mnuEditPaste", "alignment: 2 | selected:  | text: clipclip"},
    {"mnupasteimage", "alignment: 0 | bullet: 0 | selected:  | text: clip"},
    {"mnuViewToolbar", "children: rowed icons, free | toolbar: 0"},
    {"mnuViewStatusBar", "children: rowed icons, free | status bar: 0"},
    {"mnuViewOptions", "dialogs: frmOptions Options"},
    {"mnuViewWebBrowser", "active: frmBrowser | page: http://www.tallowick.example/ | tools: frmBrowser"},
    {"mnuToolsOptions", "dialogs: frmOptions Options"},
    {"mnuMessB4Login", "active: frmSystemMessage | tools: frmSystemMessage"},
    {"mnuCreateRestore", "active: frmRestorePoints | tools: frmRestorePoints"},
    {"mnuWindowNewWindow", "active: Document 4 | documents: 4"},
    {"mnuWindowCascade", "children: rowed icons, cascade"},
    {"mnuWindowTileHorizontal", "children: rowed icons, one above the other"},
    {"mnuWindowTileVertical", "children: rowed icons, side by side"},
    {"mnuWindowArrangeIcons", "children: rowed icons, free"},
    {"diallersetup", "active: Quill-Dialler - Set Up | tools: frmdialler"},
    {"dialleruse", "active: Quill-Dialler - AutoDial a Number | mode: Use | tools: frmdialler"},
    {"compname", "dialogs: MsgBox This Computer's Name...."},
    {"componnetwork", "active: frmCompsOnNetwork | tools: frmCompsOnNetwork"},
    {"mnuRestorePoints", "active: frmRestorePoints | tools: frmRestorePoints"},
    {"mnutipsandtricks", "active: tipsandtricks.rtf | documents: 4"},
    {"zip", "active: frmZip | tools: frmZip"},
    {"unzip", "active: frmUnzip | tools: frmUnzip"},
    {"mnuaddressbookopen", "active: frmAddressBook | tools: frmAddressBook"},
    {"mnuftpopen", "active: frmFTP | tools: frmFTP"},
    {"mnuimagevieweropen", "active: frmImageMain | tools: frmImageMain"},
    {"mnuHelpContents", "active: frmHelpContents | tools: frmHelpContents"},
    {"mnuHelpSearchForHelpOn", "dialogs: MsgBox Tallowick - Quill-Office Tools"},
    {"mnuHelpAbout", "dialogs: frmAbout "},
    {"mnuquilloffonweb",
     "active: frmBrowser | page: http://www.tallowick.example/quilloffice/ | tools: frmBrowser"},
    {"mnutallowickonweb", "active: frmBrowser | page: http://www.tallowick.example/ | tools: frmBrowser"},
    {"mnubrowser", "active: frmBrowser | page: http://www.tallowick.example/ | tools: frmBrowser"},
    {"mnucheckupdates", "active: frmdownload2 | tools: frmdownload2"},
    {"New", "active: Document 4 | documents: 4"},
    {"Open", "dialogs: FileDialog Open"},
    {"Save", "dialogs: MsgBox Save as What..., MsgBox Confirm Save As Text..."},
    {"Print", "dialogs: MsgBox Print Options..."},
    {"Cut", "alignment: 2 | clipboard: one/two | selected:  | text: "},
    {"Copy", "clipboard: one/two"},
    {"Paste", "alignment: 2 | selected:  | text: clipclip"},
    {"Bold", "bold: 1"},
    {"Italic", "italic: 1"},
    {"Underline", "underline: 1"},
    {"Align Left", "alignment: 0"},
    {"Center", "alignment: 2"},
    {"Align Right", "alignment: 1"},
    {"Font Colour", "dialogs: ColorDialog Colour Picker"},
    {"Font", "dialogs: FontDialog Font Chooser"},
    {"pageformat", "dialogs: frmMargins Set Page Margins"},
    {"bullet", "bullet: 0"},
    {"indent", "bullet indent: 25"},
    {"removeindent", "bullet indent: 15"},
    {"undo", "alignment: 1 | selected: "},
    {"Calculator", "active: frmCalculator | tools: frmCalculator"},
    {"dialler", "active: Quill-Dialler - AutoDial a Number | mode: Use | tools: frmdialler"},
    {"QuillZip", "dialogs: MsgBox QuillZip Options..."},
    {"btnwinfo", "dialogs: MsgBox Network Info. Options..."},
    {"ftpclient", "active: frmFTP | tools: frmFTP"},
    {"quillimage", "active: frmImageMain | tools: frmImageMain"},
    {"addressbook", "active: frmAddressBook | tools: frmAddressBook"},
    {"wwwbrowser", "active: frmBrowser | page: http://www.tallowick.example/ | tools: frmBrowser"},
    {"tools", "dialogs: MsgBox Print Options..."},
    {"helpme", "active: frmHelpContents | tools: frmHelpContents"},
    {"prtselection", "dialogs: PrintDialog Print"},
    {"prtalldocument", "alignment: 1 | dialogs: PrintDialog Print | selected: "},
    {"zipfiles", "active: frmZip | tools: frmZip"},
    {"unzipfiles", "active: frmUnzip | tools: frmUnzip"},
    {"bmcname", "dialogs: MsgBox This Computer's Name...."},
    {"bmcnwork", "active: frmCompsOnNetwork | tools: frmCompsOnNetwork"},
    {"restpnts", "active: frmRestorePoints | tools: frmRestorePoints"},
    {"dprogopts", "dialogs: frmOptions Options"},
    {"messb4login", "active: frmSystemMessage | tools: frmSystemMessage"},
    {"dcreaterestore", "active: frmRestorePoints | tools: frmRestorePoints"},
    {"chkUpDt", "active: frmdownload2 | tools: frmdownload2"},
};

constexpr Row tools[] = {
    {"mnuComponents", "org.gnome.dfeet"},
    {"mnuWinStart", "org.gnome.tweaks"},
    {"mnuGpEdit", "ca.desrt.dconf-editor"},
    {"mnuIntOpts", "nm-connection-editor"},
    {"mnuSecurityCtr", "clamtk"},
    {"mnuCleanUp", "org.kde.filelight"},
    {"mnuDefrag", "org.gnome.DiskUtility"},
    {"mnuRestore", "timeshift-gtk"},
    {"mnuAddRemove", "org.gnome.Software"},
    {"mnuManageFirewall", "gufw"},
    {"mnuTskMgr", "xfce4-taskmanager"},
    {"mnuBasicSysInfo", "hardinfo"},
    {"mnuDirectXDiag", "cpu-x"},
    {"mnuStartup", "org.gnome.tweaks"},
    {"mnuWinVer", "gnome-info-overview-panel"},
    {"mnuWinEvent", "org.gnome.Logs"},
    {"components", "org.gnome.dfeet"},
    {"dwinstart", "org.gnome.tweaks"},
    {"winstartup", "org.gnome.tweaks"},
    {"gpedit", "ca.desrt.dconf-editor"},
    {"intopts", "nm-connection-editor"},
    {"securityctr", "clamtk"},
    {"ddiskclean", "org.kde.filelight"},
    {"defrag", "org.gnome.DiskUtility"},
    {"restore", "timeshift-gtk"},
    {"addremove", "org.gnome.Software"},
    {"managefirewall", "gufw"},
    {"tskmgr", "xfce4-taskmanager"},
    {"basicsysinfo", "hardinfo"},
    {"directxdiag", "cpu-x"},
};

QSet<QString> testedNames()
{
    QSet<QString> names;
    for (const std::span<const Row> rows : {std::span<const Row>(effects), std::span<const Row>(tools)}) {
        for (const Row &row : rows)
            names << QString::fromLatin1(row.name);
    }
    return names;
}

struct CommandEffectTest : testing::TestWithParam<Row>
{
    CommandEffect effect;
    QString name = QString::fromLatin1(GetParam().name);
    QString expected = QString::fromLatin1(GetParam().effect);
};

struct StartedToolTest : CommandEffectTest
{};

} // namespace

TEST(CommandEffects, EveryItemAndKeyIsTested)
{
    const QSet<QString> tested = testedNames();
    for (const MenuRow &row : FrameMenus::rows()) {
        const QString name = QString::fromLatin1(row.name);
        const bool isChosen = FrameCommands::exists(name) && !(row.flags & MenuRow::Disabled);
        EXPECT_EQ(tested.contains(name), isChosen) << row.name;
    }
    for (const ToolbarRow &row : FrameButtons::rows())
        EXPECT_TRUE(!row.key || tested.contains(QString::fromLatin1(row.key))) << row.key;
    for (const ToolbarMenuRow &row : FrameButtons::lists())
        EXPECT_TRUE(!row.key || tested.contains(QString::fromLatin1(row.key))) << row.key;
}

TEST_P(CommandEffectTest, IsThatOfItsCommand)
{
    QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
    if (expected.contains(QStringLiteral("ends: 1")))
        effect.expectEnd();
    EXPECT_EQ(effect.of(name), expected);
}

INSTANTIATE_TEST_SUITE_P(Commands, CommandEffectTest, testing::ValuesIn(effects), testName);

TEST_P(StartedToolTest, IsThatOfItsCommand)
{
    EXPECT_EQ(effect.toolStartedBy(name, expected), expected);
}

INSTANTIATE_TEST_SUITE_P(Commands, StartedToolTest, testing::ValuesIn(tools), testName);
