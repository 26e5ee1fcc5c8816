#include "ListBox.h"
#include "ListView.h"
#include "PlainTextDelegate.h"
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

struct HostileName
{
    const char *what;
    QString stored;
    QString shown;
};

const QString mark = QString(QChar(QChar::ReplacementCharacter));

QList<HostileName> names()
{
    const QString markup = QStringLiteral("<b>x</b><img src=\"http://127.0.0.1:1/\">");
    const QString longName(300, u'w');
    const QString joined = QStringLiteral("\u0645\u06CC\u200C\u062E").repeated(9);
    return {
        {"Markup", markup, markup},
        {"Ampersand", QStringLiteral("salt & pepper&lt;"), QStringLiteral("salt & pepper&lt;")},
        {"Placeholder", QStringLiteral("100%1%2%s"), QStringLiteral("100%1%2%s")},
        {"LineFeeds", QStringLiteral("one\ntwo\r\nthree\u2028four"),
         QStringLiteral("one") + mark + QStringLiteral("two") + mark + mark + QStringLiteral("three") + mark +
             QStringLiteral("four")},
        {"TabAndNul", QStringLiteral("a\tb") + QChar(u'\0') + QStringLiteral("c\u0085"),
         QStringLiteral("a") + mark + QStringLiteral("b") + mark + QStringLiteral("c") + mark},
        {"TurnedDirection", QStringLiteral("photo\u202Egnp.exe\u2067\u200F"),
         QStringLiteral("photo") + mark + QStringLiteral("gnp.exe") + mark + mark},
        {"Long", longName, longName},
        {"Joiners", joined, joined},
    };
}

struct HostileNameTest : testing::TestWithParam<HostileName>
{
    const QString stored = GetParam().stored;
    const QString shown = GetParam().shown;
};

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

TEST_P(HostileNameTest, ControlsAndTurnsOfDirectionBecomeMarks)
{
    EXPECT_EQ(ShownText::line(stored), shown);
    EXPECT_EQ(ShownText::line(shown), shown);
}

TEST_P(HostileNameTest, IsShownRawOnOneLine)
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
    list.resize(40, 60);
    list.AddItem(stored);
    list.show();
    const QPoint point = list.visualRect(list.model()->index(0, 0)).center();
    QHelpEvent help(QEvent::ToolTip, point, list.viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(list.viewport(), &help);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), shown);
    QToolTip::hideText();
}

INSTANTIATE_TEST_SUITE_P(Names, HostileNameTest, testing::ValuesIn(names()),
                         [](const auto &row) { return std::string(row.param.what); });

TEST(HostileNames, AnAmpersandIsSeen)
{
    EXPECT_NE(listBoxWith(QStringLiteral("a&b")), listBoxWith(QStringLiteral("ab")));
    EXPECT_NE(treeWith(QStringLiteral("a&b")), treeWith(QStringLiteral("ab")));
    EXPECT_NE(listViewWith(QStringLiteral("a&b"), 3), listViewWith(QStringLiteral("ab"), 3));
}

TEST(HostileNames, MarkupIsSeen)
{
    EXPECT_NE(listBoxWith(QStringLiteral("<b>x</b>")), listBoxWith(QStringLiteral("<i>x</i>")));
    EXPECT_NE(treeWith(QStringLiteral("<!--a-->")), treeWith(QStringLiteral("<!--b-->")));
}

TEST(HostileNames, WhatFitsNeedsNoToolTip)
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
