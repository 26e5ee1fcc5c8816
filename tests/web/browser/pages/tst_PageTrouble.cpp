#include "BrowserWindow.h"
#include "PrintQt.h"

#include <csignal>
#include <gtest/gtest.h>

namespace {

struct PageTroubleTest : testing::Test
{
    BrowserWindow browser;

    void show(const QByteArray &body, const QString &title)
    {
        browser.server.page("/", "<!doctype html><meta charset=utf-8><body>x" + body);
        browser.open(QStringLiteral("/"));
        browser.waitForTitle(title);
    }
    void expectCrash()
    {
        browser.frame.dialogs
            .expectBox(QStringLiteral("Tallowick Web Browser"),
                       QStringLiteral("The page has stopped working. Refresh loads it again."))
            .icon(QMessageBox::Warning);
    }
    /// Kills the page's process and waits until the user has been told.
    void kill()
    {
        const auto told = browser.frame.dialogs.seen().size();
        const pid_t renderer = browser.renderer();
        ASSERT_GT(renderer, 0);
        ::kill(renderer, SIGKILL);
        browser.waitFor([&] { return browser.frame.dialogs.seen().size() > told; });
        browser.waitFor([] { return QApplication::activeModalWidget() == nullptr; });
    }
};

struct Title
{
    const char *what;
    QByteArray markup;
    QString shown;
};

struct PageTitleTest : PageTroubleTest, testing::WithParamInterface<Title>
{};

QList<Title> titles()
{
    return {
        {"a line feed", "a&#10;b", QStringLiteral("a b")},
        {"a direction mark", "a&#x202e;b", QStringLiteral("a\uFFFDb")},
        {"an isolate", "a&#x2066;b", QStringLiteral("a\uFFFDb")},
        {"markup", "&lt;b>a&lt;/b>&amp;amp;", QStringLiteral("<b>a</b>&amp;")},
        {"a mnemonic", "a &amp;b", QStringLiteral("a &b")},
        {"a place holder", "%1%2", QStringLiteral("%1%2")},
        {"a megabyte", QByteArray(1 << 20, 'x'), QString(256, u'x')},
        {"another script", "\xd7\xa9\xd7\x9c", QStringLiteral("\u05e9\u05dc")},
    };
}

void PrintTo(const Title &title, std::ostream *out)
{
    *out << title.what;
}

} // namespace

TEST_P(PageTitleTest, IsShownAsText)
{
    show("<title>" + GetParam().markup + "</title>", GetParam().shown);
    EXPECT_EQ(browser.form().Caption(), BrowserWindow::caption(GetParam().shown));
}

INSTANTIATE_TEST_SUITE_P(Texts, PageTitleTest, testing::ValuesIn(titles()),
                         [](const auto &row) { return std::to_string(row.index); });

TEST_F(PageTroubleTest, ATitleThatChangesIsFollowed)
{
    show(BrowserWindow::titleWhenPainted("one") +
             "<script>addEventListener('click', () => document.title = 'two')</script>",
         QStringLiteral("one"));
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("two"));
}

TEST_F(PageTroubleTest, AKilledPageIsToldAndLoadedAgain)
{
    show("<title>one</title>", QStringLiteral("one"));
    for (int i = 0; i < 2; ++i) {
        expectCrash();
        kill();
        EXPECT_FALSE(browser.control().Busy());
        browser.press("Refresh");
        browser.waitForTitle(QStringLiteral("one"));
    }
    EXPECT_EQ(browser.server.requestsFor("/"), 3);
    EXPECT_EQ(browser.list().size(), 1);
}

TEST_F(PageTroubleTest, AKilledPageThatIsClosedMeanwhileIsNot)
{
    show("<title>one</title>", QStringLiteral("one"));
    const pid_t renderer = browser.renderer();
    ASSERT_GT(renderer, 0); // 0 is this process and all that it has started
    ::kill(renderer, SIGKILL);
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
}

TEST_F(PageTroubleTest, APageThatHangsCanBeLeft)
{
    show(BrowserWindow::titleWhenPainted("one") +
             "<script>addEventListener('click', () => { document.title = 'busy'; "
             "setTimeout(() => { for (;;); }, 50) })</script>",
         QStringLiteral("one"));
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("busy"));
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
}

TEST_F(PageTroubleTest, AFloodOfBoxesInAnEndlessLoopCanBeLeft)
{
    browser.frame.dialogs.leaveWhatComes();
    browser.server.page("/", "<script>for (;;) alert('again')</script>");
    browser.open(QStringLiteral("/"));
    browser.waitFor([&] { return browser.frame.dialogs.seen().size() == 3; });
    browser.waitFor([] { return QApplication::activeModalWidget() == nullptr; });
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
    EXPECT_EQ(browser.frame.dialogs.seen().size(), 3);
}

TEST_F(PageTroubleTest, ManyPlacesInOnePageDoNotFillTheList)
{
    show("<script>for (let i = 0; i < 100; ++i) history.replaceState(0, '', '#' + i); document.title = "
         "'done'</script>",
         QStringLiteral("done"));
    EXPECT_LE(browser.list().size(), 2);
    EXPECT_EQ(browser.list().constFirst(), browser.server.address(QStringLiteral("/#99")));
}

TEST_F(PageTroubleTest, AnAddressOfAMegabyteIsNoEntry)
{
    show(BrowserWindow::titleWhenPainted("one") +
             "<script>addEventListener('click', () => { history.pushState(0, '', '#' + "
             "'x'.repeat(1 << 20)); document.title = 'two' })</script>",
         QStringLiteral("one"));
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("two"));
    EXPECT_EQ(browser.list(), QStringList(browser.server.address(QStringLiteral("/"))));
}

TEST_F(PageTroubleTest, APasswordIsNotShown)
{
    browser.server.titled("/", "one");
    browser.open();
    browser.enter(QStringLiteral("http://user:secret@%1/").arg(browser.server.host()));
    browser.waitForTitle(QStringLiteral("one"));
    EXPECT_FALSE(browser.list().join(u' ').contains(QStringLiteral("secret")));
    EXPECT_FALSE(browser.box().Text().contains(QStringLiteral("secret")));
}
