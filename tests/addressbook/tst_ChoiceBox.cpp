#include "ChoiceBox.h"
#include "PrintQt.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

struct ChoiceBoxTest : testing::Test
{
    ChoiceBoxTest()
    {
        auto *column = new QVBoxLayout(&window);
        box = new ChoiceBox;
        next = new QLineEdit;
        column->addWidget(box);
        column->addWidget(next);
        box->addItems({QStringLiteral("Aberdeen"), QStringLiteral("Bath"), QStringLiteral("Bathgate")});
        box->setText({});
        window.show();
        box->setFocus();
        (void)QTest::qWaitForWindowActive(&window);
    }

    QWidget window;
    ChoiceBox *box;
    QLineEdit *next;
};

} // namespace

TEST_F(ChoiceBoxTest, WhatIsTypedStaysAsItIs)
{
    for (const char *typed : {"Bat", "bath", "Nowhere", "Bath"}) {
        box->setText({});
        QSignalSpy clicks(box, &ChoiceBox::Click);
        QTest::keyClicks(box, QString::fromLatin1(typed));
        QTest::keyClick(box, Qt::Key_Return);
        next->setFocus();
        EXPECT_EQ(box->currentText(), QString::fromLatin1(typed));
        EXPECT_EQ(clicks.count(), 0) << typed;
        EXPECT_EQ(box->count(), 3);
        box->setFocus();
    }
}

TEST_F(ChoiceBoxTest, AnEntryIsChosenByKeys)
{
    QSignalSpy clicks(box, &ChoiceBox::Click);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->currentText(), QStringLiteral("Aberdeen"));
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->currentText(), QStringLiteral("Bath"));
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(ChoiceBoxTest, AnEntryIsChosenFromTheList)
{
    QSignalSpy clicks(box, &ChoiceBox::Click);
    box->showPopup();
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {},
                      box->view()->visualRect(box->model()->index(2, 0)).center());
    EXPECT_EQ(box->currentText(), QStringLiteral("Bathgate"));
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ChoiceBoxTest, TheListOpensAtWhatHasBeenTyped)
{
    QTest::keyClicks(box, QStringLiteral("bat"));
    box->showPopup();
    EXPECT_EQ(box->view()->currentIndex().row(), 1);
    EXPECT_EQ(box->currentText(), QStringLiteral("bat"));
    box->hidePopup();
    box->setText(QStringLiteral("Bathgate"));
    box->showPopup();
    EXPECT_EQ(box->view()->currentIndex().row(), 2);
    box->hidePopup();
}

TEST_F(ChoiceBoxTest, CodeShowsAnyText)
{
    QSignalSpy clicks(box, &ChoiceBox::Click);
    box->setText(QStringLiteral("Bath"));
    EXPECT_EQ(box->currentIndex(), 1);
    box->setText(QStringLiteral("bath"));
    EXPECT_EQ(box->currentIndex(), -1);
    EXPECT_EQ(box->currentText(), QStringLiteral("bath"));
    EXPECT_EQ(clicks.count(), 0);
}

TEST(ChoiceBox, ALongEntryDoesNotWidenIt)
{
    ChoiceBox narrow;
    ChoiceBox box;
    box.addItem(QString(50, u'W'));
    narrow.show();
    box.show(); // Qt measures its entries then
    EXPECT_EQ(box.sizeHint().width(), narrow.sizeHint().width());
}
