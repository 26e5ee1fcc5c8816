#include "Named.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

TEST(Named, AButtonHasItsNameItsCaptionAndIsSpokenWithoutTheMnemonic)
{
    const std::unique_ptr<QPushButton> button(named<QPushButton>("cmdSave", QStringLiteral("Save &As")));
    EXPECT_EQ(button->objectName(), QStringLiteral("cmdSave"));
    EXPECT_EQ(button->text(), QStringLiteral("Save &As"));
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Save As"));
}

TEST(Named, ACaptionMayBeSpokenInOtherWords)
{
    const std::unique_ptr<QPushButton> button(
        named<QPushButton>("cmdadd", QStringLiteral("+"), QStringLiteral("Add")));
    EXPECT_EQ(button->text(), QStringLiteral("+"));
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Add"));
}

TEST(Named, AMemberOfAnArrayHasItsIndex)
{
    const std::unique_ptr<QCheckBox> box(named<QCheckBox>({"Check1", 3}, QStringLiteral("Third")));
    EXPECT_EQ(box->objectName(), QStringLiteral("Check1_3"));
}

TEST(Named, AFieldShowsNothingButIsSpoken)
{
    const std::unique_ptr<QLineEdit> field(named<QLineEdit>("txtName", QStringLiteral("Name")));
    EXPECT_EQ(field->objectName(), QStringLiteral("txtName"));
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Name"));
    EXPECT_TRUE(field->text().isEmpty());
}

TEST(Named, ALabelShowsMarkupAsItIs)
{
    const std::unique_ptr<QLabel> label(named<QLabel>("lblName", QStringLiteral("<b>&amp;</b>")));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST(Named, WhatIsNoControlHasANameOnly)
{
    const std::unique_ptr<QTimer> timer(named("Timer1", new QTimer));
    EXPECT_EQ(timer->objectName(), QStringLiteral("Timer1"));
}

TEST(Named, MnemonicsAreLeftOut)
{
    EXPECT_EQ(withoutMnemonic(QStringLiteral("&File")), QStringLiteral("File"));
    EXPECT_EQ(withoutMnemonic(QStringLiteral("Salt && Pepper")), QStringLiteral("Salt & Pepper"));
    EXPECT_EQ(withoutMnemonic(QStringLiteral("End&")), QStringLiteral("End"));
    EXPECT_EQ(withoutMnemonic(QString()), QString());
}
