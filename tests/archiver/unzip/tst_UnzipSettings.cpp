#include "PrintQt.h"
#include "ScratchHome.h"
#include "UnzipSettings.h"
#include "cRegistry.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

const QString section = QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip");

struct UnzipSettingsTest : testing::Test
{
    ScratchHome home;
    UnzipSettings settings;

    static cRegistry at(qint32 root, const QString &subkey = {})
    {
        cRegistry registry;
        registry.ClassKey = root;
        registry.SectionKey = section + subkey;
        return registry;
    }
    static void put(qint32 root, const char *name, int value)
    {
        cRegistry registry = at(root);
        registry.ValueKey = QString::fromLatin1(name);
        registry.ValueType = RegistryType::Number;
        registry.setValue(value);
    }
    static QVariant got(qint32 root, const char *name, const QString &subkey = {})
    {
        cRegistry registry = at(root, subkey);
        registry.ValueKey = QString::fromLatin1(name);
        return registry.Value();
    }
};

} // namespace

TEST_F(UnzipSettingsTest, NothingStoredIsFalseAndEmpty)
{
    settings.UseFolderNames = settings.OverwritePrompt = true;
    settings.read();
    EXPECT_FALSE(settings.UseFolderNames);
    EXPECT_FALSE(settings.OverwritePrompt);
    EXPECT_EQ(settings.ExtractToMRU.Count(), 0);
    EXPECT_EQ(settings.FileOpenMRU.Count(), 0);
}

TEST_F(UnzipSettingsTest, WritesBothRoots)
{
    settings.UseFolderNames = true;
    settings.ExtractToMRU.Add(QStringLiteral("/out"));
    settings.FileOpenMRU.Add(QStringLiteral("/a.zip"));
    settings.FileOpenMRU.Add(QStringLiteral("/b.zip"));
    settings.write();
    for (const qint32 root : {cRegistry::CurrentUser, cRegistry::LocalMachine}) {
        EXPECT_EQ(got(root, "UseFolderNames"), QVariant(1));
        EXPECT_EQ(got(root, "OverwritePrompt"), QVariant(0));
        EXPECT_EQ(got(root, "Item1", QStringLiteral("\\ExtractToMRU")), QVariant(QStringLiteral("/out")));
        EXPECT_EQ(got(root, "Item1", QStringLiteral("\\FileOpenMRU")), QVariant(QStringLiteral("/b.zip")));
        EXPECT_EQ(got(root, "Item2", QStringLiteral("\\FileOpenMRU")), QVariant(QStringLiteral("/a.zip")));
    }
}

TEST_F(UnzipSettingsTest, ReadsWhatItWrote)
{
    settings.UseFolderNames = settings.OverwritePrompt = true;
    settings.ExtractToMRU.Add(QStringLiteral("/out"));
    settings.FileOpenMRU.Add(QStringLiteral("/a.zip"));
    settings.write();
    UnzipSettings again;
    again.read();
    EXPECT_TRUE(again.UseFolderNames);
    EXPECT_TRUE(again.OverwritePrompt);
    ASSERT_EQ(again.ExtractToMRU.Count(), 1);
    EXPECT_EQ(again.ExtractToMRU.item(1), QStringLiteral("/out"));
    ASSERT_EQ(again.FileOpenMRU.Count(), 1);
    EXPECT_EQ(again.FileOpenMRU.item(1), QStringLiteral("/a.zip"));
}

TEST_F(UnzipSettingsTest, TheMachinesComeFirst)
{
    put(cRegistry::CurrentUser, "UseFolderNames", 1);
    settings.read();
    EXPECT_TRUE(settings.UseFolderNames);
    put(cRegistry::LocalMachine, "OverwritePrompt", 1); // the key is there: nothing of the user's counts
    settings.read();
    EXPECT_FALSE(settings.UseFolderNames);
    EXPECT_TRUE(settings.OverwritePrompt);
}

TEST_F(UnzipSettingsTest, AnyNumberButZeroIsTrue)
{
    put(cRegistry::CurrentUser, "UseFolderNames", -1);
    put(cRegistry::CurrentUser, "OverwritePrompt", 0);
    settings.read();
    EXPECT_TRUE(settings.UseFolderNames);
    EXPECT_FALSE(settings.OverwritePrompt);
}

TEST_F(UnzipSettingsTest, TextsAndBytesInThePlaceOfNumbersAreFalse)
{
    cRegistry registry = at(cRegistry::CurrentUser);
    registry.ValueKey = QStringLiteral("UseFolderNames");
    registry.setValue(QStringLiteral("yes"));
    registry.ValueKey = QStringLiteral("OverwritePrompt");
    registry.ValueType = RegistryType::Binary;
    registry.setValue(QByteArray("\x01\x02"));
    settings.read();
    EXPECT_FALSE(settings.UseFolderNames);
    EXPECT_FALSE(settings.OverwritePrompt);
}

TEST_F(UnzipSettingsTest, WhatCannotBeWrittenIsLeftOut)
{
    QFile inTheWay(home.file(QStringLiteral("machine"))); // where the machine's folder would be
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    settings.UseFolderNames = true;
    settings.FileOpenMRU.Add(QStringLiteral("/a.zip"));
    settings.write();
    EXPECT_EQ(got(cRegistry::CurrentUser, "UseFolderNames"), QVariant(1));
    EXPECT_EQ(got(cRegistry::CurrentUser, "Item1", QStringLiteral("\\FileOpenMRU")),
              QVariant(QStringLiteral("/a.zip")));
    EXPECT_FALSE(at(cRegistry::LocalMachine).KeyExists());
}
