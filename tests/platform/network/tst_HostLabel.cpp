#include "HostLabel.h"

#include "HostileNames.h"
#include "PrintQt.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct HostNameRow
{
    const char *what;
    QString name;
    QString label;
};

void PrintTo(const HostNameRow &row, std::ostream *out)
{
    *out << row.what;
}

struct HostNames : testing::TestWithParam<HostNameRow>
{};

const HostNameRow hostNames[] = {
    {"Plain", QStringLiteral("host"), QStringLiteral("HOST")},
    {"Domain", QStringLiteral("Host.local."), QStringLiteral("HOST")},
    {"AllSigns", QStringLiteral("a-Z_09"), QStringLiteral("A-Z_09")},
    {"Longest", QString(63, u'a'), QString(63, u'A')},
    {"TooLong", QString(64, u'a'), {}},
    {"Huge", QString(300, u'a'), {}},
    {"Empty", {}, {}},
    {"DomainAlone", QStringLiteral(".local"), {}},
    {"LeadingDash", QStringLiteral("-S"), {}},
    {"Backslashes", QStringLiteral("\\\\HOST"), {}},
    {"Slash", QStringLiteral("a/b"), {}},
    {"Percent", QStringLiteral("a%1"), {}},
    {"Marker", QStringLiteral("HOST (This Machine)"), {}},
    {"OtherLetters", QStringLiteral("b\u00FCro"), {}},
    {"Lookalike", QStringLiteral("h\u043Est"), {}},
    {"TurnedDirection", QStringLiteral("a\u202Eb"), {}},
    {"LineFeed", QStringLiteral("a\nb"), {}},
    {"Nul", QStringLiteral("a") + QChar(u'\0'), {}},
};

struct HostileHostNames : testing::TestWithParam<HostileName>
{};

} // namespace

TEST_P(HostNames, LabelIsUpperCaseOrNone)
{
    EXPECT_EQ(HostLabel::of(GetParam().name), GetParam().label);
}
INSTANTIATE_TEST_SUITE_P(Rows, HostNames, testing::ValuesIn(hostNames),
                         [](const auto &row) { return std::string(row.param.what); });

TEST_P(HostileHostNames, AreLabelsOfPlainSignsOrNone)
{
    for (const QChar sign : HostLabel::of(GetParam().text()))
        EXPECT_TRUE(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_").contains(sign));
}
INSTANTIATE_TEST_SUITE_P(Names, HostileHostNames, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
