#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "Globals.h"
#include "MainFrame.h"
#include "RunningSuite.h"
#include "StandInTool.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

template<class Window>
concept CanBeModal = requires(Window &window)
{
    window.showModal(nullptr);
};

/// A tool whose key waits for events until its window is closed.
class WaitingTool : public StandInTool
{
public:
    using StandInTool::StandInTool;
    std::function<void()> onKey = [] {};

protected:
    void keyPressEvent(QKeyEvent *) override
    {
        run([&] { onKey(); });
    }
};

/// A tool that is placed by its own load.
class PlacedTool : public StandInTool
{
public:
    using StandInTool::StandInTool;

    double scaleWidthAtLoad = 0;

protected:
    void Form_Load() override
    {
        setLeft(600);
        setTop(300);
        setWidth(6000);
        setHeight(4500);
        scaleWidthAtLoad = ScaleWidth();
    }
};

/// A tool that its own load closes again.
class SelfUnloadingTool : public StandInTool
{
public:
    using StandInTool::StandInTool;

protected:
    void Form_Load() override { unload(); }
};

struct ChildFormTest : testing::Test
{
    RunningSuite suite;
};

} // namespace

static_assert(CanBeModal<Form> && !CanBeModal<ChildForm>);

TEST_F(ChildFormTest, CannotBeModal)
{
    auto *tool = new StandInTool(QStringLiteral("frmTool"));
    Form &form = *tool;
    EXPECT_EQ(errorNumberOf([&] { form.showModal(nullptr); }), ErrorNumber::InvalidProcedureCall);
    EXPECT_FALSE(form.isLoaded());
    delete tool;
}

TEST_F(ChildFormTest, ClosedByItsTitleBarWhileItsHandlerWaitsItLivesOn)
{
    QPointer<WaitingTool> tool = new WaitingTool(QStringLiteral("frmTool"));
    tool->showModeless();
    QPointer<QWidget> outer = tool->parentWidget();
    QTimer closing;
    on(&closing, &QTimer::timeout, tool, [&] {
        closing.stop();
        outer->close();
    });
    tool->onKey = [&] {
        closing.start(0);
        while (closing.isActive())
            processPendingEvents();
        processPendingEvents();
        ASSERT_TRUE(tool);
        EXPECT_FALSE(tool->isLoaded());
        EXPECT_FALSE(tool->isVisible());
        EXPECT_NE(suite.frame().ActiveForm(), tool.data());
    };
    QTest::keyClick(tool, Qt::Key_A);
    QCoreApplication::processEvents();
    EXPECT_FALSE(tool);
    EXPECT_FALSE(outer);
}

TEST_F(ChildFormTest, TheFrameClosedWhileAHandlerWaitsLeavesTheWindowAlive)
{
    QPointer<WaitingTool> tool = new WaitingTool(QStringLiteral("frmTool"));
    tool->showModeless();
    suite.fatal.expectEnd(EXIT_SUCCESS);
    tool->onKey = [&] {
        suite.frame().close();
        processPendingEvents();
        ASSERT_TRUE(tool);
        EXPECT_FALSE(tool->isLoaded());
    };
    QTest::keyClick(tool, Qt::Key_A);
    QCoreApplication::processEvents();
    EXPECT_FALSE(tool);
}

TEST_F(ChildFormTest, ItsPlaceAndSizeAreThoseOfItsWindowInTheFrame)
{
    auto *tool = new PlacedTool(QStringLiteral("frmTool"));
    tool->showModeless();
    const QWidget &outer = *tool->parentWidget();
    const int dpi = tool->logicalDpiX();
    EXPECT_EQ(outer.geometry(),
              QRect(600 * dpi / 1440, 300 * dpi / 1440, 6000 * dpi / 1440, 4500 * dpi / 1440));
    EXPECT_EQ(tool->Width(), 6000);
    EXPECT_EQ(tool->ScaleWidth(), tool->width() * 1440.0 / dpi);
    EXPECT_LT(tool->ScaleWidth(), tool->Width());
    EXPECT_LT(tool->ScaleHeight(), tool->Height() - 200); // the title bar counts outside
    tool->setWindowState(FormState::Maximized);
    EXPECT_TRUE(outer.isMaximized());
    EXPECT_EQ(tool->WindowState(), FormState::Maximized);
}

TEST_F(ChildFormTest, IsNotListedOrActiveBeforeItIsShown)
{
    Form *document = suite.frame().ActiveForm();
    auto *tool = new StandInTool(QStringLiteral("frmTool"));
    tool->load();
    EXPECT_FALSE(tool->isVisible());
    EXPECT_EQ(suite.frame().ActiveForm(), document);
    QMenu list;
    suite.frame().fillWindowList(list);
    EXPECT_EQ(list.actions().size(), 2); // a separator and the document
    document->unload();
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
    tool->showModeless();
    EXPECT_EQ(suite.frame().ActiveForm(), tool);
}

TEST_F(ChildFormTest, ShownAgainItComesToTheFront)
{
    auto *tool = new StandInTool(QStringLiteral("frmTool"));
    tool->showModeless();
    QWidget &outer = *tool->parentWidget();
    suite.choose("mnuFileNew");
    ASSERT_NE(suite.frame().ActiveForm(), tool);
    tool->showModeless();
    EXPECT_EQ(suite.frame().ActiveForm(), tool);
    outer.showMinimized();
    tool->showModeless();
    EXPECT_FALSE(outer.isMinimized());
}

TEST_F(ChildFormTest, ItsWindowInTheFrameIsRemovedWithIt)
{
    QPointer<StandInTool> tool = new StandInTool(QStringLiteral("frmTool"));
    tool->showModeless();
    QPointer<QWidget> outer = tool->parentWidget();
    EXPECT_TRUE(tool->unload());
    QCoreApplication::processEvents();
    EXPECT_FALSE(tool);
    EXPECT_FALSE(outer);
}

TEST_F(ChildFormTest, OneThatUnloadsItselfWhileLoadingIsNotShown)
{
    Form *document = suite.frame().ActiveForm();
    auto *tool = new SelfUnloadingTool(QStringLiteral("frmTool"));
    tool->showModeless();
    EXPECT_FALSE(tool->isVisible());
    EXPECT_EQ(suite.frame().ActiveForm(), document);
}

TEST(ChildFormWithoutAFrame, IsAWindowOfItsOwn)
{
    ASSERT_EQ(mainFrame, nullptr);
    QPointer<StandInTool> tool = new StandInTool(QStringLiteral("frmTool"));
    tool->showModeless();
    EXPECT_TRUE(tool->isVisible());
    EXPECT_TRUE(tool->isWindow());
    EXPECT_TRUE(tool->unload());
    EXPECT_FALSE(tool->isVisible());
    QCoreApplication::processEvents();
    EXPECT_FALSE(tool);
}
