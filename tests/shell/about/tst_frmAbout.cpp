#include "Files.h"
#include "PrintQt.h"
#include "RegistryStore.h"
#include "RunningSuite.h"
#include "Version.h"
#include "frmAbout.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString toolSection = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString locationSection = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");

struct AboutTest : testing::Test
{
    RunningSuite suite;
    QString mark = suite.home.file(QStringLiteral("started"));

    void openAbout(std::function<void(frmAbout &)> act)
    {
        suite.dialogs.expectWindow<frmAbout>(QStringLiteral("frmAbout"), std::move(act));
    }
    static void press(frmAbout &form, const char *button)
    {
        QTest::mouseClick(&form.member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    static QString text(const frmAbout &form, const char *label)
    {
        return form.member<QLabel>(QString::fromLatin1(label)).text();
    }
    /// A program that leaves the mark.
    void addProgram(const QString &path) const
    {
        Files::write(path, "#!/bin/sh\ntouch '" + QFile::encodeName(mark) + "'\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }
    static void put(const QString &section, const QString &name, const QString &value)
    {
        RegistryStore().setValue(RegistryStore::Root::Machine, section, name, {RegistryType::String, value});
    }
    void pressSysInfo()
    {
        openAbout([](frmAbout &form) {
            press(form, "cmdSysInfo");
            press(form, "cmdOK");
        });
        suite.choose("mnuHelpAbout");
    }
    void pressSysInfoInVain()
    {
        openAbout([](frmAbout &form) { press(form, "cmdSysInfo"); });
        suite.dialogs
            .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                       QStringLiteral("System Information Is Unavailable At This Time"))
            .icon(QMessageBox::NoIcon);
        openAbout([](frmAbout &form) { press(form, "cmdOK"); });
        suite.choose("mnuHelpAbout");
    }
    bool isStarted() const
    {
        return QTest::qWaitFor([this] { return QFile::exists(mark); });
    }
};

} // namespace

TEST_F(AboutTest, SaysWhatTheSuiteIs)
{
    openAbout([](frmAbout &form) {
        EXPECT_TRUE(form.isModal());
        EXPECT_EQ(form.Caption(), QStringLiteral("About Quill-Office Tools"));
        EXPECT_EQ(text(form, "lblVersion"), QStringLiteral("Version ") + Version::text());
        EXPECT_EQ(text(form, "lblDescription"),
                  QStringLiteral("A Combination of Useful Tools in One Application."));
        EXPECT_FALSE(text(form, "lblDisclaimer").isEmpty());
        EXPECT_FALSE(form.member<QLabel>(QStringLiteral("Image1")).pixmap().isNull());
        EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdOK")).text(), QStringLiteral("OK"));
        EXPECT_EQ(form.member<QPushButton>(QStringLiteral("cmdSysInfo")).text(),
                  QStringLiteral("&System Info..."));
        press(form, "cmdOK");
        EXPECT_FALSE(form.isLoaded());
    });
    suite.choose("mnuHelpAbout");
}

TEST_F(AboutTest, EscapeClosesIt)
{
    openAbout([](frmAbout &form) { QTest::keyClick(&form, Qt::Key_Escape); });
    suite.choose("mnuHelpAbout");
    EXPECT_EQ(suite.dialogs.seen().size(), 1);
}

TEST_F(AboutTest, WithNeitherKeyABoxComesAndNothingStarts)
{
    pressSysInfoInVain();
    EXPECT_FALSE(QFile::exists(mark));
}

TEST_F(AboutTest, TheFirstKeysProgramIsStarted)
{
    const QString program = suite.home.file(QStringLiteral("info.sh"));
    addProgram(program);
    put(toolSection, QStringLiteral("PATH"), program);
    put(locationSection, QStringLiteral("MSINFO"), suite.home.file(QStringLiteral("elsewhere")));
    pressSysInfo();
    EXPECT_TRUE(isStarted());
}

TEST_F(AboutTest, TheProgramInTheSecondKeysFolderIsStarted)
{
    QDir(suite.home.path()).mkdir(QStringLiteral("tools"));
    addProgram(suite.home.file(QStringLiteral("tools/MSINFO32.EXE")));
    put(locationSection, QStringLiteral("MSINFO"), suite.home.file(QStringLiteral("tools")));
    pressSysInfo();
    EXPECT_TRUE(isStarted());
}

TEST_F(AboutTest, ABoxComesWhereNeitherKeyLeadsToAFile)
{
    put(locationSection, QStringLiteral("MSINFO"), suite.home.file(QStringLiteral("tools")));
    pressSysInfoInVain();
    put(toolSection, QStringLiteral("PATH"), suite.home.file(QStringLiteral("none")));
    pressSysInfoInVain();
}

TEST_F(AboutTest, GetKeyValueReadsTheRegistry)
{
    put(toolSection, QStringLiteral("PATH"), QStringLiteral("a\\b"));
    QString result = QStringLiteral("old");
    EXPECT_TRUE(
        frmAbout::GetKeyValue(RegistryStore::Root::Machine, toolSection, QStringLiteral("PATH"), result));
    EXPECT_EQ(result, QStringLiteral("a\\b"));
    EXPECT_FALSE(
        frmAbout::GetKeyValue(RegistryStore::Root::Machine, locationSection, QStringLiteral("PATH"), result));
    EXPECT_EQ(result, QString());
}
