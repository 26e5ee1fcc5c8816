#include "FileNames.h"
#include "HostileNames.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <unistd.h>

namespace {

struct HostileNamesTest : testing::TestWithParam<HostileName>
{
    const HostileName &name() const { return GetParam(); }
};

} // namespace

TEST_P(HostileNamesTest, KnowsWhetherAFileCanHaveIt)
{
    const ScratchFolder folder;
    const int made = ::open(folder.file(name().bytes).constData(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    EXPECT_EQ(made >= 0, name().canBeFile());
    if (made >= 0)
        ::close(made);
}

TEST_P(HostileNamesTest, ItsTextLeadsBackToTheFile)
{
    EXPECT_EQ(FileNames::toBytes(name().text()), name().bytes);
}

TEST_P(HostileNamesTest, KnowsWhetherATextHoldsIt)
{
    EXPECT_EQ(name().text().toUtf8() == name().bytes, name().isUtf8());
}

INSTANTIATE_TEST_SUITE_P(Names, HostileNamesTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST(HostileNames, HaveNamesOfTheirOwn)
{
    std::set<std::string> seen;
    for (const HostileName &name : HostileNames::all())
        EXPECT_TRUE(seen.insert(name.what).second) << name.what;
}

TEST(HostileNames, TheListsLeaveOutWhatTheyCannotHold)
{
    const auto has = [](const QList<HostileName> &names, const std::string &what) {
        return std::any_of(names.cbegin(), names.cend(),
                           [&](const HostileName &name) { return name.what == what; });
    };
    EXPECT_TRUE(has(HostileNames::texts(), "TooLong"));
    EXPECT_FALSE(has(HostileNames::texts(), "NotUtf8"));
    EXPECT_TRUE(has(HostileNames::files(), "LineFeeds"));
    EXPECT_TRUE(has(HostileNames::files(), "NotUtf8"));
    EXPECT_FALSE(has(HostileNames::files(), "TooLong"));
    EXPECT_FALSE(has(HostileNames::files(), "ParentFolder"));
}
