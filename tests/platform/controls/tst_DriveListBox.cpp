#include "DriveListBox.h"
#include "PrintQt.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct DriveListBoxTest : testing::Test
{
    DriveListBox box;
    QSignalSpy changes{&box, &DriveListBox::Change};
    QString homeText = QStringLiteral("Home (%1)").arg(QDir::homePath());
};

} // namespace

TEST_F(DriveListBoxTest, BeginsWithTheHomeFolder)
{
    EXPECT_EQ(box.Drive(), QDir::homePath());
    EXPECT_EQ(box.currentText(), homeText);
    EXPECT_EQ(box.itemText(0), QStringLiteral("File System (/)"));
    for (int i = 0; i < box.count(); ++i)
        EXPECT_FALSE(box.itemIcon(i).isNull());
}

TEST_F(DriveListBoxTest, TheIconsFollowThePalette)
{
    const auto shown = [this] { return box.itemIcon(box.currentIndex()).pixmap(22).toImage(); };
    QApplication::setPalette(Qt::white);
    const QImage light = shown();
    QApplication::setPalette(Qt::black);
    EXPECT_NE(shown(), light);
    EXPECT_EQ(box.Drive(), QDir::homePath());
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(DriveListBoxTest, AChoiceOfTheUserIsAChange)
{
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(box.Drive(), QStringLiteral("/"));
    EXPECT_EQ(changes.size(), 1);
    box.setCurrentIndex(1);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DriveListBoxTest, OpeningTheListLooksAnewAndKeepsTheSelection)
{
    box.addItem(QStringLiteral("stale"), QStringLiteral("/stale"));
    box.addItem(QStringLiteral("Stick (/media/stick)"), QStringLiteral("/media/stick"));
    box.setCurrentIndex(box.count() - 1);
    box.show();
    box.showPopup();
    EXPECT_EQ(box.findData(QStringLiteral("/stale")), -1);
    EXPECT_EQ(box.Drive(), QStringLiteral("/media/stick")); // until another is chosen
    EXPECT_EQ(box.currentText(), QStringLiteral("Stick (/media/stick)"));
    EXPECT_TRUE(changes.isEmpty());
    QTest::keyClick(box.view(), Qt::Key_Home);
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(box.Drive(), QStringLiteral("/"));
    EXPECT_EQ(changes.size(), 1);
    box.showPopup();
    EXPECT_EQ(box.findData(QStringLiteral("/media/stick")), -1);
    EXPECT_EQ(box.findText(homeText), 1);
}
