#include "RegistryStore.h"
#include "ScratchHome.h"
#include "SystemInformation.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString toolKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString folderKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");

struct SystemInformationTest : testing::Test
{
    ScratchHome home;

    static void put(const QString &section, const QString &name, const QString &text)
    {
        RegistryStore().setValue(RegistryStore::Root::Machine, section, name, {RegistryType::String, text});
    }
    /// A program that leaves \a mark, a file in the home.
    void addProgram(const QString &name, const QString &mark) const
    {
        QDir().mkpath(QFileInfo(home.file(name)).path());
        QFile script(home.file(name));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ntouch '" + QFile::encodeName(home.file(mark)) + "'\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
    bool comes(const QString &mark) const
    {
        return QTest::qWaitFor([&] { return QFile::exists(home.file(mark)); });
    }
};

} // namespace

TEST_F(SystemInformationTest, IsUnavailableWithoutAnEntry)
{
    EXPECT_FALSE(SystemInformation::start());
}

TEST_F(SystemInformationTest, StartsTheProgramOfTheFirstEntry)
{
    addProgram(QStringLiteral("a tool.sh"), QStringLiteral("first"));
    addProgram(QStringLiteral("folder/MSINFO32.EXE"), QStringLiteral("second"));
    put(toolKey, QStringLiteral("PATH"), home.file(QStringLiteral("a tool.sh")));
    put(folderKey, QStringLiteral("MSINFO"), home.file(QStringLiteral("folder")));
    EXPECT_TRUE(SystemInformation::start());
    EXPECT_TRUE(comes(QStringLiteral("first")));
    EXPECT_FALSE(QFile::exists(home.file(QStringLiteral("second"))));
}

TEST_F(SystemInformationTest, StartsTheProgramInTheFolderOfTheSecond)
{
    addProgram(QStringLiteral("folder/MSINFO32.EXE"), QStringLiteral("second"));
    put(folderKey, QStringLiteral("MSINFO"), home.file(QStringLiteral("folder")));
    EXPECT_TRUE(SystemInformation::start());
    EXPECT_TRUE(comes(QStringLiteral("second")));
}

TEST_F(SystemInformationTest, IsUnavailableWhereTheProgramIsMissing)
{
    put(folderKey, QStringLiteral("MSINFO"), home.file(QStringLiteral("folder")));
    EXPECT_FALSE(SystemInformation::start());
    put(toolKey, QStringLiteral("PATH"), home.file(QStringLiteral("missing")));
    EXPECT_FALSE(SystemInformation::start());
}
