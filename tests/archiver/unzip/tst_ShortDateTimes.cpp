#include "PrintQt.h"
#include "ShortDateTimes.h"

#include <gtest/gtest.h>

namespace {

QDateTime moment(int year, int month, int day, int hour, int minute)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute));
}

} // namespace

TEST(ShortDateTimesTest, IsShortDateBlankShortTime)
{
    for (const QLocale &locale : {QLocale(QLocale::English, QLocale::UnitedStates), QLocale(QLocale::German),
                                  QLocale(QLocale::Japanese), QLocale::c()}) {
        ShortDateTimes texts(locale);
        for (const QDateTime &each :
             {moment(2004, 3, 9, 9, 40), moment(2004, 3, 9, 21, 40), moment(1980, 1, 1, 0, 0),
              moment(2107, 12, 31, 23, 58), moment(2004, 3, 10, 9, 40), moment(2004, 3, 9, 9, 40)})
            EXPECT_EQ(texts.text(each), locale.toString(each.date(), QLocale::ShortFormat) + u' ' +
                                            locale.toString(each.time(), QLocale::ShortFormat));
    }
}

TEST(ShortDateTimesTest, AnInvalidMomentIsBlank)
{
    ShortDateTimes texts;
    EXPECT_EQ(texts.text({}), QStringLiteral(" "));
    EXPECT_EQ(texts.text({}), QStringLiteral(" "));
}
