#include "ErrorNumberOf.h"
#include "FileListBox.h"
#include "FileNames.h"
#include "Files.h"
#include "Folder.h"
#include "HostileNames.h"
#include "PlainTextDelegate.h"
#include "PrintQt.h"
#include "RowCounter.h"
#include "ScratchFolder.h"
#include "ShownText.h"

#include <QDir>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

struct FileListBoxTest : testing::Test
{
    FileListBoxTest()
    {
        box.resize(200, 300);
        box.show();
    }

    ScratchFolder scratch;
    FileListBox box;

    QRect rowRect(int row) { return box.visualRect(box.model()->index(row, 0)); }
    QString shown(int row)
    {
        const auto &delegate = dynamic_cast<const PlainTextDelegate &>(*box.itemDelegate());
        return delegate.displayText(box.model()->index(row, 0).data(), {});
    }
    void click(int row) { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, rowRect(row).center()); }
    QStringList listed() const
    {
        QStringList names;
        for (int i = 0; i < box.ListCount(); ++i)
            names += box.List(i);
        return names;
    }
    bool askForToolTip(int row)
    {
        const QPoint at = rowRect(row).center();
        QHelpEvent event(QEvent::ToolTip, at, box.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(box.viewport(), &event);
        return QToolTip::isVisible();
    }
};

} // namespace

TEST_F(FileListBoxTest, ListsTheFilesOfItsPath)
{
    scratch.addFile("b.txt");
    scratch.addFile("a.txt");
    scratch.addFile(".hidden");
    scratch.addFolder("folder");
    box.setPath(scratch.path() + QStringLiteral("/folder/.."));
    EXPECT_EQ(box.Path(), scratch.path());
    EXPECT_EQ(listed(), QStringList({QStringLiteral("a.txt"), QStringLiteral("b.txt")}));
    EXPECT_EQ(box.FileName(), QString());
    EXPECT_EQ(errorNumberOf([&] { box.List(2); }), 381);
    EXPECT_EQ(errorNumberOf([&] { box.List(-1); }), 381);
}

TEST_F(FileListBoxTest, BeginsWithTheHomeFolder)
{
    EXPECT_EQ(box.Path(), QDir::homePath());
}

TEST_F(FileListBoxTest, HiddenFilesAreListedOnWish)
{
    scratch.addFile(".hidden");
    box.setPath(scratch.path());
    EXPECT_EQ(box.ListCount(), 0);
    box.setHidden(true);
    EXPECT_EQ(listed(), QStringList(QStringLiteral(".hidden")));
}

TEST_F(FileListBoxTest, AClickSelectsAFile)
{
    scratch.addFile("a.txt");
    scratch.addFile("b.txt");
    box.setPath(scratch.path());
    click(1);
    EXPECT_EQ(box.FileName(), QStringLiteral("b.txt"));
    QTest::keyClick(&box, Qt::Key_A);
    EXPECT_EQ(box.FileName(), QStringLiteral("a.txt"));
    box.setPath(scratch.path());
    EXPECT_EQ(box.FileName(), QString());
}

TEST_F(FileListBoxTest, TheFirstKeyBeginsAtTheEndItPointsTo)
{
    scratch.addFile("a.txt");
    scratch.addFile("b.txt");
    box.setPath(scratch.path());
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.FileName(), QStringLiteral("a.txt"));
    box.setPath(scratch.path());
    QTest::keyClick(&box, Qt::Key_End);
    EXPECT_EQ(box.FileName(), QStringLiteral("b.txt"));
}

TEST_F(FileListBoxTest, AFolderThatCannotBeReadLeavesTheList)
{
    scratch.addFile("a.txt");
    box.setPath(scratch.path());
    click(0);
    EXPECT_EQ(errorNumberOf([&] { box.setPath(scratch.path() + QStringLiteral("/gone")); }),
              ErrorNumber::PathNotFound);
    EXPECT_EQ(box.Path(), scratch.path());
    EXPECT_EQ(box.FileName(), QStringLiteral("a.txt"));
}

TEST_F(FileListBoxTest, RefreshReadsAnewAndKeepsTheSelection)
{
    for (int i = 100; i < 200; ++i)
        scratch.addFile(QByteArray::number(i));
    box.setPath(scratch.path());
    box.scrollTo(box.model()->index(60, 0), QAbstractItemView::PositionAtTop);
    click(61);
    const int scrolled = box.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    ASSERT_EQ(box.FileName(), QStringLiteral("161"));
    scratch.addFile("000");
    EXPECT_EQ(box.ListCount(), 100);
    box.Refresh();
    EXPECT_EQ(box.ListCount(), 101);
    EXPECT_EQ(box.FileName(), QStringLiteral("161"));
    EXPECT_EQ(box.verticalScrollBar()->value(), scrolled);
    ASSERT_EQ(::unlink(scratch.file("161").constData()), 0);
    box.Refresh();
    EXPECT_EQ(box.FileName(), QString());
}

TEST_F(FileListBoxTest, RefreshOfAFolderThatIsGoneEmptiesTheList)
{
    scratch.addFolder("inner");
    scratch.addFile("inner/a.txt");
    box.setPath(scratch.path() + QStringLiteral("/inner"));
    ASSERT_EQ(box.ListCount(), 1);
    ASSERT_EQ(::unlink(scratch.file("inner/a.txt").constData()), 0);
    ASSERT_EQ(::rmdir(scratch.file("inner").constData()), 0);
    box.Refresh();
    EXPECT_EQ(box.ListCount(), 0);
    EXPECT_EQ(box.Path(), scratch.path() + QStringLiteral("/inner"));
}

TEST_F(FileListBoxTest, HostileNamesAreShownPlainlyAndOpenTheirFiles)
{
    for (const HostileName &name : HostileNames::files())
        scratch.addFile(name.bytes, name.bytes);
    box.setPath(scratch.path());
    ASSERT_EQ(box.ListCount(), HostileNames::files().size());
    for (int row = 0; row < box.ListCount(); ++row) {
        click(row);
        const QString name = box.FileName();
        EXPECT_EQ(name, box.List(row));
        EXPECT_EQ(shown(row), ShownText::line(name));
        EXPECT_FALSE(shown(row).contains(u'\n'));
        EXPECT_EQ(Files::read(Folder::join(box.Path(), name)), FileNames::toBytes(name));
    }
}

TEST_F(FileListBoxTest, ALongNameIsCutAndShownWholeByAToolTip)
{
    box.setToolTip(QStringLiteral("Local Files"));
    scratch.addFile("short");
    scratch.addFile(QByteArray("very long <b>") + QByteArray(200, 'x'));
    box.setPath(scratch.path());
    EXPECT_FALSE(box.horizontalScrollBar()->isVisible());
    EXPECT_EQ(rowRect(1).width(), box.viewport()->width());
    ASSERT_TRUE(askForToolTip(1));
    EXPECT_EQ(QToolTip::text(), ShownText::toolTip(box.List(1)));
    ASSERT_TRUE(askForToolTip(0));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Local Files"));
}

TEST_F(FileListBoxTest, FiftyThousandFilesAreListedAndOnlyThoseOnTheScreenMeasured)
{
    constexpr int files = 50'000;
    for (int i = 0; i < files; ++i)
        scratch.addFile("file " + QByteArray::number(i) + ".txt");
    RowCounter asked;
    box.setItemDelegate(&asked);
    box.setPath(scratch.path());
    box.grab();
    EXPECT_GT(asked.count(), 0);
    EXPECT_LT(asked.count(), 500); // those on the screen, each a few times
    ASSERT_EQ(box.ListCount(), files);
    EXPECT_EQ(box.List(9), QStringLiteral("file 9.txt"));
    EXPECT_EQ(box.List(files - 1), QStringLiteral("file 49999.txt"));
}
