#include "RunningSuite.h"
#include "Toolbar.h"

#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>

namespace {

const char *const wholeTree = R"tree(mnuFile "&File"
. mnuFileNew "&New" Ctrl+N
. mnuFileOpen "&Open..." Ctrl+O
. mnuFileClose "&Close"
. mnusaveonly "&Save"
. mnuFileBar0 "-"
. mnuFileSave "Save As &RTF"
. mnuFileSaveAs "Save As &TXT"
. mnuFileSaveAll "Save A&ll" hidden disabled
. mnuFileBar1 "-"
. mnuFileProperties "Propert&ies" hidden disabled
. mnuFilePageSetup "Page Set&up..."
. mnuFilePrintPreview "Print Pre&view" hidden disabled
. mnuFilePrint "&Print..."
. . printselected "&Selected Text"
. . printall "&All Document"
. mnuFileBar3 "-"
. mnuFileMRU_1 "" hidden
. mnuFileMRU_2 "" hidden
. mnuFileMRU_3 "" hidden
. mnuFileBar5 "-" hidden
. mnuFileExit "E&xit"
mnuEdit "&Edit"
. mnuEditUndo "&Undo" Ctrl+Z
. mnuEditBar0 "-" hidden
. mnuEditCut "Cu&t" Ctrl+X
. mnuEditCopy "&Copy" Ctrl+C
. mnuEditPaste "&Paste" Ctrl+V
. mnupasteimage "Paste &Image" Ctrl+I
. mnuEditPasteSpecial "Paste &Special..." hidden disabled
mnuView "&View"
. mnuViewToolbar "&Toolbar" checked
. mnuViewStatusBar "Status &Bar" checked
. mnuViewBar0 "-"
. mnuViewRefresh "&Refresh" hidden disabled
. mnuViewOptions "&Options..."
. mnuViewWebBrowser "&Web Browser"
mnuTools "&Tools"
. mnuToolsOptions "Program Options..."
. mnu2 "-"
. mnuMessB4Login "Add a Message Before Windows LogIn"
. mnuComponents "Component Services Config"
. mnuWinStart "Edit Windows Start Up Options"
. mnuGpEdit "Group Policy Editor (XP Pro)"
. mnuIntOpts "Internet Options (IE)"
. mnuSecurityCtr "Windows Security Centre"
. mnu7 "-"
. mnuCleanUp "Clean Up Hard Disks"
. mnuDefrag "Defragment Disks"
. mnu8 "-"
. mnuCreateRestore "Create Restore Point"
. mnuRestore "Restore Computer to Stored Restore Point"
. mnu9 "-"
. mnuAddRemove "Add/Remove Programs"
. mnuManageFirewall "Administer Windows Firewall"
. mnuTskMgr "Windows Task Manager"
. mnu10 "-"
. mnuBasicSysInfo "Basic System Info"
. mnu6 "-"
. mnuDirectXDiag "Direct X Diagnostics (If Direct X Installed)"
mnuWindow "&Window"
. mnuWindowNewWindow "&New Window"
. mnuWindowBar0 "-"
. mnuWindowCascade "&Cascade"
. mnuWindowTileHorizontal "Tile &Horizontal"
. mnuWindowTileVertical "Tile &Vertical"
. mnuWindowArrangeIcons "&Arrange Icons"
diallermenu "&Dialler"
. diallersetup "Set Up Modem && Line"
. dialleruse "Use Dialler"
info "&Info"
. compname "Computer Name"
. componnetwork "Computers On This Network"
. mnu1 "-"
. mnuRestorePoints "Current Restore Points"
. mnuStartup "Edit Windows Start Up Options"
. mnuWinVer "Windows Version Info"
. mnuWinEvent "Windows Event Viewer"
. mnu13 "-"
. mnutipsandtricks "XP Tips and Tricks"
. mnu14 "-"
zipmenu "&Zip"
. zip "&Create Zip Archive"
. unzip "&Extract Zip Archive"
mnuaddressbook "&Address Book"
. mnuaddressbookopen "&Open"
mnuftp "FTP &Client"
. mnuftpopen "&Open"
mnuimageviewer "I&mage Viewer"
. mnuimagevieweropen "&Open"
mnuHelp "&Help"
. mnuHelpContents "&Contents"
. mnuHelpSearchForHelpOn "&Search For Help On..." hidden
. mnuHelpBar0 "-"
. mnuHelpAbout "&About "
mnuweb "We&b"
. mnuquilloffonweb "Quill-&Office Tools on The Web"
. mnutallowickonweb "&Tallowick on The Web"
. mnuspacer77 "-"
. mnubrowser "Web &Browser"
. mnuspacer78 "-"
mnuupdates "&Updates"
. mnucheckupdates "&Check for Updates"
)tree";

QString lineOf(QAction &item, int level)
{
    const QString caption = item.isSeparator() ? QStringLiteral("-") : item.text();
    QString line = QStringLiteral(". ").repeated(level) + item.objectName() + QStringLiteral(" \"") +
                   caption + QStringLiteral("\"");
    if (!item.shortcut().isEmpty())
        line += u' ' + item.shortcut().toString(QKeySequence::PortableText);
    if (!item.isVisible()) {
        line += QStringLiteral(" hidden");
        item.setVisible(true); // while hidden it would read as disabled in any case
    }
    if (!item.isEnabled())
        line += QStringLiteral(" disabled");
    if (item.isChecked())
        line += QStringLiteral(" checked");
    return line + u'\n';
}

QString treeOf(const QList<QAction *> &items, int level = 0)
{
    QString tree;
    for (QAction *item : items) {
        tree += lineOf(*item, level);
        if (item->menu())
            tree += treeOf(item->menu()->actions(), level + 1);
    }
    return tree;
}

} // namespace

TEST(FrameMenus, TheLiveTreeIsTheWholeTree)
{
    const RunningSuite suite;
    EXPECT_EQ(treeOf(suite.frame().menuBar()->actions()).toStdString(), wholeTree);
}

TEST(FrameMenus, AnItemHasTheIconOfItsButton)
{
    const RunningSuite suite;
    for (const auto &[item, key] :
         {std::pair("mnuFileOpen", "Open"), std::pair("mnuEditCut", "Cut"),
          std::pair("mnuftpopen", "ftpclient"), std::pair("mnubrowser", "wwwbrowser"),
          std::pair("mnuaddressbookopen", "addressbook")}) {
        const QIcon icon = suite.item(item).icon();
        EXPECT_FALSE(icon.isNull()) << item;
        EXPECT_EQ(icon.name(), suite.frame().tbToolBar().button(QString::fromLatin1(key)).icon().name())
            << item;
    }
}
