#include "DialogDriver.h"
#include "Form.h"
#include "InputBox.h"
#include "PrintQt.h"
#include "Prompts.h"

#include <QFileDialog>
#include <QInputDialog>
#include <gtest/gtest-spi.h>

namespace {

const QString title = QStringLiteral("QuillOfficeToolsv2");

struct StubbornForm : Form
{
    StubbornForm()
        : Form(QStringLiteral("frmStubborn"))
    {}

protected:
    bool Form_QueryUnload() override { return false; }
};

/// The messages of the failures that \a step makes.
template<class Step>
std::string failuresOf(Step &&step)
{
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &results);
        step();
    }
    std::string messages;
    for (int i = 0; i < results.size(); ++i)
        messages += std::string(results.GetTestPartResult(i).message()) + "\n";
    return messages;
}

bool has(const std::string &text, const char *part)
{
    return text.find(part) != std::string::npos;
}

int askYesNo()
{
    return MsgBox(QStringLiteral("Go on?"), MsgBoxStyle::YesNo | MsgBoxStyle::Question);
}

} // namespace

TEST(DialogDriverTest, AnswersInOrderAlsoFromInsideAnAnswer)
{
    DialogDriver dialogs;
    dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &box) {
        EXPECT_EQ(askYesNo(), MsgBoxReply::No);
        box.accept();
    });
    dialogs.expectBox(title, QStringLiteral("Go on?")).press(QMessageBox::No);
    MsgBox(QStringLiteral("Hello"));
    ASSERT_EQ(dialogs.seen().size(), 2);
    EXPECT_EQ(dialogs.seen()[0].text, QStringLiteral("Hello"));
    EXPECT_EQ(dialogs.seen()[1].icon, QMessageBox::Question);
    EXPECT_EQ(dialogs.seen()[1].buttons, QStringList({QStringLiteral("Yes"), QStringLiteral("No")}));
    EXPECT_EQ(dialogs.seen()[1].defaultButton, QStringLiteral("Yes"));
}

TEST(DialogDriverTest, AnUnexpectedQuestionIsAnsweredByNoAndFails)
{
    int reply = 0;
    const std::string failures = failuresOf([&] {
        DialogDriver dialogs;
        reply = askYesNo();
        EXPECT_EQ(dialogs.seen().size(), 1);
    });
    EXPECT_EQ(reply, MsgBoxReply::No);
    EXPECT_TRUE(has(failures, "unexpected: MsgBox")) << failures;
    EXPECT_TRUE(has(failures, "Go on?")) << failures;
}

TEST(DialogDriverTest, AnotherTextFailsAndLeavesTheStep)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectBox(title, QStringLiteral("Stop?")).press(QMessageBox::Yes);
        askYesNo();
    });
    EXPECT_TRUE(has(failures, "unexpected: MsgBox")) << failures;
    EXPECT_TRUE(has(failures, "never came up")) << failures;
}

TEST(DialogDriverTest, AStepThatNothingCameUpForFails)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectFileDialog(QStringLiteral("Open"));
    });
    EXPECT_TRUE(has(failures, "never came up: a file dialog, title \"Open\"")) << failures;
}

TEST(DialogDriverTest, TheWrongIconButtonOrDefaultFails)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectBox(title, QStringLiteral("Go on?"))
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok)
            .defaultButton(QMessageBox::No)
            .press(QMessageBox::Yes);
        askYesNo();
    });
    EXPECT_TRUE(has(failures, "box.icon()")) << failures;
    EXPECT_TRUE(has(failures, "box.standardButtons()")) << failures;
    EXPECT_TRUE(has(failures, "box.defaultButton()")) << failures;
}

TEST(DialogDriverTest, AButtonThatIsMissingFailsAndDoesNotHang)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectBox(title, QStringLiteral("Go on?")).press(QMessageBox::Cancel);
        EXPECT_EQ(askYesNo(), MsgBoxReply::No);
    });
    EXPECT_TRUE(has(failures, "no button to press")) << failures;
}

TEST(DialogDriverTest, AnAnswerThatLeavesItsWindowOpenDoesNotHang)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [](QMessageBox &) {});
        askYesNo();
    });
    EXPECT_TRUE(has(failures, "unexpected: MsgBox")) << failures;
}

TEST(DialogDriverTest, AnAnswerThatFailsDoesNotHang)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"),
                                          [](QMessageBox &) { throw RuntimeError(438); });
        askYesNo();
    });
    EXPECT_TRUE(has(failures, "threw 438")) << failures;
}

TEST(DialogDriverTest, AFormThatKeepsItselfOpenDoesNotHang)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        (new StubbornForm)->showModal(nullptr);
    });
    EXPECT_TRUE(has(failures, "unexpected: frmStubborn")) << failures;
}

TEST(DialogDriverTest, DrivesAnyDialog)
{
    DialogDriver dialogs;
    dialogs.expectWindow<QInputDialog>(QStringLiteral("InputBox"), [](QInputDialog &input) {
        input.setTextValue(QStringLiteral("answer"));
        input.accept();
    });
    QInputDialog input;
    input.setObjectName(QStringLiteral("InputBox"));
    EXPECT_EQ(input.exec(), QDialog::Accepted);
    EXPECT_EQ(input.textValue(), QStringLiteral("answer"));
}

TEST(DialogDriverTest, TheWrongFileDialogFails)
{
    const std::string failures = failuresOf([] {
        DialogDriver dialogs;
        dialogs.expectFileDialog(QStringLiteral("Save"))
            .filters({QStringLiteral("Text (*.txt)")})
            .defaultSuffix(QStringLiteral("txt"))
            .folder(QStringLiteral("/usr"))
            .suggests(QStringLiteral("letter.txt"))
            .cancel();
        QFileDialog dialog(nullptr, QStringLiteral("Save"), QStringLiteral("/etc"));
        dialog.exec();
    });
    EXPECT_TRUE(has(failures, "shownFilters(dialog)")) << failures;
    EXPECT_TRUE(has(failures, "dialog.defaultSuffix()")) << failures;
    EXPECT_TRUE(has(failures, "dialog.directory()")) << failures;
    EXPECT_TRUE(has(failures, "edit->text()")) << failures;
}

TEST(DialogDriverDeathTest, AQuestionThatComesForEverEndsTheTest)
{
    EXPECT_EXIT(
        {
            DialogDriver dialogs;
            for (;;)
                askYesNo();
        },
        testing::ExitedWithCode(EXIT_FAILURE), "");
}

TEST(DialogDriverTest, AWrongSuggestionOrPromptFails)
{
    const std::string failures = failuresOf([&] {
        DialogDriver dialogs;
        dialogs.expectInput(title, QStringLiteral("Name:")).suggests(QStringLiteral("one"));
        EXPECT_EQ(InputBox(QStringLiteral("Name:"), {}, QStringLiteral("two")), QStringLiteral("two"));
        dialogs.expectInput(title, QStringLiteral("Name:"));
        EXPECT_EQ(InputBox(QStringLiteral("Other:")), QString());
    });
    EXPECT_TRUE(has(failures, "an input box, title \"QuillOfficeToolsv2\", prompt \"Name:\"")) << failures;
    EXPECT_TRUE(has(failures, "unexpected: InputBox, title \"QuillOfficeToolsv2\", text \"Other:\""))
        << failures;
    EXPECT_TRUE(has(failures, "never came up: an input box")) << failures;
}
