#include "FakeControl.h"
#include "FakeFrame.h"
#include "Files.h"
#include "Forms.h"
#include "LocationBox.h"
#include "PrintQt.h"
#include "ScratchProgramFolder.h"
#include "Toolbar.h"
#include "Twips.h"
#include "frmBrowser.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

const QString displaying = QStringLiteral("Tallowick Quill-Office Tools Browser Displaying: ");

struct BrowserTest : testing::Test
{
    ScratchProgramFolder programFolder;
    FakeFrame frame;
    FakeControl *page = nullptr;
    frmBrowser *form = nullptr;

    void SetUp() override
    {
        Files::write(QString::fromUtf8(programFolder.file("publisher.ini")),
                     "[hosts]\nweb=w.example\n[pages]\nHome=/home\nSearch=https://s.example/?a,b\n"
                     "Tallowick=/1\nQuillOffice=/2\nDownloads=/3\nSupport=/4\nContact=/5\n");
        Forms::registerWindow(QStringLiteral("frmBrowser"), Forms::Instances::Many, [this] {
            page = new FakeControl;
            return new frmBrowser(page);
        });
    }
    void open(const QString &address = {})
    {
        form = static_cast<frmBrowser *>(&Forms::refer(QStringLiteral("frmBrowser")));
        form->setProperty("StartingAddress", address);
        form->showModeless();
    }
    template<class Control>
    Control &control(const char *name) const
    {
        return form->member<Control>(QString::fromLatin1(name));
    }
    LocationBox &box() const { return control<LocationBox>("cboAddress"); }
    QTimer &timer() const { return control<QTimer>("timTimer"); }
    void press(const char *key) const
    {
        control<Toolbar>("tbToolBar").button(QString::fromLatin1(key)).trigger();
    }
    void type(const QString &text) const
    {
        box().lineEdit()->selectAll();
        QTest::keyClicks(&box(), text);
    }
    QStringList list() const
    {
        QStringList rows;
        for (int row = 0; row < box().count(); ++row)
            rows << box().itemText(row);
        return rows;
    }
    QString takeCalls() const { return std::exchange(page->calls, {}).join(QStringLiteral(" | ")); }
    void tick() const
    {
        ASSERT_TRUE(timer().isActive());
        EXPECT_TRUE(QSignalSpy(&timer(), &QTimer::timeout).wait());
    }
    int pixels(double twips) const { return Twips::toPixels(twips, form->logicalDpiX()); }
};

} // namespace

TEST_F(BrowserTest, HasItsControls)
{
    open();
    EXPECT_EQ(form->Caption(), QStringLiteral("Tallowick Web Browser"));
    EXPECT_EQ(control<QLabel>("lblAddress").text(), QStringLiteral("&Address:"));
    EXPECT_EQ(control<QLabel>("lblAddress").buddy(), &box());
    EXPECT_EQ(control<QPushButton>("Command1").toolTip(), QStringLiteral("Goto Address"));
    EXPECT_EQ(control<QPushButton>("Command1").accessibleName(), QStringLiteral("Goto Address"));
    EXPECT_EQ(
        control<QFrame>("picAddress").findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(),
        3);
    EXPECT_EQ(&control<WebControl>("WebBrowser2"), page);
    EXPECT_EQ(timer().interval(), 5);
    EXPECT_FALSE(timer().isActive());
    EXPECT_TRUE(box().isEditable());
    EXPECT_TRUE(form->menus().isEmpty());
    EXPECT_EQ(takeCalls(), QString());
}

TEST_F(BrowserTest, EachButtonHasItsKeyAndPicture)
{
    open();
    for (const char *key : {"Back", "Forward", "Refresh", "Home", "Search", "Stop", "Exit", "Tallowick",
                            "QuillOffice", "Downloads", "Support", "Contact"}) {
        EXPECT_FALSE(control<Toolbar>("tbToolBar").button(QString::fromLatin1(key)).icon().isNull()) << key;
    }
}

TEST_F(BrowserTest, TheStartingAddressIsShownListedAndVisited)
{
    open(QStringLiteral("http://a.example/"));
    EXPECT_EQ(box().Text(), QStringLiteral("http://a.example/"));
    EXPECT_EQ(list(), QStringList(QStringLiteral("http://a.example/")));
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
}

TEST_F(BrowserTest, TheControlsFollowTheWindow)
{
    open();
    QFont small = form->font();
    small.setPointSize(7); // the label has room beside the box
    form->setFont(small);
    for (const QSize size : {QSize(700, 500), QSize(901, 333), QSize(400, 300)}) {
        form->parentWidget()->resize(size);
        const auto &address = control<QFrame>("picAddress");
        EXPECT_EQ(box().width(), pixels(form->ScaleWidth() - 1500));
        EXPECT_EQ(page->width(), pixels(form->ScaleWidth() - 50));
        EXPECT_EQ(page->height(), form->height() - (address.y() + address.height()));
        EXPECT_EQ(control<QPushButton>("Command1").x(), pixels(form->ScaleWidth() - 750));
        EXPECT_EQ(address.y(), control<Toolbar>("tbToolBar").height());
        EXPECT_LE(box().geometry().right(), control<QPushButton>("Command1").x());
        EXPECT_LE(control<QLabel>("lblAddress").geometry().right(), box().x());
    }
}

TEST_F(BrowserTest, ALargeFontPutsTheLabelAboveTheBox)
{
    open();
    QFont large = form->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    form->setFont(large);
    form->parentWidget()->resize(800, 600);
    EXPECT_EQ(box().width(), pixels(form->ScaleWidth() - 1500));
    EXPECT_GE(box().y(), control<QLabel>("lblAddress").geometry().bottom());
    EXPECT_GE(control<QLabel>("lblAddress").width(), control<QLabel>("lblAddress").sizeHint().width());
}

TEST_F(BrowserTest, ReturnInTheBoxAndItsButtonVisitTheAddress)
{
    open();
    type(QStringLiteral("http://a.example/"));
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
    EXPECT_EQ(list(), QStringList());
    timer().stop();
    control<QPushButton>("Command1").click();
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
    QTest::keyClick(&box(), Qt::Key_Enter);
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
}

TEST_F(BrowserTest, OtherKeysVisitNothing)
{
    open();
    type(QStringLiteral("http://a.example/"));
    QTest::keyClick(&box(), Qt::Key_Tab);
    page->setFocus();
    EXPECT_EQ(takeCalls(), QString());
    EXPECT_FALSE(timer().isActive());
}

TEST_F(BrowserTest, AnEntryIsVisitedOnceByAClick)
{
    open();
    page->arrive(QStringLiteral("http://a.example/"), {});
    page->arrive(QStringLiteral("http://b.example/"), {});
    timer().stop();
    box().lineEdit()->setFocus();
    QTest::keyClick(&box(), Qt::Key_Down);
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
}

TEST_F(BrowserTest, ATypedEntryIsVisitedOnceAndNotWhenTheFocusLeaves)
{
    open();
    page->arrive(QStringLiteral("http://a.example/"), {});
    page->arrive(QStringLiteral("http://b.example/"), {});
    type(QStringLiteral("http://a.example/"));
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://a.example/"));
    page->setFocus();
    EXPECT_EQ(takeCalls(), QString());
}

TEST_F(BrowserTest, TheWheelVisitsNothing)
{
    open();
    page->arrive(QStringLiteral("http://a.example/"), {});
    page->arrive(QStringLiteral("http://b.example/"), {});
    box().lineEdit()->setFocus();
    QWheelEvent wheel(QPointF(5, 5), box().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box(), &wheel);
    EXPECT_EQ(takeCalls(), QString());
    EXPECT_EQ(box().Text(), QStringLiteral("http://b.example/"));
}

TEST_F(BrowserTest, WhatIsTypedIsCompletedFromTheList)
{
    open();
    page->arrive(QStringLiteral("http://alpha.example/Page"), {});
    type(QStringLiteral("http://al"));
    EXPECT_EQ(box().Text(), QStringLiteral("http://alpha.example/Page"));
    EXPECT_EQ(box().lineEdit()->selectedText(), QStringLiteral("pha.example/Page"));
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate http://alpha.example/Page"));
}

TEST_F(BrowserTest, TheListIsInTheOrderOfVisitsWithoutDoubles)
{
    open();
    for (const char *address :
         {"http://a.example/", "http://b.example/", "http://c.example/", "http://a.example/"})
        page->arrive(QString::fromLatin1(address), {});
    EXPECT_EQ(list(), QStringList({QStringLiteral("http://a.example/"), QStringLiteral("http://c.example/"),
                                   QStringLiteral("http://b.example/")}));
    EXPECT_EQ(box().currentIndex(), 0);
    EXPECT_EQ(box().Text(), QStringLiteral("http://a.example/"));
    EXPECT_EQ(takeCalls(), QString()); // nothing is visited by it
}

TEST_F(BrowserTest, AddressesAreComparedExactly)
{
    open();
    for (const char *address :
         {"http://a.example/x", "http://a.example/X", "http://a.example/x/", "http://a.example/x"})
        page->arrive(QString::fromLatin1(address), {});
    EXPECT_EQ(list(),
              QStringList({QStringLiteral("http://a.example/x"), QStringLiteral("http://a.example/x/"),
                           QStringLiteral("http://a.example/X")}));
}

TEST_F(BrowserTest, OfTwoEqualEntriesTheFirstIsRemoved)
{
    open();
    press("Tallowick");
    press("Tallowick");
    EXPECT_EQ(list().size(), 2);
    page->arrive(QStringLiteral("http://w.example/1"), {});
    EXPECT_EQ(list(),
              QStringList({QStringLiteral("http://w.example/1"), QStringLiteral("http://w.example/1")}));
}

TEST_F(BrowserTest, TheListHasAnEnd)
{
    open();
    for (int i = 0; i < 600; ++i)
        page->arrive(QStringLiteral("http://a.example/%1").arg(i), {});
    EXPECT_EQ(box().count(), 500);
    EXPECT_EQ(list().constFirst(), QStringLiteral("http://a.example/599"));
}

TEST_F(BrowserTest, TheTitleFollowsThePage)
{
    open();
    page->arrive(QStringLiteral("http://a.example/"), QStringLiteral("One"));
    EXPECT_EQ(form->Caption(), displaying + QStringLiteral("One"));
    page->name = QStringLiteral("Two");
    Q_EMIT page->DownloadComplete();
    EXPECT_EQ(form->Caption(), displaying + QStringLiteral("Two"));
    EXPECT_EQ(list().size(), 1);
}

TEST_F(BrowserTest, TheTimerShowsTheWorkUntilItIsDone)
{
    open(QStringLiteral("http://a.example/"));
    page->isBusy = true;
    tick();
    EXPECT_EQ(form->Caption(), QStringLiteral("Working..."));
    tick();
    EXPECT_TRUE(timer().isActive());
    page->isBusy = false;
    page->name = QStringLiteral("One");
    tick();
    EXPECT_FALSE(timer().isActive());
    EXPECT_EQ(form->Caption(), displaying + QStringLiteral("One"));
}

namespace {

struct Key
{
    const char *key;
    const char *calls;
};

struct BrowserKeyTest : BrowserTest, testing::WithParamInterface<Key>
{};

constexpr Key keys[] = {
    {"Back", "GoBack"},
    {"Forward", "GoForward"},
    {"Refresh", "Refresh"},
    {"Home", "Navigate http://w.example/home"},
    {"Search", "Navigate https://s.example/?a,b"},
};

struct PublisherKeyTest : BrowserTest, testing::WithParamInterface<Key>
{};

constexpr Key publisherKeys[] = {
    {"Tallowick", "http://w.example/1"}, {"QuillOffice", "http://w.example/2"},
    {"Downloads", "http://w.example/3"}, {"Support", "http://w.example/4"},
    {"Contact", "http://w.example/5"},
};

std::string keyName(const testing::TestParamInfo<Key> &row)
{
    return row.param.key;
}

} // namespace

TEST_P(BrowserKeyTest, AsksTheControl)
{
    open();
    press(GetParam().key);
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(takeCalls(), QString::fromLatin1(GetParam().calls));
    EXPECT_EQ(list(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Keys, BrowserKeyTest, testing::ValuesIn(keys), keyName);

TEST_P(PublisherKeyTest, ShowsVisitsAndListsItsAddress)
{
    open();
    const QString address = QString::fromLatin1(GetParam().calls);
    press(GetParam().key);
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(box().Text(), address);
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate ") + address);
    EXPECT_EQ(list(), QStringList(address));
}

INSTANTIATE_TEST_SUITE_P(Keys, PublisherKeyTest, testing::ValuesIn(publisherKeys), keyName);

TEST_F(BrowserTest, StopEndsTheTimerAndRewritesTheTitle)
{
    open(QStringLiteral("http://a.example/"));
    takeCalls();
    page->isBusy = true;
    tick();
    page->name = QStringLiteral("One");
    press("Stop");
    EXPECT_FALSE(timer().isActive());
    EXPECT_EQ(takeCalls(), QStringLiteral("Stop"));
    EXPECT_EQ(form->Caption(), displaying + QStringLiteral("One"));
}

TEST_F(BrowserTest, ExitClosesTheWindow)
{
    open();
    press("Exit");
    EXPECT_TRUE(Forms::loaded().isEmpty());
}

TEST_F(BrowserTest, KeysEnlargeThePage)
{
    open();
    QWindow *window = form->window()->windowHandle();
    box().lineEdit()->setFocus();
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus, Qt::Key_0})
        QTest::keyClick(window, key, Qt::ControlModifier);
    EXPECT_EQ(takeCalls(), QStringLiteral("zoom 1 | zoom 1 | zoom -1 | zoom 0"));
}

TEST_F(BrowserTest, AnAddressThatIsNoneIsHandedOnAsNothing)
{
    open();
    type(QStringLiteral("javascript:alert(1)"));
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(takeCalls(), QStringLiteral("Navigate "));
}

TEST_F(BrowserTest, WithoutTheModuleTheWindowSaysWhatToInstall)
{
    Forms::registerWindow(QStringLiteral("frmBrowser"), Forms::Instances::Many,
                          [] { return new frmBrowser; });
    open(QStringLiteral("http://a.example/"));
    const QString said = control<QLabel>("lblMissing").text();
    EXPECT_TRUE(said.contains(QStringLiteral("Install the package libqt6webenginewidgets6")))
        << qUtf8Printable(said);
    EXPECT_TRUE(said.contains(QStringLiteral("platform-webview-engine cannot be used: it is not installed")))
        << qUtf8Printable(said);
    for (const char *key : {"Back", "Forward", "Refresh", "Home", "Search", "Stop", "Tallowick"})
        press(key);
    EXPECT_EQ(list(),
              QStringList({QStringLiteral("http://a.example/"), QStringLiteral("http://w.example/1")}));
    press("Exit");
    EXPECT_TRUE(Forms::loaded().isEmpty());
}
