#include "PhoneNumber.h"

#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

/// The parts of a number as they go out, "refused" for none.
QString wire(const QString &text)
{
    const std::optional<PhoneNumber> number = PhoneNumber::fromText(text);
    return number ? number->dialled() + u'|' + number->tones() : QStringLiteral("refused");
}

} // namespace

TEST(PhoneNumberTest, DropsSeparators)
{
    EXPECT_EQ(wire(QStringLiteral(" +49 (0)30/12-34.5\u00A06\u20137 ")),
              QStringLiteral("+4903012345 67|").remove(u' '));
    EXPECT_EQ(wire(QStringLiteral("*#06#")), QStringLiteral("*#06#|"));
}

TEST(PhoneNumberTest, MayHaveLineEndsAroundIt)
{
    EXPECT_EQ(wire(QStringLiteral("\t12\r\n")), QStringLiteral("12|"));
    EXPECT_EQ(wire(QStringLiteral("12\u2028")), QStringLiteral("12|"));
}

TEST(PhoneNumberTest, SplitsAtTheFirstPause)
{
    EXPECT_EQ(wire(QStringLiteral("12,,3,4#")), QStringLiteral("12|,,3,4#"));
    EXPECT_EQ(wire(QStringLiteral("12,")), QStringLiteral("12|,"));
}

TEST(PhoneNumberTest, RefusesWhatNoLineDials)
{
    for (const char *text :
         {"",     " ",       "-",   "+",   "#",   ",1", "1+2", "++1", "1,+2",   "1;2",         "1\t2",
          "1\n2", "1\rATD2", "1x2", "one", "1\"", "1'", "1A",  "%31", "1@host", "\xEF\xBC\x91"})
        EXPECT_EQ(wire(QString::fromUtf8(text)), QStringLiteral("refused")) << text;
    EXPECT_EQ(wire(QStringLiteral("1") + QChar(0)), QStringLiteral("refused"));
}

TEST(PhoneNumberTest, LimitsTheLength)
{
    EXPECT_EQ(wire(QString(64, u'1')), QString(64, u'1') + u'|');
    EXPECT_EQ(wire(QString(65, u'1')), QStringLiteral("refused"));
}

TEST(PhoneNumberTest, APrefixIsForNationalNumbersAndOfTonesAlone)
{
    const PhoneNumber national = *PhoneNumber::fromText(QStringLiteral("12,3"));
    EXPECT_EQ(national.withPrefix(QStringLiteral("0")).dialled(), QStringLiteral("012"));
    EXPECT_EQ(national.withPrefix(QStringLiteral("0")).tones(), QStringLiteral(",3"));
    EXPECT_EQ(national.withPrefix(QStringLiteral("0\rATH")).dialled(), QStringLiteral("12"));
    EXPECT_EQ(PhoneNumber::fromText(QStringLiteral("+12"))->withPrefix(QStringLiteral("0")).dialled(),
              QStringLiteral("+12"));
}
