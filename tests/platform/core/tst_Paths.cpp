#include "Paths.h"
#include "PrintQt.h"
#include "ScratchHome.h"
#include "ScratchVariable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const QString expectedFolder = QStringLiteral("QUILL_TEST_EXPECTED_FOLDER");

struct PathsTest : testing::Test
{
    ScratchHome home;
    QString bin = home.file(QStringLiteral("bin"));

    /// Runs the test of the program's folder in a copy of this program, since that folder is found once in a
    /// process.
    bool copyInBinFinds(const QString &folder) const
    {
        const QString copy = bin + QStringLiteral("/copy");
        QDir().mkpath(bin);
        if (!QFile::copy(QCoreApplication::applicationFilePath(), copy))
            return false;
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(expectedFolder, folder);
        program.setProcessEnvironment(environment);
        program.start(copy, {QStringLiteral("--gtest_filter=PathsTest.TheProgramsFolderIsAsExpected")});
        return program.waitForFinished(60000) && program.exitCode() == 0;
    }
};

} // namespace

TEST_F(PathsTest, ABackslashSeparates)
{
    EXPECT_EQ(Paths::native(QStringLiteral("/opt/suite\\docs\\one.rtf")),
              QStringLiteral("/opt/suite/docs/one.rtf"));
    EXPECT_EQ(Paths::native(QStringLiteral("docs\\")), QStringLiteral("docs/"));
    EXPECT_TRUE(Paths::native({}).isEmpty());
}

TEST_F(PathsTest, TheProgramsFolderIsAsExpected)
{
    if (qEnvironmentVariableIsSet(qPrintable(expectedFolder))) {
        qputenv("XDG_DATA_HOME", "/data/of/the/user");
        EXPECT_EQ(Paths::appPath(), qEnvironmentVariable(qPrintable(expectedFolder)));
    } else {
        EXPECT_EQ(Paths::appPath(), QCoreApplication::applicationDirPath()); // the build tree has the data
    }
}

TEST_F(PathsTest, ATestReplacesTheProgramsFolder)
{
    const QString real = Paths::appPath();
    Paths::setAppPath(home.path());
    EXPECT_EQ(Paths::appPath(), home.path());
    Paths::setAppPath({});
    EXPECT_EQ(Paths::appPath(), real);
}

TEST_F(PathsTest, APortableCopyHasItsDataBesideTheProgram)
{
    QDir().mkpath(bin + QStringLiteral("/help"));
    EXPECT_TRUE(copyInBinFinds(bin));
}

TEST_F(PathsTest, AnInstalledProgramHasItsDataInTheUsersFolder)
{
    EXPECT_TRUE(copyInBinFinds(QStringLiteral("/data/of/the/user/QuillOfficeToolsv2")));
}

TEST_F(PathsTest, AWrongExpectationIsNoticed)
{
    EXPECT_FALSE(copyInBinFinds(bin));
}

TEST_F(PathsTest, TheStateFolderIsForItsUserAlone)
{
    const QString folder = home.file(QStringLiteral(".local/state/QuillOfficeToolsv2"));
    EXPECT_EQ(Paths::stateFolder(), folder);
    Paths::makeStateFolder();
    struct stat state = {};
    ASSERT_EQ(::stat(QFile::encodeName(folder).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0700u);
}

TEST_F(PathsTest, AStateFolderThatIsNotAbsoluteIsNotTaken)
{
    for (const QByteArray &wrong : {QByteArray("state"), QByteArray("")}) {
        const ScratchVariable variable("XDG_STATE_HOME", wrong);
        EXPECT_EQ(Paths::stateFolder(), home.file(QStringLiteral(".local/state/QuillOfficeToolsv2")));
    }
}
