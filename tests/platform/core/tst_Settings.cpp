#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FileLock.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ScratchHome.h"
#include "Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <latch>
#include <thread>

namespace {

struct SettingsTest : testing::Test
{
    ScratchHome home;
    QString application = QStringLiteral("QuillOfficeToolsv2");
    QString file = Settings::fileName(application);

    QString get(const char *section, const char *key, const char *fallback = "none") const
    {
        return Settings::get(application, QString::fromUtf8(section), QString::fromUtf8(key),
                             QString::fromUtf8(fallback));
    }
    void save(const char *section, const char *key, const QString &value) const
    {
        Settings::save(application, QString::fromUtf8(section), QString::fromUtf8(key), value);
    }
    QStringList folder() const { return QDir(QFileInfo(file).path()).entryList(QDir::Files | QDir::Hidden); }
};

} // namespace

TEST_F(SettingsTest, AreInTheUsersConfigurationFolder)
{
    EXPECT_EQ(file, home.file(QStringLiteral(".config/QuillOfficeToolsv2.ini")));
}

TEST_F(SettingsTest, AMissingFileGivesTheFallbackAndMakesNothing)
{
    EXPECT_EQ(get("Options", "Show Splash at Startup", "1"), QStringLiteral("1"));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(SettingsTest, AMissingKeyGivesTheFallback)
{
    save("Settings", "MainLeft", QStringLiteral("1000"));
    EXPECT_EQ(get("Settings", "MainTop"), QStringLiteral("none"));
    EXPECT_EQ(get("Options", "MainLeft"), QStringLiteral("none"));
}

TEST_F(SettingsTest, KeysMayHaveBlanks)
{
    save("Options", "Show Splash at Startup", QStringLiteral("0"));
    EXPECT_EQ(get("Options", "Show Splash at Startup"), QStringLiteral("0"));
}

TEST_F(SettingsTest, AreWrittenAtOnce)
{
    save("Settings", "MainLeft", QStringLiteral("1015"));
    EXPECT_TRUE(Files::read(file).contains("MainLeft=1015\n"));
}

TEST_F(SettingsTest, EveryTextSurvives)
{
    for (const QString &text :
         {QString(), QStringLiteral(" blanks "), QStringLiteral("a, b; c"), QStringLiteral("\"quoted\""),
          QStringLiteral("C:\\docs\\n"), QStringLiteral("two\nlines\r\n"), QStringLiteral("50 %"),
          QStringLiteral("@Invalid()"), QStringLiteral("@ByteArray(x)"), QStringLiteral("=[x]"),
          QStringLiteral("caf\u00e9 \u4e2d \U0001F600")}) {
        save("Settings", "Text", text);
        EXPECT_EQ(get("Settings", "Text"), text);
    }
}

TEST_F(SettingsTest, AreReadAgainWhenAnotherProcessWroteThem)
{
    save("Settings", "MainLeft", QStringLiteral("1"));
    Files::write(file, "[Settings]\nMainLeft=20015\n");
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("20015"));
}

TEST_F(SettingsTest, ACommaWrittenByHandIsKept)
{
    Files::write(file, "[Settings]\nTitle=Smith, John\n");
    EXPECT_EQ(get("Settings", "Title"), QStringLiteral("Smith, John"));
}

TEST_F(SettingsTest, TwoApplicationsAreSeparate)
{
    Settings::save(QStringLiteral("other"), QStringLiteral("Settings"), QStringLiteral("MainLeft"),
                   QStringLiteral("5"));
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("none"));
    save("Settings", "MainLeft", QStringLiteral("7"));
    EXPECT_EQ(
        Settings::get(QStringLiteral("other"), QStringLiteral("Settings"), QStringLiteral("MainLeft"), {}),
        QStringLiteral("5"));
}

TEST_F(SettingsTest, SavingLeavesTheOtherKeys)
{
    save("Settings", "MainLeft", QStringLiteral("1"));
    save("Options", "MainLeft", QStringLiteral("2"));
    save("Settings", "MainTop", QStringLiteral("3"));
    save("Settings", "MainLeft", QStringLiteral("4"));
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("4"));
    EXPECT_EQ(get("Options", "MainLeft"), QStringLiteral("2"));
    EXPECT_EQ(get("Settings", "MainTop"), QStringLiteral("3"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("QuillOfficeToolsv2.ini")));
}

/// Each would write back what it has read before the other one's values.
TEST_F(SettingsTest, TwoWritersAtOnceLoseNothing)
{
    constexpr int values = 25;
    std::latch start(2);
    const auto write = [&](const char *section) {
        start.arrive_and_wait();
        for (int i = 0; i < values; ++i)
            save(section, qPrintable(QStringLiteral("Key%1").arg(i)), QString::number(i));
    };
    std::thread other(write, "Other");
    write("Settings");
    other.join();
    for (const char *section : {"Settings", "Other"}) {
        for (int i = 0; i < values; ++i)
            EXPECT_EQ(get(section, qPrintable(QStringLiteral("Key%1").arg(i))), QString::number(i))
                << section << " Key" << i;
    }
}

/// A stopped process may keep the lock; to write beside it would lose its values or ours.
TEST_F(SettingsTest, NothingIsWrittenWithoutTheLock)
{
    save("Settings", "MainLeft", QStringLiteral("1000"));
    const FileLock other(file + QStringLiteral(".lock"));
    ASSERT_TRUE(other.isHeld());
    EXPECT_EQ(errorNumberOf([&] { save("Settings", "MainLeft", QStringLiteral("1")); }),
              ErrorNumber::PermissionDenied);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
}

TEST_F(SettingsTest, ALockFileThatAKilledProcessLeftIsNoObstacle)
{
    QDir().mkpath(QFileInfo(file).path());
    Files::write(file + QStringLiteral(".lock"), {});
    save("Settings", "MainLeft", QStringLiteral("1"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("QuillOfficeToolsv2.ini")));
}

TEST_F(SettingsTest, AFileThatCannotBeUnderstoodIsKeptBeside)
{
    const QByteArray damaged = "[Settings]\nMainLeft=1000\nno key here\nMainTop=2000\n[Opt";
    Files::write(file, damaged);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
    EXPECT_EQ(get("Settings", "MainTop"), QStringLiteral("2000"));

    save("Settings", "MainWidth", QStringLiteral("13200"));
    EXPECT_EQ(Files::read(file + QStringLiteral(".damaged")), damaged);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
    EXPECT_EQ(get("Settings", "MainTop"), QStringLiteral("2000"));
    EXPECT_EQ(get("Settings", "MainWidth"), QStringLiteral("13200"));
}

TEST_F(SettingsTest, WhatIsNotUtf8IsKeptBeside)
{
    const QByteArray damaged = "[Settings]\nTitle=caf\xE9\nMainLeft=1000\n";
    Files::write(file, damaged);
    save("Settings", "MainTop", QStringLiteral("2000"));
    EXPECT_EQ(Files::read(file + QStringLiteral(".damaged")), damaged);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
}

TEST_F(SettingsTest, GarbageIsNoObstacle)
{
    QByteArray garbage;
    for (int i = 0; i < 5000; ++i)
        garbage.append(char((i * 7919) >> 3));
    Files::write(file, garbage);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("none"));
    save("Settings", "MainLeft", QStringLiteral("1"));
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1"));
    EXPECT_EQ(Files::read(file + QStringLiteral(".damaged")), garbage);
}

TEST_F(SettingsTest, AFullDiskLeavesTheOldFile)
{
    save("Settings", "MainLeft", QStringLiteral("1000"));
    const QByteArray before = Files::read(file);
    {
        const FullDisk disk(4096);
        EXPECT_EQ(errorNumberOf([&] { save("Settings", "Text", QString(100000, u'x')); }),
                  ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(file), before);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
    EXPECT_EQ(get("Settings", "Text"), QStringLiteral("none"));
    EXPECT_EQ(folder(), QStringList(QStringLiteral("QuillOfficeToolsv2.ini")));
}

TEST_F(SettingsTest, AFolderInThePlaceOfTheFileIsAnErrorAndHarmless)
{
    QDir().mkpath(file);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("none"));
    EXPECT_EQ(errorNumberOf([&] { save("Settings", "MainLeft", QStringLiteral("1")); }),
              ErrorNumber::PathFileAccessError);
}

TEST_F(SettingsTest, WithoutWritePermissionTheFileIsUnchanged)
{
    const AsUser user(home.path());
    save("Settings", "MainLeft", QStringLiteral("1000"));
    QFile::setPermissions(QFileInfo(file).path(), QFile::ReadOwner | QFile::ExeOwner);
    QFile::setPermissions(file, QFile::ReadOwner);
    EXPECT_EQ(errorNumberOf([&] { save("Settings", "MainLeft", QStringLiteral("1")); }),
              ErrorNumber::PermissionDenied);
    QFile::setPermissions(QFileInfo(file).path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(get("Settings", "MainLeft"), QStringLiteral("1000"));
}
