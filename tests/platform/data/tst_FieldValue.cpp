#include "ErrorNumberOf.h"
#include "FieldValue.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

TEST(FieldValue, ShowsEachKindAsText)
{
    EXPECT_EQ(FieldValue(QStringLiteral("a")).text(), QStringLiteral("a"));
    EXPECT_EQ(FieldValue(-5).text(), QStringLiteral("-5"));
    EXPECT_EQ(FieldValue(0.5).text(), QStringLiteral("0.5"));
    EXPECT_EQ(FieldValue(QDate(1999, 9, 5)).text(), QStringLiteral("05-Sep-1999"));
}

TEST(FieldValue, NullHasNoText)
{
    const FieldValue null;
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.isEmpty());
    EXPECT_EQ(errorNumberOf([&] { null.text(); }), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(errorNumberOf([&] { null.number(); }), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(errorNumberOf([&] { null.date(); }), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(null.textOrEmpty(), QString());
}

TEST(FieldValue, AnEmptyTextIsNotNull)
{
    const FieldValue text = QString();
    EXPECT_FALSE(text.isNull());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.text(), QString());
    EXPECT_FALSE(FieldValue(0).isEmpty());
}

TEST(FieldValue, ReadsNumbersAndDatesOutOfTexts)
{
    EXPECT_EQ(FieldValue(QStringLiteral("12")).number(), 12);
    EXPECT_EQ(errorNumberOf([] { FieldValue(QStringLiteral("12x")).number(); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FieldValue(QStringLiteral("5-sep-1999")).date(), QDate(1999, 9, 5));
    EXPECT_EQ(errorNumberOf([] { FieldValue(QStringLiteral("x")).date(); }), ErrorNumber::TypeMismatch);
}
