#include "DirListBox.h"
#include "FileListBox.h"
#include "HostileNames.h"
#include "ListBox.h"
#include "ListView.h"
#include "PlainTextDelegate.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "ShownText.h"
#include "TreeView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <gtest/gtest.h>

// Names that come from archives, servers and address books are shown as they are, on one line.

namespace {

struct HostileNameTest : testing::TestWithParam<HostileName>
{
    const QString stored = GetParam().text();
    const QString shown = ShownText::line(stored);
};

/// A name with characters that are marked.
struct MarkedNameTest : HostileNameTest
{};

QList<HostileName> markedNames()
{
    QList<HostileName> names = HostileNames::all();
    names.removeIf([](const HostileName &name) { return ShownText::line(name.text()) == name.text(); });
    return names;
}

QImage picture(QWidget &view)
{
    view.resize(300, 60);
    view.show();
    (void)QTest::qWaitForWindowExposed(&view);
    return view.grab().toImage();
}

QImage listBoxWith(const QString &text)
{
    ListBox list;
    list.AddItem(text);
    return picture(list);
}

QImage listViewWith(const QString &text, int view)
{
    ListView list;
    list.setColumnHeaders({{{}, text, 2000}, {{}, {}, 2000}});
    list.ListItems().Add({{}, text, {text}});
    list.setView(view);
    return picture(list);
}

QImage treeWith(const QString &text)
{
    TreeView tree;
    tree.Add({QStringLiteral("Root"), text});
    return picture(tree);
}

} // namespace

TEST_P(MarkedNameTest, IsShownRawOnOneLine)
{
    EXPECT_EQ(listBoxWith(stored), listBoxWith(shown));
    EXPECT_EQ(treeWith(stored), treeWith(shown));
    for (const int view : {0, 1, 2, 3})
        EXPECT_EQ(listViewWith(stored, view), listViewWith(shown, view)) << view;
}

TEST_P(HostileNameTest, TakesTheHeightOfAnyRow)
{
    ListBox list;
    list.AddItem(stored);
    list.AddItem(QStringLiteral("plain"));
    const PlainTextDelegate delegate;
    QStyleOptionViewItem option;
    option.initFrom(&list);
    EXPECT_EQ(delegate.sizeHint(option, list.model()->index(0, 0)).height(),
              delegate.sizeHint(option, list.model()->index(1, 0)).height());
}

TEST_P(HostileNameTest, IsStoredAsItIs)
{
    ListBox list;
    list.AddItem(stored);
    EXPECT_EQ(list.List(0), stored);
    ListView view;
    view.setColumnHeaders({{{}, stored, 2000}});
    view.ListItems().Add({stored, stored, {stored}});
    EXPECT_EQ(view.ListItems().Item(stored).Text, stored);
    EXPECT_EQ(view.ListItems().Item(1).SubItems, QStringList(stored));
    EXPECT_EQ(view.ColumnHeaders(1).Text, stored);
    TreeView tree;
    tree.Add({stored, stored});
    EXPECT_EQ(tree.Text(stored), stored);
}

TEST_P(HostileNameTest, IsCopiedAsOneRow)
{
    ListView view;
    view.setColumnHeaders({{{}, {}, 2000}, {{}, {}, 2000}});
    view.ListItems().Add({{}, stored, {stored}});
    view.setSelected(1, true);
    QTest::keyClick(view.focusProxy(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), shown + u'\t' + shown);
}

TEST_P(HostileNameTest, ToolTipsShowItRaw)
{
    ListBox list;
    list.resize(10, 60); // narrower than any name
    list.AddItem(stored);
    list.show();
    const QPoint point = list.visualRect(list.model()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, point, list.viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(list.viewport(), &help);
    const QString tip = QToolTip::text();
    EXPECT_EQ(Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip, shown);
    QToolTip::hideText();
}

INSTANTIATE_TEST_SUITE_P(Names, HostileNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
INSTANTIATE_TEST_SUITE_P(Names, MarkedNameTest, testing::ValuesIn(markedNames()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

TEST(PlainTextDelegate, AnAmpersandIsSeen)
{
    EXPECT_NE(listBoxWith(QStringLiteral("a&b")), listBoxWith(QStringLiteral("ab")));
    EXPECT_NE(treeWith(QStringLiteral("a&b")), treeWith(QStringLiteral("ab")));
    EXPECT_NE(listViewWith(QStringLiteral("a&b"), 3), listViewWith(QStringLiteral("ab"), 3));
}

TEST(PlainTextDelegate, MarkupIsSeen)
{
    EXPECT_NE(listBoxWith(QStringLiteral("<b>x</b>")), listBoxWith(QStringLiteral("<i>x</i>")));
    EXPECT_NE(treeWith(QStringLiteral("<!--a-->")), treeWith(QStringLiteral("<!--b-->")));
}

TEST(PlainTextDelegate, WhatFitsNeedsNoToolTip)
{
    ListBox list;
    list.resize(300, 60);
    list.setToolTip(QStringLiteral("Remote Files"));
    list.AddItem(QStringLiteral("short"));
    list.show();
    const QPoint point = list.visualRect(list.model()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, point, list.viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(list.viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Remote Files"));
    QToolTip::hideText();
}

TEST(PlainTextDelegate, ListsBesideEachOtherHaveRowsOfOneHeight)
{
    const ScratchFolder folder;
    folder.addFile("file");
    ListBox rows;
    rows.AddItem(QStringLiteral("row"));
    DirListBox folders;
    FileListBox files;
    files.setPath(folder.path());
    const auto height = [](QListView &list) {
        list.show();
        return list.visualRect(list.model()->index(0, 0)).height();
    };
    EXPECT_GE(height(rows), 16 + 2); // as high as an icon
    EXPECT_EQ(height(rows), height(folders));
    EXPECT_EQ(height(rows), height(files));
}
