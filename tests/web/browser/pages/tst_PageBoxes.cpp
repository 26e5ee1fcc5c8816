#include "BrowserWindow.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct PageBoxesTest : testing::Test
{
    BrowserWindow browser;
    /// Pages ask only those who have clicked.
    const QByteArray leavingAsks = "onbeforeunload = e => { e.preventDefault(); e.returnValue = 'x' };"
                                   "onclick = () => document.title = 'clicked'";

    QString asked() const { return QStringLiteral("The page of %1 says:").arg(browser.server.host()); }
    BoxStep &expect(const char *text)
    {
        return browser.frame.dialogs.expectBox(asked(), QString::fromUtf8(text));
    }
    void showPage(const QByteArray &script, const QByteArray &body, const char *title)
    {
        browser.server.page("/", "<!doctype html><meta charset=utf-8><script>" + script + "</script><body>x" +
                                     body);
        browser.open(QStringLiteral("/"));
        browser.waitForTitle(QString::fromUtf8(title));
    }
    /// Until \a script has given the page its title \a title.
    void show(const QByteArray &script, const char *title) { showPage(script, {}, title); }
    /// Until the page hears clicks.
    void showPainted(const QByteArray &script)
    {
        showPage(script, BrowserWindow::titleWhenPainted("done"), "done");
    }
};

} // namespace

TEST_F(PageBoxesTest, AMessageIsShownAsPlainText)
{
    expect("<b>bold</b>\n\uFFFDx");
    show("alert('<b>bold</b>\\n\\u202ex'); document.title = 'done'", "done");
}

TEST_F(PageBoxesTest, AQuestionHasItsAnswer)
{
    expect("really?").buttons(QMessageBox::Ok | QMessageBox::Cancel).press(QMessageBox::Ok);
    expect("really?").press(QMessageBox::Cancel);
    show("document.title = confirm('really?') + ' ' + confirm('really?')", "true false");
}

TEST_F(PageBoxesTest, APromptHasItsText)
{
    browser.frame.dialogs.expectInput(asked(), QStringLiteral("name?"))
        .suggests(QStringLiteral("old"))
        .type(QStringLiteral("new"));
    browser.frame.dialogs.expectInput(asked(), QStringLiteral("again?")).press(QMessageBox::Cancel);
    show("document.title = prompt('name?', 'old') + ' ' + prompt('again?')", "new null");
}

TEST_F(PageBoxesTest, AFloodEndsAfterThreeUntilTheNextInput)
{
    for (int i = 0; i < 3; ++i)
        expect("again");
    showPainted(
        "for (let i = 0; i < 1000; ++i) alert('again');"
        "addEventListener('click', () => { for (let i = 0; i < 1000; ++i) confirm('more'); document.title = "
        "'clicked' })");
    EXPECT_EQ(browser.frame.dialogs.seen().size(), 3);
    for (int i = 0; i < 3; ++i)
        expect("more");
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("clicked"));
    EXPECT_EQ(browser.frame.dialogs.seen().size(), 6);
}

TEST_F(PageBoxesTest, AFloodAcrossPagesEndsToo)
{
    for (int i = 0; i < 3; ++i)
        expect("again");
    browser.server.titled("/end", "end");
    show("let n = +(location.hash.slice(1) || 0); alert('again');"
         "if (n < 10) { location.hash = n + 1; location.reload() } else location = '/end'",
         "end");
    EXPECT_EQ(browser.frame.dialogs.seen().size(), 3);
}

TEST_F(PageBoxesTest, ALongMessageIsCut)
{
    expect(std::string(1000, 'x').c_str());
    show("alert('x'.repeat(1 << 20)); document.title = 'done'", "done");
}

TEST_F(PageBoxesTest, ManyLinesAreCut)
{
    expect(("x" + QByteArray("\nx").repeated(19)).constData());
    show("alert('x\\n'.repeat(1000)); document.title = 'done'", "done");
}

TEST_F(PageBoxesTest, LeavingIsAskedForAfterAnInput)
{
    browser.server.titled("/b", "second");
    showPainted(leavingAsks);
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("clicked"));
    expect("Are you sure you want to leave this page? Changes that you made may not be saved.")
        .press(QMessageBox::Ok);
    browser.visit(QStringLiteral("/b"));
    browser.waitForTitle(QStringLiteral("second"));
}

TEST_F(PageBoxesTest, TheWindowClosesWhateverThePageWants)
{
    showPainted(leavingAsks);
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("clicked"));
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
}

TEST_F(PageBoxesTest, TheWindowCanBeClosedWhileABoxIsUp)
{
    expect("up").press(QMessageBox::Ok);
    browser.server.page("/", "<script>alert('up'); document.title = 'done'</script>");
    browser.open(QStringLiteral("/"));
    const QMetaObject::Connection connection = QObject::connect(
        &browser.control(), &WebControl::BoxWanted, &browser.form(), [&] { browser.form().unload(); });
    browser.waitFor([&] { return !browser.isOpen(); });
}
