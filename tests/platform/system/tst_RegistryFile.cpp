#include "AsUser.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "RegistryFile.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace {

constexpr int patience = 60000; // milliseconds

struct RegistryFileTest : testing::Test
{
    ScratchHome home;
    QString path = home.file(QStringLiteral("store/k.json"));
    RegistryFile file{path};

    RegistryResult write(const QString &key, qsizetype length = 10) const
    {
        return file.change([&](RegistryKey &root) {
            root.make({key}).setValue({}, {RegistryType::String, QString(length, u'x')});
            return RegistryResult::Ok;
        });
    }
    RegistryKey tree() const
    {
        RegistryKey root;
        EXPECT_EQ(file.read(root), RegistryResult::Ok);
        return root;
    }
    quint32 count() const
    {
        const RegistryKey root = tree();
        const RegistryKey *key = root.find({QStringLiteral("Count")});
        return key ? std::get<quint32>(key->value(QStringLiteral("N"))->data) : 0;
    }
    std::unique_ptr<QProcess> startWriter(int times) const
    {
        auto writer = std::make_unique<QProcess>();
        writer->start(QStringLiteral(QUILL_REGISTRY_WRITER), {path, QString::number(times)});
        return writer;
    }
    QStringList folder() const { return QDir(QFileInfo(path).path()).entryList(QDir::Files); }
    QStringList wholeFolder() const { return {QStringLiteral("k.json"), QStringLiteral("k.json.lock")}; }
};

} // namespace

TEST_F(RegistryFileTest, AMissingFileIsEmptyAndStaysMissingUntilItIsWritten)
{
    EXPECT_TRUE(tree().keys.empty());
    EXPECT_FALSE(QDir(QFileInfo(path).path()).exists());
    EXPECT_EQ(write(QStringLiteral("a")), RegistryResult::Ok);
    EXPECT_EQ(folder(), wholeFolder());
}

TEST_F(RegistryFileTest, ARefusedEditChangesNothing)
{
    write(QStringLiteral("a"));
    const QByteArray before = Files::read(path);
    EXPECT_EQ(file.change([](RegistryKey &root) {
        root.keys.clear();
        return RegistryResult::Absent;
    }),
              RegistryResult::Absent);
    EXPECT_EQ(Files::read(path), before);
}

TEST_F(RegistryFileTest, WhatStaysTheSameIsNotWrittenAgain)
{
    write(QStringLiteral("a"));
    struct stat before = {};
    struct stat after = {};
    ::stat(qPrintable(path), &before);
    EXPECT_EQ(write(QStringLiteral("a")), RegistryResult::Ok);
    ::stat(qPrintable(path), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(RegistryFileTest, EightWritersLoseNothing)
{
    constexpr int writers = 8;
    constexpr int each = 25;
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < writers; ++i)
        processes.push_back(startWriter(each));
    for (const auto &process : processes) {
        ASSERT_TRUE(process->waitForFinished(patience));
        EXPECT_EQ(process->exitCode(), 0);
    }
    EXPECT_EQ(count(), quint32(writers * each));
    EXPECT_EQ(folder(), wholeFolder());
}

TEST_F(RegistryFileTest, AReaderNeverMeetsAHalfWrittenFile)
{
    write(QStringLiteral("bulk"), 200000);
    const auto writer = startWriter(100);
    while (!writer->waitForFinished(0))
        ASSERT_NE(tree().find({QStringLiteral("bulk")}), nullptr);
    EXPECT_EQ(count(), 100u);
}

TEST_F(RegistryFileTest, AKilledWriterLosesNothingThatWasStored)
{
    constexpr int rounds = 60;
    write(QStringLiteral("bulk"), 100000);
    QRandomGenerator random(7);
    int acknowledged = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto writer = startWriter(1000000);
        const int wanted = random.bounded(6);
        QByteArray dots;
        while (dots.size() < wanted && writer->waitForReadyRead(patience))
            dots += writer->readAll();
        writer->kill();
        ASSERT_TRUE(writer->waitForFinished(patience));
        acknowledged += int((dots + writer->readAll()).size());
        ASSERT_GE(int(count()), acknowledged);
        ASSERT_LE(int(count()), acknowledged + round + 1);
        ASSERT_NE(tree().find({QStringLiteral("bulk")}), nullptr);
        ASSERT_LE(folder().size(), 3) << qUtf8Printable(folder().join(u' '));
    }
    EXPECT_GT(acknowledged, rounds);
    EXPECT_EQ(write(QStringLiteral("after")), RegistryResult::Ok);
    EXPECT_EQ(folder(), wholeFolder());
}

TEST_F(RegistryFileTest, AFullDiskLeavesTheOldFileWhole)
{
    write(QStringLiteral("a"));
    const QByteArray before = Files::read(path);
    {
        const FullDisk disk(4096);
        EXPECT_EQ(write(QStringLiteral("b"), 100000), RegistryResult::WriteFault);
    }
    EXPECT_EQ(Files::read(path), before);
    EXPECT_EQ(folder(), wholeFolder());
    EXPECT_EQ(write(QStringLiteral("b"), 100000), RegistryResult::Ok);
}

TEST_F(RegistryFileTest, ADamagedFileIsAnErrorAndIsLeftAsItIs)
{
    QByteArray garbage;
    for (int i = 0; i < 5000; ++i)
        garbage.append(char((i * 7919) >> 3));
    write(QStringLiteral("a"));
    const QByteArray cut = Files::read(path).chopped(5);
    for (const QByteArray &bytes : {QByteArray(), garbage, cut, QByteArray("[]")}) {
        Files::write(path, bytes);
        RegistryKey root;
        EXPECT_EQ(file.read(root), RegistryResult::Unreadable);
        EXPECT_EQ(write(QStringLiteral("b")), RegistryResult::Unreadable);
        EXPECT_EQ(Files::read(path), bytes);
    }
}

TEST_F(RegistryFileTest, AFolderInThePlaceOfTheFileIsAnErrorAndHarmless)
{
    QDir().mkpath(path);
    RegistryKey root;
    EXPECT_EQ(file.read(root), RegistryResult::Unreadable);
    EXPECT_EQ(write(QStringLiteral("a")), RegistryResult::Unreadable);
}

TEST_F(RegistryFileTest, APathThroughAFileIsAWriteFault)
{
    Files::write(home.file(QStringLiteral("store")), "x");
    EXPECT_TRUE(tree().keys.empty());
    EXPECT_EQ(write(QStringLiteral("a")), RegistryResult::WriteFault);
}

TEST_F(RegistryFileTest, WithoutRightsItFailsAndTheFileIsUnchanged)
{
    const AsUser user(home.path());
    write(QStringLiteral("a"));
    const QByteArray folderName = QFile::encodeName(QFileInfo(path).path());
    ::chmod(folderName.constData(), 0555);
    EXPECT_EQ(write(QStringLiteral("b")), RegistryResult::NoRights);
    EXPECT_EQ(RegistryFile(QStringLiteral("/var/lib/none/k.json")).change([](RegistryKey &) {
        return RegistryResult::Ok;
    }),
              RegistryResult::NoRights);
    ::chmod(folderName.constData(), 0755);
    ::chmod(qPrintable(path), 0444);
    EXPECT_EQ(write(QStringLiteral("b")), RegistryResult::NoRights);
    EXPECT_NE(tree().find({QStringLiteral("a")}), nullptr);
    ::chmod(qPrintable(path), 0);
    RegistryKey root;
    EXPECT_EQ(file.read(root), RegistryResult::NoRights);
    ::chmod(qPrintable(path), 0644);
    ::chmod(qPrintable(path + QStringLiteral(".lock")), 0);
    EXPECT_EQ(write(QStringLiteral("b")), RegistryResult::NoRights);
    EXPECT_EQ(folder(), wholeFolder());
}
