#include "ArchiveMaker.h"
#include "CountingPause.h"
#include "Files.h"
#include "PrintQt.h"
#include "RowName.h"
#include "UpdateWizard.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const QString failure = QStringLiteral("An Error has occurred, unable to complete the process.");
const QByteArray listFile = "updatefilelist.dat";
const QByteArray package = "updatefiles.zip";

struct UpdateWizardTest : testing::Test
{
    void startWithNewVersion()
    {
        wizard.serveVersion(true);
        wizard.press("cmdstart");
        ASSERT_EQ(wizard.buttons(), QStringLiteral("cmdinstall cmdcancel"));
    }
    /// Offers the package, with \a entries, and \a others; then installs it.
    void install(const QList<MadeEntry> &entries, QMap<QByteArray, QByteArray> others = {})
    {
        others.insert(package, ArchiveMaker::make(entries));
        wizard.serveFiles(others);
        startWithNewVersion();
        wizard.press("cmdinstall");
    }
    QByteArray unpacked(const QByteArray &name) const
    {
        return Files::read(QString::fromUtf8(wizard.program.file("upgrade/" + name)));
    }
    void expectFailure() const
    {
        EXPECT_EQ(wizard.text(), failure);
        EXPECT_TRUE(wizard.buttons().contains(QStringLiteral("OKButton")));
        EXPECT_FALSE(wizard.isBusy());
        EXPECT_TRUE(wizard.frame.calls().isEmpty());
    }

    UpdateWizard wizard;
};

MadeEntry entry(const QByteArray &name, const QByteArray &data)
{
    MadeEntry made;
    made.name = name;
    made.data = data;
    return made;
}

} // namespace

TEST_F(UpdateWizardTest, BeginsWithItsTextAndTwoButtons)
{
    EXPECT_EQ(wizard.text(), QStringLiteral("Check for Software Updates.\n\n"
                                            "You must be connected to the Internet for this \nfunction.\n\n"
                                            "Click Start to begin.\n"));
    EXPECT_EQ(wizard.form().Caption(), QStringLiteral("Check for Software Updates"));
    EXPECT_EQ(wizard.buttons(), QStringLiteral("cmdstart cmdcancel"));
    EXPECT_FALSE(wizard.isBusy());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("cmdstart"));
}

TEST_F(UpdateWizardTest, TellsOfANewVersion)
{
    wizard.serveVersion(true);
    wizard.press("cmdstart");
    EXPECT_EQ(wizard.texts(),
              QStringList({QStringLiteral("Checking for updates.....\n\nPlease wait...\n\n"),
                           QStringLiteral("Server Version: Suite - Maker - 2.0.2\n\n"
                                          "Your version: Quill-Office Tools - Tallowick - 2.0.1"),
                           QStringLiteral("There is a New Version Click Install to continue.")}));
    EXPECT_EQ(wizard.buttons(), QStringLiteral("cmdinstall cmdcancel"));
    EXPECT_FALSE(wizard.isBusy());
    EXPECT_EQ(wizard.server.requests(), QStringList(QStringLiteral("GET /quilloffice/version2/version.dat")));
    EXPECT_EQ(wizard.upgradeFiles(), QStringList(QStringLiteral("version.dat")));
}

TEST_F(UpdateWizardTest, TellsThatTheVersionIsTheLatest)
{
    wizard.serveVersion(false);
    wizard.press("cmdstart");
    EXPECT_EQ(wizard.text(), QStringLiteral("You already have the latest version of the Software, \n"
                                            "Version - 2.0.1\n\nClick OK"));
    EXPECT_EQ(wizard.buttons(), QStringLiteral("OKButton"));
    wizard.press("OKButton");
    EXPECT_FALSE(wizard.isOpen());
}

TEST_F(UpdateWizardTest, ShowsTheServersMessage)
{
    wizard.serveVersion(true, "One,Two,Three,Y,N\r\n");
    wizard.press("cmdstart");
    EXPECT_EQ(wizard.text(),
              QStringLiteral("One\nTwo\nThree\nThere is a New Version Click Install to continue."));
}

TEST_F(UpdateWizardTest, ShowsTheServersMessageWithTheLatestVersionToo)
{
    wizard.serveVersion(false, "One,Two,Three,N,Y\r\n");
    wizard.press("cmdstart");
    EXPECT_TRUE(wizard.text().startsWith(QStringLiteral("One\nTwo\nThree\nYou already have")));
}

TEST_F(UpdateWizardTest, ShowsTheServersTextsLetterByLetter)
{
    wizard.serveVersion(true, "<b>bold</b>,a\x01"
                              "b,\xe9,Y,N\r\n");
    wizard.press("cmdstart");
    EXPECT_TRUE(wizard.text().startsWith(QStringLiteral("<b>bold</b>\na\uFFFDb\n\u00e9\n")));
}

TEST_F(UpdateWizardTest, StartDeletesWhatIsInTheFolder)
{
    wizard.program.addFile("upgrade/old.zip", "old");
    wizard.serveVersion(false);
    wizard.press("cmdstart");
    EXPECT_EQ(wizard.upgradeFiles(), QStringList(QStringLiteral("version.dat")));
}

TEST_F(UpdateWizardTest, WithoutTheFolderFails)
{
    ::rmdir(wizard.program.file("upgrade").constData());
    wizard.serveVersion(true);
    wizard.press("cmdstart");
    expectFailure();
    EXPECT_FALSE(QDir(wizard.program.path() + QStringLiteral("/upgrade")).exists());
}

struct BadReply
{
    const char *name;
    const char *version;
};

struct BadVersionTest : UpdateWizardTest, testing::WithParamInterface<BadReply>
{};

constexpr BadReply badVersions[] = {
    {"Empty", ""},
    {"OneRecord", "Suite,Maker,9,9,9\r\n"},
    {"Page", "<!DOCTYPE html>\n<html><head><title>Moved</title></head></html>"},
    {"HalfARecord", "Suite,Maker,9,9,9\r\nA,B,C,N,N\r\nSuite"},
    {"TwelveRecords", "a,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\n"
                      "a,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\na,b,1,2,3\n"},
};

TEST_P(BadVersionTest, Fails)
{
    wizard.serve("version.dat", GetParam().version);
    wizard.press("cmdstart");
    expectFailure();
    EXPECT_EQ(wizard.buttons(), QStringLiteral("OKButton"));
}

INSTANTIATE_TEST_SUITE_P(Replies, BadVersionTest, testing::ValuesIn(badVersions), RowName());

TEST_F(UpdateWizardTest, WithoutAServerFailsAndCanBeCancelled)
{
    wizard.program.addFile("publisher.ini", "[hosts]\nupdate=127.0.0.1:1\n");
    wizard.press("cmdstart");
    expectFailure();
    EXPECT_EQ(wizard.buttons(), QStringLiteral("OKButton cmdcancel"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("OKButton"));
    wizard.press("cmdcancel");
    EXPECT_FALSE(wizard.isOpen());
}

TEST_F(UpdateWizardTest, NoEventRunsWhileAStepRuns)
{
    wizard.serveVersion(true);
    QStringList seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { seen << wizard.text(); });
    timer.start(0);
    wizard.press("cmdstart");
    for (const QString &text : seen)
        EXPECT_EQ(text, QStringLiteral("There is a New Version Click Install to continue."));
}

TEST_F(UpdateWizardTest, ADoubleClickOnStartDoesNotInstall)
{
    wizard.serveVersion(true);
    wizard.serveFiles({});
    const auto &start = wizard.form().member<QPushButton>(QStringLiteral("cmdstart"));
    const QPoint place = start.mapTo(start.window(), start.rect().center());
    // The second click comes while the step runs.
    QTimer::singleShot(0,
                       [&] { QTest::mouseClick(start.window()->windowHandle(), Qt::LeftButton, {}, place); });
    wizard.press("cmdstart");
    QTest::qWait(0);
    EXPECT_EQ(wizard.buttons(), QStringLiteral("cmdinstall cmdcancel"));
    EXPECT_EQ(wizard.server.requests().size(), 1);
}

TEST_F(UpdateWizardTest, InstallsAndHandsOver)
{
    wizard.addInstaller();
    install({entry("setup.dat", "setup"), entry("folder/inner.txt", "inner")}, {{"readme.txt", "read"}});
    EXPECT_EQ(
        wizard.texts(),
        QStringList({QStringLiteral("Downloading File(s).....\n\nPlease wait...\n\n"),
                     QStringLiteral("Downloading Update File Number 1 - readme.txt, Size = 4  .....\n\n"
                                    "Please wait...\n\n"),
                     QStringLiteral("Downloading Update File Number 2 - updatefiles.zip, Size = %1  "
                                    ".....\n\nPlease wait...\n\n")
                         .arg(unpacked(package).size()),
                     QStringLiteral("Checking Downloaded Files.....\n\nPlease wait...\n\n"),
                     QStringLiteral("The file, readme.txt is : 4 bytes."),
                     QStringLiteral("The file, updatefiles.zip is : %1 bytes.").arg(unpacked(package).size()),
                     QStringLiteral("Files OK!.....\n\nExtracting files - Please wait...\n\n"),
                     QStringLiteral("Files OK!.....\n\nLaunching Update Program - Please wait...\n\n")}));
    EXPECT_EQ(unpacked("setup.dat"), QByteArray("setup"));
    EXPECT_EQ(unpacked("inner.txt"), QByteArray("inner"));
    EXPECT_TRUE(wizard.hasStartedInstaller());
    EXPECT_EQ(wizard.frame.calls(), QStringList(QStringLiteral("mnuFileExit_Click")));
    EXPECT_EQ(wizard.buttons(), QString());
    EXPECT_FALSE(wizard.isBusy());
}

TEST_F(UpdateWizardTest, FilesMayBeLargerThanTheServersTexts)
{
    const QByteArray large(3'000'000, 'x');
    wizard.serveFiles({{"large", large}});
    startWithNewVersion();
    wizard.press("cmdinstall");
    EXPECT_EQ(unpacked("large"), large);
}

TEST_F(UpdateWizardTest, ATextWithoutAnEndIsNotTaken)
{
    wizard.serve("version.dat", QByteArray(3'000'000, 'x'));
    wizard.press("cmdstart");
    expectFailure();
    EXPECT_TRUE(wizard.upgradeFiles().isEmpty());
}

TEST_F(UpdateWizardTest, AsksForNamesAsTheyAreInAddresses)
{
    wizard.serve("a%20%23%26%3F.txt", "1");
    wizard.serve(listFile, "a #&?.txt,x,1\r\n");
    startWithNewVersion();
    wizard.press("cmdinstall");
    EXPECT_EQ(unpacked("a #&?.txt"), QByteArray("1"));
}

TEST_F(UpdateWizardTest, StopsAtTheFirstFileOfAnotherLength)
{
    wizard.serve(listFile, "a.txt,x,3\r\nb.txt,x,4\r\nc.txt,x,5\r\n");
    for (const char *name : {"a.txt", "b.txt", "c.txt"})
        wizard.serve(name, "abc");
    startWithNewVersion();
    wizard.press("cmdinstall");
    EXPECT_EQ(wizard.text(),
              QStringLiteral("The file, b.txt is : 3 bytes.\nb.txtis not the correct length the file "
                             "will need to be downloaded again!\n\nClick OK and re-download!"));
    EXPECT_FALSE(wizard.texts().contains(QStringLiteral("The file, c.txt is : 3 bytes.")));
    EXPECT_EQ(wizard.buttons(), QStringLiteral("OKButton cmdcancel"));
    EXPECT_EQ(wizard.upgradeFiles(),
              QStringList({QStringLiteral("a.txt"), QStringLiteral("b.txt"), QStringLiteral("c.txt"),
                           QString::fromLatin1(listFile), QStringLiteral("version.dat")}));
    EXPECT_TRUE(wizard.frame.calls().isEmpty());
}

TEST_F(UpdateWizardTest, WithoutThePackageFailsAtTheUnpacking)
{
    wizard.addInstaller();
    wizard.serveFiles({{"a.txt", "abc"}});
    startWithNewVersion();
    wizard.press("cmdinstall");
    expectFailure();
    EXPECT_EQ(wizard.texts().at(wizard.texts().size() - 2),
              QStringLiteral("Files OK!.....\n\nExtracting files - Please wait...\n\n"));
}

TEST_F(UpdateWizardTest, WithADamagedPackageFails)
{
    wizard.addInstaller();
    wizard.serveFiles({{package, "no archive"}});
    startWithNewVersion();
    wizard.press("cmdinstall");
    expectFailure();
}

TEST_F(UpdateWizardTest, WithoutAnInstallerFails)
{
    install({entry("a", "a")});
    expectFailure();
}

TEST_F(UpdateWizardTest, WritesNothingOutsideTheFolder)
{
    wizard.addInstaller();
    wizard.serve(listFile, "../out.txt,x,1\r\n");
    startWithNewVersion();
    wizard.press("cmdinstall");
    expectFailure();
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(wizard.program.file("out.txt"))));
}

TEST_F(UpdateWizardTest, UnpacksNothingOutsideTheFolder)
{
    wizard.addInstaller();
    install({entry("../out.txt", "out")});
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(wizard.program.file("out.txt"))));
}

TEST_F(UpdateWizardTest, WithMoreFilesThanItHoldsFails)
{
    QByteArray list;
    for (int number = 0; number < 102; ++number)
        list += "f,x,1\r\n";
    wizard.serve(listFile, list);
    startWithNewVersion();
    wizard.press("cmdinstall");
    expectFailure();
    EXPECT_EQ(wizard.server.requests().size(), 2);
}

TEST(CountingPause, KeepsTheThreadBusy)
{
    QElapsedTimer time;
    time.start();
    CountingPause::run();
    EXPECT_GT(time.nsecsElapsed(),
              CountingPause::designedLength / 10); // ten counts in a nanosecond are out of reach
}
