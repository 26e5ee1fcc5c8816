#include "BrowserWindow.h"
#include "Forms.h"
#include "PrintQt.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// The titles that a window has shown.
class TitleLog
{
public:
    explicit TitleLog(const QWidget &window)
    {
        QObject::connect(&window, &QWidget::windowTitleChanged, &m_context,
                         [this](const QString &title) { m_titles << title; });
    }
    const QStringList &titles() const { return m_titles; }

private:
    QStringList m_titles;
    QObject m_context;
};

struct PagesTest : testing::Test
{
    BrowserWindow browser;

    void SetUp() override
    {
        for (const char *path : {"/a", "/b", "/home", "/search", "/quilloffice/"})
            browser.server.titled(path, path);
    }
    QString at(const char *path) const { return browser.server.address(QString::fromLatin1(path)); }
    void visit(const char *path) const
    {
        browser.visit(QString::fromLatin1(path));
        browser.waitForTitle(QString::fromLatin1(path));
    }
    void press(const char *key, const char *title) const
    {
        browser.press(key);
        browser.waitForTitle(QString::fromLatin1(title));
    }
};

} // namespace

TEST_F(PagesTest, StartsAtItsAddress)
{
    browser.open(QStringLiteral("/a"));
    browser.waitForTitle(QStringLiteral("/a"));
    EXPECT_EQ(browser.list(), QStringList(at("/a")));
    EXPECT_EQ(browser.box().Text(), at("/a"));
}

TEST_F(PagesTest, WithoutAnAddressItIsEmpty)
{
    browser.open();
    EXPECT_EQ(browser.form().Caption(), QStringLiteral("Tallowick Web Browser"));
    EXPECT_EQ(browser.list(), QStringList());
    EXPECT_FALSE(browser.control().Busy());
}

TEST_F(PagesTest, AnAddressConfirmedTwiceIsOnceAtTheTop)
{
    browser.open();
    visit("/a");
    visit("/b");
    EXPECT_EQ(browser.list(), QStringList({at("/b"), at("/a")}));
    visit("/a");
    EXPECT_EQ(browser.list(), QStringList({at("/a"), at("/b")}));
    visit("/a");
    EXPECT_EQ(browser.list(), QStringList({at("/a"), at("/b")}));
    EXPECT_EQ(browser.box().Text(), at("/a"));
}

TEST_F(PagesTest, OfARedirectTheFinalAddressIsInTheList)
{
    browser.server.redirect("/from", "/a");
    browser.open();
    browser.visit(QStringLiteral("/from"));
    browser.waitForTitle(QStringLiteral("/a"));
    EXPECT_EQ(browser.list(), QStringList(at("/a")));
}

TEST_F(PagesTest, OfARedirectedKeyBothAddressesAreInTheList)
{
    browser.server.redirect("/quilloffice", "/a");
    browser.open();
    browser.press("QuillOffice");
    browser.waitForTitle(QStringLiteral("/a"));
    EXPECT_EQ(browser.list(), QStringList({at("/a"), at("/quilloffice")}));
}

TEST_F(PagesTest, TheToolbarMovesBetweenPages)
{
    browser.open();
    visit("/a");
    visit("/b");
    press("Back", "/a");
    EXPECT_EQ(browser.list(), QStringList({at("/a"), at("/b")}));
    press("Forward", "/b");
    press("Home", "/home");
    press("Search", "/search");
    EXPECT_EQ(browser.list(), QStringList({at("/search"), at("/home"), at("/b"), at("/a")}));
}

TEST_F(PagesTest, RefreshLoadsAgain)
{
    browser.open();
    visit("/a");
    browser.server.titled("/a", "newer");
    press("Refresh", "newer");
    EXPECT_EQ(browser.list(), QStringList(at("/a")));
}

TEST_F(PagesTest, WithoutAPageInThatDirectionNothingHappens)
{
    browser.open();
    browser.press("Back");
    browser.press("Forward");
    browser.press("Refresh");
    EXPECT_FALSE(browser.control().Busy());
    visit("/a");
    press("Back", "/a");
    press("Forward", "/a");
}

TEST_F(PagesTest, AnotherPlaceInThePageIsAnEntryOfTheList)
{
    browser.open();
    visit("/a");
    browser.visit(QStringLiteral("/a#end"));
    browser.waitFor([&] { return browser.list().size() == 2; });
    EXPECT_EQ(browser.list(), QStringList({at("/a#end"), at("/a")}));
    browser.waitForTitle(QStringLiteral("/a"));
    browser.visit(QStringLiteral("/a#end"));
    browser.waitForTitle(QStringLiteral("/a"));
    browser.press("Back");
    browser.waitFor([&] { return browser.list().constFirst() == at("/a"); });
    browser.waitForTitle(QStringLiteral("/a"));
}

TEST_F(PagesTest, WorksUntilThePageIsThere)
{
    browser.open();
    const TitleLog log(browser.form());
    visit("/a");
    EXPECT_EQ(log.titles().constFirst(), QStringLiteral("Working..."));
    EXPECT_EQ(log.titles().constLast(), BrowserWindow::caption(QStringLiteral("/a")));
}

TEST_F(PagesTest, StopEndsAPageThatDoesNotArrive)
{
    browser.server.raw(
        "/slow",
        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 1000\r\n\r\n<title>slow</title>x");
    browser.open();
    visit("/a");
    browser.visit(QStringLiteral("/slow"));
    browser.waitFor([&] { return browser.server.requestsFor("/slow") == 1; });
    browser.waitFor([&] { return browser.form().Caption() == QStringLiteral("Working..."); });
    browser.press("Stop");
    EXPECT_TRUE(browser.form().Caption().startsWith(BrowserWindow::caption({})));
    browser.waitFor([&] { return !browser.control().Busy(); });
    visit("/b");
}

TEST_F(PagesTest, AnEndlessPageHasItsAddressAndCanBeStopped)
{
    browser.server.endless("/endless", "<title>endless</title><body>");
    browser.server.page("/", "<body onclick=\"location = '/endless'\">x" +
                                 BrowserWindow::titleWhenPainted("start"));
    browser.open(QStringLiteral("/"));
    browser.waitForTitle(QStringLiteral("start"));
    browser.clickPage();
    browser.waitFor([&] { return browser.control().LocationName() == QStringLiteral("endless"); });
    EXPECT_EQ(browser.box().Text(), at("/endless"));
    EXPECT_EQ(browser.list(), QStringList({at("/endless"), at("/")}));
    EXPECT_TRUE(browser.control().Busy());
    browser.press("Stop");
    browser.waitFor([&] { return !browser.control().Busy(); });
    EXPECT_EQ(browser.form().Caption(), BrowserWindow::caption(QStringLiteral("endless")));
    press("Back", "start");
}

TEST_F(PagesTest, StopWithoutAPageOnTheWayRewritesTheTitleOnly)
{
    browser.open();
    visit("/a");
    browser.form().setCaption(QStringLiteral("other"));
    browser.press("Stop");
    EXPECT_EQ(browser.form().Caption(), BrowserWindow::caption(QStringLiteral("/a")));
    EXPECT_EQ(browser.list(), QStringList(at("/a")));
    EXPECT_FALSE(browser.control().Busy());
}

TEST_F(PagesTest, AServerThatDoesNotAnswerEndsTheWork)
{
    browser.open();
    PageServer gone;
    const QString address = gone.address(QStringLiteral("/"));
    gone.close();
    browser.enter(address);
    browser.waitFor([&] { return !browser.control().Busy(); });
    EXPECT_EQ(browser.list(), QStringList(address));
    visit("/a");
}

TEST_F(PagesTest, AnAnswerWithoutAPageEndsTheWork)
{
    browser.server.raw("/none", "HTTP/1.1 204 No Content\r\n\r\n");
    browser.open();
    visit("/a");
    browser.visit(QStringLiteral("/none"));
    browser.waitFor([&] { return browser.server.requestsFor("/none") == 1; });
    browser.waitForTitle(QStringLiteral("/a"));
}

TEST_F(PagesTest, WindowsAreApart)
{
    browser.open(QStringLiteral("/a"));
    browser.waitForTitle(QStringLiteral("/a"));
    const frmBrowser &first = browser.form();
    browser.open(QStringLiteral("/b"));
    browser.waitForTitle(QStringLiteral("/b"));
    EXPECT_NE(&first, &browser.form());
    EXPECT_EQ(first.Caption(), BrowserWindow::caption(QStringLiteral("/a")));
    EXPECT_EQ(Forms::loaded().size(), 2);
}

TEST_F(PagesTest, ClosingInMidLoadLeavesNoWindow)
{
    browser.server.raw("/slow", "");
    browser.open(QStringLiteral("/slow"));
    browser.waitFor([&] { return browser.server.requestsFor("/slow") == 1; });
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
    EXPECT_TRUE(Forms::loaded().isEmpty());
}
