#include "Colors.h"
#include "FrameButtons.h"
#include "Palettes.h"
#include "RunningSuite.h"
#include "Toolbar.h"
#include "frmOptions.h"

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <array>
#include <gtest/gtest.h>

namespace {

const char *const wholeBar = R"bar(1 "New" "New Quill-Word Document"
2 "Open" "Open Existing Quill-Word Document"
3 "Save" "Save Current Quill-Word Document"
4 -
5 "Print" "Print Current Quill-Word Document" dropdown
  "Selection" "prtselection"
  "All Document" "prtalldocument"
6 -
7 "Cut" "Cut"
8 "Copy" "Copy"
9 "Paste" "Paste"
10 -
11 "Bold" "Bold"
12 "Italic" "Italic"
13 "Underline" "Underline"
14 "Align Left" "Align Left"
15 "Center" "Center"
16 "Align Right" "Align Right"
17 "Font Colour" "Font Colour"
18 "Font" "Font Face"
19 "pageformat" "Set Margins"
20 "bullet" "Bullets"
21 "indent" "Increase Bullet Indent"
22 "removeindent" "Decrease Bullet Indent"
23 -
24 "undo" "Undo"
25 -
26 "Calculator" "Quill-Calculator"
27 -
28 "dialler" "Quill-Dialler"
29 -
30 "QuillZip" "Quill Zip - Zip and UnZip Files" dropdown
  "Zip Files" "zipfiles"
  "UnZip Files" "unzipfiles"
31 -
32 "btnwinfo" "Quill-Network Info" dropdown
  "This Computer Name" "bmcname"
  "Computers on Network" "bmcnwork"
  -
  "Restore Points" "restpnts"
  "Edit Windows StartUp Options" "winstartup"
33 -
34 "ftpclient" "Quill-FTP Client"
35 -
36 "quillimage" "Quill-Image Viewer"
37 -
38 "addressbook" "Quill-Address Book"
39 -
40 "wwwbrowser" "Web Browser"
41 -
42 "tools" "Tools" dropdown
  "Program Options" "dprogopts"
  -
  "Add a Message Before Windows Login" "messb4login"
  "Component Services Config" "components"
  "Edit Windows Start Up Options" "dwinstart"
  "Group Policy Editor" "gpedit"
  "Iinternet Options (IE)" "intopts"
  "Windows Security Centre" "securityctr"
  -
  "Clean Up Hard Disks" "ddiskclean"
  "Defragment Disks" "defrag"
  -
  "Restore Points" "dcreaterestore"
  "Restore Computer to Stored Restore Point" "restore"
  -
  "Add/Remove Programs" "addremove"
  "Administer Windows Firewall" "managefirewall"
  "Windows Task Manager" "tskmgr"
  -
  "Basic System Info" "basicsysinfo"
  -
  "Direct X Diagnostics (If Direct X Installed)" "directxdiag"
  -
  "Check for Updates" "chkUpDt"
43 -
44 "helpme" "Help"
)bar";

constexpr int buttonCount = 44;
const QString hint = QStringLiteral("Click the drop down on the right of this button to select an option.");

QString entriesOf(const QMenu &list)
{
    QString lines;
    for (const QAction *entry : list.actions()) {
        lines += entry->isSeparator()
                     ? QStringLiteral("  -\n")
                     : QStringLiteral("  \"%1\" \"%2\"\n").arg(entry->text(), entry->objectName());
    }
    return lines;
}

QString lineOf(int position, const QToolButton &button)
{
    QString line =
        QStringLiteral("%1 \"%2\" \"%3\"").arg(position).arg(button.objectName(), button.toolTip());
    if (button.popupMode() == QToolButton::MenuButtonPopup)
        line += QStringLiteral(" dropdown");
    return line + u'\n';
}

struct FrameButtonsTest : testing::Test
{
    RunningSuite suite;
    const QToolButton &button(QAction &action) const
    {
        return *static_cast<QToolButton *>(suite.frame().tbToolBar().widgetForAction(&action));
    }
    QString liveBar() const
    {
        QString lines;
        for (int position = 1; position <= buttonCount; ++position) {
            QAction &action = suite.frame().tbToolBar().button(position);
            if (action.isSeparator()) {
                lines += QStringLiteral("%1 -\n").arg(position);
                continue;
            }
            lines += lineOf(position, button(action));
            if (button(action).menu())
                lines += entriesOf(*button(action).menu());
        }
        return lines;
    }
    void chooseFromList(const char *key) const
    {
        suite.frame().tbToolBar().findChild<QAction *>(QString::fromLatin1(key))->trigger();
    }
};

/// The part of a small \a icon's opaque pixels that are seen on \a ground.
double visiblePart(const QIcon &icon, const QColor &ground)
{
    constexpr double seen = 1.4;
    const QImage image = icon.pixmap(16, 16).toImage();
    double visible = 0;
    int opaque = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color.alphaF() < 0.5f)
                continue;
            visible += contrast(color, ground) > seen ? 1 : 0;
            ++opaque;
        }
    }
    return opaque ? visible / opaque : 0;
}

} // namespace

TEST_F(FrameButtonsTest, TheLiveBarIsTheWholeBar)
{
    EXPECT_EQ(liveBar().toStdString(), wholeBar);
}

TEST_F(FrameButtonsTest, EveryButtonHasAPictureForSharpScreens)
{
    for (const ToolbarRow &row : FrameButtons::rows()) {
        if (!row.key)
            continue;
        const QIcon icon = suite.frame().tbToolBar().button(row.position).icon();
        EXPECT_EQ(icon.pixmap(QSize(16, 16), 2).size(), QSize(32, 32)) << row.key;
    }
}

TEST_F(FrameButtonsTest, EveryPictureIsSeenInTheDark)
{
    constexpr double nearlyAll = 0.85;
    const QPalette before = QGuiApplication::palette();
    QApplication::setPalette(Palettes::dark());
    QCoreApplication::processEvents();
    for (const ToolbarRow &row : FrameButtons::rows()) {
        if (!row.key)
            continue;
        const QIcon icon = suite.frame().tbToolBar().button(row.position).icon();
        EXPECT_GT(visiblePart(icon, Palettes::dark().color(QPalette::Window)), nearlyAll) << row.key;
    }
    QApplication::setPalette(before);
}

constexpr std::array formats = {"Bold",   "Italic",      "Underline",   "Align Left",
                                "Center", "Align Right", "Font Colour", "Font",
                                "bullet", "indent",      "removeindent"};

class RefusedFormat : public FrameButtonsTest, public testing::WithParamInterface<const char *>
{
protected:
    QStringList pressed() const
    {
        QStringList keys;
        for (const char *key : formats) {
            if (suite.frame().tbToolBar().isPressed(QString::fromLatin1(key)))
                keys << QString::fromLatin1(key);
        }
        return keys;
    }
};

TEST_P(RefusedFormat, LeavesTheButtonsOfALockedDocumentAsTheyWere)
{
    suite.choose("mnutipsandtricks");
    QCoreApplication::processEvents();
    const QStringList before = pressed();
    ASSERT_EQ(before, (QStringList{QStringLiteral("Bold"), QStringLiteral("Align Left")})); // of its heading
    suite.dialogs.leaveWhatComes(); // the dialogs of font and colour come up nevertheless
    suite.press(GetParam());
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed() == before; })) << pressed().join(u' ').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Keys, RefusedFormat, testing::ValuesIn(formats));

TEST_F(FrameButtonsTest, TheMainPartOfADropDownShowsAHint)
{
    for (const auto &[key, title] :
         {std::pair("Print", "Print Options..."), std::pair("QuillZip", "QuillZip Options..."),
          std::pair("btnwinfo", "Network Info. Options..."), std::pair("tools", "Print Options...")}) {
        suite.dialogs.expectBox(QString::fromLatin1(title), hint).icon(QMessageBox::Information);
        suite.press(key);
    }
}

TEST_F(FrameButtonsTest, AListEntryRunsTheMenuItemsCommand)
{
    suite.dialogs.expectWindow<frmOptions>(QStringLiteral("frmOptions"),
                                           [](frmOptions &window) { window.close(); });
    chooseFromList("dprogopts");
}

TEST_F(FrameButtonsTest, TheAlignmentButtonsAreOneGroup)
{
    for (const ToolbarRow &row : FrameButtons::rows())
        EXPECT_EQ(row.style == ToolbarRow::Style::Group, row.position >= 14 && row.position <= 16)
            << row.position;
}
