#include "DragByMouse.h"
#include "FileListBox.h"
#include "FtpWindow.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct FtpDragTest : testing::Test
{
    FtpWindow window;
    FileListBox &files = window.control<FileListBox>("filLocalFile");
};

} // namespace

TEST_F(FtpDragTest, BeforeALogOnTheServersListTakesNoFile)
{
    window.addLocalFile("new.txt");
    EXPECT_TRUE(dragByMouse(files, 0, window.remote()));
    EXPECT_EQ(window.probe.states(), QString());
    EXPECT_EQ(window.frame.dialogs.seen().size(), 0);
}

TEST_F(FtpDragTest, AFileIsSent)
{
    window.addLocalFile("new.txt", "content");
    window.logOn();
    EXPECT_TRUE(dragByMouse(files, 0, window.remote()));
    FtpWindow::waitFor([this] { return window.rows().contains(QStringLiteral("new.txt")); });
}

TEST_F(FtpDragTest, ARowIsReceived)
{
    window.served.addFile("there", "content");
    window.logOn();
    EXPECT_TRUE(dragByMouse(window.remote(), 0, files));
    FtpWindow::waitFor([this] { return files.ListCount() == 1; });
    EXPECT_EQ(files.List(0), QStringLiteral("there"));
}
