#include "FrameButtons.h"
#include "FrameCommands.h"
#include "FrameMenus.h"
#include "RunningSuite.h"

#include <QSysInfo>
#include <gtest/gtest.h>

namespace {

/// A row that opens a menu, parts others, or is a slot for a recent file.
bool needsNoCommand(std::span<const MenuRow> rows, std::size_t index)
{
    const bool opensMenu =
        rows[index].level == 0 || (index + 1 < rows.size() && rows[index + 1].level > rows[index].level);
    return opensMenu || rows[index].flags & MenuRow::Separator || !*rows[index].caption;
}

struct FrameCommandsTest : testing::Test
{
    RunningSuite suite;
};

} // namespace

TEST(FrameCommands, EveryItemAndKeyRunsSomething)
{
    const std::span<const MenuRow> menus = FrameMenus::rows();
    for (std::size_t i = 0; i < menus.size(); ++i) {
        EXPECT_EQ(FrameCommands::exists(QString::fromLatin1(menus[i].name)), !needsNoCommand(menus, i))
            << menus[i].name;
    }
    for (const ToolbarRow &row : FrameButtons::rows()) {
        const QString key = QString::fromLatin1(row.key);
        EXPECT_EQ(FrameCommands::exists(FrameButtons::commandOf(key)),
                  row.key && !FrameButtons::hintTitle(key))
            << row.position;
    }
    for (const ToolbarMenuRow &row : FrameButtons::lists())
        EXPECT_TRUE(!row.key || FrameCommands::exists(FrameButtons::commandOf(QString::fromLatin1(row.key))))
            << row.key;
}

TEST_F(FrameCommandsTest, ThePlaceholdersSayWhatIsMissing)
{
    for (const char *name : {"mnuFileSaveAll", "mnuFileProperties", "mnuFilePrintPreview",
                             "mnuEditPasteSpecial", "mnuViewRefresh"}) {
        suite.dialogs
            .expectBox(QStringLiteral("Tallowick - Quill-Office Tools"),
                       QStringLiteral("Add '") + QString::fromLatin1(name) + QStringLiteral("_Click' code."))
            .icon(QMessageBox::NoIcon);
        FrameCommands::run(QString::fromLatin1(name), suite.frame());
    }
}

TEST_F(FrameCommandsTest, ThereIsNoHelpFileToSearch)
{
    suite.dialogs
        .expectBox(
            QStringLiteral("Tallowick - Quill-Office Tools"),
            QStringLiteral("Unable to display Help Contents. There is no Help associated with this project."))
        .icon(QMessageBox::Information);
    suite.choose("mnuHelpSearchForHelpOn");
}

TEST_F(FrameCommandsTest, ShowsThisComputersNameAndAddress)
{
    suite.choose("mnuFileClose"); // it needs no document
    const QString title = QStringLiteral("This Computer's Name....");
    suite.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        const QStringList lines = box.text().split(u'\n');
        ASSERT_EQ(lines.size(), 3);
        EXPECT_EQ(lines[0], QStringLiteral("This computer's name is : "));
        EXPECT_EQ(lines[1], QSysInfo::machineHostName());
        EXPECT_TRUE(lines[2].startsWith(QStringLiteral("IP:")));
        box.accept();
    });
    suite.choose("compname");
}
