#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FailingCalls.h"
#include "FileAttributes.h"
#include "FileDetails.h"
#include "FileOperations.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <QDir>
#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace {

struct FileOperationsTest : testing::Test
{
    ScratchFolder folder;

    FileOperationsTest() { folder.addFile("a", "the content"); }

    QString path(const QByteArray &name) const { return QString::fromUtf8(folder.file(name)); }
    void copy(const QByteArray &from, const QByteArray &to) const
    {
        FileOperations::copy(path(from), path(to));
    }
    int errorOfCopy(const QByteArray &from, const QByteArray &to) const
    {
        return errorNumberOf([&] { copy(from, to); });
    }
    QByteArray content(const QByteArray &name) const { return Files::read(path(name)); }
    QStringList names() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

} // namespace

TEST_F(FileOperationsTest, ACopyIsTheSame)
{
    QByteArray large(3'000'001, Qt::Uninitialized); // bytes: several pieces
    for (char &byte : large)
        byte = char(QRandomGenerator::global()->generate());
    folder.addFile("large", large);
    folder.addFile("empty");
    for (const char *name : {"a", "large", "empty"}) {
        copy(name, "b");
        EXPECT_EQ(content("b"), content(name)) << name;
    }
    EXPECT_EQ(names(), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("empty"),
                                    QStringLiteral("large")}));
}

TEST_F(FileOperationsTest, ACopyHasTimePermissionsAndAttributes)
{
    const AsUser user(folder.path());
    FileAttributes::set(path("a"), FileAttributes::ReadOnly | FileAttributes::Hidden);
    const utimbuf times = {1'000'000'000, 1'000'000'000};
    ::utime(folder.file("a").constData(), &times);
    copy("a", "b");
    EXPECT_EQ(FileAttributes::of(path("b")), FileAttributes::ReadOnly | FileAttributes::Hidden);
    EXPECT_EQ(FileDetails::of(path("b")).modified, QDateTime::fromSecsSinceEpoch(1'000'000'000));
    FileAttributes::set(path("b"), 0);
    EXPECT_EQ(FileAttributes::of(path("b")), 0);
}

TEST_F(FileOperationsTest, ACopyOntoItselfLeavesTheFile)
{
    EXPECT_EQ(errorOfCopy("a", "a"), ErrorNumber::PermissionDenied);
    folder.addLink("link", "a");
    EXPECT_EQ(errorOfCopy("a", "link"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(errorOfCopy("link", "a"), ErrorNumber::PermissionDenied);
    ASSERT_EQ(::link(folder.file("a").constData(), folder.file("hard").constData()), 0);
    EXPECT_EQ(errorOfCopy("a", "hard"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(content("a"), QByteArray("the content"));
}

TEST_F(FileOperationsTest, ALinkKeepsItsTarget)
{
    folder.addFolder("other");
    folder.addFile("other/target", "old");
    folder.addLink("link", "other/target");
    copy("a", "link");
    EXPECT_EQ(content("other/target"), QByteArray("the content"));
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    folder.addLink("to nothing", "other/new");
    copy("a", "to nothing");
    EXPECT_EQ(content("other/new"), QByteArray("the content"));
}

TEST_F(FileOperationsTest, AFullDiskLeavesTheOldFile)
{
    folder.addFile("b", "old");
    {
        const FullDisk full(4);
        EXPECT_EQ(errorOfCopy("a", "b"), ErrorNumber::DiskFull);
        EXPECT_EQ(errorOfCopy("a", "c"), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(content("b"), QByteArray("old"));
    EXPECT_EQ(names(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(FileOperationsTest, AFailureAtTheEndLeavesTheOldFile)
{
    folder.addFile("b", "old");
    for (const auto call : {FailingCalls::Sync, FailingCalls::Rename}) {
        FailingCalls calls;
        calls.fail(call, EIO);
        EXPECT_EQ(errorOfCopy("a", "b"), ErrorNumber::DeviceIoError) << call;
    }
    EXPECT_EQ(content("b"), QByteArray("old"));
    EXPECT_EQ(names(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(FileOperationsTest, OnlyFilesAreCopied)
{
    folder.addFolder("folder");
    ASSERT_EQ(::mkfifo(folder.file("pipe").constData(), 0600), 0);
    EXPECT_EQ(errorOfCopy("folder", "b"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfCopy("pipe", "b"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfCopy("a", "folder"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfCopy("a", "pipe"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfCopy("none", "b"), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOfCopy("a", "none/b"), ErrorNumber::PathNotFound);
    EXPECT_FALSE(QFileInfo::exists(path("b")));
}

TEST_F(FileOperationsTest, AFileThatMayNotBeWrittenStays)
{
    folder.addFile("b", "old");
    const AsUser user(folder.path());
    FileAttributes::set(path("b"), FileAttributes::ReadOnly);
    EXPECT_EQ(errorOfCopy("a", "b"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(content("b"), QByteArray("old"));
    ::chmod(folder.file("a").constData(), 0);
    EXPECT_EQ(errorOfCopy("a", "c"), ErrorNumber::PermissionDenied);
}

TEST_F(FileOperationsTest, AFileIsDeleted)
{
    folder.addLink("link", "a");
    FileOperations::remove(path("link"));
    EXPECT_EQ(names(), QStringList(QStringLiteral("a")));
    FileOperations::remove(path("a"));
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(FileOperationsTest, WhatCannotBeDeletedIsAnError)
{
    folder.addFolder("folder");
    EXPECT_EQ(errorNumberOf([&] { FileOperations::remove(path("none")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumberOf([&] { FileOperations::remove(path("folder")); }),
              ErrorNumber::PathFileAccessError);
    const AsUser user(folder.path());
    ::chmod(folder.path().toLocal8Bit().constData(), 0500);
    EXPECT_EQ(errorNumberOf([&] { FileOperations::remove(path("a")); }), ErrorNumber::PermissionDenied);
    ::chmod(folder.path().toLocal8Bit().constData(), 0700);
}

TEST_F(FileOperationsTest, DetailsAreTheFiles)
{
    EXPECT_EQ(FileDetails::of(path("a")).length, 11);
    EXPECT_EQ(errorNumberOf([&] { FileDetails::of(path("none")); }), ErrorNumber::FileNotFound);
}
