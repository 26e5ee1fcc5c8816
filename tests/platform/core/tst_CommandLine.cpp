#include "CommandLine.h"
#include "FileNames.h"
#include "PrintQt.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

QString textOf(std::vector<const char *> arguments)
{
    arguments.insert(arguments.begin(), "/usr/bin/program");
    CommandLine::take(int(arguments.size()), arguments.data());
    return CommandLine::text();
}

} // namespace

TEST(CommandLineTest, IsTheArgumentsJoinedByBlanks)
{
    EXPECT_EQ(textOf({"\"/a", "b.bmp\""}), QStringLiteral("\"/a b.bmp\""));
    EXPECT_EQ(textOf({"/a  b.bmp"}), QStringLiteral("/a  b.bmp"));
    EXPECT_EQ(textOf({}), QString());
}

TEST(CommandLineTest, NamesOfAnyBytesAreKept)
{
    EXPECT_EQ(FileNames::toBytes(textOf({"\"/\xff.bmp\""})), QByteArray("\"/\xff.bmp\""));
}
