#include "FakeFrame.h"
#include "Forms.h"
#include "Globals.h"
#include "PrintQt.h"
#include "StandInTool.h"

#include <gtest/gtest.h>

namespace {

struct FakeFrameTest : testing::Test
{
    FakeFrame frame;
};

} // namespace

TEST_F(FakeFrameTest, RecordsWhatAToolAsks)
{
    mainFrame->LoadNewDoc();
    mainFrame->Arrange(MdiArea::Arrangement::TileVertical);
    QMenu menu;
    mainFrame->fillWindowList(menu);
    mainFrame->checkForDocument();
    mainFrame->mnuFileExit_Click();
    EXPECT_EQ(frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 2,fillWindowList,checkForDocument,mnuFileExit_Click"));
}

TEST_F(FakeFrameTest, ShowsWindowsAndKnowsTheActiveOne)
{
    EXPECT_EQ(frame.ActiveForm(), nullptr);
    auto *first = new StandInTool(QStringLiteral("frmFirst"));
    auto *second = new StandInTool(QStringLiteral("frmSecond"));
    first->showModeless();
    second->showModeless();
    EXPECT_EQ(&frame.active(), second);
    EXPECT_TRUE(first->isVisible());
    first->showModeless();
    EXPECT_EQ(&frame.active(), first);
    first->unload();
    EXPECT_EQ(&frame.active(), second);
    EXPECT_EQ(Forms::loaded(), QList<Form *>{second});
}

TEST_F(FakeFrameTest, TheGlobalsAreAsAtTheStart)
{
    EXPECT_EQ(mainFrame, &frame);
    EXPECT_EQ(lastAnswer, QString());
    lastAnswer = QStringLiteral("6");
    {
        const ScratchGlobals globals;
        EXPECT_EQ(mainFrame, nullptr);
    }
    EXPECT_EQ(lastAnswer, QString());
}
