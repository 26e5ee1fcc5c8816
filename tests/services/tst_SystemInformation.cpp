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

// ---- GetKeyValue

TEST_F(SystemInformationTest, ATextIsCutBeforeItsNul)
{
    put(toolKey, QStringLiteral("PATH"), QStringLiteral("one") + QChar(u'\0') + QStringLiteral("two"));
    QString text;
    EXPECT_TRUE(
        SystemInformation::GetKeyValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("PATH"), text));
    EXPECT_EQ(text, QStringLiteral("one"));
}

TEST_F(SystemInformationTest, ANumberIsItsBytesFromTheHighest)
{
    const QString name = QStringLiteral("Number");
    for (const auto &[number, wanted] :
         {std::pair(0x12345678u, "&h12345678"), std::pair(0x00000010u, "&h00010"),
          std::pair(0x0A0B0C0Du, "&hABCD"), std::pair(0u, "&h0000")}) {
        RegistryStore().setValue(RegistryStore::Root::User, toolKey, name, {RegistryType::Number, number});
        QString text;
        EXPECT_TRUE(SystemInformation::GetKeyValue(RegistryStore::Root::User, toolKey, name, text));
        EXPECT_EQ(text, QLatin1String(wanted));
    }
}

TEST_F(SystemInformationTest, WhatIsMissingIsNotRead)
{
    put(toolKey, QStringLiteral("PATH"), QStringLiteral("text"));
    QString text = QStringLiteral("old");
    EXPECT_FALSE(SystemInformation::GetKeyValue(RegistryStore::Root::Machine, folderKey,
                                                QStringLiteral("PATH"), text));
    EXPECT_EQ(text, QString());
    text = QStringLiteral("old");
    EXPECT_FALSE(
        SystemInformation::GetKeyValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("X"), text));
    EXPECT_EQ(text, QString());
    EXPECT_FALSE(
        SystemInformation::GetKeyValue(RegistryStore::Root::User, toolKey, QStringLiteral("PATH"), text));
}

TEST_F(SystemInformationTest, ATextLongerThanTheBufferIsNotRead)
{
    QString text;
    put(toolKey, QStringLiteral("PATH"), QString(1023, u'x'));
    EXPECT_TRUE(
        SystemInformation::GetKeyValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("PATH"), text));
    EXPECT_EQ(text.size(), 1023);
    put(toolKey, QStringLiteral("PATH"), QString(1024, u'x'));
    EXPECT_FALSE(
        SystemInformation::GetKeyValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("PATH"), text));
    EXPECT_EQ(text, QString());
}

TEST_F(SystemInformationTest, OtherTypesAreReadAndNotShown)
{
    RegistryStore().setValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("PATH"),
                             {RegistryType::Binary, QByteArray("bytes")});
    QString text = QStringLiteral("old");
    EXPECT_TRUE(
        SystemInformation::GetKeyValue(RegistryStore::Root::Machine, toolKey, QStringLiteral("PATH"), text));
    EXPECT_EQ(text, QString());
    EXPECT_FALSE(SystemInformation::start());
}
