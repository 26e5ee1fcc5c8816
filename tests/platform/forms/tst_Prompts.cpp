#include "DialogDriver.h"
#include "Form.h"
#include "PrintQt.h"
#include "Prompts.h"
#include "SeenDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct IconRow
{
    const char *name;
    MsgBoxStyle style;
    QMessageBox::Icon icon;
};

struct MsgBoxIconTest : testing::TestWithParam<IconRow>
{};

struct MsgBoxTest : testing::Test
{
    DialogDriver dialogs;
    QString title = QStringLiteral("Save Changes?...");
    QString text = QStringLiteral("Save Changes to Document 1");

    /// What the box returns when \a act leaves it.
    int replyTo(MsgBoxStyle style, std::function<void(QMessageBox &)> act)
    {
        dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), std::move(act));
        return MsgBox(text, style, title);
    }

    QWidget *owner()
    {
        QWidget *found = nullptr;
        replyTo(MsgBoxStyle::Plain, [&](QMessageBox &box) {
            found = box.parentWidget();
            box.accept();
        });
        return found;
    }
};

} // namespace

TEST_P(MsgBoxIconTest, FollowsTheStyle)
{
    DialogDriver dialogs;
    dialogs.expectBox(QStringLiteral("title"), QStringLiteral("text"))
        .icon(GetParam().icon)
        .buttons(QMessageBox::Ok);
    EXPECT_EQ(MsgBox(QStringLiteral("text"), GetParam().style, QStringLiteral("title")), MsgBoxReply::Ok);

    dialogs.expectBox(QStringLiteral("title"), QStringLiteral("text"))
        .icon(GetParam().icon)
        .buttons(QMessageBox::Yes | QMessageBox::No)
        .press(QMessageBox::Yes);
    EXPECT_EQ(MsgBox(QStringLiteral("text"), GetParam().style | MsgBoxStyle::YesNo, QStringLiteral("title")),
              MsgBoxReply::Yes);
}

INSTANTIATE_TEST_SUITE_P(
    Styles, MsgBoxIconTest,
    testing::Values(IconRow{"Plain", MsgBoxStyle::Plain, QMessageBox::NoIcon},
                    IconRow{"Critical", MsgBoxStyle::Critical, QMessageBox::Critical},
                    IconRow{"Question", MsgBoxStyle::Question, QMessageBox::Question},
                    IconRow{"Exclamation", MsgBoxStyle::Exclamation, QMessageBox::Warning},
                    IconRow{"Information", MsgBoxStyle::Information, QMessageBox::Information}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(MsgBoxTest, ReturnsTheNumberOfTheButton)
{
    dialogs.expectBox(title, text).press(QMessageBox::Ok);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::Plain, title), 1);
    dialogs.expectBox(title, text).press(QMessageBox::Yes).defaultButton(QMessageBox::Yes);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::YesNo, title), 6);
    dialogs.expectBox(title, text).press(QMessageBox::No);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::YesNo, title), 7);
}

TEST_F(MsgBoxTest, OkAndCancelHaveTheirNumbers)
{
    constexpr auto both = QMessageBox::Ok | QMessageBox::Cancel;
    dialogs.expectBox(title, text).buttons(both).defaultButton(QMessageBox::Ok).press(QMessageBox::Ok);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::OkCancel | MsgBoxStyle::Question, title), 1);
    dialogs.expectBox(title, text).buttons(both).press(QMessageBox::Cancel);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::OkCancel, title), 2);
}

TEST_F(MsgBoxTest, EscapeAndTheWindowSystemCancel)
{
    EXPECT_EQ(replyTo(MsgBoxStyle::OkCancel, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              MsgBoxReply::Cancel);
    EXPECT_EQ(replyTo(MsgBoxStyle::OkCancel, [](QMessageBox &box) { box.close(); }), MsgBoxReply::Cancel);
}

TEST_F(MsgBoxTest, TheSecondButtonCanBeTheDefault)
{
    constexpr MsgBoxStyle style = MsgBoxStyle::YesNo | MsgBoxStyle::Question | MsgBoxStyle::DefaultButton2;
    EXPECT_EQ(int(style), 4 + 32 + 256);
    dialogs.expectBox(title, text)
        .icon(QMessageBox::Question)
        .buttons(QMessageBox::Yes | QMessageBox::No)
        .defaultButton(QMessageBox::No)
        .press(QMessageBox::Yes);
    EXPECT_EQ(MsgBox(text, style, title), MsgBoxReply::Yes);
    EXPECT_EQ(replyTo(style, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); }),
              MsgBoxReply::No);
    dialogs.expectBox(title, text).defaultButton(QMessageBox::Cancel).press(QMessageBox::Ok);
    EXPECT_EQ(MsgBox(text, MsgBoxStyle::OkCancel | MsgBoxStyle::DefaultButton2, title), MsgBoxReply::Ok);
}

TEST_F(MsgBoxTest, ShowsLineEndsOfAnyKindAndMarksWhatHides)
{
    dialogs.expectBox(title, QStringLiteral("Delete\na\nb\uFFFDc ?"));
    MsgBox(QStringLiteral("Delete\ra\r\nb\u202Ec ?"), MsgBoxStyle::Plain, title);
}

TEST_F(MsgBoxTest, UsesTheApplicationTitleByDefault)
{
    dialogs.expectBox(QStringLiteral("QuillOfficeToolsv2"), text);
    MsgBox(text);
}

TEST_F(MsgBoxTest, ShowsItsTextAsItIs)
{
    const QString markup = QStringLiteral("<b>a & b</b>\nsecond");
    dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.text(), markup);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.accept();
    });
    MsgBox(markup);
}

TEST_F(MsgBoxTest, EscapeAndTheWindowSystemLeaveAnOkBox)
{
    EXPECT_EQ(replyTo(MsgBoxStyle::Plain, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              MsgBoxReply::Ok);
    EXPECT_EQ(replyTo(MsgBoxStyle::Plain, [](QMessageBox &box) { box.close(); }), MsgBoxReply::Ok);
}

TEST_F(MsgBoxTest, EscapeAndTheWindowSystemDoNotLeaveAQuestion)
{
    const auto tryToLeave = [](QMessageBox &box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        QTest::keyClick(box.button(QMessageBox::Yes), Qt::Key_Escape);
        EXPECT_FALSE(box.close());
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::No)->click();
    };
    EXPECT_EQ(replyTo(MsgBoxStyle::YesNo, tryToLeave), MsgBoxReply::No);
}

TEST_F(MsgBoxTest, AQuestionHasNoCloseButtonAnOkBoxHas)
{
    const auto hasCloseButton = [](const QMessageBox &box) {
        return bool(box.windowFlags() & Qt::WindowCloseButtonHint);
    };
    replyTo(MsgBoxStyle::YesNo, [&](QMessageBox &box) {
        EXPECT_FALSE(hasCloseButton(box));
        EXPECT_TRUE(box.windowFlags() & Qt::WindowTitleHint);
        box.button(QMessageBox::No)->click();
    });
    replyTo(MsgBoxStyle::Plain, [&](QMessageBox &box) {
        EXPECT_TRUE(hasCloseButton(box));
        box.accept();
    });
}

TEST_F(MsgBoxTest, AShortTextLeavesRoomForALongTitle)
{
    constexpr int frame = 100; // pixels that a title bar's icon and buttons take
    title = QStringLiteral("Quill-Office Tools - Error Message");
    text = QStringLiteral("ok");
    for (const MsgBoxStyle style : {MsgBoxStyle::Plain, MsgBoxStyle::YesNo}) {
        replyTo(style, [&](QMessageBox &box) {
            QFont bold = box.font();
            bold.setBold(true);
            EXPECT_GE(box.width(), QFontMetrics(bold).horizontalAdvance(title) + frame);
            box.buttons().last()->click();
        });
    }
}

TEST_F(MsgBoxTest, ReturnTakesTheDefault)
{
    EXPECT_EQ(replyTo(MsgBoxStyle::YesNo, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); }),
              MsgBoxReply::Yes);
}

TEST_F(MsgBoxTest, BelongsToTheActiveWindowElseToTheNewestFormOnTheScreen)
{
    QWidget active;
    Form older(QStringLiteral("frmOlder"));
    Form newer(QStringLiteral("frmNewer"));
    for (Form *form : {&older, &newer})
        form->showModeless();
    active.show();
    active.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&active));
    EXPECT_EQ(owner(), &active);
    const auto ownerWithoutActive = [this] {
        QApplication::setActiveWindow(nullptr); // another program is used
        return owner();
    };
    EXPECT_EQ(ownerWithoutActive(), &newer);
    newer.showMinimized();
    EXPECT_EQ(ownerWithoutActive(), &older);
    older.hide();
    EXPECT_EQ(ownerWithoutActive(), nullptr);
    QMainWindow frame;
    frame.show();
    EXPECT_EQ(ownerWithoutActive(), &frame);
}

TEST_F(MsgBoxTest, ALongWordIsBroken)
{
    text = QString(250, u'w') + QStringLiteral(" is read-only");
    replyTo(MsgBoxStyle::Plain, [&](QMessageBox &box) {
        EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
        EXPECT_GT(box.text().size(), text.size()); // places to break
        EXPECT_EQ(SeenDialog::of(box).text, text);
        box.accept();
    });
}

TEST_F(MsgBoxTest, ATextLongerThanTheScreenIsCut)
{
    for (const QString &much : {QString(60000, u'w'), QStringLiteral("line\n").repeated(10000)}) {
        text = much;
        replyTo(MsgBoxStyle::Plain, [&](QMessageBox &box) {
            EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
            EXPECT_TRUE(box.text().endsWith(QChar(0x2026)));
            box.accept();
        });
    }
}

TEST_F(MsgBoxTest, BelongsToTheModalWindowInFront)
{
    QWidget active;
    active.show();
    QDialog modal(&active);
    modal.setModal(true);
    modal.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&modal));
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(owner(), &modal);
}
