#include "AsUser.h"
#include "DirListBox.h"
#include "ErrorNumberOf.h"
#include "Folder.h"
#include "HostileNames.h"
#include "PlainTextDelegate.h"
#include "PrintQt.h"
#include "RowCounter.h"
#include "ScratchFolder.h"
#include "ShownText.h"

#include <QApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct DirListBoxTest : testing::Test
{
    DirListBoxTest()
    {
        box.resize(300, 600);
        box.show();
        box.setPath(scratch.path());
        changes.clear();
    }

    ScratchFolder scratch;
    DirListBox box;
    QSignalSpy changes{&box, &DirListBox::Change};
    const int depth = int(scratch.path().count(u'/')); ///< the row of the folder itself

    const PlainTextDelegate &delegate() const
    {
        return dynamic_cast<const PlainTextDelegate &>(*box.itemDelegate());
    }
    QModelIndex row(int index) { return box.model()->index(index, 0); }
    QStringList rows()
    {
        QStringList names;
        for (int i = 0; i < box.model()->rowCount(); ++i)
            names += delegate().displayText(row(i).data(), {});
        return names;
    }
    void doubleClick(int index)
    {
        const QPoint at = box.visualRect(row(index)).center();
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, at);
    }
    QImage icon(int index) { return row(index).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage(); }
};

} // namespace

TEST_F(DirListBoxTest, ShowsTheFolderBetweenThoseAboveAndThoseInIt)
{
    scratch.addFolder("b");
    scratch.addFolder("a");
    scratch.addFolder(".hidden");
    scratch.addFile("file");
    box.setPath(scratch.path());
    QStringList expected = {QStringLiteral("/")};
    expected += scratch.path().split(u'/', Qt::SkipEmptyParts);
    expected += {QStringLiteral("a"), QStringLiteral("b")};
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(box.currentIndex().row(), depth);
    EXPECT_TRUE(changes.isEmpty()); // the path is the same
}

TEST_F(DirListBoxTest, ADoubleClickDescends)
{
    scratch.addFolder("a");
    scratch.addFolder("a/inner");
    box.setPath(scratch.path());
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.visualRect(row(depth + 1)).center());
    EXPECT_EQ(box.Path(), scratch.path());
    doubleClick(depth + 1);
    EXPECT_EQ(box.Path(), scratch.path() + QStringLiteral("/a"));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(rows().last(), QStringLiteral("inner"));
}

TEST_F(DirListBoxTest, ADoubleClickOnAFolderAboveAscends)
{
    doubleClick(depth - 1);
    EXPECT_EQ(box.Path(), scratch.path().section(u'/', 0, -2));
    EXPECT_EQ(changes.size(), 1);
    doubleClick(0);
    EXPECT_EQ(box.Path(), QStringLiteral("/"));
    EXPECT_EQ(rows().first(), QStringLiteral("/"));
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(DirListBoxTest, ReturnDescends)
{
    scratch.addFolder("a");
    box.setPath(scratch.path());
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.Path(), scratch.path() + QStringLiteral("/a"));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(DirListBoxTest, AFolderThatCannotBeOpenedLeavesAllAsItIs)
{
    scratch.addFolder("gone");
    box.setPath(scratch.path());
    EXPECT_EQ(errorNumberOf([&] { box.setPath(QStringLiteral("/no/such/folder")); }),
              ErrorNumber::PathNotFound);
    ASSERT_EQ(::rmdir(scratch.file("gone").constData()), 0);
    const QStringList before = rows();
    doubleClick(depth + 1);
    EXPECT_EQ(box.Path(), scratch.path());
    EXPECT_EQ(rows(), before);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(DirListBoxTest, AFolderWithoutPermissionSaysSo)
{
    scratch.addFolder("open");
    scratch.addFolder("secret");
    ASSERT_EQ(::chmod(scratch.file("secret").constData(), 0), 0);
    const AsUser user(scratch.path());
    box.setPath(scratch.path());
    EXPECT_EQ(icon(depth + 1), QIcon::fromTheme(QStringLiteral("folder")).pixmap(16).toImage());
    const QString secret = scratch.path() + QStringLiteral("/secret");
    EXPECT_NE(icon(depth + 2), icon(depth + 1));
    EXPECT_EQ(errorNumberOf([&] { box.setPath(secret); }), ErrorNumber::PermissionDenied);
    doubleClick(depth + 2);
    EXPECT_EQ(box.Path(), scratch.path());
}

TEST_F(DirListBoxTest, WhetherAFolderCanBeOpenedIsAskedOnce)
{
    scratch.addFolder("a");
    scratch.addFolder("b");
    const AsUser user(scratch.path());
    box.setPath(scratch.path());
    const QImage open = icon(depth + 1);
    ASSERT_EQ(::chmod(scratch.file("a").constData(), 0), 0);
    EXPECT_EQ(icon(depth + 1), open);
    box.setPath(scratch.path());
    EXPECT_NE(icon(depth + 1), open);
    EXPECT_EQ(icon(depth + 2), open);
}

TEST_F(DirListBoxTest, ALongNameIsCutWhereItsIndentedRowEnds)
{
    const QString name = QStringLiteral("as wide as all");
    scratch.addFolder(name.toUtf8());
    box.setPath(scratch.path());
    box.setIconSize({16, 16});
    QStyleOptionViewItem option;
    option.initFrom(&box);
    option.decorationSize = box.iconSize();
    const int width = delegate().QStyledItemDelegate::sizeHint(option, row(depth + 1)).width();
    box.resize(box.width() - box.viewport()->width() + width + 4, box.height());
    const QPoint at = box.visualRect(row(depth + 1)).center();
    QHelpEvent event(QEvent::ToolTip, at, box.viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(box.viewport(), &event);
    EXPECT_EQ(QToolTip::text(), name);
}

TEST_F(DirListBoxTest, HostileNamesAreShownPlainlyAndOpened)
{
    for (const HostileName &name : HostileNames::files()) {
        scratch.addFolder(name.bytes);
        scratch.addFolder(name.bytes + "/inner");
        box.setPath(scratch.path());
        ASSERT_EQ(rows().last(), ShownText::line(name.text())) << name.what;
        doubleClick(depth + 1);
        EXPECT_EQ(box.Path(), Folder::join(scratch.path(), name.text())) << name.what;
        EXPECT_EQ(rows().last(), QStringLiteral("inner"));
        ASSERT_EQ(::rmdir(scratch.file(name.bytes + "/inner").constData()), 0);
        ASSERT_EQ(::rmdir(scratch.file(name.bytes).constData()), 0);
    }
}

TEST_F(DirListBoxTest, FiftyThousandFoldersAreListedAndOnlyThoseOnTheScreenMeasured)
{
    constexpr int folders = 50'000;
    for (int i = 0; i < folders; ++i)
        scratch.addFolder("folder " + QByteArray::number(i));
    RowCounter asked;
    box.setItemDelegate(&asked);
    box.setPath(scratch.path());
    box.grab();
    EXPECT_GT(asked.count(), 0);
    EXPECT_LT(asked.count(), 500); // those on the screen, each a few times
    EXPECT_EQ(box.model()->rowCount(), depth + 1 + folders);
}

TEST_F(DirListBoxTest, TheFolderIsInViewInASmallList)
{
    const auto isInView = [this] { return box.viewport()->rect().contains(box.visualRect(row(depth + 3))); };
    for (const char *name : {"a", "a/b", "a/b/c"})
        scratch.addFolder(name);
    box.setPath(scratch.path() + QStringLiteral("/a/b/c"));
    box.resize(300, 3 * box.visualRect(row(0)).height());
    EXPECT_TRUE(isInView());
    box.hide();
    box.setPath(scratch.path());
    box.resize(300, 600);
    box.setPath(scratch.path() + QStringLiteral("/a/b/c"));
    box.resize(300, 3 * box.visualRect(row(0)).height());
    box.show();
    EXPECT_TRUE(isInView());
    box.resize(300, 600);
    box.resize(500, 3 * box.visualRect(row(0)).height());
    EXPECT_TRUE(isInView()); // wider and lower in one step
}

TEST_F(DirListBoxTest, AListThatWasScrolledStaysThereWhenItIsResized)
{
    for (int i = 100; i < 200; ++i)
        scratch.addFolder(QByteArray::number(i));
    box.setPath(scratch.path());
    box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum() / 2);
    const int scrolled = box.verticalScrollBar()->value();
    box.resize(300, 500);
    EXPECT_EQ(box.verticalScrollBar()->value(), scrolled);
}

TEST_F(DirListBoxTest, IconsAreLookedUpOnceForAPalette)
{
    const auto key = [this](int index) {
        return row(index).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    const qint64 before = key(0);
    EXPECT_EQ(key(0), before);
    EXPECT_EQ(key(depth), before);
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_NE(key(0), before);
}

TEST_F(DirListBoxTest, TheIconOfASelectedRowHasTheColorOfItsText)
{
    const QImage image =
        row(depth).data(Qt::DecorationRole).value<QIcon>().pixmap(16, QIcon::Selected).toImage();
    const QColor text = QGuiApplication::palette().color(QPalette::HighlightedText);
    int seen = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() < 200)
                continue;
            ++seen;
            EXPECT_NEAR(color.lightnessF(), text.lightnessF(), 0.02);
        }
    }
    EXPECT_GT(seen, 20);
}
