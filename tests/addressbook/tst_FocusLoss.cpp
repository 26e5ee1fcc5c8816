#include "FocusLoss.h"

#include "ChoiceBox.h"

#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

struct FocusLossTest : testing::Test
{
    FocusLossTest()
    {
        auto *column = new QVBoxLayout(&window);
        box = new ChoiceBox;
        next = new QLineEdit;
        column->addWidget(box);
        column->addWidget(next);
        box->addItem(QStringLiteral("entry"));
        window.show();
        box->setFocus();
        (void)QTest::qWaitForWindowActive(&window);
        loss = new FocusLoss(*box);
    }

    QWidget window;
    ChoiceBox *box;
    QLineEdit *next;
    FocusLoss *loss;
};

} // namespace

TEST_F(FocusLossTest, IsSignalledForKeyMouseAndCode)
{
    QSignalSpy losses(loss, &FocusLoss::LostFocus);
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(losses.count(), 1);
    box->setFocus();
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_EQ(losses.count(), 2);
    box->setFocus();
    next->setFocus();
    EXPECT_EQ(losses.count(), 3);
}

TEST_F(FocusLossTest, AListAMenuAndAnotherWindowOnlyBorrowIt)
{
    QSignalSpy losses(loss, &FocusLoss::LostFocus);
    box->showPopup();
    box->hidePopup();
    EXPECT_EQ(losses.count(), 0) << "list";
    QMenu menu;
    menu.addAction(QStringLiteral("item"));
    menu.popup({});
    menu.hide();
    EXPECT_EQ(losses.count(), 0) << "menu";
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(losses.count(), 0);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(losses.count(), 1);
}
