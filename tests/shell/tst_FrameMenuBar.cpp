#include "Form.h"
#include "RichTextBox.h"
#include "RunningSuite.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct FrameMenuBarTest : testing::Test
{
    RunningSuite suite;
    QWidget &text = suite.active().member<RichTextBox>(QStringLiteral("rtfTextBox"));

    FrameMenuBarTest()
    {
        text.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&suite.frame()));
    }

    void open(Qt::Key key) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
        ASSERT_TRUE(QApplication::activePopupWidget());
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::activePopupWidget(), key); }
    /// The window's: it is not active for a moment where a menu has been closed.
    bool textHasFocus() const
    {
        return QTest::qWaitFor([&] { return suite.frame().focusWidget() == &text; });
    }
};

} // namespace

TEST_F(FrameMenuBarTest, GivesTheKeyboardBackWhereAMenuIsClosed)
{
    open(Qt::Key_E);
    press(Qt::Key_Escape);
    EXPECT_TRUE(textHasFocus());
}

TEST_F(FrameMenuBarTest, GivesItBackAfterTwoMenusInQuickSuccession)
{
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_V}) {
        open(key);
        press(Qt::Key_Escape);
    }
    EXPECT_TRUE(textHasFocus());
}

TEST_F(FrameMenuBarTest, KeepsItWhereTheNextMenuIsOpened)
{
    open(Qt::Key_E);
    const QWidget *first = QApplication::activePopupWidget();
    press(Qt::Key_Right);
    QCoreApplication::processEvents();
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_NE(QApplication::activePopupWidget(), first);
    EXPECT_EQ(suite.frame().focusWidget(), suite.frame().menuBar());
    press(Qt::Key_Escape);
    EXPECT_TRUE(textHasFocus());
}
