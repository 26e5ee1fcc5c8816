#include "HostileNames.h"
#include "ScratchHome.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

struct HostileNamesTest : testing::TestWithParam<HostileName>
{
    const HostileName &name() const { return GetParam(); }
};

} // namespace

TEST_P(HostileNamesTest, KnowsWhetherAFileCanHaveIt)
{
    const ScratchHome home;
    QFile file(home.path() + u'/' + name().text());
    const bool isMade = file.open(QFile::WriteOnly | QFile::NewOnly);
    EXPECT_EQ(isMade, name().canBeFile());
}

TEST_P(HostileNamesTest, KnowsWhetherATextHoldsIt)
{
    EXPECT_EQ(QFile::encodeName(name().text()) == name().bytes, name().isUtf8());
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
    EXPECT_FALSE(has(HostileNames::files(), "TooLong"));
    EXPECT_FALSE(has(HostileNames::files(), "ParentFolder"));
}
