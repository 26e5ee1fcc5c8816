#include "HostileNames.h"
#include "PrintQt.h"
#include "TransferCommand.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <gtest/gtest.h>

namespace {

using Command = TransferCommand;

Command parsed(const char *text)
{
    return Command::parse(QString::fromUtf8(text));
}

int codeFor(const QString &text)
{
    try {
        Command::parse(text);
    } catch (const TransferFailure &failure) {
        return failure.code;
    }
    return 0;
}

} // namespace

TEST(TransferCommand, ReadsEachVerb)
{
    const struct
    {
        const char *text;
        Command::Verb verb;
        QByteArray name;
        QByteArray newName;
    } cases[] = {
        {"DIR", Command::Dir, "", ""},
        {"CDUP", Command::CdUp, "", ""},
        {"CLOSE", Command::Close, "", ""},
        {"CD \"a\"", Command::Cd, "a", ""},
        {"CD \"a/\"", Command::Cd, "a", ""},
        {"CD \"../\"", Command::Cd, "..", ""},
        {"CD \"/\"", Command::Cd, "/", ""},
        {"SIZE \"a/\"", Command::Size, "a/", ""},
        {"DELETE \" a b \"", Command::Delete, " a b ", ""},
        {"DELETE \"a\"b\"", Command::Delete, "a\"b", ""},
        {"DELETE \"\"\"", Command::Delete, "\"", ""},
        {"DELETE \"a\" \"b\"", Command::Delete, "a\" \"b", ""},
        {"RMDIR \"a/\"", Command::RmDir, "a", ""},
        {"MKDIR \"a\\b\"", Command::MkDir, "a\\b", ""},
        {"RENAME \"a/\" \"b\"", Command::Rename, "a", "b"},
        {"RENAME \"a\"b\" \" c \"", Command::Rename, "a\"b", " c "},
    };
    for (const auto &row : cases) {
        const Command command = parsed(row.text);
        EXPECT_EQ(command.verb, row.verb) << row.text;
        EXPECT_EQ(command.name, row.name) << row.text;
        EXPECT_EQ(command.newName, row.newName) << row.text;
    }
}

TEST(TransferCommand, SplitsALocalPathFromTheNameOnTheServer)
{
    const struct
    {
        const char *names;
        QByteArray name;
        QByteArray folder;
        QByteArray file;
    } cases[] = {
        {"\"a\" \"/home/u\\a\"", "a", "/home/u", "a"},
        {"\"a\" \"/\\a\"", "a", "/", "a"},
        {"\"a b\" \"/home/two words\\a b\"", "a b", "/home/two words", "a b"},
        {"\"a\\b\" \"/home/u\\v\\a\\b\"", "a\\b", "/home/u\\v", "a\\b"},
        {"\"..\\x\" \"/home/u\\..\\x\"", "..\\x", "/home/u", "..\\x"},
        {"\"a\" \"b\" \"/home/u\\a\" \"b\"", "a\" \"b", "/home/u", "a\" \"b"},
        {"\"a\" \"/home/x\" \"y\\a\"", "a", "/home/x\" \"y", "a"},
        {"\"\"\" \"/home/u\\\"\"", "\"", "/home/u", "\""},
        {"\"-rf\" \"/home/u\\-rf\"", "-rf", "/home/u", "-rf"},
        {"\"a\" \"/home/u\\other\"", "a", "/home/u", "other"},
        {"\"a\" \"/home/u/other\"", "a", "/home/u", "other"},
        {"\"a\" \"/other\"", "a", "/", "other"},
    };
    for (const auto &row : cases) {
        const Command command = parsed((QByteArray("GET ") + row.names).constData());
        EXPECT_EQ(command.name, row.name) << row.names;
        EXPECT_EQ(command.folder, row.folder) << row.names;
        EXPECT_EQ(command.file, row.file) << row.names;
    }
    const Command put = parsed("PUT \"/home/u\\a\" \"b\" \"a\" \"b\"");
    EXPECT_EQ(put.folder, "/home/u");
    EXPECT_EQ(put.file, "a\" \"b");
    EXPECT_EQ(put.name, "a\" \"b");
}

TEST(TransferCommand, RefusesWhatCannotBeSent)
{
    for (const char *text : {"",
                             "dir",
                             "DIR ",
                             "DIR \"a\"",
                             "LIST",
                             "CD",
                             "CD a",
                             "CD \"",
                             "CD \"\"",
                             "CD \"a",
                             "CD a\"",
                             "SIZE \"\"",
                             "DELETE \"a\r\nDELE b\"",
                             "DELETE \"a\nb\"",
                             "RMDIR \"a\rb\"",
                             "MKDIR \"\"",
                             "RENAME \"a\"",
                             "RENAME \"\" \"b\"",
                             "RENAME \"a\" \"\"",
                             "RENAME \"a\" \"b\nc\"",
                             "RENAME \"a\" \"b\" \"c\"",
                             "GET \"a\"",
                             "GET \"\" \"/home/u\\\"",
                             "GET \"a\nb\" \"/home/u\\a\nb\"",
                             "GET \"a\" \"\"",
                             "PUT \"/home/u\\\" \"\"",
                             "PUT \"/home/u\\a\" \"b\r\nc\"",
                             "GET \"a\" \"b\" \"/c\""})
        EXPECT_EQ(codeFor(QString::fromUtf8(text)), TransferError::InvalidParameter) << text;
    EXPECT_EQ(codeFor(QStringLiteral("DELETE \"a") + QChar(u'\0') + QStringLiteral("b\"")),
              TransferError::InvalidParameter);
}

TEST(TransferCommand, NoNameLeadsOutOfTheLocalFolder)
{
    for (const char *name : {"../x", "/etc/x", "a/../../x", ".", "..", "a/", "/"}) {
        const QString row = QString::fromUtf8(name);
        EXPECT_EQ(codeFor(QStringLiteral("GET \"%1\" \"/home/u\\%1\"").arg(row)), TransferError::InvalidName)
            << name;
    }
    for (const char *path : {"/home/u\\../x", "/home/u\\..", "/home/u\\.", "/home/u\\"})
        EXPECT_EQ(codeFor(QStringLiteral("GET \"a\" \"") + QString::fromUtf8(path) + u'"'),
                  TransferError::InvalidName)
            << path;
    for (const char *path : {"u\\a", "a", "..\\a", "./a"})
        EXPECT_EQ(codeFor(QStringLiteral("GET \"a\" \"") + QString::fromUtf8(path) + u'"'),
                  TransferError::PathNotFound)
            << path;
}

TEST(TransferCommand, HostileNamesKeepTheirBytes)
{
    for (const HostileName &name : HostileNames::all()) {
        const QString command = QStringLiteral("DELETE \"") + name.text() + u'"';
        if (name.bytes.contains('\n'))
            EXPECT_EQ(codeFor(command), TransferError::InvalidParameter) << name.what;
        else
            EXPECT_EQ(Command::parse(command).name, name.bytes) << name.what;
    }
}
