#include "FakeFrame.h"
#include "Files.h"
#include "Forms.h"
#include "PrintQt.h"
#include "RegistryStore.h"
#include "ScratchFolder.h"
#include "frmSystemMessage.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString winlogon = QStringLiteral("Software\\Microsoft\\Windows NT\\CurrentVersion\\WINLOGON");
const QString policies = QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\policies\\system");
const QString captionName = QStringLiteral("LegalNoticeCaption");
const QString textName = QStringLiteral("LegalNoticeText");

cRegistry at(const QString &section, const QString &name)
{
    cRegistry registry;
    registry.ClassKey = cRegistry::LocalMachine;
    registry.SectionKey = section;
    registry.ValueKey = name;
    return registry;
}

struct SystemMessageTest : testing::Test
{
    SystemMessageTest()
    {
        Forms::registerWindow(QStringLiteral("frmSystemMessage"), Forms::Instances::One,
                              [this] { return new frmSystemMessage(LogOnNotice(LogInBanner(etc.path()))); });
    }
    frmSystemMessage &open()
    {
        auto &form = Forms::refer<frmSystemMessage>();
        form.showModeless();
        m_form = &form;
        return form;
    }
    void press(const char *button)
    {
        QTest::mouseClick(&m_form->member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QLineEdit &title() const { return m_form->member<QLineEdit>(QStringLiteral("txtTitle")); }
    QPlainTextEdit &message() const { return m_form->member<QPlainTextEdit>(QStringLiteral("txtMessage")); }
    QString shown() const { return title().text() + u'|' + message().toPlainText(); }
    bool isOpen() const { return !m_form.isNull() && m_form->isLoaded(); }

    static void write(const QString &section, const QString &name, const QString &text)
    {
        at(section, name).setValue(text);
    }
    /// The four values in the order in which they are written; "-" for one that is missing.
    static QString values()
    {
        QStringList texts;
        for (const QString &section : {winlogon, policies}) {
            for (const QString &name : {captionName, textName}) {
                const QVariant value = at(section, name).Value();
                texts << (value.isValid() ? value.toString() : QStringLiteral("-"));
            }
        }
        return texts.join(u'|');
    }

    FakeFrame frame;
    ScratchFolder etc;

private:
    QPointer<frmSystemMessage> m_form;
};

} // namespace

TEST_F(SystemMessageTest, BeginsWithTheDefaultWordsAndItsSize)
{
    const frmSystemMessage &form = open();
    EXPECT_EQ(shown(), QStringLiteral("No Title|No Message"));
    EXPECT_EQ(form.Width(), 5910);
    EXPECT_EQ(form.Height(), 6075);
    EXPECT_EQ(form.Caption(), QStringLiteral("System Startup Message"));
    EXPECT_EQ(title().toolTip(),
              QStringLiteral("Enter a message such as 'Important Message' or 'Please Read' etc."));
    EXPECT_EQ(form.member<QLabel>(QStringLiteral("Label1")).text(),
              QStringLiteral("Enter the Title for the Message"));
    EXPECT_EQ(form.member<QLabel>(QStringLiteral("Label3")).text(), QStringLiteral("Enter the Message Text"));
    EXPECT_EQ(
        form.member<QLabel>(QStringLiteral("Label2")).text(),
        QStringLiteral(
            "Adding this will add a message box to your Windows StartUp. The message will appear before any "
            "Logon prompts and will be displayed to the user until they Click OK and acknowledge the "
            "message. If values are already set they will be displayed below for you to edit if desired. "
            "Once you have made any changes click 'Activate' to apply the changes. De-Activate removes the "
            "Registry Keys and the message also."));
    EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdActivate")).text(), QStringLiteral("Activate"));
    EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdDeActivate")).text(),
              QStringLiteral("De-Activate"));
    EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdClose")).text(), QStringLiteral("Close"));
}

TEST_F(SystemMessageTest, ShowsThePolicysValuesWhereTheOthersAreMissing)
{
    write(policies, captionName, QStringLiteral("Policy"));
    write(policies, textName, QStringLiteral("Read\r\nthis"));
    open();
    EXPECT_EQ(shown(), QStringLiteral("Policy|Read\nthis"));
}

TEST_F(SystemMessageTest, ShowsTheWinlogonValuesBeforeThoseOfThePolicies)
{
    write(policies, captionName, QStringLiteral("Policy"));
    write(winlogon, captionName, QStringLiteral("Winlogon"));
    write(policies, textName, QStringLiteral("Policy text"));
    write(winlogon, textName, QString());
    open();
    EXPECT_EQ(shown(), QStringLiteral("Winlogon|No Message"));
}

TEST_F(SystemMessageTest, ActivateWritesAllFourValuesAndCloses)
{
    open();
    title().setText(QStringLiteral("Title"));
    message().setPlainText(QStringLiteral("Text"));
    press("cmdActivate");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(values(), QStringLiteral("Title|Text|Title|Text"));
    open();
    EXPECT_EQ(shown(), QStringLiteral("Title|Text"));
}

TEST_F(SystemMessageTest, ActivateWritesTheDefaultWordsToo)
{
    open();
    press("cmdActivate");
    EXPECT_EQ(values(), QStringLiteral("No Title|No Message|No Title|No Message"));
}

TEST_F(SystemMessageTest, ActivateWritesEmptyBoxesEmpty)
{
    open();
    title().clear();
    message().clear();
    press("cmdActivate");
    EXPECT_EQ(values(), QStringLiteral("|||"));
    open();
    EXPECT_EQ(shown(), QStringLiteral("No Title|No Message"));
}

TEST_F(SystemMessageTest, WhatCannotBeWrittenIsPassedOver)
{
    const QString before = RegistryStore::setMachineFolder(etc.path() + QStringLiteral("/file/below"));
    etc.addFile("file");
    open();
    title().setText(QStringLiteral("Title"));
    press("cmdActivate");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(values(), QStringLiteral("-|-|-|-"));
    EXPECT_TRUE(QFile::exists(etc.path() + QStringLiteral("/issue.d/90-quill.issue")));
    RegistryStore::setMachineFolder(before);
}

TEST_F(SystemMessageTest, DeActivateDeletesAllFourValuesAndCloses)
{
    write(winlogon, captionName, QStringLiteral("Title"));
    write(policies, textName, QStringLiteral("Text"));
    write(winlogon, QStringLiteral("Other"), QStringLiteral("kept"));
    open();
    press("cmdDeActivate");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(values(), QStringLiteral("-|-|-|-"));
    EXPECT_EQ(at(winlogon, QStringLiteral("Other")).Value().toString(), QStringLiteral("kept"));
}

TEST_F(SystemMessageTest, DeActivatePassesOverWhatIsMissing)
{
    open();
    press("cmdDeActivate");
    EXPECT_FALSE(isOpen());
}

TEST_F(SystemMessageTest, CloseChangesNothing)
{
    open();
    title().setText(QStringLiteral("Title"));
    press("cmdClose");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(values(), QStringLiteral("-|-|-|-"));
}

TEST_F(SystemMessageTest, TheNoticeIsOnTheConsolesToo)
{
    open();
    title().setText(QStringLiteral("Title"));
    message().setPlainText(QStringLiteral("C:\\n"));
    press("cmdActivate");
    const QString issue = etc.path() + QStringLiteral("/issue.d/90-quill.issue");
    EXPECT_EQ(Files::read(issue), QByteArray("Title\n\nC:\\\\n\n"));
    open();
    press("cmdDeActivate");
    EXPECT_FALSE(QFile::exists(issue));
}

TEST_F(SystemMessageTest, ItsMenusCallTheFrame)
{
    frmSystemMessage &form = open();
    const auto item = [&](const char *name) { return form.findChild<QAction *>(QString::fromLatin1(name)); };
    EXPECT_EQ(item("mnuNew")->text(), QStringLiteral("New Quill-Word Document"));
    EXPECT_EQ(item("mnuClose")->text(), QStringLiteral("Close System StartUp Message"));
    EXPECT_EQ(item("mnuExit")->text(), QStringLiteral("Exit Quill-Office Tools"));
    EXPECT_EQ(item("mnuCascade")->text(), QStringLiteral("Cascade"));
    for (const char *name : {"mnuNew", "mnuCascade", "mnuTileHoriz", "mnuTileVert", "mnuArrange", "mnuExit"})
        item(name)->trigger();
    EXPECT_EQ(frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
    item("mnuClose")->trigger();
    EXPECT_FALSE(isOpen());
}
