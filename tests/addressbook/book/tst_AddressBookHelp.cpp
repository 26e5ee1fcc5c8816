#include "BookWindow.h"
#include "PrintQt.h"
#include "RegistryStore.h"
#include "RichTextBox.h"
#include "UrlCatcher.h"
#include "Version.h"
#include "frmQuillAddressAbout.h"
#include "frmquilladdresshelp.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct AddressBookHelpTest : testing::Test
{
    BookWindow window;

    void expectAbout(std::function<void(frmQuillAddressAbout &)> act)
    {
        window.frame.dialogs.expectWindow<frmQuillAddressAbout>(QStringLiteral("frmQuillAddressAbout"),
                                                                std::move(act));
    }
    void expectHelp(std::function<void(frmquilladdresshelp &)> act)
    {
        window.frame.dialogs.expectWindow<frmquilladdresshelp>(QStringLiteral("frmquilladdresshelp"),
                                                               std::move(act));
    }
    static void press(Form &form, const char *button)
    {
        QTest::mouseClick(&form.member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    static QString text(Form &form, const char *label)
    {
        return form.member<QLabel>(QString::fromLatin1(label)).text();
    }
    static RichTextBox &pane(frmquilladdresshelp &form)
    {
        return form.member<RichTextBox>(QStringLiteral("RichTextBox1"));
    }
};

} // namespace

TEST_F(AddressBookHelpTest, AboutSaysWhatItIs)
{
    expectAbout([](frmQuillAddressAbout &form) {
        EXPECT_EQ(form.Caption(), QStringLiteral("About QuillOfficeToolsv2"));
        EXPECT_EQ(text(form, "lblTitle"), QStringLiteral("QuillOfficeToolsv2"));
        EXPECT_EQ(text(form, "lblVersion"), QStringLiteral("Version ") + Version::text());
        EXPECT_EQ(text(form, "lblDescription"),
                  QStringLiteral("A sophisticated address book with multiple filter options and birthday "
                                 "reminders."));
        EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdOK")).text(), QStringLiteral("OK"));
        EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdSysInfo")).text(),
                  QStringLiteral("&System Info..."));
        press(form, "cmdOK");
    });
    window.choose("mnuabout");
}

TEST_F(AddressBookHelpTest, WithoutAProgramForItSystemInformationIsUnavailable)
{
    expectAbout([](frmQuillAddressAbout &form) { press(form, "cmdSysInfo"); });
    window.frame.dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QStringLiteral("System Information Is Unavailable At This Time"))
        .icon(QMessageBox::NoIcon);
    expectAbout([](frmQuillAddressAbout &form) { press(form, "cmdOK"); });
    window.choose("mnuabout");
}

TEST_F(AddressBookHelpTest, TheProgramThatTheRegistryNamesIsStarted)
{
    const QString mark = window.frame.home.file(QStringLiteral("started"));
    const QString program = window.frame.home.file(QStringLiteral("info.sh"));
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\ntouch '" + QFile::encodeName(mark) + "'\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    RegistryStore().setValue(RegistryStore::Root::Machine,
                             QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                             QStringLiteral("PATH"), {RegistryType::String, program});
    expectAbout([](frmQuillAddressAbout &form) {
        press(form, "cmdSysInfo");
        press(form, "cmdOK");
    });
    window.choose("mnuabout");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(mark); }));
}

TEST_F(AddressBookHelpTest, HelpShowsItsDocumentToRead)
{
    expectHelp([](frmquilladdresshelp &form) {
        EXPECT_EQ(form.Caption(), QStringLiteral("Quill-Address - Help!"));
        EXPECT_TRUE(pane(form).Text().startsWith(QStringLiteral("Quill-Address Book\n")));
        EXPECT_TRUE(pane(form).Locked());
        EXPECT_EQ(form.member<QPushButton>(QStringLiteral("OKButton")).text(), QStringLiteral("Close Help"));
        press(form, "OKButton");
    });
    window.choose("mnuhowto");
}

TEST_F(AddressBookHelpTest, ALinkInItOpensInTheDesktopsProgram)
{
    const UrlCatcher urls;
    expectHelp([](frmquilladdresshelp &form) {
        pane(form).setText(QStringLiteral("see http://www.example.org/book for more"));
        QCoreApplication::processEvents();
        QTextCursor cursor(pane(form).document());
        cursor.setPosition(10);
        const QPoint place = pane(form).cursorRect(cursor).center();
        QTest::mouseMove(pane(form).viewport(), place);
        QTest::mousePress(pane(form).viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(pane(form).viewport(), Qt::LeftButton, {}, place);
        press(form, "OKButton");
    });
    window.choose("mnuhowto");
    EXPECT_EQ(urls.opened(), QList<QUrl>({QUrl(QStringLiteral("http://www.example.org/book"))}));
}

TEST_F(AddressBookHelpTest, WithoutItsDocumentTheProgramEnds)
{
    QFile::remove(QFileInfo(window.book.path()).path() + QStringLiteral("/help/quilladdresshelp.rtf"));
    window.frame.fatal.expect(53);
    window.choose("mnuhowto");
}
