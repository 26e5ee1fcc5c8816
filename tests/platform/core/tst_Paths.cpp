#include "Paths.h"
#include "PrintQt.h"
#include "ScratchHome.h"

#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

// The folder is found once in a process: each test here is run in one of its own.

TEST(PathsTest, ABackslashSeparates)
{
    EXPECT_EQ(Paths::native(QStringLiteral("/opt/suite\\docs\\one.rtf")),
              QStringLiteral("/opt/suite/docs/one.rtf"));
    EXPECT_EQ(Paths::native(QStringLiteral("docs\\")), QStringLiteral("docs/"));
    EXPECT_TRUE(Paths::native({}).isEmpty());
}

TEST(PathsTest, AnInstalledProgramKeepsItsDataInTheHome)
{
    const ScratchHome home;
    EXPECT_EQ(Paths::appPath(), home.file(QStringLiteral(".local/share/QuillOfficeToolsv2")));
    EXPECT_FALSE(QDir(Paths::appPath()).exists());
}
