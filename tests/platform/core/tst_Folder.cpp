#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FileNames.h"
#include "Files.h"
#include "Folder.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct FolderTest : testing::Test
{
    ScratchFolder scratch;
    QStringList files(Folder::Hidden hidden = Folder::Hidden::Skip) const
    {
        return Folder::files(scratch.path(), hidden);
    }
    QStringList subfolders(Folder::Hidden hidden = Folder::Hidden::Skip) const
    {
        return Folder::subfolders(scratch.path(), hidden);
    }
};

} // namespace

TEST_F(FolderTest, FilesAndFoldersAreSeparated)
{
    scratch.addFile("note.txt");
    scratch.addFolder("inner");
    scratch.addLink("to folder", "inner");
    scratch.addLink("to file", "note.txt");
    scratch.addLink("to nothing", "gone");
    ASSERT_EQ(::mkfifo(scratch.file("pipe").constData(), 0600), 0);
    EXPECT_EQ(subfolders(), QStringList({QStringLiteral("inner"), QStringLiteral("to folder")}));
    EXPECT_EQ(files(), QStringList({QStringLiteral("note.txt"), QStringLiteral("pipe"),
                                    QStringLiteral("to file"), QStringLiteral("to nothing")}));
}

TEST_F(FolderTest, HiddenNamesAreTakenOnWish)
{
    scratch.addFile(".profile");
    scratch.addFolder(".config");
    EXPECT_EQ(files(), QStringList());
    EXPECT_EQ(subfolders(), QStringList());
    EXPECT_EQ(files(Folder::Hidden::Include), QStringList(QStringLiteral(".profile")));
    EXPECT_EQ(subfolders(Folder::Hidden::Include), QStringList(QStringLiteral(".config")));
}

TEST_F(FolderTest, NamesAreInTheOrderOfAPerson)
{
    for (const char *name : {"b", "B2", "a10", "A9", "a", "A"})
        scratch.addFile(name);
    const QStringList names = files();
    EXPECT_EQ(names, QStringList({QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("A9"),
                                  QStringLiteral("a10"), QStringLiteral("b"), QStringLiteral("B2")}));
}

TEST_F(FolderTest, AFileOfAnyNameIsListedAndRead)
{
    for (const QByteArray &name :
         {QByteArray("M\xfcller.txt"), QByteArray("\xff"), QByteArray("a\nb"), QByteArray(255, 'x')}) {
        scratch.addFile(name, name);
        const QStringList names = files();
        ASSERT_EQ(names, QStringList(FileNames::fromBytes(name)));
        EXPECT_EQ(Files::read(Folder::join(scratch.path(), names[0])), name);
        ASSERT_EQ(::unlink(scratch.file(name).constData()), 0);
    }
    scratch.addFolder("f\xf6lder");
    EXPECT_EQ(Folder::files(Folder::join(scratch.path(), subfolders()[0]), Folder::Hidden::Include),
              QStringList());
}

TEST_F(FolderTest, WhatCannotBeReadIsAnError)
{
    scratch.addFile("file");
    scratch.addFolder("secret");
    ASSERT_EQ(::chmod(scratch.file("secret").constData(), 0), 0);
    const auto numberFor = [](const QString &path) {
        return errorNumberOf([&] { Folder::files(path, Folder::Hidden::Skip); });
    };
    EXPECT_EQ(numberFor(Folder::join(scratch.path(), QStringLiteral("gone"))), ErrorNumber::PathNotFound);
    EXPECT_EQ(numberFor(Folder::join(scratch.path(), QStringLiteral("file"))), ErrorNumber::PathNotFound);
    EXPECT_EQ(numberFor(QString()), ErrorNumber::PathNotFound);
    EXPECT_EQ(numberFor(QStringLiteral("tmp")), ErrorNumber::PathNotFound);

    const QString secret = Folder::join(scratch.path(), QStringLiteral("secret"));
    const AsUser user(scratch.path());
    EXPECT_EQ(numberFor(secret), ErrorNumber::PermissionDenied);
    EXPECT_FALSE(Folder::canOpen(secret));
    EXPECT_TRUE(Folder::canOpen(scratch.path()));
}

TEST(FolderNamesTest, JoinsWithOneSeparator)
{
    EXPECT_EQ(Folder::join(QStringLiteral("/"), QStringLiteral("home")), QStringLiteral("/home"));
    EXPECT_EQ(Folder::join(QStringLiteral("/home"), QStringLiteral("anna")), QStringLiteral("/home/anna"));
}
