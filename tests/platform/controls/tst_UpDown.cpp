#include "UpDown.h"

#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

struct UpDownTest : testing::Test
{
    QWidget window;
    QLineEdit text{&window};
    UpDown spin{text, 0, 75, &window};

    QString step(const char *from, bool up)
    {
        text.setText(QString::fromLatin1(from));
        spin.findChildren<QToolButton *>().at(up ? 0 : 1)->click();
        return text.text();
    }
};

} // namespace

TEST_F(UpDownTest, StepsTheNumberInTheText)
{
    EXPECT_EQ(step("41", true), QStringLiteral("42"));
    EXPECT_EQ(step("41", false), QStringLiteral("40"));
}

TEST_F(UpDownTest, StopsAtItsEnds)
{
    EXPECT_EQ(step("75", true), QStringLiteral("75"));
    EXPECT_EQ(step("0", false), QStringLiteral("0"));
    EXPECT_EQ(step("500", false), QStringLiteral("75"));
    EXPECT_EQ(step("-500", true), QStringLiteral("0"));
    EXPECT_EQ(step("1E+300", true), QStringLiteral("75"));
}

TEST_F(UpDownTest, TakesWhatIsNoNumberForZero)
{
    EXPECT_EQ(step("wide", true), QStringLiteral("1"));
    EXPECT_EQ(step("", true), QStringLiteral("1"));
}

TEST_F(UpDownTest, TheArrowKeysStep)
{
    text.setText(QStringLiteral("7"));
    QTest::keyClick(&text, Qt::Key_Up);
    EXPECT_EQ(text.text(), QStringLiteral("8"));
    QTest::keyClick(&text, Qt::Key_Down);
    QTest::keyClick(&text, Qt::Key_Down);
    EXPECT_EQ(text.text(), QStringLiteral("6"));
}

TEST_F(UpDownTest, TypingIsNotLimited)
{
    text.setText({});
    QTest::keyClicks(&text, QStringLiteral("1000x"));
    EXPECT_EQ(text.text(), QStringLiteral("1000x"));
}
