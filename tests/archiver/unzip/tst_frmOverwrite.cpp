#include "FakeFrame.h"
#include "Forms.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "Prompts.h"
#include "ShownText.h"
#include "frmOverwrite.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct frmOverwriteTest : testing::Test
{
    FakeFrame frame;

    frmOverwriteTest()
    {
        Forms::registerWindow(QStringLiteral("frmOverwrite"), Forms::Instances::One,
                              [] { return new frmOverwrite; });
    }

    const frmOverwrite &ask(const QString &question, const std::function<void(frmOverwrite &)> &act)
    {
        frame.dialogs.expectWindow<frmOverwrite>(QStringLiteral("frmOverwrite"), act);
        auto &dialog = Forms::refer<frmOverwrite>();
        dialog.setTheCaption(question);
        dialog.showModal(nullptr);
        return dialog;
    }
    static void press(const frmOverwrite &dialog, const char *name)
    {
        dialog.member<QAbstractButton>(QString::fromLatin1(name)).click();
    }
    static QLabel &label(const frmOverwrite &dialog)
    {
        return dialog.member<QLabel>(QStringLiteral("lblCaption"));
    }
};

struct frmOverwriteNameTest : frmOverwriteTest, testing::WithParamInterface<HostileName>
{};

} // namespace

TEST_F(frmOverwriteTest, IsAsDesigned)
{
    ask(QStringLiteral("May I?"), [](frmOverwrite &dialog) {
        const auto caption = [&](const char *name) {
            return dialog.member<QAbstractButton>(QString::fromLatin1(name)).text();
        };
        EXPECT_EQ(dialog.Caption(), QStringLiteral("File Exists"));
        EXPECT_EQ(label(dialog).text(), QStringLiteral("May I?"));
        EXPECT_EQ(dialog.TheCaption(), QStringLiteral("May I?"));
        EXPECT_EQ(caption("chkAllFiles"), QStringLiteral("&Apply to All Files"));
        EXPECT_EQ(caption("cmdYes"), QStringLiteral("&Yes"));
        EXPECT_EQ(caption("cmdNo"), QStringLiteral("&No"));
        EXPECT_EQ(caption("cmdCancel"), QStringLiteral("Cancel"));
        EXPECT_FALSE(dialog.member<QLabel>(QStringLiteral("imgIcon")).pixmap().isNull());
        EXPECT_FALSE(dialog.ApplyToAll());
        press(dialog, "cmdNo");
    });
}

TEST_F(frmOverwriteTest, GivesTheAnswer)
{
    const struct
    {
        const char *button;
        bool ticks;
        int response;
    } answers[] = {
        {"cmdYes", false, MsgBoxReply::Yes},      {"cmdYes", true, MsgBoxReply::Yes},
        {"cmdNo", false, MsgBoxReply::No},        {"cmdNo", true, MsgBoxReply::No},
        {"cmdCancel", true, MsgBoxReply::Cancel},
    };
    for (const auto &answer : answers) {
        const frmOverwrite &dialog = ask(QStringLiteral("May I?"), [&](frmOverwrite &shown) {
            if (answer.ticks)
                press(shown, "chkAllFiles");
            press(shown, answer.button);
        });
        EXPECT_EQ(dialog.Response(), answer.response);
        EXPECT_EQ(dialog.ApplyToAll(), answer.ticks);
    }
}

TEST_F(frmOverwriteTest, TheKeysAnswerToo)
{
    const frmOverwrite &yes = ask(QStringLiteral("May I?"), [](frmOverwrite &) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(yes.Response(), MsgBoxReply::Yes);
    const frmOverwrite &cancel = ask(QStringLiteral("May I?"), [](frmOverwrite &) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    EXPECT_EQ(cancel.Response(), MsgBoxReply::Cancel);
}

TEST_F(frmOverwriteTest, ClosingItIsNeitherYesNorNo)
{
    const frmOverwrite &dialog = ask(QStringLiteral("May I?"), [](frmOverwrite &shown) { shown.close(); });
    EXPECT_NE(dialog.Response(), MsgBoxReply::Yes);
    EXPECT_NE(dialog.Response(), MsgBoxReply::No);
}

TEST_P(frmOverwriteNameTest, AnyNameIsShownPlainAndFits)
{
    const QString question =
        QStringLiteral("Do you want to overwrite the existing copy of ") + GetParam().text() + u'?';
    ask(question, [&](frmOverwrite &dialog) {
        EXPECT_EQ(label(dialog).textFormat(), Qt::PlainText);
        EXPECT_EQ(label(dialog).text().remove(QChar(0x200B)), ShownText::line(question));
        EXPECT_LE(dialog.width(), 700);
        EXPECT_GE(label(dialog).height(), label(dialog).heightForWidth(label(dialog).width()));
        const QRect text = label(dialog).fontMetrics().boundingRect(QRect(0, 0, label(dialog).width(), 10000),
                                                                    Qt::TextWordWrap, label(dialog).text());
        EXPECT_LE(text.width(), label(dialog).width());
        press(dialog, "cmdNo");
    });
}

INSTANTIATE_TEST_SUITE_P(Names, frmOverwriteNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
