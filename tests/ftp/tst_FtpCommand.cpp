#include "FtpCommand.h"
#include "HostileNames.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

const QString fileName = QStringLiteral("a b.txt");
const QString localFolder = QStringLiteral("/home/user");

struct FtpCommandNameTest : testing::TestWithParam<HostileName>
{};

} // namespace

TEST(FtpCommand, NamesAreInQuotesBehindOneBlank)
{
    EXPECT_EQ(FtpCommand::list, QStringLiteral("DIR"));
    EXPECT_EQ(FtpCommand::folderUp, QStringLiteral("CDUP"));
    EXPECT_EQ(FtpCommand::close, QStringLiteral("CLOSE"));
    EXPECT_EQ(FtpCommand::openFolder(QStringLiteral("pub/")), QStringLiteral("CD \"pub/\""));
    EXPECT_EQ(FtpCommand::makeFolder(fileName), QStringLiteral("MKDIR \"a b.txt\""));
    EXPECT_EQ(FtpCommand::removeFolder(QStringLiteral("pub/")), QStringLiteral("RMDIR \"pub/\""));
    EXPECT_EQ(FtpCommand::removeFile(fileName), QStringLiteral("DELETE \"a b.txt\""));
    EXPECT_EQ(FtpCommand::rename(fileName, QStringLiteral(" b")),
              QStringLiteral("RENAME \"a b.txt\" \" b\""));
    EXPECT_EQ(FtpCommand::size(fileName), QStringLiteral("SIZE \"a b.txt\""));
    EXPECT_EQ(FtpCommand::receive(fileName, localFolder),
              QStringLiteral("GET \"a b.txt\" \"/home/user\\a b.txt\""));
    EXPECT_EQ(FtpCommand::send(fileName, localFolder),
              QStringLiteral("PUT \"/home/user\\a b.txt\" \"a b.txt\""));
}

TEST(FtpCommand, EmptyNamesStayEmpty)
{
    EXPECT_EQ(FtpCommand::size({}), QStringLiteral("SIZE \"\""));
    EXPECT_EQ(FtpCommand::makeFolder({}), QStringLiteral("MKDIR \"\""));
    EXPECT_EQ(FtpCommand::receive({}, localFolder), QStringLiteral("GET \"\" \"/home/user\\\""));
}

TEST(FtpCommand, TheRootIsJoinedAsAnyFolder)
{
    EXPECT_EQ(FtpCommand::send(fileName, QStringLiteral("/")),
              QStringLiteral("PUT \"/\\a b.txt\" \"a b.txt\""));
}

TEST_P(FtpCommandNameTest, NamesStayAsTheyAre)
{
    const QString text = GetParam().text();
    EXPECT_EQ(FtpCommand::removeFile(text), QStringLiteral("DELETE \"") + text + u'"');
    EXPECT_EQ(FtpCommand::receive(text, localFolder),
              QStringLiteral("GET \"") + text + QStringLiteral("\" \"/home/user\\") + text + u'"');
}

INSTANTIATE_TEST_SUITE_P(Names, FtpCommandNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
