#include "BookWindow.h"
#include "Forms.h"
#include "Globals.h"
#include "PrintQt.h"
#include "Toolbar.h"

#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

struct AddressBookTest : testing::Test
{
    BookWindow window;

    QMenu &popup() const { return *window.action("mnuPopup").menu(); }
};

void describe(const QMenu &menu, const QString &indent, QStringList &lines)
{
    for (const QAction *item : menu.actions()) {
        QString line = indent + item->objectName();
        if (item->isSeparator())
            line += QStringLiteral(" --");
        else
            line += u' ' + item->text();
        lines << line;
        if (item->menu())
            describe(*item->menu(), indent + QStringLiteral(". "), lines);
    }
}

constexpr const char *menuTree = R"(mnufile &File
. mnunewrecord &New
. . mnuline1 --
. . mnunewcontact Contact
. . mnunewgroup Group
. . mnunewcity City
. . mnunewstate County/State/Province
. . mnuline2 --
. . mnuNewQuillWord New Quill &Word Document
. . mnuspacer10 --
. mnuline4 --
. mnupagesetup Page &Setup..
. mnuprint Print
. . mnuprintselected Selected &Records
. . mnusummary &Summary
. mnuline3 --
. mnuexitprog &Close
. mnuspacer20 --
. mnuexittools E&xit Quill-Office Tools
. mnuspacer21 --
mnubirthdays &Birthdays
. mnufindbirthdays &Find..
mnudelete &Delete
. mnudeleteselected &Selected
mnudata Da&ta
. mnurefresh2 &Refresh
mnutest Test
mnuselectrecords &Select
. mnuselectall Select &All Records in List
. mnudeselectall &De-Select All Records in List
mnuwindow &Window
. mnuArrangeIcons &Arrange Icons
. mnuCascade &Cascade
. mnuTileHorizontal Tile &Horizontal
. mnuTileVertical Tile &Vertical
mnuhelp &Help
. mnuabout About
. mnuhowto How to...
mnuPopup Popup
. mnunew New
. . mnuContact Contact
. . mnuGroup Group
. . mnuCity City
. . mnuState County/State/Province
. mnuView View
. . mnuLarge Large Icons
. . mnuSmall Small Icons
. . mnuList List
. . mnuDets Details
. mnurefresh Refresh
. mnuDash --
. mnuexit Exit)";

constexpr const char *toolbarRows = R"(1 --
2 newcontact Add A New Contact
3 newgroup Add New Group
4 newcity Add New City
5 newstate Add New County/State/Province
6 --
7 reminder Birthday Reminder
8 --
9 deleteselected Delete Selected Records
10 --
11 refreshdata Refresh Data
12 --
13 mprint Print: prtselected Selected, prtsummary Print Summary
14 --
15 selectall Select All Records in List
16 deselectall Un-Select All Records in List
17 --
18 helpme Help: helpmeabout About, helpmehowto How To..)";

QString describe(const Toolbar &toolbar, int position)
{
    QAction &action = toolbar.button(position);
    if (action.isSeparator())
        return QStringLiteral("%1 --").arg(position);
    const auto &button = static_cast<QToolButton &>(*toolbar.widgetForAction(&action));
    QStringList entries;
    if (button.menu()) {
        for (const QAction *entry : button.menu()->actions())
            entries << entry->objectName() + u' ' + entry->text();
    }
    const QString line = QString::number(position) + u' ' + button.objectName() + u' ' + action.toolTip();
    return entries.isEmpty() ? line : line + QStringLiteral(": ") + entries.join(QStringLiteral(", "));
}

} // namespace

TEST_F(AddressBookTest, ItsMenusAreTheWholeTree)
{
    QStringList lines;
    for (const QMenu *menu : window.form().menus()) {
        lines << menu->menuAction()->objectName() + u' ' + menu->title();
        describe(*menu, QStringLiteral(". "), lines);
    }
    EXPECT_EQ(lines.join(u'\n'), QString::fromLatin1(menuTree));
}

TEST_F(AddressBookTest, TestAndPopupAreNotInTheBar)
{
    EXPECT_FALSE(window.action("mnutest").isVisible());
    EXPECT_FALSE(window.action("mnutest").isEnabled());
    EXPECT_FALSE(window.action("mnuPopup").isVisible());
    EXPECT_TRUE(window.action("mnufile").isVisible());
}

TEST_F(AddressBookTest, ItsToolbarHasItsKeysInTheirPlaces)
{
    const auto &toolbar = window.control<Toolbar>("Toolbar1");
    QStringList lines;
    for (int position = 1; position <= 18; ++position)
        lines << describe(toolbar, position);
    EXPECT_EQ(lines.join(u'\n'), QString::fromLatin1(toolbarRows));
}

TEST_F(AddressBookTest, EveryButtonOfTheToolbarHasAnIcon)
{
    const auto buttons = window.control<Toolbar>("Toolbar1").findChildren<QToolButton *>();
    for (const QToolButton *button : buttons) {
        if (button->defaultAction()) {
            EXPECT_FALSE(button->icon().isNull()) << qPrintable(button->objectName());
        }
    }
}

TEST_F(AddressBookTest, ItsButtonsHaveTheirCaptions)
{
    const auto caption = [this](const char *name) { return window.control<QPushButton>(name).text(); };
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Address Book"));
    EXPECT_EQ(caption("CmdNewContact"), QStringLiteral("New Contact"));
    EXPECT_EQ(caption("cmdGroup"), QStringLiteral("Add New Group"));
    EXPECT_EQ(caption("cmdCity"), QStringLiteral("Add New City"));
    EXPECT_EQ(caption("cmdState"), QStringLiteral("Add New County/State/Province"));
    EXPECT_EQ(caption("cmdRefresh"), QStringLiteral("&Refresh Data"));
    EXPECT_EQ(caption("CmdBirthDays"), QStringLiteral("Birth Day Reminder"));
    EXPECT_EQ(caption("cmddeleteselected"), QStringLiteral("Delete Checked"));
    QString letters;
    for (int i = 0; i < 26; ++i)
        letters += caption(qPrintable(QStringLiteral("cmdChar_%1").arg(i)));
    EXPECT_EQ(letters, QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
}

TEST_F(AddressBookTest, EverythingIsInTheWindowAndNothingOverlaps)
{
    QList<QWidget *> parts;
    for (const char *name :
         {"Toolbar1", "lblSel", "Line1", "CmdNewContact", "cmdGroup", "cmdCity", "cmdState", "cmdRefresh",
          "CmdBirthDays", "cmddeleteselected", "cmdChar_0", "cmdChar_25", "Tv", "Lv", "Image1"})
        parts << &window.control<QWidget>(name);
    const auto placeOf = [this](const QWidget &part) {
        return QRect(part.mapTo(&window.form(), QPoint()), part.size());
    };
    for (const int width : {12300, 9000, 6000}) {
        window.form().setWidth(width);
        for (const QWidget *part : parts) {
            EXPECT_TRUE(part->isVisible() && window.form().rect().contains(placeOf(*part)))
                << qPrintable(part->objectName()) << width;
            for (const QWidget *other : parts) {
                EXPECT_TRUE(part == other || !placeOf(*part).intersects(placeOf(*other)))
                    << qPrintable(part->objectName() + u' ' + other->objectName()) << width;
            }
        }
    }
}

TEST_F(AddressBookTest, InANarrowWindowTheButtonsCaptionsAreCut)
{
    const auto areCut = [this] {
        QStringList cut;
        for (const char *name : {"CmdNewContact", "cmdGroup", "cmdCity", "cmdState", "cmdRefresh",
                                 "CmdBirthDays", "cmddeleteselected"})
            cut << window.control<QWidget>(name).toolTip();
        cut.removeAll(QString());
        return cut.join(u'|');
    };
    EXPECT_EQ(areCut(), QString());
    window.form().setWidth(11500); // the longest first
    EXPECT_EQ(areCut(), QStringLiteral("Add New County/State/Province"));
    window.form().setWidth(6000);
    EXPECT_EQ(areCut(), QStringLiteral("New Contact|Add New Group|Add New City|Add New County/State/Province|"
                                       "Refresh Data|Birth Day Reminder|Delete Checked"));
}

TEST_F(AddressBookTest, ItsPartsFollowItsSize)
{
    const auto twips = [](int pixels) { return pixels * 15; };
    const QWidget &list = window.list();
    const QWidget &tree = window.tree();
    const QWidget &line = window.control<QWidget>("Line1");
    const QPoint listPlace = list.pos();
    for (const QSize size : {QSize(12000, 7500), QSize(9000, 6000), QSize(13500, 8100)}) {
        window.form().setWidth(size.width());
        window.form().setHeight(size.height());
        EXPECT_EQ(twips(list.width()), qRound((size.width() - 2750) / 15.0) * 15);
        EXPECT_EQ(twips(list.height()), qRound((size.height() - 1600) / 15.0) * 15);
        EXPECT_EQ(twips(tree.height()), size.height() - 2100);
        EXPECT_EQ(twips(line.x() + line.width()), size.width() - 150);
        EXPECT_EQ(twips(window.control<QWidget>("Image1").y() - tree.y()), size.height() - 2100);
        EXPECT_EQ(list.pos(), listPlace);
    }
}

TEST_F(AddressBookTest, ItIsNeverSmallerThanFourHundredTwips)
{
    QWidget *outer = window.form().parentWidget();
    outer->setMinimumSize(1, 1);
    window.form().setMinimumSize(1, 1);
    window.form().setHeight(200);
    EXPECT_GE(window.form().Height(), 400);
    window.form().setWidth(200);
    EXPECT_GE(window.form().Width(), 400);
}

TEST_F(AddressBookTest, AMinimisedWindowKeepsItsParts)
{
    const QSize before = window.list().size();
    window.form().setWindowState(FormState::Minimized);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.list().size(), before);
    window.form().setWindowState(FormState::Normal);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.list().size(), before);
}

TEST_F(AddressBookTest, StartsWithTheTreeAndNoList)
{
    EXPECT_EQ(window.columns(), QString());
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.label(), QString());
    EXPECT_EQ(window.commands(), QString());
    EXPECT_FALSE(window.list().Checkboxes());
    EXPECT_TRUE(window.form().BaseQuery.isEmpty());
    EXPECT_TRUE(window.form().NameFilter.isEmpty());
    EXPECT_EQ(window.tree().Count(), 1 + 3 + 3 + 4 + 3);
    EXPECT_EQ(QApplication::focusWidget(), &window.tree());
}

TEST_F(AddressBookTest, OpenedTwiceItIsOneWindow)
{
    window.clickNode("Root");
    const frmAddressBook *first = &window.form();
    window.open();
    EXPECT_EQ(&window.form(), first);
    EXPECT_EQ(Forms::named(QStringLiteral("frmAddressBook")).size(), 1);
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}

TEST_F(AddressBookTest, OpenedAnewItHasForgottenItsView)
{
    window.clickNode("Root");
    window.choose("mnuexitprog");
    EXPECT_FALSE(window.isOpen());
    window.open();
    EXPECT_EQ(window.names(), QString());
    EXPECT_EQ(window.commands(), QString());
    EXPECT_TRUE(window.form().BaseQuery.isEmpty());
}

TEST_F(AddressBookTest, ItsMenusCallTheFrame)
{
    for (const char *item :
         {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical", "mnuArrangeIcons"})
        window.choose(item);
    Q_EMIT window.action("mnuwindow").menu()->aboutToShow();
    window.choose("mnuexittools");
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral(
                  "LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,fillWindowList,mnuFileExit_Click"));
}

TEST_F(AddressBookTest, BothItemsThatCloseItUnloadIt)
{
    window.choose("mnuexit");
    EXPECT_FALSE(window.isOpen());
    window.open();
    window.choose("mnuexitprog");
    EXPECT_FALSE(window.isOpen());
}

TEST_F(AddressBookTest, ARightMousePressOnTheListShowsTheMenu)
{
    auto &pane = static_cast<QAbstractScrollArea &>(window.pane());
    QTest::mousePress(pane.viewport(), Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(pane.viewport(), Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(popup().isVisible());
    QTest::mousePress(pane.viewport(), Qt::RightButton, {}, {5, 5});
    EXPECT_TRUE(popup().isVisible());
    popup().hide();
}

TEST_F(AddressBookTest, TheMenuKeyShowsItToo)
{
    window.press(Qt::Key_Menu);
    EXPECT_TRUE(popup().isVisible());
    popup().hide();
}

TEST_F(AddressBookTest, TheViewItemsChangeTheList)
{
    EXPECT_EQ(window.list().View(), 3);
    window.choose("mnuLarge");
    EXPECT_EQ(window.list().View(), 0);
    window.choose("mnuSmall");
    EXPECT_EQ(window.list().View(), 1);
    window.choose("mnuList");
    EXPECT_EQ(window.list().View(), 2);
    window.choose("mnuDets");
    EXPECT_EQ(window.list().View(), 3);
}

TEST_F(AddressBookTest, TypingFindsARowAndCtrlCCopiesIt)
{
    window.clickNode("Root");
    window.selectRow("Anna Bell");
    QTest::keyClicks(&window.pane(), QStringLiteral("ben"));
    EXPECT_EQ(window.list().SelectedItem().Text, QStringLiteral("Ben Cole"));
    window.selectRow("Anna Bell");
    QTest::keyClick(&window.pane(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("Anna Bell\t2 Castle Hill\tDover\t01304 1\t07700 2\t29-Feb-1996"));
}
