#include "DialogDriver.h"
#include "InputBox.h"
#include "PrintQt.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct InputBoxTest : testing::Test
{
    DialogDriver dialogs;
    QString title = QStringLiteral("New Folder");
    QString prompt = QStringLiteral("Enter new folder name");

    /// What the box returns when \a act leaves it.
    QString answerTo(std::function<void(QDialog &)> act)
    {
        dialogs.expectWindow<QDialog>(QStringLiteral("InputBox"), std::move(act));
        return InputBox(prompt, title, QStringLiteral("default"));
    }
};

QLineEdit &editOf(QDialog &box)
{
    return *box.findChild<QLineEdit *>(QStringLiteral("txtAnswer"));
}

} // namespace

TEST_F(InputBoxTest, ReturnsWhatWasTyped)
{
    dialogs.expectInput(title, prompt).suggests({}).type(QStringLiteral("  <b>a&b</b> "));
    EXPECT_EQ(InputBox(prompt, title), QStringLiteral("  <b>a&b</b> "));
    dialogs.expectInput(title, prompt).suggests(QStringLiteral("secret")).press(QMessageBox::Ok);
    EXPECT_EQ(InputBox(prompt, title, QStringLiteral("secret")), QStringLiteral("secret"));
    dialogs.expectInput(title, prompt).type({});
    EXPECT_EQ(InputBox(prompt, title, QStringLiteral("secret")), QString());
}

TEST_F(InputBoxTest, CancelGivesAnEmptyText)
{
    dialogs.expectInput(title, prompt).type(QStringLiteral("typed")).press(QMessageBox::Cancel);
    EXPECT_EQ(InputBox(prompt, title, QStringLiteral("default")), QString());
    EXPECT_EQ(answerTo([](QDialog &box) { QTest::keyClick(&editOf(box), Qt::Key_Escape); }), QString());
    EXPECT_EQ(answerTo([](QDialog &box) { box.close(); }), QString());
}

TEST_F(InputBoxTest, ReturnTakesTheText)
{
    EXPECT_EQ(answerTo([](QDialog &box) {
                  EXPECT_TRUE(editOf(box).hasSelectedText());
                  QTest::keyClicks(&editOf(box), QStringLiteral("typed over"));
                  QTest::keyClick(&editOf(box), Qt::Key_Return);
              }),
              QStringLiteral("typed over"));
}

TEST_F(InputBoxTest, TheTextHasTheFocus)
{
    EXPECT_EQ(answerTo([](QDialog &box) {
                  EXPECT_EQ(box.focusWidget(), &editOf(box));
                  box.accept();
              }),
              QStringLiteral("default"));
}

TEST_F(InputBoxTest, UsesTheApplicationTitleByDefault)
{
    dialogs.expectInput(QStringLiteral("QuillOfficeToolsv2"), prompt);
    InputBox(prompt);
}

TEST_F(InputBoxTest, ThePromptIsPlainText)
{
    prompt = QStringLiteral("Enter new file name for <b>%1 & \u202Etxt.exe\r\n</b>");
    answerTo([](QDialog &box) {
        const auto *label = box.findChild<QLabel *>(QStringLiteral("lblPrompt"));
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), QStringLiteral("Enter new file name for <b>%1 & \uFFFDtxt.exe\n</b>"));
        box.reject();
    });
}

TEST_F(InputBoxTest, ALongPromptStaysOnTheScreen)
{
    prompt = QStringLiteral("Enter new file name for ") + QString(300, u'W');
    answerTo([](QDialog &box) {
        EXPECT_LT(box.width(), 800);
        box.reject();
    });
}
