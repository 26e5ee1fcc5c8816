#include "FakeFrame.h"
#include "Forms.h"
#include "PasswordBox.h"
#include "PrintQt.h"
#include "frmPassword.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct frmPasswordTest : testing::Test
{
    FakeFrame frame;

    frmPasswordTest()
    {
        Forms::registerWindow(QStringLiteral("frmPassword"), Forms::Instances::One,
                              [] { return new frmPassword; });
    }

    /// Shows the dialog, runs \a act in it and returns it once it is closed.
    static const frmPassword &show(FakeFrame &frame, const std::function<void(frmPassword &)> &act)
    {
        frame.dialogs.expectWindow<frmPassword>(QStringLiteral("frmPassword"), act);
        auto &dialog = Forms::refer<frmPassword>();
        dialog.showModal(nullptr);
        return dialog;
    }
    static PasswordBox &box(const frmPassword &dialog)
    {
        return dialog.member<PasswordBox>(QStringLiteral("txtPassword"));
    }
    static void press(const frmPassword &dialog, const char *name)
    {
        dialog.member<QPushButton>(QString::fromLatin1(name)).click();
    }
};

} // namespace

TEST_F(frmPasswordTest, IsAsDesigned)
{
    show(frame, [](frmPassword &dialog) {
        const auto caption = [&](const char *name) {
            return dialog.member<QLabel>(QString::fromLatin1(name)).text();
        };
        EXPECT_EQ(dialog.Caption(), QStringLiteral("Enter Password"));
        EXPECT_EQ(caption("lblPassword"), QStringLiteral("Password:"));
        EXPECT_TRUE(caption("lblInfo").startsWith(QStringLiteral(
            "Note: the password will be applied to files you subsequently extract from this arch")));
        EXPECT_EQ(dialog.member<QPushButton>(QStringLiteral("cmdOK")).text(), QStringLiteral("OK"));
        EXPECT_EQ(dialog.member<QPushButton>(QStringLiteral("cmdCancel")).text(), QStringLiteral("Cancel"));
        EXPECT_FALSE(dialog.member<QLabel>(QStringLiteral("imgIcon")).pixmap().isNull());
        EXPECT_FALSE(dialog.windowIcon().isNull());
        EXPECT_EQ(QApplication::focusWidget(), &box(dialog));
        EXPECT_TRUE(dialog.Cancelled());
        EXPECT_EQ(dialog.Password(), QString());
        press(dialog, "cmdCancel");
    });
}

TEST_F(frmPasswordTest, OkGivesTheTrimmedPassword)
{
    const frmPassword &dialog = show(frame, [](frmPassword &shown) {
        QTest::keyClicks(&box(shown), QStringLiteral(" open sesame "));
        EXPECT_EQ(box(shown).displayText(), QString(13, u'*'));
        QTest::keyClick(&box(shown), Qt::Key_Return);
    });
    EXPECT_EQ(dialog.Password(), QStringLiteral("open sesame"));
    EXPECT_FALSE(dialog.Cancelled());
}

TEST_F(frmPasswordTest, CancelGivesNone)
{
    const frmPassword &dialog = show(frame, [](frmPassword &shown) {
        QTest::keyClicks(&box(shown), QStringLiteral("key"));
        QTest::keyClick(&box(shown), Qt::Key_Escape);
    });
    EXPECT_TRUE(dialog.Cancelled());
    EXPECT_EQ(dialog.Password(), QString());
}

TEST_F(frmPasswordTest, ClosingItCancels)
{
    const frmPassword &dialog = show(frame, [](frmPassword &shown) {
        QTest::keyClicks(&box(shown), QStringLiteral("key"));
        shown.close();
    });
    EXPECT_TRUE(dialog.Cancelled());
}

TEST_F(frmPasswordTest, BlanksAloneAreNoPassword)
{
    const frmPassword &dialog = show(frame, [this](frmPassword &shown) {
        frame.dialogs
            .expectBox(QStringLiteral("QuillOfficeToolsv2"), QStringLiteral("Please enter a password."))
            .icon(QMessageBox::Information);
        QTest::keyClicks(&box(shown), QStringLiteral("   "));
        shown.member<QPushButton>(QStringLiteral("cmdOK")).setFocus();
        press(shown, "cmdOK");
        EXPECT_TRUE(shown.isLoaded());
        EXPECT_EQ(shown.focusWidget(), &box(shown));
        box(shown).setText(QStringLiteral("key"));
        press(shown, "cmdOK");
    });
    EXPECT_EQ(dialog.Password(), QStringLiteral("key"));
}

TEST_F(frmPasswordTest, EachShowingBeginsEmpty)
{
    show(frame, [](frmPassword &shown) {
        box(shown).setText(QStringLiteral("key"));
        press(shown, "cmdOK");
    });
    const frmPassword &again = show(frame, [](frmPassword &shown) {
        EXPECT_EQ(box(shown).text(), QString());
        press(shown, "cmdCancel");
    });
    EXPECT_TRUE(again.Cancelled());
}
