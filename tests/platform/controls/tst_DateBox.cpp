#include "DateBox.h"
#include "ErrorNumberOf.h"

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QDate leapDay(2024, 2, 29);

struct DateBoxTest : testing::Test
{
    DateBox box;
    QSignalSpy changes{&box, &DateBox::Change};
};

struct DateBoxKeyTest : DateBoxTest, testing::WithParamInterface<QKeyCombination>
{};

} // namespace

TEST_F(DateBoxTest, StartsWithToday)
{
    const QDate before = QDate::currentDate();
    const DateBox another;
    EXPECT_GE(another.Value(), before);
    EXPECT_LE(another.Value(), QDate::currentDate());
}

TEST_F(DateBoxTest, EmitsChangeOnlyForAnotherDate)
{
    box.setValue(leapDay);
    EXPECT_EQ(box.Value(), leapDay);
    EXPECT_EQ(changes.count(), 1);
    box.setValue(leapDay);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(DateBoxTest, RefusesWhatIsNoDate)
{
    box.setValue(leapDay);
    for (const QDate &date : {QDate(), QDate(2023, 2, 29), QDate(1752, 12, 31), QDate(10000, 1, 1)})
        EXPECT_EQ(errorNumberOf([&] { box.setValue(date); }), 380);
    EXPECT_EQ(box.Value(), leapDay);
    box.setValue(QDate(1753, 1, 1));
    box.setValue(QDate(9999, 12, 31));
}

TEST_F(DateBoxTest, KeysStepTheDate)
{
    box.setValue(QDate(2024, 5, 17));
    box.setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(box.Value(), QDate(2024, 5, 18));
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.Value(), QDate(2024, 5, 16));
}

TEST_F(DateBoxTest, HomeAndEndSelectAPartThatIsTypedAnew)
{
    box.setDisplayFormat(QStringLiteral("dd MMM yyyy"));
    box.setValue(QDate(2024, 5, 17));
    QTest::keyClick(&box, Qt::Key_End, Qt::KeypadModifier);
    QTest::keyClicks(&box, QStringLiteral("1999"));
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClicks(&box, QStringLiteral("29"));
    EXPECT_EQ(box.Value(), QDate(1999, 5, 29));
}

TEST_F(DateBoxTest, ShowsTheWholeYear)
{
    box.setValue(QDate(1924, 5, 17));
    EXPECT_TRUE(box.text().contains(QStringLiteral("1924"))) << qPrintable(box.text());
}

TEST_P(DateBoxKeyTest, OpensTheCalendar)
{
    box.setValue(leapDay);
    box.show();
    box.setFocus();
    (void)QTest::qWaitForWindowActive(&box);
    QTest::keyClick(&box, GetParam().key(), GetParam().keyboardModifiers());
    const auto *calendar = box.findChild<QCalendarWidget *>();
    ASSERT_TRUE(calendar && calendar->isVisible());
    EXPECT_EQ(calendar->selectedDate(), leapDay);
    QWidget *grid = calendar->focusProxy() ? calendar->focusProxy() : calendar->focusWidget();
    ASSERT_TRUE(grid);
    QTest::keyClick(grid, Qt::Key_Left);
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ(box.Value(), leapDay.addDays(-1));
    EXPECT_FALSE(calendar->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Keys, DateBoxKeyTest,
                         testing::Values(QKeyCombination(Qt::NoModifier, Qt::Key_F4),
                                         QKeyCombination(Qt::AltModifier, Qt::Key_Down)));
